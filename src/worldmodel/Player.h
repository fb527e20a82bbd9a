#pragma once

#include "objects/DynamicObject.h"

/// A robot on the field, known by its uniform number (0 until set).
class Player : public DynamicObject {
public:
    Player(const math::Vector3<float>& position, const math::Vector3<float>& velocity,
           const math::Vector3<float>& acceleration, float mass, float mu)
        : DynamicObject(position, velocity, acceleration, mass, mu) {}

    int getUnum() const { return unum; }
    void setUnum(int newUnum) { unum = newUnum; }

private:
    int unum = 0;
};
