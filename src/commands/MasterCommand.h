#pragma once

#include <string>

class HingeJoint;

// The joint velocity law shared by every joint command: turns a target angle, a speed and a
// dead band into the angular velocity sent to the server.
class MasterCommand {
public:
    // Dividing an angle step per 0.02 s cycle (degrees) by this gives radians per second:
    // 0.02 * 180 / pi.
    static constexpr double kDegreesPerCycleToRadPerSecond = 1.1459156;

    MasterCommand() = default;
    MasterCommand(const MasterCommand&) = default;
    MasterCommand& operator=(const MasterCommand&) = default;
    virtual ~MasterCommand() = default;

    [[nodiscard]] float getParametersChangesCommandValue() const {
        return parametersChangesCommandValue;
    }
    void setParametersChangesCommandValue(float value) { parametersChangesCommandValue = value; }

    // The velocity (rad/s) that moves a joint from current towards target (degrees) at speed
    // (degrees per cycle, below 0.01 taken as 1): full speed while the error is at least
    // max(speed, 3) degrees, then half the remaining error per cycle until it drops below the
    // precision (degrees). The foot joints lle5, rle5, lle6, rle6 stop within 0.3 degrees.
    // lastVelocity does not take part. A full-speed result is also kept as
    // parametersChangesCommandValue.
    float getChangesCommand(float current, float target, float speed, const HingeJoint& joint,
                            float precision, float lastVelocity);

private:
    float parametersChangesCommandValue = 0.0F;  // rad/s
};
