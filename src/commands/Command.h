#pragma once

#include <string>

#include "commands/ArmCommand.h"
#include "commands/HeadCommand.h"
#include "commands/LegCommand.h"
#include "commands/SayCommand.h"

class Body;

// One whole-body key frame and the effector message of one cycle: a command per joint of the
// five limbs, the say text, and the step flags a skill file sets (wait, end at a lean, feet
// parallel to the ground, raises, precision, loop step).
class Command {
public:
    // The effector text of a command that is held (sendCommand false): every joint stopped.
    static const std::string kAllZeroText;

    // Limb commands from the body's limbs; sendCommand true, every flag false, every value 0.
    explicit Command(const Body* body);
    // The same, with the previous velocities taken from last.
    Command(const Body* body, const Command& last);
    // Copies the limb commands, the say text and sendCommand; step flags and values start
    // false and 0. The copy prints the same effector text. A null pointer gives the command
    // of a body with every joint at 0.
    explicit Command(Command* other);
    Command(const Command&) = default;
    Command& operator=(const Command&) = default;
    virtual ~Command() = default;

    // Start time (seconds) of the current wait, shared by all commands; -1 means none.
    static float time;
    static void setTime(float seconds) { time = seconds; }
    // Restores the start-of-process value of time (-1).
    static void resetState() { time = -1.0F; }

    [[nodiscard]] bool isSendCommand() const { return sendCommand; }
    void setSendCommand(bool value) { sendCommand = value; }
    [[nodiscard]] bool isWait() const { return wait; }
    void setWait(bool value) { wait = value; }
    [[nodiscard]] bool isEndAtLean() const { return endAtLean; }
    void setEndAtLean(bool value) { endAtLean = value; }
    [[nodiscard]] bool isLeftFootParallerGround() const { return leftFootParallerGround; }
    void setLeftFootParallerGround(bool value) { leftFootParallerGround = value; }
    [[nodiscard]] bool isRightFootParallerGround() const { return rightFootParallerGround; }
    void setRightFootParallerGround(bool value) { rightFootParallerGround = value; }
    [[nodiscard]] bool isLeftRaise2() const { return leftRaise2; }
    void setLeftRaise2(bool value) { leftRaise2 = value; }
    [[nodiscard]] bool isRightRaise2() const { return rightRaise2; }
    void setRightRaise2(bool value) { rightRaise2 = value; }
    [[nodiscard]] bool isPrecision() const { return precision; }
    void setPrecision(bool value) { precision = value; }

    [[nodiscard]] float getLeftFootParallerGroundVelocityValue() const {
        return leftFootParallerGroundVelocityValue;
    }
    void setLeftFootParallerGroundVelocityValue(float value) {
        leftFootParallerGroundVelocityValue = value;
    }
    [[nodiscard]] float getRightFootParallerGroundVelocityValue() const {
        return rightFootParallerGroundVelocityValue;
    }
    void setRightFootParallerGroundVelocityValue(float value) {
        rightFootParallerGroundVelocityValue = value;
    }
    [[nodiscard]] float getPrecisionValue() const { return precisionValue; }
    void setPrecisionValue(float value) { precisionValue = value; }
    [[nodiscard]] float getWaitValue() const { return waitValue; }
    void setWaitValue(float seconds) { waitValue = seconds; }
    [[nodiscard]] float getEndAtLeanValue() const { return endAtLeanValue; }
    void setEndAtLeanValue(float degrees) { endAtLeanValue = degrees; }
    [[nodiscard]] float getLeftRaise2Value() const { return leftRaise2Value; }
    void setLeftRaise2Value(float degrees) { leftRaise2Value = degrees; }
    [[nodiscard]] float getRightRaise2Value() const { return rightRaise2Value; }
    void setRightRaise2Value(float degrees) { rightRaise2Value = degrees; }
    [[nodiscard]] float getLeftRaise2Speed() const { return leftRaise2Speed; }
    void setLeftRaise2Speed(float degreesPerCycle) { leftRaise2Speed = degreesPerCycle; }
    [[nodiscard]] float getRightRaise2Speed() const { return rightRaise2Speed; }
    void setRightRaise2Speed(float degreesPerCycle) { rightRaise2Speed = degreesPerCycle; }
    [[nodiscard]] unsigned int getLoopStepNumber() const { return loopStepNumber; }
    void setLoopStepNumber(unsigned int step) { loopStepNumber = step; }

    HeadCommand& getHeadCommand() { return head; }
    ArmCommand& getRightArmCommand() { return rightArm; }
    ArmCommand& getLeftArmCommand() { return leftArm; }
    LegCommand& getRightLegCommand() { return rightLeg; }
    LegCommand& getLeftLegCommand() { return leftLeg; }
    SayCommand& getSayCommand() { return say; }
    [[nodiscard]] const HeadCommand& getHeadCommand() const { return head; }
    [[nodiscard]] const ArmCommand& getRightArmCommand() const { return rightArm; }
    [[nodiscard]] const ArmCommand& getLeftArmCommand() const { return leftArm; }
    [[nodiscard]] const LegCommand& getRightLegCommand() const { return rightLeg; }
    [[nodiscard]] const LegCommand& getLeftLegCommand() const { return leftLeg; }
    [[nodiscard]] const SayCommand& getSayCommand() const { return say; }

    // Refreshes every limb's perceived angles from body; targets stay.
    void setCurrentBody(const Body& body);
    // The velocities last sent become the previous velocities; a null pointer changes nothing.
    void setCurrentLastCommand(const Command* last);

    // Runs the velocity law on every joint (head, right arm, left arm, right leg, left leg)
    // when sendCommand is true; otherwise nothing.
    void setAllCommands();
    // Runs the law on the two head joints whatever sendCommand says.
    void setHeadJointsCommands();

    // Holds the key frame: the first call after time was -1 starts the wait at now; until
    // waitValue seconds have passed sendCommand is false, afterwards true.
    void doWait(float waitSeconds, float now);

    // A body whose joint angles are the targets of all five limbs.
    [[nodiscard]] Body toBody() const;

    // The effector message: the limbs' texts and the say part, or the all-zero text when
    // sendCommand is false. The velocities must have been computed beforehand.
    [[nodiscard]] std::string toString() const;

private:
    bool sendCommand = true;
    bool wait = false;
    bool endAtLean = false;
    bool leftFootParallerGround = false;
    bool rightFootParallerGround = false;
    bool leftRaise2 = false;
    bool rightRaise2 = false;
    bool precision = false;
    float leftFootParallerGroundVelocityValue = 0.0F;   // degrees per cycle
    float rightFootParallerGroundVelocityValue = 0.0F;  // degrees per cycle
    float precisionValue = 0.0F;                        // degrees
    float waitValue = 0.0F;                             // seconds
    float endAtLeanValue = 0.0F;                        // degrees forward
    float leftRaise2Value = 0.0F;                       // degrees
    float rightRaise2Value = 0.0F;                      // degrees
    float leftRaise2Speed = 0.0F;                       // degrees per cycle
    float rightRaise2Speed = 0.0F;                      // degrees per cycle
    unsigned int loopStepNumber = 0;                    // step index from 0
    HeadCommand head;
    ArmCommand rightArm;
    ArmCommand leftArm;
    LegCommand rightLeg;
    LegCommand leftLeg;
    SayCommand say;
};
