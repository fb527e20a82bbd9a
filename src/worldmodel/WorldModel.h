#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "math/Vector3.h"
#include "utilities/config/Config.h"
#include "worldmodel/Ball.h"
#include "worldmodel/FallRule.h"
#include "worldmodel/Flag.h"
#include "worldmodel/FlagType.h"
#include "worldmodel/PerceptReader.h"
#include "worldmodel/Self.h"
#include "worldmodel/TorsoAttitude.h"

class SExpression;
class Timer;

/// The server's play mode as far as the player cares: before kick-off, or anything else.
enum PlayModeT { BeforeKickOff = 0, InPlay = 3 };

/// The agent's picture of the game: time, play mode, side, its own robot, the ball and the
/// field's landmarks, updated from every perceptor message the server sends.
///
/// Field frame: metres, origin at the centre of the field, x along its length, y across, z up;
/// headings counter-clockwise from +x in radians, except the body direction of `Self`, which is
/// in degrees.
///
/// A message that cannot be read (unbalanced or truncated text, no "time"/"now", a "GS"
/// without "t" or "pm", a perceptor of the wrong layout, several "B" lists, a landmark without
/// exactly one "pol", an "ACC" without "a" or with fewer than three values) is dropped whole: one
/// line on "Main" says why and the world model keeps its previous state. All of the message is read
/// and checked before any of it is applied.
class WorldModel {
public:
    WorldModel();
    WorldModel(const WorldModel&) = delete;
    WorldModel& operator=(const WorldModel&) = delete;
    virtual ~WorldModel();

    /// Takes in one perceptor message as received from the server. Records it on "MainOff"
    /// unless the agent plays offline. Returns false when the message was dropped.
    bool update(const std::string& message);
    /// Restarts the cycle timer and takes `t` (seconds) as the simulation time: the time step
    /// becomes `t` minus the previous time.
    void setTime(float t);

    /// The simulation time "now" of the last message (seconds).
    float getTime() const { return time; }
    /// The game time "t" of the last "GS" (seconds).
    float getCycle() const { return cycle; }
    /// The simulation time between the last two messages (seconds); joint velocities divide by
    /// it.
    float getTimeStep() const { return timeStep; }
    /// Milliseconds since the current message was taken in.
    Timer* getTimer() { return timer.get(); }
    const Timer* getTimer() const { return timer.get(); }
    const Self* getSelf() const { return self.get(); }
    /// The same `Self`, for the agent loop to record the command it sends.
    Self* setSelf() { return self.get(); }
    const Ball* getBall() const { return ball.get(); }
    /// The landmark table, indexed by `FlagType`; empty until the first vision perceptor.
    const std::vector<Flag*>& getFlags() const { return flags; }
    std::vector<Flag*>& getFlags() { return flags; }
    /// The landmark `type`, or null while the table is empty.
    Flag* getFlag(FlagType type) const;
    /// The heading of the head in the field frame from the last localisation (radians).
    float getXY() const { return headDirection.x; }
    /// The number of landmarks seen in the last vision perceptor that saw at least two.
    int getFlagsVisionSize() const { return flagsVisionSize; }
    PlayModeT getPlayMode() const { return playMode; }
    /// 0 while unknown, 1 left, 2 right.
    int getSide() const { return side; }
    /// Whether the robot lies on the ground, by the rule the configuration chooses (read with
    /// the first message taken in): `Attitude`, the torso's attitude says so; `Landmarks`, the
    /// largest vertical offset of a landmark seen last exceeds 6 metres.
    bool isFallen() const {
        return fallRule == FallRule::Attitude ? attitude.isFallen() : fallenValue > 6.0F;
    }
    FallRule getFallRule() const { return fallRule; }
    // The landmark fall indicator, kept under either rule: the largest |z| of a landmark seen
    // (metres, camera frame).
    float getFallenValue() const { return fallenValue; }
    /// The torso's attitude from the accelerometer and gyroscope, kept under either rule.
    const TorsoAttitude& getAttitude() const { return attitude; }

    /// Only the side from a message that is otherwise not taken in (the answers the session
    /// start reads before each beam): the server names the team's half once, in whichever
    /// message follows the registration, and the side must not be missed. A message that cannot
    /// be read or names no team changes nothing; returns whether the side was set. A message
    /// that sets it is recorded to "MainOff" (when online), so that a replay sets it too.
    bool takeSide(const std::string& message);

    /// The perceptor readers `update` dispatches to, usable one by one. Each checks its part
    /// of the message first and changes nothing (returning false, with a line on "Main") when
    /// it cannot be read.
    ///
    /// A "GS" list: game time, play mode and, when named, the side.
    bool updateGameState(const SExpression& gs);
    /// A "GYR" list: the gyroscope rate of `Self`.
    bool updateGYR(const SExpression& gyr);
    /// The message root: every "HJ" (joint angle and velocity) and "FRP" (foot pressure).
    bool updateBody(const SExpression& message);
    /// A "See" list: the landmarks, localisation, heading and position of `Self`.
    bool updateVision(const SExpression& see);
    /// A "See" list: the ball's position, or one more message without it.
    bool updateBall(const SExpression& see);

    /// Self-localisation from the landmarks `seen` (relative Cartesian vectors by `FlagType`
    /// value). Mode 0 returns (heading, 0, 0) and mode 1 the field position when at least two
    /// landmarks were seen; otherwise the last position. Also keeps the fall indicator, the
    /// head direction and the shared heading flag.
    math::Vector3<float> updateBodyAngularPositionByFlags(
        std::map<unsigned int, math::Vector3<float>> seen, unsigned int mode);

private:
    void applyGameState(const GameStateReading& reading);
    void applyBody(const Percepts& readings);
    // The landmarks seen, levelled by the head's tilt, into the localisation.
    void applyVision(const std::map<unsigned int, math::Vector3<float>>& seen);
    // The measured angle of the head's tilt joint (degrees, negative down); 0 when vision is not
    // levelled.
    float headTilt() const;
    void applyBall(bool seen, const math::Vector3<float>& relative);
    void refreshFlags();
    math::Vector3<float> refinePosition(const std::map<unsigned int, math::Vector3<float>>& turned,
                                        const math::Vector3<float>& estimate);
    void drop(const std::string& why) const;

    Config config;
    std::unique_ptr<Timer> timer;
    std::vector<Flag*> flags;
    std::unique_ptr<Self> self;
    std::unique_ptr<Ball> ball;
    float cycle = 0.0F;
    float time = 0.0F;
    float timeStep = 0.0F;
    float lastTime = 0.0F;
    math::Vector3<float> headDirection;
    math::Vector3<float> flagDirectionSum;
    PlayModeT playMode = BeforeKickOff;
    int flagsVisionSize = 0;
    float fallenValue = 0.0F;
    int side = 0;
    TorsoAttitude attitude;
    FallRule fallRule = FallRule::Landmarks;
    bool fallRuleRead = false;
    bool levelHeadTilt = false;  // vision levelled by the head's tilt (read with the fall rule)

    /// Scratch space for reading one message; not part of the picture of the game.
    std::string wrapped;
    Percepts percepts;
};
