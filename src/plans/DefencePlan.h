#pragma once

#include <string>

#include "math/Point.h"
#include "plans/AdvancePlan.h"

class Command;
class WorldModel;

// The defender (role 2): after one opening style step it side-steps every cycle so as to keep
// level with the ball across the field.
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
    static std::string name;    // not used by the defender
    static math::Point mPoint;  // not used by the defender

    // Restores the start-of-process state of the plan's statics.
    static void resetState();

private:
    Command* command = nullptr;
};
