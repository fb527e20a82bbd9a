#pragma once

#include <string>

#include "math/Point.h"
#include "plans/AdvancePlan.h"

class Command;
class WorldModel;

// The attacker (role 3). After one opening style step it walks ("dash"), kicks when it stands
// close behind the ball facing the way the kick should go ("kick"), and stands up whenever it has
// fallen ("standup"). With a group "Footing" it walks on until the ball is close enough for the
// kick to meet it (KickApproach::Footing), judged on a view that shows the ball, and
// watches the ball in the last metre. A walk hands over to the kick only where a gait cycle ends. A
// sub-behaviour that has ended hands over to a fresh walk, with the walking and kicking state
// reset.
//
// Where it walks is set by "OffenseParameters" / "Attack" / "Target": "goal" plays for goals
// (round the ball to a kicking position behind it on the line from the ball to the opponents'
// goal centre, then through the ball at the goal, re-planned every cycle from where the ball is;
// see KickApproach); "far", or no group "Attack" at all, walks towards a point 100 m along the
// attack, as the original attacker did.
class OffensePlan : public AdvancePlan {
public:
    OffensePlan(std::string name, const WorldModel* wm);
    ~OffensePlan() override = default;
    OffensePlan(const OffensePlan&) = delete;
    OffensePlan& operator=(const OffensePlan&) = delete;

    bool isFinished() override;
    double successRate() override;
    void decide() override;
    // The command chosen by `decide()`; the caller owns it.
    Command* getCommand() override { return command; }

    // Whether the robot stands close behind the ball facing the way the kick should go (at the
    // opponents' goal centre when playing for goals, along the attack otherwise), by the
    // thresholds of group "Kick" of "OffenseParameters".
    static bool isKickPosition(const WorldModel& wm);
    // Whether the attacker plays for goals ("Attack" / "Target" = goal).
    static bool isScoring();
    // This cycle's walking target (field frame, metres).
    static math::Point walkingTarget(const WorldModel& wm);

    static bool first;        // the opening style step has not been taken yet
    static std::string name;  // sub-behaviour: empty, "dash", "standup" or "kick"
    // Close to the ball while playing for goals with a group "Footing": the head should watch
    // the ball rather than sweep, so that every view shows where it lies.
    static bool watchingBall;
    static float watchPan;      // where the ball lies from the body's heading, degrees (left +)
    static math::Point mPoint;  // the walking target, rewritten every cycle

    // Restores the start-of-process state of the plan's statics.
    static void resetState();

private:
    void replaceCommand(Command* next);
    void startWalking();
    void startKick();
    // At the kick switch: kick, or (with a group "Footing") walk on while the ball, as the body
    // sees it, lies further ahead than the kick reaches.
    void closeUp(bool placesFoot, math::Point ballFromBody);
    // Whether the walk ("Walk" or "ShortWalk") is under way, as a cycle begins.
    static bool isMidGait();

    Command* command = nullptr;
};
