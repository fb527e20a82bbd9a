#pragma once

#include <string>

#include "math/Point.h"
#include "plans/AdvancePlan.h"

class Command;
class WorldModel;

// The defender (role 2): after one opening style step it side-steps every cycle so as to keep
// level with the ball across the field. Under the fall rule `Attitude` a fallen defender first
// gets up ("standup"); under `Landmarks` it side-steps on regardless.
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
    static std::string name;    // "standup" while getting up, otherwise empty
    static math::Point mPoint;  // not used by the defender

    // Restores the start-of-process state of the plan's statics.
    static void resetState();

private:
    // Under `Attitude`: begins or continues a stand-up; true when its command is this cycle's.
    bool standUpAfterFall();

    Command* command = nullptr;
};
