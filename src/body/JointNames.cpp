#include "body/JointNames.h"

namespace {
const std::array<JointName, JointNames::jointCount> joints = {{
    {"hj1", "he1", BodyPart::Head, 0},       {"hj2", "he2", BodyPart::Head, 1},
    {"laj1", "lae1", BodyPart::LeftArm, 0},  {"laj2", "lae2", BodyPart::LeftArm, 1},
    {"laj3", "lae3", BodyPart::LeftArm, 2},  {"laj4", "lae4", BodyPart::LeftArm, 3},
    {"raj1", "rae1", BodyPart::RightArm, 0}, {"raj2", "rae2", BodyPart::RightArm, 1},
    {"raj3", "rae3", BodyPart::RightArm, 2}, {"raj4", "rae4", BodyPart::RightArm, 3},
    {"llj1", "lle1", BodyPart::LeftLeg, 0},  {"llj2", "lle2", BodyPart::LeftLeg, 1},
    {"llj3", "lle3", BodyPart::LeftLeg, 2},  {"llj4", "lle4", BodyPart::LeftLeg, 3},
    {"llj5", "lle5", BodyPart::LeftLeg, 4},  {"llj6", "lle6", BodyPart::LeftLeg, 5},
    {"rlj1", "rle1", BodyPart::RightLeg, 0}, {"rlj2", "rle2", BodyPart::RightLeg, 1},
    {"rlj3", "rle3", BodyPart::RightLeg, 2}, {"rlj4", "rle4", BodyPart::RightLeg, 3},
    {"rlj5", "rle5", BodyPart::RightLeg, 4}, {"rlj6", "rle6", BodyPart::RightLeg, 5},
}};
}  // namespace

const std::array<JointName, JointNames::jointCount>& JointNames::table() {
    return joints;
}

const JointName* JointNames::findByPerceptorName(std::string_view name) {
    for (const JointName& row : joints) {
        if (name == row.perceptorName) {
            return &row;
        }
    }
    return nullptr;
}

const JointName* JointNames::findByEffectorName(std::string_view name) {
    for (const JointName& row : joints) {
        if (name == row.effectorName) {
            return &row;
        }
    }
    return nullptr;
}

BodyPart JointNames::armOf(Side side) {
    return side == sideRight ? BodyPart::RightArm : BodyPart::LeftArm;
}

BodyPart JointNames::legOf(Side side) {
    return side == sideRight ? BodyPart::RightLeg : BodyPart::LeftLeg;
}

std::vector<std::string> JointNames::effectorNames(BodyPart part) {
    std::vector<std::string> names;
    for (const JointName& row : joints) {
        if (row.part == part) {
            names.emplace_back(row.effectorName);
        }
    }
    return names;
}

std::string JointNames::armEffectorName(Side side, unsigned int index) {
    return effectorNames(armOf(side)).at(index);
}

std::string JointNames::legEffectorName(Side side, unsigned int index) {
    return effectorNames(legOf(side)).at(index);
}
