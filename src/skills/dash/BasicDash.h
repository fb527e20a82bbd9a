#pragma once

#include "skills/BasicAction.h"
#include "skills/ConfigSkill.h"

// Base of the walking skills. Its player is shared by all of them, so that a walk started by one
// cycle's dash continues in the next.
class BasicDash : public BasicAction {
public:
    explicit BasicDash(bool dropCommand);
    ~BasicDash() override = default;

    bool isFinished() override;
    bool isCurrentSkillFinished() override;

    static ConfigSkill& getConfigSkill() { return configSkill; }

    // Restores the start-of-process state of the walking player (no skill loaded).
    static void resetState();

protected:
    static ConfigSkill configSkill;
};
