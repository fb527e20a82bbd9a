#pragma once

namespace math {

// One target value per joint of a two-joint limb (the head: pan, tilt), in joint order.
struct Vector2F {
    float x = 0.0F;
    float y = 0.0F;
};

}  // namespace math
