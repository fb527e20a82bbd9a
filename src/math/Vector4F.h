#pragma once

namespace math {

// One target value per joint of a four-joint limb (an arm), in joint order.
struct Vector4F {
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;
    float w = 0.0F;
};

}  // namespace math
