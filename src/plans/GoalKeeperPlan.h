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
//
// With a group "Keep" in "GoalKeeperParameters" the side steps keep the keeper on its goal line
// (the x of its beam) level with the ball's y, at most "PostMargin" inside either post, and a
// keeper that has left the line by more than "OffLine" walks back to it; it dives when the ball
// lies within 10 m of its own goal line, on either side of the field, to the ball's side as seen
// facing the opponents. Without the group it side-steps towards the middle of the goal and dives
// below the limit of -5 m (left) or +5 m (otherwise), as the original keeper did.
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
    static bool walking;          // keeping: walking back to the goal line

    // Restores the start-of-process state of the plan's statics.
    static void resetState();

    // Whether the keeper keeps to its goal line (the group "Keep" exists).
    static bool isKeeping();
    // The keeper's y on its goal line for the ball's y: the ball's, at most `postMargin` inside
    // the posts of a goal `goalWidth` wide (metres).
    static float keeperY(float ballY, float goalWidth, float postMargin);

private:
    void chooseAfresh();
    // The stand-up rule under the fall rule `Attitude`.
    void getUpAfterFall();
    // Stops both dive clocks and the commands' wait clock and begins a stand-up.
    void beginStandUp();
    // Whether the ball has come close enough to the goal for a dive.
    bool isBallAtGoal() const;
    // The positioning while the ball is far: side steps (and the walk back to the line).
    void position();
    void dive(bool left);
    void replaceCommand(Command* next);

    float ballY = 0.0F;  // metres
    float ballX = 0.0F;  // metres
    Command* command = nullptr;
};
