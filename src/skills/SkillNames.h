#pragma once

// The names of the skills that the skills and plans play, as the skill data files and the
// configuration index name them. The skill player's name for "no skill yet" is kNoSkill.
namespace skillname {

inline constexpr char kNoSkill[] = "@";

// Walking (degrees per cycle and key frames are the files').
inline constexpr char kWalk[] = "Walk";
inline constexpr char kShortWalk[] = "ShortWalk";
inline constexpr char kStop[] = "Stop";
// Turning on the spot: "TurnLeft" or "TurnRight" followed by the step size in degrees.
inline constexpr char kTurnLeft[] = "TurnLeft";
inline constexpr char kTurnRight[] = "TurnRight";
inline constexpr char kLeftKick[] = "LeftKick";
inline constexpr char kLeftSideWalk[] = "LeftSideWalk";
inline constexpr char kRightSideWalk[] = "RightSideWalk";
inline constexpr char kStyle[] = "Style";
inline constexpr char kFrontStandUp[] = "FrontStandUp";
inline constexpr char kBackStandUp[] = "BackStandUp";
// The goalkeeper's dives (postures computed in code, not skill files).
inline constexpr char kLeftDive[] = "LeftDiv";
inline constexpr char kRightDive[] = "RightDiv";

}  // namespace skillname
