#include "skills/turn/BasicTurn.h"

#include "skills/SkillNames.h"
ConfigSkill BasicTurn::configSkill;
float BasicTurn::doAngle = 0.0F;
float BasicTurn::turnAngle = 0.0F;

BasicTurn::BasicTurn(bool dropCommand) : BasicAction(dropCommand) {}

bool BasicTurn::isFinished() {
    return true;
}

bool BasicTurn::isCurrentSkillFinished() {
    return configSkill.isFinished();
}

void BasicTurn::resetState() {
    configSkill.setCurrentSkillName(skillname::kNoSkill);
    configSkill.setFinishedSkill(false);
    doAngle = 0.0F;
    turnAngle = 0.0F;
}
