#include "skills/dash/BasicDash.h"

#include "skills/SkillNames.h"
ConfigSkill BasicDash::configSkill;

BasicDash::BasicDash(bool dropCommand) : BasicAction(dropCommand) {}

bool BasicDash::isFinished() {
    return true;
}

bool BasicDash::isCurrentSkillFinished() {
    return configSkill.isFinished();
}

void BasicDash::resetState() {
    configSkill.setCurrentSkillName(skillname::kNoSkill);
    configSkill.setFinishedSkill(false);
}
