#pragma once

#include <memory>
#include <string>
#include <vector>

#include "commands/Command.h"
#include "skills/BasicSkills.h"
#include "skills/SkillNames.h"

class Self;
class WorldModel;

// Plays a skill of the skill database one cycle at a time: decides whether the current key frame
// has been reached, moves on to the next one (wrapping to the skill's loop step after the last),
// applies the step's corrections and wait, computes the joint velocities and returns the key
// frame, ready to print. The step index is shared by every player: it belongs to the agent.
class ConfigSkill : public BasicSkills {
public:
    ConfigSkill();
    ConfigSkill(const ConfigSkill&) = delete;
    ConfigSkill& operator=(const ConfigSkill&) = delete;
    ~ConfigSkill() override;

    // One cycle of skill `name` for the agent of wm (its time drives a step's wait, its torso's
    // forward lean a step's "endAtLean"). The result
    // is the stored key frame, changed in place on every call: take a copy to keep it. A name
    // with no key frames, or a step index past them, gives a held command (sendCommand false,
    // the all-zero text) and leaves the step index unchanged.
    Command* getConfigCommandSkill(const std::string& name, const WorldModel* wm);
    // The same; on steps 3, 4 and 5 both legs' rotation joints are driven to angle + 10 degrees.
    Command* getConfigCommandSkill(const std::string& name, const WorldModel* wm, float angle);
    // Without a world model: the state is the given self; a step's wait and "endAtLean" are not
    // applied.
    Command* getConfigCommandSkill(const std::string& name, const Self* agent);
    Command* getConfigCommandSkill(const std::string& name, const Self* agent, float angle);

    // The class-wide index (from 0) of the key frame being played. Callers set it (normally to
    // 0) when they start or switch skills; the player never resets it itself.
    static void setCurrentConfigStepNumber(unsigned int step) { mCurrentConfigStepNumber = step; }
    static unsigned int getCurrentConfigStepNumber() { return mCurrentConfigStepNumber; }
    // Step index 0, as at process start (for tests).
    static void resetState() { mCurrentConfigStepNumber = 0; }

    void setCurrentSkillName(const std::string& name) { mCurrentSkillName = name; }
    [[nodiscard]] const std::string& getCurrentSkillName() const { return mCurrentSkillName; }
    // True only after the call in which the last key frame was reached.
    [[nodiscard]] bool isFinished() const { return finishedSkill; }
    void setFinishedSkill(bool finished) { finishedSkill = finished; }
    // The loop step of the current key frame (0 when there is none).
    [[nodiscard]] unsigned int getConfigLoopStepNumber() const;
    // The number of key frames of the current skill.
    [[nodiscard]] unsigned int getConfigCommandSkillSize() const {
        return currentSkill != nullptr ? static_cast<unsigned int>(currentSkill->size()) : 0U;
    }
    // The angle (degrees) of the last turn override.
    [[nodiscard]] float getTurnValue() const { return turnValue; }

private:
    // What the world model tells a key frame besides the body: the time (seconds) and the
    // torso's forward lean (degrees).
    struct Sensed {
        float now;
        float forwardLean;
    };

    Command* play(const std::string& name, const Self* agent, const Sensed* sensed,
                  const float* angle);
    // The key frame k refreshed from the agent's perceived body and last command.
    Command* refreshed(unsigned int k);
    // Steps 3 to 5 of a turn: both legs' hip rotation aimed at `angle` + 10 degrees.
    void overrideTurn(Command& frame, float angle);
    // The key frame to play: the current one, or the next when the body has reached the
    // current one within its precision or the torso leans as far as its "endAtLean" (then the
    // skill may finish and loop).
    Command* advance(const std::string& name, const Sensed* sensed);
    // The step's raises, feet parallel to the ground and wait, applied to `frame`.
    void applyCorrections(Command& frame, const Sensed* sensed);

    std::string mCurrentSkillName = skillname::kNoSkill;
    bool finishedSkill = false;
    std::unique_ptr<Self> self;
    // The current skill's key frames, owned by the skill database (ConfigReader); pointed to
    // afresh by every play, so it is never a copy.
    const std::vector<Command*>* currentSkill = nullptr;
    float turnValue = 0.0F;
    std::unique_ptr<Command> held;  // returned when there is no key frame to play

    static unsigned int mCurrentConfigStepNumber;
};
