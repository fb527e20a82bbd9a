#include "skills/standup/BasicStandUp.h"

#include <string>

#include "commands/Command.h"
#include "utilities/logging/Debugger.h"
#include "worldmodel/WorldModel.h"

ConfigSkill BasicStandUp::configSkill;
unsigned int BasicStandUp::starts = 0;

BasicStandUp::BasicStandUp(const WorldModel& wm, bool start, bool dropCommand)
    : BasicAction(dropCommand) {
    setSuccessRate(0.0F);
    std::string name;
    if (start) {
        // A contact point behind the foot's centre line means the robot lies on its back.
        const float contactY = wm.getSelf()->getBody()->getLeftLeg()->getFRPContactPoint().getY();
        name = std::string(contactY < 0.0F ? "Back" : "Front") + "StandUp";
        configSkill.setCurrentConfigStepNumber(0);
        if (!dropCommand) {
            ++starts;
        }
    } else if (configSkill.isFinished()) {
        if (configSkill.getCurrentSkillName() == "Stop") {
            Debugger::logg("Main") << "StandUp: Stop has ended, the robot is up" << std::endl;
            setSuccessRate(100.0F);
            name = "Stop";
        } else {
            Debugger::logg("Main") << "StandUp: " << configSkill.getCurrentSkillName()
                                   << " has ended, playing Stop" << std::endl;
            configSkill.setCurrentConfigStepNumber(0);
            name = "Stop";
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

bool BasicStandUp::isFinished() {
    return getSuccessRate() == 100.0F;
}

void BasicStandUp::resetState() {
    starts = 0;
    configSkill.setCurrentSkillName("@");
    configSkill.setFinishedSkill(false);
}
