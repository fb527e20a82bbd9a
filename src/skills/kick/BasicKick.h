#pragma once

#include <string>

#include "skills/BasicAction.h"
#include "skills/ConfigSkill.h"

class Command;
class WorldModel;

// Plays the kick once: "LeftKick" from its first step after the player has been reset (current
// skill "@", not finished), then "Stop"; it reports success once "Stop" has run out.
class BasicKick : public BasicAction {
public:
    BasicKick(const WorldModel& wm, bool dropCommand);
    ~BasicKick() override = default;

    Command* getCommand() override { return command; }
    bool isFinished() override;
    bool isCurrentSkillFinished() override;

    // The kick's player, so that a plan can reset it before a new kick.
    static ConfigSkill& getConfigSkill() { return configSkill; }
    static const std::string& getKickSide() { return kickSide; }
    // How many kicks have been started with their command kept (not probes): for game reports.
    static unsigned int getStarts() { return starts; }

    // Restores the start-of-process state: no kick chosen, nothing loaded.
    static void resetState();
    // Rewinds the kick player completely, so that the next kick starts at its first step.
    static void rewind();

private:
    void play(const std::string& name, const WorldModel& wm);

    Command* command = nullptr;

    static std::string kickSide;
    static ConfigSkill configSkill;
    static unsigned int starts;
};
