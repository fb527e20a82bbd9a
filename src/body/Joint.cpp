#include "body/Joint.h"

Joint::Joint(const std::string& name)
    : DynamicObject(math::Vector3<float>(), math::Vector3<float>(), math::Vector3<float>(), 0.0F,
                    0.0F),
      jointName(name) {}

Joint::Joint(const std::string& name, float radius, const math::Vector3<float>& length,
             const math::Vector3<float>& inertia, const math::Vector3<float>& externalForce,
             const math::Vector3<float>& position, const math::Vector3<float>& velocity,
             const math::Vector3<float>& acceleration, float mass, float mu)
    : DynamicObject(position, velocity, acceleration, mass, mu),
      jointName(name),
      radius(radius),
      length(length),
      inertia(inertia),
      externalForce(externalForce) {}
