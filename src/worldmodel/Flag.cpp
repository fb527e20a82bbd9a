#include "worldmodel/Flag.h"

#include "utilities/config/Settings.h"

Flag::Flag(FlagType type) : StaticObject(math::Vector3<float>()), type(type) {
    // Called during construction: this class's own version is the one meant here.
    Flag::setFlagType(type);
}

void Flag::setFlagType(FlagType newType) {
    type = newType;
    const float halfLength = settings::fieldLength() * 0.5F;
    const float halfWidth = settings::fieldWidth() * 0.5F;
    const float halfGoal = settings::goalWidth() * 0.5F;
    switch (newType) {
        case F1L:
            setPosition(math::Vector3<float>(-halfLength, halfWidth, 0.0F));
            break;
        case F1R:
            setPosition(math::Vector3<float>(halfLength, halfWidth, 0.0F));
            break;
        case F2L:
            setPosition(math::Vector3<float>(-halfLength, -halfWidth, 0.0F));
            break;
        case F2R:
            setPosition(math::Vector3<float>(halfLength, -halfWidth, 0.0F));
            break;
        case G1L:
            setPosition(math::Vector3<float>(-halfLength, halfGoal, 0.0F));
            break;
        case G1R:
            setPosition(math::Vector3<float>(halfLength, halfGoal, 0.0F));
            break;
        case G2L:
            setPosition(math::Vector3<float>(-halfLength, -halfGoal, 0.0F));
            break;
        case G2R:
            setPosition(math::Vector3<float>(halfLength, -halfGoal, 0.0F));
            break;
        default:
            break;
    }
}
