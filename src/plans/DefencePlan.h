#pragma once

#include <string>

#include "math/Point.h"
#include "plans/AdvancePlan.h"

class Command;
class WorldModel;

// The defender (role 2). After one opening style step it positions itself every cycle.
//
// Without a group "Defend" in "DefenceParameters" it side-steps so as to keep level with the ball
// across the field, as the original defender did. With it, the defender guards: it stands on its
// line (the x of its beam) where the line from the ball to its own goal's centre crosses it,
// side-stepping along the line and walking back when it has left it, never closer than
// "FieldMargin" to the touch lines; and when the ball comes within "ClearDistance" in its own
// half it walks round the ball and clears it at the opponents' goal with a kick (KickApproach,
// kick switch "DefenceParameters" / "Kick").
//
// Under the fall rule `Attitude` a fallen defender first gets up ("standup"); under `Landmarks`
// it plays on regardless.
class DefencePlan : public AdvancePlan {
public:
    DefencePlan(std::string name, const WorldModel* wm);
    ~DefencePlan() override = default;
    DefencePlan(const DefencePlan&) = delete;
    DefencePlan& operator=(const DefencePlan&) = delete;

    bool isFinished() override;
    double successRate() override;
    void decide() override;
    // The command chosen by `decide()`; the caller owns it.
    Command* getCommand() override { return command; }

    static bool first;          // the opening style step has not been taken yet
    static std::string name;    // "standup" while getting up (under the fall rule `Attitude`);
                                // guarding: "sideWalk", "walk" (back to the line), "clear" (to
                                // the ball) or "kick"; otherwise empty
    static math::Point mPoint;  // guarding: the last walking target (field frame, metres)

    // Restores the start-of-process state of the plan's statics.
    static void resetState();

    // Whether the defender guards (the group "Defend" exists).
    static bool isGuarding();
    // The guarding place for the ball at `ball`, the own goal's centre at `ownGoal` and the line
    // x = `lineX` (field frame): where the line from the ball to the goal centre crosses the
    // defender's line, or level with the ball when it lies between the line and the goal; y kept
    // at most `maxY` from the middle (metres).
    static math::Point guardPoint(math::Point ball, math::Point ownGoal, float lineX, float maxY);

private:
    // Under `Attitude`: begins or continues a stand-up; true when its command is this cycle's.
    bool standUpAfterFall();
    void replaceCommand(Command* next);
    // The original positioning: a side step towards the ball's y.
    void followBall();
    // Guarding, clearing and its kick.
    void guard();
    void walkTo(math::Point target, const char* walkName);
    void startKick();

    Command* command = nullptr;
};
