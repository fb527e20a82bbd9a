#include "skills/ConfigSkill.h"

#include "body/Body.h"
#include "skills/ConfigReader.h"
#include "skills/SkillFile.h"
#include "utilities/logging/Debugger.h"
#include "worldmodel/Self.h"
#include "worldmodel/WorldModel.h"

unsigned int ConfigSkill::mCurrentConfigStepNumber = 0;

ConfigSkill::ConfigSkill() = default;

ConfigSkill::~ConfigSkill() = default;

Command* ConfigSkill::getConfigCommandSkill(const std::string& name, const WorldModel* wm) {
    const Sensed sensed{wm->getTime(), wm->getAttitude().getForwardLean()};
    return play(name, wm->getSelf(), &sensed, nullptr);
}

Command* ConfigSkill::getConfigCommandSkill(const std::string& name, const WorldModel* wm,
                                            float angle) {
    const Sensed sensed{wm->getTime(), wm->getAttitude().getForwardLean()};
    return play(name, wm->getSelf(), &sensed, &angle);
}

Command* ConfigSkill::getConfigCommandSkill(const std::string& name, const Self* agent) {
    return play(name, agent, nullptr, nullptr);
}

Command* ConfigSkill::getConfigCommandSkill(const std::string& name, const Self* agent,
                                            float angle) {
    return play(name, agent, nullptr, &angle);
}

unsigned int ConfigSkill::getConfigLoopStepNumber() const {
    if (currentSkill == nullptr || mCurrentConfigStepNumber >= currentSkill->size()) {
        return 0;
    }
    return (*currentSkill)[mCurrentConfigStepNumber]->getLoopStepNumber();
}

Command* ConfigSkill::refreshed(unsigned int k) {
    Command* frame = (*currentSkill)[k];
    frame->setCurrentBody(*self->getBody());
    frame->setCurrentLastCommand(self->getLastCommand());
    return frame;
}

void ConfigSkill::overrideTurn(Command& frame, float angle) {
    turnValue = angle;
    for (LegCommand* leg : {&frame.getLeftLegCommand(), &frame.getRightLegCommand()}) {
        leg->getRotationCommand().setJointTargetAlphaAndVelocityValue(angle + 10.0F, 3.0F, 0.1F);
    }
}

Command* ConfigSkill::advance(const std::string& name, const Sensed* sensed) {
    const std::vector<Command*>& frames = *currentSkill;
    unsigned int& k = mCurrentConfigStepNumber;
    Command* frame = refreshed(k);
    const float tolerance =
        frame->isPrecision() ? frame->getPrecisionValue() : SkillFile::kDefaultPrecision;
    const bool leanReached = frame->isEndAtLean() && sensed != nullptr &&
                             sensed->forwardLean >= frame->getEndAtLeanValue();
    if (leanReached || self->getBody()->isequal(frame->toBody(), tolerance)) {
        ++k;
        Debugger::logg("Main") << " NamE: " << name << std::endl;
        if (k == frames.size()) {
            finishedSkill = true;
            k = frames.back()->getLoopStepNumber();
            if (k >= frames.size()) {
                k = 0;  // a loop step past the skill starts it over
            }
        }
        frame = refreshed(k);
    }
    return frame;
}

void ConfigSkill::applyCorrections(Command& frame, const Sensed* sensed) {
    LegCommand& leftLeg = frame.getLeftLegCommand();
    LegCommand& rightLeg = frame.getRightLegCommand();
    if (frame.isLeftRaise2()) {
        leftLeg.raise2(frame.getLeftRaise2Value(), frame.getLeftRaise2Speed());
    }
    if (frame.isRightRaise2()) {
        rightLeg.raise2(frame.getRightRaise2Value(), frame.getRightRaise2Speed());
    }
    if (frame.isLeftFootParallerGround()) {
        leftLeg.footParallerGround(self->getPolarPosition(),
                                   frame.getLeftFootParallerGroundVelocityValue());
    }
    if (frame.isRightFootParallerGround()) {
        rightLeg.footParallerGround(self->getPolarPosition(),
                                    frame.getRightFootParallerGroundVelocityValue());
    }
    if (frame.isWait() && sensed != nullptr) {
        frame.doWait(frame.getWaitValue(), sensed->now);
    }
}

Command* ConfigSkill::play(const std::string& name, const Self* agent, const Sensed* sensed,
                           const float* angle) {
    finishedSkill = false;
    self = std::make_unique<Self>(agent);

    mCurrentSkillName = name;
    Debugger::logg("Main") << "mCurrentSkillName : " << name << std::endl;

    currentSkill = &ConfigReader::instance()->keyFrames(name);
    const std::vector<Command*>& frames = *currentSkill;
    Debugger::logg("Main") << " size : " << frames.size() << std::endl;

    unsigned int& k = mCurrentConfigStepNumber;
    if (k >= frames.size()) {
        // Nothing to play: an unknown skill, or a step index left over from a longer skill.
        held = std::make_unique<Command>(self->getBody());
        held->setSendCommand(false);
        return held.get();
    }

    if (angle != nullptr && k >= 3 && k <= 5) {
        overrideTurn(*frames[k], *angle);
    }
    Command* frame = advance(name, sensed);
    Debugger::logg("Main") << "mCurrentConfigStepNumber : " << k << std::endl;
    applyCorrections(*frame, sensed);
    Debugger::logg("Main")
        << "lle5 current : "
        << frame->getLeftLegCommand().getHingeJointCommand(4).getJointCurrentAlphaValue()
        << std::endl;
    frame->setAllCommands();
    return frame;
}
