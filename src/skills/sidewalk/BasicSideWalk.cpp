#include "skills/sidewalk/BasicSideWalk.h"

#include "commands/Command.h"
#include "skills/SkillNames.h"
#include "utilities/logging/Debugger.h"
#include "worldmodel/WorldModel.h"

ConfigSkill BasicSideWalk::configSkill;
std::string BasicSideWalk::sideWalkSide;
bool BasicSideWalk::firstFinished = false;
unsigned int BasicSideWalk::stepLeftAt = 0;

BasicSideWalk::BasicSideWalk(const WorldModel& wm, float y, bool dropCommand)
    : BasicAction(dropCommand) {
    setSuccessRate(0.0F);
    const float selfY = wm.getSelf()->getPosition().getY();
    Debugger::logg("Main") << "SideWalk target y: " << y << " self y: " << selfY << std::endl;
    if (ConfigSkill::getCurrentConfigStepNumber() != stepLeftAt) {
        // Another skill has played since the last side step (the key-frame step is shared by
        // every skill player): begin a side step afresh, from its first key frame.
        configSkill.setCurrentSkillName(skillname::kNoSkill);
        configSkill.setFinishedSkill(false);
        firstFinished = false;
        ConfigSkill::setCurrentConfigStepNumber(0);
    }
    if (!firstFinished || configSkill.isFinished()) {
        sideWalkSide = selfY > y ? skillname::kRightSideWalk : skillname::kLeftSideWalk;
        firstFinished = true;
    }
    command = new Command(configSkill.getConfigCommandSkill(sideWalkSide, &wm));
    stepLeftAt = ConfigSkill::getCurrentConfigStepNumber();
}

bool BasicSideWalk::isFinished() {
    return getSuccessRate() == 100.0F;
}

bool BasicSideWalk::isCurrentSkillFinished() {
    return configSkill.isFinished();
}

void BasicSideWalk::resetState() {
    configSkill.setCurrentSkillName(skillname::kNoSkill);
    configSkill.setFinishedSkill(false);
    sideWalkSide.clear();
    firstFinished = false;
    stepLeftAt = 0;
}
