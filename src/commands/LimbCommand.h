#pragma once

#include <array>
#include <cstddef>
#include <sstream>
#include <string>
#include <vector>

#include "body/Side.h"
#include "commands/HingeJointCommand.h"

// What the head, arm and leg commands share: per joint of one limb a joint command, the
// velocity each joint was sent in the previous command, and the limb's effector text.
// LimbT is Head, Arm or Leg; N its number of joints.
template <class LimbT, std::size_t N>
class LimbCommand {
public:
    static constexpr std::size_t kJointCount = N;

    LimbCommand(const LimbCommand&) = default;
    LimbCommand& operator=(const LimbCommand&) = default;
    virtual ~LimbCommand() = default;

    [[nodiscard]] Side getSide() const { return side; }
    [[nodiscard]] const LimbT& getCurrentLimb() const { return limb; }
    [[nodiscard]] const std::vector<std::string>& getJointNames() const { return names; }

    // Joint command by index (the limb's joint order); an index past the limb answers with
    // joint 0, as the limbs themselves do.
    HingeJointCommand& getHingeJointCommand(unsigned int index) {
        return jointCommands[index < N ? index : 0];
    }
    [[nodiscard]] const HingeJointCommand& getHingeJointCommand(unsigned int index) const {
        return jointCommands[index < N ? index : 0];
    }

    // The velocity (rad/s) joint index was sent in the previous command; 0 past the limb.
    [[nodiscard]] float getLastVelocity(unsigned int index) const {
        return index < N ? lastVelocities[index] : 0.0F;
    }

    // Runs the velocity law on every joint, in index order, with its previous velocity.
    void setJointsCommandAlphaValue() {
        for (std::size_t i = 0; i < N; ++i) {
            jointCommands[i].setJointCommandAlphaValue(lastVelocities[i]);
        }
    }

    // "(name value)" per joint, separated by one blank; values as a default output stream
    // prints a double (6 significant digits, "-0" for negative zero).
    [[nodiscard]] std::string toString() const {
        std::ostringstream text;
        for (std::size_t i = 0; i < N; ++i) {
            if (i > 0) {
                text << ' ';
            }
            text << '(' << names[i] << ' '
                 << static_cast<double>(jointCommands[i].getJointCommandAlphaValue()) << ')';
        }
        return text.str();
    }

protected:
    LimbCommand(Side limbSide, const LimbT& current, std::vector<std::string> jointNames)
        : names(std::move(jointNames)), side(limbSide), limb(current) {
        for (std::size_t i = 0; i < N; ++i) {
            jointCommands[i] =
                HingeJointCommand(names[i], limb.getHingeJoint(static_cast<unsigned int>(i)));
        }
    }

    // Copies the perceived limb in and refreshes every joint's perceived angle; targets,
    // speeds and precisions stay.
    void setCurrentLimb(const LimbT& current) {
        limb = current;
        for (std::size_t i = 0; i < N; ++i) {
            const auto& perceived = limb.getHingeJoint(static_cast<unsigned int>(i));
            jointCommands[i].setHingeJoint(perceived);
            jointCommands[i].setJointCurrentAlphaValue(perceived.getJointAlphaValue());
        }
    }

    // The velocities last sent become this command's previous velocities.
    void setCurrentLastLimbCommand(const LimbCommand& last) {
        for (std::size_t i = 0; i < N; ++i) {
            lastVelocities[i] = last.jointCommands[i].getJointCommandAlphaValue();
        }
    }

    // A limb of the same side whose joint angles are the targets.
    [[nodiscard]] LimbT toLimb() const {
        LimbT target(side);
        for (std::size_t i = 0; i < N; ++i) {
            const auto index = static_cast<unsigned int>(i);
            HingeJoint joint(target.getHingeJoint(index));
            joint.setJointAlphaValue(jointCommands[i].getJointTargetAlphaValue());
            target.setHingeJoint(index, joint);
        }
        return target;
    }

private:
    std::array<float, N> lastVelocities{};  // rad/s
    std::vector<std::string> names;         // effector names
    Side side;
    LimbT limb;  // the perceived limb
    std::array<HingeJointCommand, N> jointCommands;
};
