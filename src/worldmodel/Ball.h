#pragma once

#include "objects/DynamicObject.h"

/// The ball. `positionCount` counts the consecutive perceptor messages in which the ball was
/// not seen (0 in a message where it was seen).
class Ball : public DynamicObject {
public:
    /// `radius` in metres.
    Ball(const math::Vector3<float>& position, const math::Vector3<float>& velocity,
         const math::Vector3<float>& acceleration, float mass, float mu, float radius)
        : DynamicObject(position, velocity, acceleration, mass, mu), radius(radius) {}

    float getRadius() const { return radius; }
    void setRadius(float newRadius) { radius = newRadius; }
    int getPositionCount() const { return positionCount; }
    void setPositionCount(int count) { positionCount = count; }

private:
    float radius;
    int positionCount = 0;
};
