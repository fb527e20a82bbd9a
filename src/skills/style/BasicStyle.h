#pragma once

#include "skills/BasicAction.h"
#include "skills/ConfigSkill.h"

class Command;
class WorldModel;

// Plays one step of the opening "Style" motion per construction. It reports itself finished at
// once (the inherited answer).
class BasicStyle : public BasicAction {
public:
    BasicStyle(const WorldModel& wm, bool dropCommand);
    ~BasicStyle() override = default;

    Command* getCommand() override { return command; }

    static ConfigSkill& getConfigSkill() { return configSkill; }

    // Restores the start-of-process state: nothing loaded.
    static void resetState();

private:
    Command* command = nullptr;

    static ConfigSkill configSkill;
};
