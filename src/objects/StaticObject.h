#pragma once

#include "objects/Object.h"

/// An object that never moves (the field's landmarks).
class StaticObject : public Object {
public:
    explicit StaticObject(const math::Vector3<float>& position) : Object(position) {}
};
