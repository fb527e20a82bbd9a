#pragma once

#include "skills/BasicAction.h"
#include "skills/ConfigSkill.h"

class Command;

// Base of the on-the-spot turns. The turn's progress lives in the class statics: the player of
// the turn skills (its current skill name and step carry a turn from cycle to cycle), the total
// turn commanded since the last reset and the size of the step in progress.
class BasicTurn : public BasicAction {
public:
    explicit BasicTurn(bool dropCommand);
    ~BasicTurn() override = default;

    Command* getCommand() override = 0;
    bool isFinished() override;
    bool isCurrentSkillFinished() override;

    // Set by nothing in this design; kept as part of the turn interface.
    float getDeltaAngle() const { return deltaAngle; }
    bool isOneTurnPossible() const { return oneTurnPossible; }

    // The turn commanded so far, in degrees (sum of the signed step sizes since the last reset).
    static void setDoAngle(float angle) { doAngle = angle; }
    static float getDoAngle() { return doAngle; }
    // The size of the current turn step, in degrees: 40, 30, 25, 15, 10 or 5.
    static float getTurnAngle() { return turnAngle; }
    static ConfigSkill& getConfigSkill() { return configSkill; }

    // Restores the start-of-process state: no turn skill loaded, nothing commanded.
    static void resetState();

protected:
    float deltaAngle = 0.0F;
    bool oneTurnPossible = false;
    Command* command = nullptr;

    static ConfigSkill configSkill;
    static float doAngle;    // degrees
    static float turnAngle;  // degrees
};
