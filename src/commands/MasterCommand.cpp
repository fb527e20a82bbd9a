#include "commands/MasterCommand.h"

#include <algorithm>
#include <cmath>

#include "body/HingeJoint.h"

namespace {

bool hasFootDeadBand(const std::string& name) {
    return name == "lle6" || name == "rle6" || name == "lle5" || name == "rle5";
}

}  // namespace

float MasterCommand::getChangesCommand(float current, float target, float speed,
                                       const HingeJoint& joint, float precision,
                                       float /*lastVelocity*/) {
    if (speed < 0.01F) {
        speed = 1.0F;
    }
    const float difference = target - current;
    const float distance = std::fabs(difference);
    if (distance >= std::max(speed, 3.0F)) {
        const auto full =
            static_cast<float>(static_cast<double>(speed) / kDegreesPerCycleToRadPerSecond *
                               static_cast<double>(distance / difference));
        parametersChangesCommandValue = full;
        return full;
    }
    if (distance < 0.3F && hasFootDeadBand(joint.getJointName())) {
        return 0.0F;
    }
    if (distance >= precision) {
        return static_cast<float>(static_cast<double>(difference) / kDegreesPerCycleToRadPerSecond *
                                  0.5);
    }
    return 0.0F;
}
