#pragma once

#include <string>

#include "math/Vector3.h"
#include "objects/DynamicObject.h"

/// A joint of the robot, named by its effector name ("he1", "lae2", "rle6", ...). The physical
/// fields are carried along for completeness; no algorithm reads them.
class Joint : public DynamicObject {
public:
    /// A joint with the given name and every other field zero.
    explicit Joint(const std::string& name);
    /// `radius` in metres, `length` and `inertia` per axis, `externalForce` in newtons.
    Joint(const std::string& name, float radius, const math::Vector3<float>& length,
          const math::Vector3<float>& inertia, const math::Vector3<float>& externalForce,
          const math::Vector3<float>& position, const math::Vector3<float>& velocity,
          const math::Vector3<float>& acceleration, float mass, float mu);

    const std::string& getJointName() const { return jointName; }
    void setJointName(const std::string& name) { jointName = name; }
    float getRadius() const { return radius; }
    void setRadius(float newRadius) { radius = newRadius; }
    const math::Vector3<float>& getLength() const { return length; }
    void setLength(const math::Vector3<float>& newLength) { length = newLength; }
    const math::Vector3<float>& getInertia() const { return inertia; }
    void setInertia(const math::Vector3<float>& newInertia) { inertia = newInertia; }
    const math::Vector3<float>& getExternalForce() const { return externalForce; }
    void setExternalForce(const math::Vector3<float>& force) { externalForce = force; }

private:
    std::string jointName;
    float radius = 0.0F;
    math::Vector3<float> length;
    math::Vector3<float> inertia;
    math::Vector3<float> externalForce;
};
