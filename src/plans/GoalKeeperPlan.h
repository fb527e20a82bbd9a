#pragma once

#include <string>

#include "math/Point.h"
#include "plans/AdvancePlan.h"

class Command;
class WorldModel;

// The goalkeeper (role 1). Each cycle it looks at the ball: while the ball's x is at least the
// dive limit (-5 m when the team plays on the left, +5 m otherwise) it side-steps towards the
// middle of its goal line ("sideWalk"); below the limit it dives to the ball's side ("div").
// Getting up ("standup") depends on the fall rule: under `Attitude` a fallen keeper begins its
// stand-up in the cycle the fall is known, unless it fell diving: then it stays down while the
// plan keeps diving (the ball past the dive limit), at most 3 s from the fall, and gets up as
// soon as the dive ends. Under `Landmarks` it gets up once fallen with a dive clock
// past 20 s (the clocks run from the first cycle and from the last stand-up).
class GoalKeeperPlan : public AdvancePlan {
public:
    GoalKeeperPlan(std::string name, const WorldModel* wm);
    ~GoalKeeperPlan() override = default;
    GoalKeeperPlan(const GoalKeeperPlan&) = delete;
    GoalKeeperPlan& operator=(const GoalKeeperPlan&) = delete;

    bool isFinished() override;
    double successRate() override;
    void decide() override;
    // The command chosen by `decide()`; the caller owns it.
    Command* getCommand() override { return command; }

    float getBallY() const { return ballY; }
    float getBallX() const { return ballX; }

    // Class-wide memory of the goalkeeper.
    static bool first;            // the opening style step has not been taken yet
    static std::string name;      // sub-behaviour: empty, "sideWalk", "div" or "standup"
    static math::Point mPoint;    // not used by the goalkeeper
    static std::string diveSide;  // the dive last chosen: "LeftDiv", "RightDiv" or empty

    // Restores the start-of-process state of the plan's statics.
    static void resetState();

private:
    void chooseAfresh();
    // The stand-up rule under the fall rule `Attitude`.
    void getUpAfterFall();
    // Stops both dive clocks and the commands' wait clock and begins a stand-up.
    void beginStandUp();
    void dive(bool left);
    void replaceCommand(Command* next);

    float ballY = 0.0F;  // metres
    float ballX = 0.0F;  // metres
    Command* command = nullptr;
};
