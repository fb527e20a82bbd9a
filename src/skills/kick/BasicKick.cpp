#include "skills/kick/BasicKick.h"

#include "commands/Command.h"
#include "skills/SkillNames.h"
#include "worldmodel/WorldModel.h"

std::string BasicKick::kickSide;
ConfigSkill BasicKick::configSkill;
unsigned int BasicKick::starts = 0;

BasicKick::BasicKick(const WorldModel& wm, bool dropCommand) : BasicAction(dropCommand) {
    setSuccessRate(0.0F);
    kickSide = skillname::kLeftKick;
    if (configSkill.isFinished()) {
        command = settleWithStop(configSkill, wm);
    } else if (configSkill.getCurrentSkillName() == skillname::kNoSkill) {
        configSkill.setCurrentConfigStepNumber(0);
        play(kickSide, wm);
        if (!isDropCommand()) {
            ++starts;
        }
    } else {
        play(configSkill.getCurrentSkillName(), wm);
    }
    if (isDropCommand()) {
        delete command;
        command = nullptr;
    }
}

bool BasicKick::isFinished() {
    return getSuccessRate() == 100.0F;
}

bool BasicKick::isCurrentSkillFinished() {
    return configSkill.isFinished();
}

void BasicKick::play(const std::string& name, const WorldModel& wm) {
    command = new Command(configSkill.getConfigCommandSkill(name, &wm));
}

void BasicKick::resetState() {
    kickSide.clear();
    starts = 0;
    rewind();
}

void BasicKick::rewind() {
    configSkill.setCurrentSkillName(skillname::kNoSkill);
    configSkill.setFinishedSkill(false);
}
