#include "worldmodel/Self.h"

math::Vector3<float> Self::lastPosition;

Self::Self(const math::Vector3<float>& position, const math::Vector3<float>& velocity,
           const math::Vector3<float>& acceleration, float mass, float mu)
    : Player(position, velocity, acceleration, mass, mu), body(std::make_unique<Body>()) {}

Self::Self(const Self* other)
    : Player(other->getPosition(), other->getVelocity(), other->getAcceleration(), other->getMass(),
             other->getMu()),
      body(std::make_unique<Body>()) {
    body->setHead(*other->body->getHead());
    body->setLeftArm(*other->body->getLeftArm());
    body->setRightArm(*other->body->getRightArm());
    body->setLeftLeg(*other->body->getLeftLeg());
    body->setRightLeg(*other->body->getRightLeg());
}

Self::Self(Self* other) : Self(static_cast<const Self*>(other)) {}

Self::~Self() = default;

void Self::resetState() {
    lastPosition = math::Vector3<float>();
}
