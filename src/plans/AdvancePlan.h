#pragma once

#include <string>

#include "plans/BasicPlan.h"

class Command;

// A plan that yields a whole-body command: after `decide()`, `getCommand()` hands out the command
// chosen, and the caller owns it.
class AdvancePlan : public BasicPlan {
public:
    AdvancePlan(std::string name, const WorldModel* wm);

    bool isFinished() override;
    double successRate() override;
    void decide() override;
    virtual Command* getCommand() = 0;
};
