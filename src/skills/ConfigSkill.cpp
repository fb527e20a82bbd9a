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
    const float now = wm->getTime();
    return play(name, wm->getSelf(), &now, nullptr);
}

Command* ConfigSkill::getConfigCommandSkill(const std::string& name, const WorldModel* wm,
                                            float angle) {
    const float now = wm->getTime();
    return play(name, wm->getSelf(), &now, &angle);
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

Command* ConfigSkill::advance(const std::string& name) {
    const std::vector<Command*>& frames = *currentSkill;
    unsigned int& k = mCurrentConfigStepNumber;
    Command* frame = refreshed(k);
    const float tolerance =
        frame->isPrecision() ? frame->getPrecisionValue() : SkillFile::kDefaultPrecision;
    if (self->getBody()->isequal(frame->toBody(), tolerance)) {
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

void ConfigSkill::applyCorrections(Command& frame, const float* now) {
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
    if (frame.isWait() && now != nullptr) {
        frame.doWait(frame.getWaitValue(), *now);
    }
}

Command* ConfigSkill::play(const std::string& name, const Self* agent, const float* now,
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
    Command* frame = advance(name);
    Debugger::logg("Main") << "mCurrentConfigStepNumber : " << k << std::endl;
    applyCorrections(*frame, now);
    Debugger::logg("Main")
        << "lle5 current : "
        << frame->getLeftLegCommand().getHingeJointCommand(4).getJointCurrentAlphaValue()
        << std::endl;
    frame->setAllCommands();
    return frame;
}
