#include "skills/standup/BasicStandUp.h"

#include <string>

#include "commands/Command.h"
#include "skills/SkillNames.h"
#include "utilities/logging/Debugger.h"
#include "worldmodel/WorldModel.h"

ConfigSkill BasicStandUp::configSkill;
unsigned int BasicStandUp::starts = 0;
float BasicStandUp::runBegan = 0.0F;
unsigned int BasicStandUp::heldStep = 0;
float BasicStandUp::heldSince = 0.0F;

namespace {

// Seconds a stand-up key-frame run may take before it is begun again. A run that gets the robot
// up takes 3.7-4.3 s, and no run in play that ended by itself took more than 6.4 s; runs that
// stuck (a joint that cannot reach its target with the body lying on it, a pose from which the
// torso never leans far enough) lay there for 14 to 126 s in the attacker's sync-mode games,
// until the referee carried the robot off the field.
constexpr float kRunLimit = 8.0F;
// Seconds a stand-up key frame may be held before the run goes on to the next one. The longest
// key frame that ends by itself takes about 1.4 s; one the body cannot reach (arms pressed to the
// ground by its weight) held a run for 25 s and more in play.
constexpr float kKeyFrameLimit = 2.5F;

}  // namespace

BasicStandUp::BasicStandUp(const WorldModel& wm, bool start, bool dropCommand)
    : BasicAction(dropCommand) {
    setSuccessRate(0.0F);
    std::string name;
    if (start) {
        name = beginRun(wm, dropCommand);
        if (wm.getFallRule() == FallRule::Attitude) {
            const TorsoAttitude& attitude = wm.getAttitude();
            Debugger::logg("Main")
                << "StandUp: " << name << " begins, tilt " << attitude.getTilt() << " lean "
                << TorsoAttitude::leanName(attitude.getLean()) << std::endl;
        }
        if (!dropCommand) {
            ++starts;
        }
    } else if (!dropCommand && configSkill.getCurrentSkillName() != skillname::kStop &&
               wm.getTime() - runBegan > kRunLimit) {
        const std::string& stuck = configSkill.getCurrentSkillName();  // kept until played
        name = beginRun(wm, false);
        Debugger::logg("Main") << "StandUp: " << stuck << " has not ended after " << kRunLimit
                               << " s, " << name << " begins" << std::endl;
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
        if (!dropCommand && name != skillname::kStop) {
            goOnWhenHeld(wm);
        }
    }
    command = new Command(configSkill.getConfigCommandSkill(name, &wm));
    if (isDropCommand()) {
        delete command;
        command = nullptr;
    }
}

std::string BasicStandUp::beginRun(const WorldModel& wm, bool probe) {
    configSkill.setCurrentConfigStepNumber(0);
    if (!probe) {
        runBegan = wm.getTime();
        heldStep = 0;
        heldSince = runBegan;
    }
    return liesOnBack(wm) ? skillname::kBackStandUp : skillname::kFrontStandUp;
}

void BasicStandUp::goOnWhenHeld(const WorldModel& wm) {
    const unsigned int step = ConfigSkill::getCurrentConfigStepNumber();
    if (step != heldStep) {
        heldStep = step;
        heldSince = wm.getTime();
        return;
    }
    if (wm.getTime() - heldSince > kKeyFrameLimit &&
        step + 1 < configSkill.getConfigCommandSkillSize()) {
        Debugger::logg("Main") << "StandUp: " << configSkill.getCurrentSkillName() << " key frame "
                               << step + 1 << " not reached after " << kKeyFrameLimit
                               << " s, going on" << std::endl;
        ConfigSkill::setCurrentConfigStepNumber(step + 1);
        heldStep = step + 1;
        heldSince = wm.getTime();
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
    runBegan = 0.0F;
    heldStep = 0;
    heldSince = 0.0F;
    configSkill.setCurrentSkillName(skillname::kNoSkill);
    configSkill.setFinishedSkill(false);
}
