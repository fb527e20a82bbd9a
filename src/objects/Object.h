#pragma once

#include "math/Vector3.h"

/// Anything with a place on the field (metres, field frame).
class Object {
public:
    explicit Object(const math::Vector3<float>& position) : position(position) {}
    virtual ~Object() = default;
    Object(const Object&) = default;
    Object& operator=(const Object&) = default;

    const math::Vector3<float>& getPosition() const { return position; }
    void setPosition(const math::Vector3<float>& newPosition) { position = newPosition; }

private:
    math::Vector3<float> position;
};
