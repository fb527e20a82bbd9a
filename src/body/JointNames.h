#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "body/Side.h"

/// The limb a joint belongs to.
enum class BodyPart { Head, LeftArm, RightArm, LeftLeg, RightLeg };

/// One row of the joint naming table.
struct JointName {
    /// The name in incoming "HJ" readings, e.g. "laj1".
    const char* perceptorName;
    /// The name in outgoing commands and the joint's own name, e.g. "lae1".
    const char* effectorName;
    BodyPart part;
    /// The joint's place within its limb (the index of `getHingeJoint`).
    unsigned int index;
};

/// The naming of the robot's 22 hinge joints, both ways.
class JointNames {
public:
    static constexpr std::size_t jointCount = 22;

    JointNames() = delete;

    /// Every joint, in the order hj1, hj2, laj1..laj4, raj1..raj4, llj1..llj6, rlj1..rlj6.
    static const std::array<JointName, jointCount>& table();

    /// The row whose perceptor name is `name` (exact, case-sensitive), or null.
    static const JointName* findByPerceptorName(std::string_view name);
    /// The row whose effector name is `name` (exact, case-sensitive), or null.
    static const JointName* findByEffectorName(std::string_view name);

    /// The arm or leg on `side` (only the right side is right; the head's side counts as left).
    static BodyPart armOf(Side side);
    static BodyPart legOf(Side side);
    /// The effector names of the joints of `part`, in index order.
    static std::vector<std::string> effectorNames(BodyPart part);

    /// The effector name of joint `index` (0-based) of an arm on `side`: prefix + "ae" + (index+1).
    static std::string armEffectorName(Side side, unsigned int index);
    /// The effector name of joint `index` (0-based) of a leg on `side`: prefix + "le" + (index+1).
    static std::string legEffectorName(Side side, unsigned int index);
};
