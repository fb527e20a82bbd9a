#pragma once

class Config;

/// How the world model decides that the robot has fallen; "WorldModelParameters" / "Fall" /
/// "Rule" chooses.
enum class FallRule {
    /// From the torso's attitude (accelerometer and gyroscope, see `TorsoAttitude`).
    Attitude,
    /// From vision: a landmark seen more than 6 metres above or below the camera. On the
    /// 30 x 20 m field any landmark 17.5 m or more away does that for an upright robot whose
    /// head is tilted 20 degrees down; kept for comparison and for recordings of old games.
    Landmarks,
};

/// The rule the configuration chooses: "Attitude" or "Landmarks" (the whole value, exactly).
/// Without the key (or its group or configuration) the rule is `Landmarks`, the one in force
/// before the key existed. Any other value stops the program with a diagnostic naming the file,
/// the line and the key (ConfigError.h).
FallRule readFallRule(const Config& store);
