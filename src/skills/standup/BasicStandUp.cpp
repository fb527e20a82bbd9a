#include "skills/standup/BasicStandUp.h"

#include <string>

#include "commands/Command.h"
#include "skills/SkillNames.h"
#include "utilities/logging/Debugger.h"
#include "worldmodel/WorldModel.h"

ConfigSkill BasicStandUp::configSkill;
unsigned int BasicStandUp::starts = 0;

BasicStandUp::BasicStandUp(const WorldModel& wm, bool start, bool dropCommand)
    : BasicAction(dropCommand) {
    setSuccessRate(0.0F);
    std::string name;
    if (start) {
        name = liesOnBack(wm) ? skillname::kBackStandUp : skillname::kFrontStandUp;
        if (wm.getFallRule() == FallRule::Attitude) {
            const TorsoAttitude& attitude = wm.getAttitude();
            Debugger::logg("Main")
                << "StandUp: " << name << " begins, tilt " << attitude.getTilt() << " lean "
                << TorsoAttitude::leanName(attitude.getLean()) << std::endl;
        }
        configSkill.setCurrentConfigStepNumber(0);
        if (!dropCommand) {
            ++starts;
        }
    } else if (configSkill.isFinished()) {
        if (configSkill.getCurrentSkillName() == skillname::kStop) {
            Debugger::logg("Main") << "StandUp: Stop has ended, the robot is up" << std::endl;
            setSuccessRate(100.0F);
            name = skillname::kStop;
        } else {
            Debugger::logg("Main") << "StandUp: " << configSkill.getCurrentSkillName()
                                   << " has ended, playing Stop" << std::endl;
            configSkill.setCurrentConfigStepNumber(0);
            name = skillname::kStop;
        }
    } else {
        name = configSkill.getCurrentSkillName();
    }
    command = new Command(configSkill.getConfigCommandSkill(name, &wm));
    if (isDropCommand()) {
        delete command;
        command = nullptr;
    }
}

bool BasicStandUp::liesOnBack(const WorldModel& wm) {
    if (wm.getFallRule() == FallRule::Attitude) {
        return wm.getAttitude().liesOnBack();
    }
    // A contact point behind the foot's centre line means the robot lies on its back.
    return wm.getSelf()->getBody()->getLeftLeg()->getFRPContactPoint().getY() < 0.0F;
}

bool BasicStandUp::isFinished() {
    return getSuccessRate() == 100.0F;
}

void BasicStandUp::resetState() {
    starts = 0;
    configSkill.setCurrentSkillName(skillname::kNoSkill);
    configSkill.setFinishedSkill(false);
}
