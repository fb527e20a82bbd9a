#pragma once

#include <string>
#include <vector>

class Command;
class ConfigFile;

// The skill data file format: a group "DefaultSet" with "StepCount" and "LoopStepNumber", and
// per step a group "Step1", "Step2", ... holding the step flags and, per limb, a key of target
// angles (degrees) and a "P" key of speeds (degrees per cycle). A limb whose target or speed key
// starts with 9999 is left out of the step; the word "LT" in "Leg::Left" keeps, for both legs,
// the target the last sent command had for that joint.
class SkillFile {
public:
    // One limb's pair of keys and its joints' effector names.
    struct LimbKeys {
        const char* targetKey;
        const char* speedKey;
        unsigned int jointCount;
        std::vector<std::string> jointNames;
    };

    // Something the file lacks: the group and key it concerns (key "" for a missing group) and
    // what is wrong, e.g. "6 words needed, 5 given".
    struct Problem {
        std::string group;
        std::string key;
        std::string what;
    };

    // The value that leaves a limb out of a step.
    static constexpr const char* kLeaveOut = "9999";
    // The word of "Leg::Left" that keeps the last sent target.
    static constexpr const char* kLastTarget = "LT";
    // The optional step key that ends the key frame once the torso leans forward at least its
    // value (degrees; negative: leans backwards no more than that), whether or not the joints
    // have reached their targets.
    static constexpr const char* kEndAtLean = "endAtLean";
    // The precision (degrees) of every joint of a step whose "precision" is false.
    static constexpr float kDefaultPrecision = 0.1F;

    // The head, the left and right arm, the left and right leg.
    static const std::vector<LimbKeys>& limbs();

    // "Step" followed by the step number (from 1).
    static std::string stepGroup(unsigned int step);

    // Every group, key and word count the reader needs and does not find, in file order: the
    // "DefaultSet" keys, then step by step (up to "StepCount") the step's group, its required
    // keys and the words each one needs. Empty for a file the reader can load.
    static std::vector<Problem> validate(const ConfigFile& file);

    // One line naming the file, group, key and what is wrong, for diagnostics.
    static std::string describe(const std::string& path, const Problem& problem);

    // Whether a limb is left out of the step (its target or speed key starts with 9999).
    static bool isLeftOut(const ConfigFile& file, const std::string& group, const LimbKeys& limb);

    // The key frames of a file that validate() accepts, step 1 first. Every frame is built from
    // a body with all joints at 0; "LT" targets come from lastSent (0 when there is none). The
    // caller owns the commands.
    static std::vector<Command*> buildKeyFrames(const ConfigFile& file, const Command* lastSent);
};
