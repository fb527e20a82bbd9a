#include "commands/MasterCommand.h"

#include <algorithm>
#include <cmath>

#include "body/HingeJoint.h"
#include "body/JointNames.h"

namespace {

// The two foot joints of either leg (indices 4 and 5 of the leg).
bool hasFootDeadBand(const std::string& name) {
    const JointName* row = JointNames::findByEffectorName(name);
    return row != nullptr && (row->part == BodyPart::LeftLeg || row->part == BodyPart::RightLeg) &&
           row->index >= 4;
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
