#include "skills/BasicAction.h"

#include "commands/Command.h"
#include "skills/ConfigSkill.h"
#include "skills/SkillNames.h"
#include "worldmodel/WorldModel.h"

Command* BasicAction::settleWithStop(ConfigSkill& player, const WorldModel& wm) {
    if (player.getCurrentSkillName() == skillname::kStop) {
        setSuccessRate(100.0F);
    } else {
        player.setCurrentConfigStepNumber(0);
    }
    return new Command(player.getConfigCommandSkill(skillname::kStop, &wm));
}
