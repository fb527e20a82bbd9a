#include "skills/turn/TurnAngle.h"

#include <cmath>

#include "commands/Command.h"
#include "skills/SkillNames.h"
#include "utilities/config/Str.h"
#include "utilities/logging/Debugger.h"
#include "worldmodel/WorldModel.h"

namespace {
// A turn is complete when the commanded total is this close to the requested angle (degrees).
constexpr float kCompletionTolerance = 5.1F;
}  // namespace

TurnAngle::TurnAngle() : BasicTurn(false) {}

TurnAngle::TurnAngle(float angle, const WorldModel& wm, float /*ignored*/, bool dropCommand)
    : BasicTurn(dropCommand) {
    setSuccessRate(0.0F);
    if (configSkill.isFinished()) {
        if (std::fabs(angle - doAngle) <= kCompletionTolerance) {
            command = settleWithStop(configSkill, wm);
        } else {
            const std::string name = startStep(angle);
            if (configSkill.getCurrentSkillName() == name) {
                configSkill.setCurrentConfigStepNumber(configSkill.getConfigLoopStepNumber());
            } else {
                configSkill.setCurrentConfigStepNumber(0);
            }
            play(name, wm);
        }
    } else if (configSkill.getCurrentSkillName() == skillname::kNoSkill) {
        const std::string name = startStep(angle);
        configSkill.setCurrentConfigStepNumber(0);
        play(name, wm);
    } else {
        play(configSkill.getCurrentSkillName(), wm);
    }

    Debugger::logg("Main") << "TurnAngle angle: " << angle << " doAngle: " << doAngle
                           << " turnAngle: " << turnAngle
                           << " finished: " << configSkill.isFinished()
                           << " skill: " << configSkill.getCurrentSkillName() << std::endl;

    if (isDropCommand()) {
        delete command;
        command = nullptr;
    }
}

bool TurnAngle::isFinished() {
    return getSuccessRate() == 100.0F;
}

float TurnAngle::stepSizeFor(float remaining) {
    if (remaining >= 40.0F) {
        return 40.0F;
    }
    if (remaining >= 30.0F) {
        return 30.0F;
    }
    if (remaining >= 25.0F) {
        return 25.0F;
    }
    if (remaining >= 15.0F) {
        return 15.0F;
    }
    if (remaining >= 10.0F) {
        return 10.0F;
    }
    return 5.0F;
}

std::string TurnAngle::stepSkillName(bool left, float stepSize) {
    return std::string(left ? skillname::kTurnLeft : skillname::kTurnRight) +
           Str(stepSize).b_value(std::string());
}

std::string TurnAngle::startStep(float angle) {
    turnAngle = stepSizeFor(std::fabs(angle - doAngle));
    const bool left = angle < 0.0F;
    doAngle = left ? doAngle - turnAngle : doAngle + turnAngle;
    return stepSkillName(left, turnAngle);
}

void TurnAngle::play(const std::string& name, const WorldModel& wm) {
    command = new Command(configSkill.getConfigCommandSkill(name, &wm));
}
