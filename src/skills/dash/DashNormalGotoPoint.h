#pragma once

#include <memory>
#include <string>

#include "math/Point.h"
#include "math/Vector3.h"
#include "skills/dash/BasicDash.h"
#include "skills/turn/TurnAngle.h"

class Command;
class WorldModel;

// Brings the robot to a point of the field, one cycle per construction, by alternating walking
// ("Walk" far away, "ShortWalk" close by), stopping ("Stop") and turning on the spot. A walk is
// always stopped before a turn; the robot has arrived when the target is nearer than 0.3 m and a
// "Stop" has run to its end (success rate 100).
class DashNormalGotoPoint : public BasicDash {
public:
    DashNormalGotoPoint(const math::Point& target, const WorldModel& wm, bool dropCommand);
    // Builds only the bases; chooses nothing.
    DashNormalGotoPoint(math::Point target, float angle, const WorldModel& wm, float ignored,
                        bool dropCommand);
    ~DashNormalGotoPoint() override = default;

    Command* getCommand() override { return command; }
    bool isFinished() override;

    static void setActionBoolean(bool value) { isAction = value; }
    static bool isActionBoolean() { return isAction; }
    static void setFinishedBoolean(bool value) { finished = value; }
    static bool isFinishedBoolean() { return finished; }
    static void setFirstFinished(bool value) { firstFinished = value; }
    static bool isFirstFinished() { return firstFinished; }
    // The walking skill last chosen, "Walk" or "ShortWalk".
    static const std::string& getWalkSkillType() { return walkSkillType; }
    // The turn angle remembered for the turn in progress, degrees.
    static float getDeltaAlpha() { return deltaAlpha; }
    // The turn on the spot in progress (an idle turn before the first one).
    static TurnAngle& getTurnAngle() { return *turnAngle; }

    // The quantities one decision is based on (field frame, metres and degrees).
    struct Geometry {
        math::Vector3<float> heading;   // unit vector of the robot's heading
        math::Vector3<float> toTarget;  // target minus own position
        float distance = 0.0F;          // |toTarget|, metres
        float angle = 0.0F;             // signed angle from heading to toTarget, degrees
        float lateral = 0.0F;           // lateral offset of the target, metres (100 when behind)
        float minTurnAngle = 0.0F;      // smallest angle worth a turn at this distance, degrees
    };
    static Geometry computeGeometry(const math::Point& target, const WorldModel& wm);

    // Restores the start-of-process state: undecided, idle turn, "Walk", no remembered angle.
    static void resetState();

private:
    // The parts of one cycle, in order. Has the movement in progress (turn or walk) ended? On
    // the end of a turn, the angle still left between heading and target is remembered.
    void checkMovementEnded(const Geometry& g);
    // The very first decision of the process: stop, turn or walk.
    void firstDecision(const Geometry& g, const WorldModel& wm);
    // A movement is under way: let it go on.
    void continueMovement(const WorldModel& wm);
    // The previous movement has ended: arrived (stop), off the line (stop the walk, then turn)
    // or walk on.
    void decideAfresh(const Geometry& g, const WorldModel& wm);

    void play(const std::string& name, const WorldModel& wm);
    void startTurn(float angle, const WorldModel& wm);
    static void resetTurnPlayer();

    Command* command = nullptr;

    // The turn built in the latest cycle of turning; each cycle of a turn replaces it.
    static std::unique_ptr<TurnAngle> turnAngle;
    static bool isAction;
    static bool finished;
    static bool firstFinished;
    static std::string walkSkillType;
    static float deltaAlpha;  // degrees
};
