#pragma once

#include "math/Vector3.h"
#include "objects/Object.h"

/// An object that moves: the ball, players and the robot's joints.
class DynamicObject : public Object {
public:
    /// `mass` in kg; `mu` is the friction coefficient.
    DynamicObject(const math::Vector3<float>& position, const math::Vector3<float>& velocity,
                  const math::Vector3<float>& acceleration, float mass, float mu)
        : Object(position), velocity(velocity), acceleration(acceleration), mass(mass), mu(mu) {}

    const math::Vector3<float>& getVelocity() const { return velocity; }
    const math::Vector3<float>& getAcceleration() const { return acceleration; }
    float getMass() const { return mass; }
    float getMu() const { return mu; }

    void setVelocity(const math::Vector3<float>& newVelocity) { velocity = newVelocity; }
    void setAcceleration(const math::Vector3<float>& newAcceleration) {
        acceleration = newAcceleration;
    }
    void setMass(float newMass) { mass = newMass; }
    void setMu(float newMu) { mu = newMu; }

private:
    math::Vector3<float> velocity;
    math::Vector3<float> acceleration;
    float mass;
    float mu;
};
