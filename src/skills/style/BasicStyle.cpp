#include "skills/style/BasicStyle.h"

#include "commands/Command.h"
#include "skills/SkillNames.h"
#include "worldmodel/WorldModel.h"

ConfigSkill BasicStyle::configSkill;

BasicStyle::BasicStyle(const WorldModel& wm, bool dropCommand) : BasicAction(dropCommand) {
    setSuccessRate(0.0F);
    command = new Command(configSkill.getConfigCommandSkill(skillname::kStyle, &wm));
    if (isDropCommand()) {
        delete command;
        command = nullptr;
    }
}

void BasicStyle::resetState() {
    configSkill.setCurrentSkillName(skillname::kNoSkill);
    configSkill.setFinishedSkill(false);
}
