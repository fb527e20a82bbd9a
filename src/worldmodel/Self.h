#pragma once

#include <memory>

#include "body/Body.h"
#include "math/Vector3.h"
#include "worldmodel/Player.h"

class Command;

/// The agent's own robot: its body model, the command it sent last, what vision and the
/// gyroscope said about it, and (class-wide) its last computed field position.
class Self : public Player {
public:
    /// A new default body; polar position and gyro rate zero, body direction 0, no command.
    Self(const math::Vector3<float>& position, const math::Vector3<float>& velocity,
         const math::Vector3<float>& acceleration, float mass, float mu);
    /// A copy of `other`'s position, velocity, acceleration, mass and mu with a deep copy of its
    /// body; polar position and gyro rate zero, body direction 0, no last command.
    explicit Self(const Self* other);
    explicit Self(Self* other);
    ~Self() override;
    Self(const Self&) = delete;
    Self& operator=(const Self&) = delete;

    /// The owned body model (never null).
    Body* getBody() const { return body.get(); }

    /// The command sent last; not owned (the agent loop owns it).
    Command* getLastCommand() const { return lastCommand; }
    void setLastCommand(Command* command) { lastCommand = command; }

    /// Relative position from vision; x is the head heading in radians after localisation.
    const math::Vector3<float>& getPolarPosition() const { return polarPosition; }
    void setPolarPosition(const math::Vector3<float>& position) { polarPosition = position; }

    /// The heading of the body in the field frame, in degrees.
    float getBodyDirection() const { return bodyDirection; }
    void setBodyDirection(float degrees) { bodyDirection = degrees; }

    /// The last gyroscope reading, in the server's unit (degrees per second).
    math::Vector3<float> getGyroRate() const { return gyroRate; }
    void setGyroRate(const math::Vector3<float>& rate) { gyroRate = rate; }

    /// The robot's last computed field position, shared by every `Self` (metres).
    static math::Vector3<float> getLastPosition() { return lastPosition; }
    static void setLastPosition(math::Vector3<float> position) { lastPosition = position; }

    /// Restores the start-of-process state: last position zero.
    static void resetState();

private:
    std::unique_ptr<Body> body;
    Command* lastCommand = nullptr;
    math::Vector3<float> polarPosition;
    float bodyDirection = 0.0F;
    math::Vector3<float> gyroRate;

    static math::Vector3<float> lastPosition;
};
