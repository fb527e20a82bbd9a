#pragma once

#include <string>

#include "skills/BasicAction.h"
#include "skills/ConfigSkill.h"

class Command;
class WorldModel;

// Side-steps the robot towards a y coordinate of the field. The side ("LeftSideWalk" or
// "RightSideWalk") is chosen afresh only between two complete side-step skills, never in the
// middle of one; a robot exactly at the target steps left. After any other skill (a walk, a
// stand-up) the side step starts again from its first key frame.
class BasicSideWalk : public BasicAction {
public:
    // One cycle of side-stepping towards field coordinate `y` (metres). The command is always
    // kept: this skill does not honour `dropCommand`.
    BasicSideWalk(const WorldModel& wm, float y, bool dropCommand);
    ~BasicSideWalk() override = default;

    Command* getCommand() override { return command; }
    bool isFinished() override;
    bool isCurrentSkillFinished() override;

    static ConfigSkill& getConfigSkill() { return configSkill; }
    static const std::string& getSideWalkSide() { return sideWalkSide; }
    static bool isFirstFinished() { return firstFinished; }

    // Restores the start-of-process state: no side chosen, nothing loaded.
    static void resetState();

private:
    Command* command = nullptr;

    static ConfigSkill configSkill;
    static std::string sideWalkSide;
    static bool firstFinished;
    static unsigned int stepLeftAt;  // the key-frame step the last side step left behind
};
