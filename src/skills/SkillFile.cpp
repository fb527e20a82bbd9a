#include "skills/SkillFile.h"

#include <algorithm>
#include <cstdlib>

#include "body/Body.h"
#include "commands/Command.h"
#include "utilities/config/ConfigFile.h"
#include "utilities/config/Str.h"

namespace {

constexpr const char* kDefaultGroup = "DefaultSet";

struct FlagKey {
    const char* key;
    int wordsWhenTrue;  // words read when word 1 is true
};

// The step keys that are a flag followed by the values read when it is true.
const FlagKey kFlagKeys[] = {
    {"leftFootParallerGround", 2},
    {"rightFootParallerGround", 2},
    {"leftRaise2", 3},
    {"rightRaise2", 3},
    {"precision", 2},
};

float wordAsFloat(const ConfigValue& value, int index) {
    return value[index].b_value(0.0F);
}

bool wordAsBool(const ConfigValue& value, int index) {
    return value[index].b_value(false);
}

const std::string& wordText(const ConfigValue& value, int index) {
    return value[index].getValue();
}

std::string wordsNeeded(int needed, int given) {
    return std::to_string(needed) + (needed == 1 ? " word" : " words") + " needed, " +
           std::to_string(given) + " given";
}

void requireWords(const ConfigGroup& group, const std::string& groupName, const std::string& key,
                  int needed, std::vector<SkillFile::Problem>& problems) {
    if (!group.exists(key)) {
        problems.push_back({groupName, key, "is missing"});
        return;
    }
    const int given = group[key].size();
    if (given < needed) {
        problems.push_back({groupName, key, wordsNeeded(needed, given)});
    }
}

unsigned int stepCount(const ConfigFile& file) {
    const int count = file[kDefaultGroup]["StepCount"].asInt();
    return count > 0 ? static_cast<unsigned int>(count) : 0U;
}

// The step flags of one key frame: feet parallel to the ground, wait, end at a lean, raises and
// precision.
// Returns the precision of the step's joint targets (degrees).
float readStepFlags(const ConfigGroup& step, Command& command) {
    const ConfigValue& leftFoot = step["leftFootParallerGround"];
    command.setLeftFootParallerGround(wordAsBool(leftFoot, 0));
    if (command.isLeftFootParallerGround()) {
        command.setLeftFootParallerGroundVelocityValue(wordAsFloat(leftFoot, 1));
    }
    const ConfigValue& rightFoot = step["rightFootParallerGround"];
    command.setRightFootParallerGround(wordAsBool(rightFoot, 0));
    if (command.isRightFootParallerGround()) {
        command.setRightFootParallerGroundVelocityValue(wordAsFloat(rightFoot, 1));
    }

    command.setWait(step.exists("wait"));
    if (command.isWait()) {
        command.setWaitValue(wordAsFloat(step["wait"], 0));
    }
    command.setEndAtLean(step.exists(SkillFile::kEndAtLean));
    if (command.isEndAtLean()) {
        command.setEndAtLeanValue(wordAsFloat(step[SkillFile::kEndAtLean], 0));
    }

    const ConfigValue& leftRaise = step["leftRaise2"];
    command.setLeftRaise2(wordAsBool(leftRaise, 0));
    if (command.isLeftRaise2()) {
        command.setLeftRaise2Value(wordAsFloat(leftRaise, 1));
        command.setLeftRaise2Speed(wordAsFloat(leftRaise, 2));
    }
    const ConfigValue& rightRaise = step["rightRaise2"];
    command.setRightRaise2(wordAsBool(rightRaise, 0));
    if (command.isRightRaise2()) {
        command.setRightRaise2Value(wordAsFloat(rightRaise, 1));
        command.setRightRaise2Speed(wordAsFloat(rightRaise, 2));
    }

    float precision = SkillFile::kDefaultPrecision;
    const ConfigValue& precisionValue = step["precision"];
    command.setPrecision(wordAsBool(precisionValue, 0));
    if (command.isPrecision()) {
        precision = wordAsFloat(precisionValue, 1);
        command.setPrecisionValue(precision);
    }
    return precision;
}

// The joint targets and speeds of one key frame, limb by limb; a leg target "LT" keeps the
// target of the command sent last (`lastSent`, may be null) for that joint of both legs.
void readJointTargets(const ConfigFile& file, const std::string& groupName, float precision,
                      const Command* lastSent, Command& command) {
    const ConfigGroup& step = file[groupName];
    const auto& table = SkillFile::limbs();
    const SkillFile::LimbKeys& head = table[0];
    const SkillFile::LimbKeys& leftArm = table[1];
    const SkillFile::LimbKeys& rightArm = table[2];
    const SkillFile::LimbKeys& leftLeg = table[3];
    const SkillFile::LimbKeys& rightLeg = table[4];

    // Sets joint j of a limb command from the limb's two keys unless the limb is left out.
    auto fromFile = [&](auto& limbCommand, const SkillFile::LimbKeys& limb, unsigned int j) {
        if (SkillFile::isLeftOut(file, groupName, limb)) {
            return;
        }
        const int word = static_cast<int>(j);
        limbCommand.getHingeJointCommand(j).setJointTargetAlphaAndVelocityValue(
            wordAsFloat(step[limb.targetKey], word), wordAsFloat(step[limb.speedKey], word),
            precision);
    };
    // Keeps the last sent target of leg joint j, at the lowest speed.
    auto lastTarget = [&](LegCommand& legCommand, const LegCommand* sentLeg,
                          const SkillFile::LimbKeys& limb, unsigned int j) {
        if (SkillFile::isLeftOut(file, groupName, limb)) {
            return;
        }
        const float target =
            sentLeg != nullptr ? sentLeg->getHingeJointCommand(j).getJointTargetAlphaValue() : 0.0F;
        legCommand.getHingeJointCommand(j).setJointTargetAlphaAndVelocityValue(target, 0.0F,
                                                                               precision);
    };

    const ConfigValue& leftLegTargets = step[leftLeg.targetKey];
    for (unsigned int j = 0; j < leftLeg.jointCount; ++j) {
        const int word = static_cast<int>(j);
        if (word < leftLegTargets.size() &&
            wordText(leftLegTargets, word) == SkillFile::kLastTarget) {
            lastTarget(command.getLeftLegCommand(),
                       lastSent != nullptr ? &lastSent->getLeftLegCommand() : nullptr, leftLeg, j);
            lastTarget(command.getRightLegCommand(),
                       lastSent != nullptr ? &lastSent->getRightLegCommand() : nullptr, rightLeg,
                       j);
        } else {
            fromFile(command.getLeftLegCommand(), leftLeg, j);
            fromFile(command.getRightLegCommand(), rightLeg, j);
        }
    }
    for (unsigned int j = 0; j < leftArm.jointCount; ++j) {
        fromFile(command.getLeftArmCommand(), leftArm, j);
        fromFile(command.getRightArmCommand(), rightArm, j);
    }
    for (unsigned int j = 0; j < head.jointCount; ++j) {
        fromFile(command.getHeadCommand(), head, j);
    }
}

}  // namespace

const std::vector<SkillFile::LimbKeys>& SkillFile::limbs() {
    static const std::vector<LimbKeys> table = {
        {"Head::Instance", "Head::PInstance", 2, JointNames::effectorNames(BodyPart::Head)},
        {"Arm::Left", "Arm::PLeft", 4, JointNames::effectorNames(BodyPart::LeftArm)},
        {"Arm::Right", "Arm::PRight", 4, JointNames::effectorNames(BodyPart::RightArm)},
        {"Leg::Left", "Leg::PLeft", 6, JointNames::effectorNames(BodyPart::LeftLeg)},
        {"Leg::Right", "Leg::PRight", 6, JointNames::effectorNames(BodyPart::RightLeg)},
    };
    return table;
}

std::string SkillFile::stepGroup(unsigned int step) {
    return "Step" + std::to_string(step);
}

bool SkillFile::isLeftOut(const ConfigFile& file, const std::string& group, const LimbKeys& limb) {
    const ConfigGroup& step = file[group];
    return wordText(step[limb.targetKey], 0) == kLeaveOut ||
           wordText(step[limb.speedKey], 0) == kLeaveOut;
}

std::vector<SkillFile::Problem> SkillFile::validate(const ConfigFile& file) {
    std::vector<Problem> problems;
    if (!file.exists(kDefaultGroup)) {
        problems.push_back({kDefaultGroup, "", "is missing"});
        return problems;
    }
    const ConfigGroup& defaults = file[kDefaultGroup];
    requireWords(defaults, kDefaultGroup, "StepCount", 1, problems);
    requireWords(defaults, kDefaultGroup, "LoopStepNumber", 1, problems);
    if (!problems.empty()) {
        return problems;
    }
    const unsigned int steps = stepCount(file);
    const int loopStep = defaults["LoopStepNumber"].asInt();
    if (steps > 0 && (loopStep < 1 || static_cast<unsigned int>(loopStep) > steps)) {
        problems.push_back({kDefaultGroup, "LoopStepNumber",
                            "must name a step from 1 to " + std::to_string(steps)});
    }
    for (unsigned int s = 1; s <= steps; ++s) {
        const std::string groupName = stepGroup(s);
        if (!file.exists(groupName)) {
            problems.push_back({groupName, "", "is missing"});
            continue;
        }
        const ConfigGroup& group = file[groupName];
        for (const FlagKey& flag : kFlagKeys) {
            requireWords(group, groupName, flag.key, 1, problems);
            if (group.exists(flag.key) && wordAsBool(group[flag.key], 0)) {
                requireWords(group, groupName, flag.key, flag.wordsWhenTrue, problems);
            }
        }
        if (group.exists(kEndAtLean)) {
            const std::string& word = wordText(group[kEndAtLean], 0);
            char* end = nullptr;
            const float degrees = std::strtof(word.c_str(), &end);
            if (word.empty() || *end != '\0' || !(degrees >= -180.0F && degrees <= 180.0F)) {
                problems.push_back({groupName, kEndAtLean,
                                    "\"" + word + "\" is not an angle from -180 to 180 degrees"});
            }
        }
        for (const LimbKeys& limb : limbs()) {
            requireWords(group, groupName, limb.targetKey, 1, problems);
            requireWords(group, groupName, limb.speedKey, 1, problems);
            if (!group.exists(limb.targetKey) || !group.exists(limb.speedKey) ||
                isLeftOut(file, groupName, limb)) {
                continue;
            }
            const int needed = static_cast<int>(limb.jointCount);
            requireWords(group, groupName, limb.targetKey, needed, problems);
            requireWords(group, groupName, limb.speedKey, needed, problems);
        }
    }
    return problems;
}

std::string SkillFile::describe(const std::string& path, const Problem& problem) {
    std::string text = "file \"" + path + "\", group \"" + problem.group + "\"";
    if (!problem.key.empty()) {
        text += ", key \"" + problem.key + "\"";
    }
    return text + ": " + problem.what;
}

std::vector<Command*> SkillFile::buildKeyFrames(const ConfigFile& file, const Command* lastSent) {
    const Body zero;
    const ConfigGroup& defaults = file[kDefaultGroup];
    std::vector<Command*> frames;
    for (unsigned int s = 1; s <= stepCount(file); ++s) {
        auto* command = new Command(&zero);
        const std::string groupName = stepGroup(s);
        const ConfigGroup& step = file[groupName];
        command->setLoopStepNumber(
            static_cast<unsigned int>(std::max(defaults["LoopStepNumber"].asInt() - 1, 0)));
        const float precision = readStepFlags(step, *command);
        readJointTargets(file, groupName, precision, lastSent, *command);
        frames.push_back(command);
    }
    return frames;
}
