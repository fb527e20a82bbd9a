#include "skills/turn/BasicTurn.h"

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
    configSkill.setCurrentSkillName("@");
    configSkill.setFinishedSkill(false);
    doAngle = 0.0F;
    turnAngle = 0.0F;
}
