#pragma once

class Command;
class ConfigSkill;
class WorldModel;

// The base of every skill ("action"): a short-lived object whose constructor does the cycle's
// work and builds one whole-body command, which the plan then takes with getCommand() (and owns).
// With the drop-command flag the skill destroys its command before its constructor returns and
// only advances its persistent state; getCommand() must not be used then.
class BasicAction {
public:
    explicit BasicAction(bool dropCommand) : dropCommand(dropCommand) {}
    BasicAction(const BasicAction&) = delete;
    BasicAction& operator=(const BasicAction&) = delete;
    virtual ~BasicAction() = default;

    // The command built by the constructor; ownership passes to the caller.
    virtual Command* getCommand() = 0;
    virtual bool isFinished() { return true; }
    virtual bool isCurrentSkillFinished() { return true; }

    // 100 when the action has reached its goal; 0 until a skill sets it.
    [[nodiscard]] float getSuccessRate() const { return successRate; }
    [[nodiscard]] bool isDropCommand() const { return dropCommand; }

protected:
    void setSuccessRate(float rate) { successRate = rate; }

    // Ends a motion whose key frames have all been played: restarts "Stop" from its first key
    // frame, and once "Stop" itself has finished keeps holding it and reports success (100).
    // Returns this cycle's command, owned by the caller.
    Command* settleWithStop(ConfigSkill& player, const WorldModel& wm);

private:
    float successRate = 0.0F;
    bool dropCommand;
};
