#include "skills/SkillChecker.h"

#include <array>
#include <fstream>
#include <sstream>
#include <utility>

#include "body/JointNames.h"
#include "skills/SkillFile.h"
#include "utilities/config/ConfigFile.h"
#include "utilities/config/Str.h"

namespace {

using Range = std::pair<float, float>;

// Leg joints that the raise and foot flags drive (indices within the leg).
constexpr unsigned int kHipYIndex = 2;
constexpr unsigned int kKneeIndex = 3;
constexpr unsigned int kFootXIndex = 4;

// The range of every joint (degrees, minimum and maximum), in the order of the joint naming
// table: he1 he2, lae1..lae4, rae1..rae4, lle1..lle6, rle1..rle6.
constexpr std::array<Range, JointNames::jointCount> kRanges = {{
    {-120, 120}, {-45, 45},                                                // head
    {-120, 120}, {-1, 95},  {-120, 120}, {-90, 1},                         // left arm
    {-120, 120}, {-95, 1},  {-120, 120}, {-1, 90},                         // right arm
    {-90, 1},    {-25, 45}, {-25, 100},  {-130, 1}, {-45, 75}, {-45, 25},  // left leg
    {-90, 1},    {-45, 25}, {-25, 100},  {-130, 1}, {-45, 75}, {-25, 45},  // right leg
}};

std::string number(float value) {
    std::ostringstream text;
    text << static_cast<double>(value);
    return text.str();
}

class Checker {
public:
    Checker(SkillChecker::Report& report, std::string skill)
        : report(report), skill(std::move(skill)) {}

    void error(const std::string& text) {
        report.findings.push_back({SkillChecker::Severity::Error, skill, text});
    }
    void warning(const std::string& text) {
        report.findings.push_back({SkillChecker::Severity::Warning, skill, text});
    }

    void target(const std::string& group, const std::string& key, const std::string& joint,
                float degrees) {
        float low = 0;
        float high = 0;
        if (SkillChecker::jointRange(joint, low, high) && (degrees < low || degrees > high)) {
            error(group + ", " + key + ": " + joint + " target " + number(degrees) +
                  " degrees is outside " + number(low) + ".." + number(high));
        }
    }

    void speed(const std::string& group, const std::string& key, const std::string& joint,
               float degreesPerCycle) {
        if (degreesPerCycle > SkillChecker::kMaxSpeedDegreesPerCycle) {
            warning(group + ", " + key + ": " + joint + " speed " + number(degreesPerCycle) +
                    " degrees per cycle is above the motors' " +
                    number(SkillChecker::kMaxSpeedDegreesPerCycle));
        }
    }

private:
    SkillChecker::Report& report;
    std::string skill;
};

float wordAsFloat(const ConfigValue& value, int index) {
    return value[index].b_value(0.0F);
}

std::string missingIndexKey(const std::string& indexPath, const std::string& group,
                            const std::string& key) {
    std::string text = "file \"";
    text += indexPath;
    text += "\", group \"";
    text += group;
    text += "\", key \"";
    text += key;
    text += "\" is missing";
    return text;
}

void checkSteps(const ConfigFile& file, Checker& checker) {
    const int steps = file["DefaultSet"]["StepCount"].asInt();
    for (int s = 1; s <= steps; ++s) {
        const std::string group = SkillFile::stepGroup(static_cast<unsigned int>(s));
        const ConfigGroup& step = file[group];
        for (const SkillFile::LimbKeys& limb : SkillFile::limbs()) {
            if (SkillFile::isLeftOut(file, group, limb)) {
                continue;
            }
            const ConfigValue& targets = step[limb.targetKey];
            const ConfigValue& speeds = step[limb.speedKey];
            for (unsigned int j = 0; j < limb.jointCount; ++j) {
                const int word = static_cast<int>(j);
                const std::string& joint = limb.jointNames[j];
                // "LT" keeps a target that was checked where it was first set.
                if (targets[word].getValue() != SkillFile::kLastTarget) {
                    checker.target(group, limb.targetKey, joint, wordAsFloat(targets, word));
                }
                checker.speed(group, limb.speedKey, joint, wordAsFloat(speeds, word));
            }
        }
        // A raise drives hip Y to the value and the knee to minus the value.
        for (const auto& [key, side] : {std::pair<const char*, Side>{"leftRaise2", sideLeft},
                                        std::pair<const char*, Side>{"rightRaise2", sideRight}}) {
            const ConfigValue& raise = step[key];
            if (raise[0].b_value(false)) {
                const float value = wordAsFloat(raise, 1);
                const std::string hipY = JointNames::legEffectorName(side, kHipYIndex);
                checker.target(group, key, hipY, value);
                checker.target(group, key, JointNames::legEffectorName(side, kKneeIndex), -value);
                checker.speed(group, key, hipY, wordAsFloat(raise, 2));
            }
        }
        for (const char* key : {"leftFootParallerGround", "rightFootParallerGround"}) {
            const ConfigValue& foot = step[key];
            if (foot[0].b_value(false)) {
                checker.speed(
                    group, key,
                    JointNames::legEffectorName(key[0] == 'l' ? sideLeft : sideRight, kFootXIndex),
                    wordAsFloat(foot, 1));
            }
        }
    }
}

}  // namespace

unsigned int SkillChecker::Report::errorCount() const {
    unsigned int count = 0;
    for (const Finding& finding : findings) {
        count += finding.severity == Severity::Error ? 1U : 0U;
    }
    return count;
}

unsigned int SkillChecker::Report::warningCount() const {
    return static_cast<unsigned int>(findings.size()) - errorCount();
}

bool SkillChecker::jointRange(const std::string& joint, float& minDegrees, float& maxDegrees) {
    const JointName* row = JointNames::findByEffectorName(joint);
    if (row == nullptr) {
        return false;
    }
    const Range& range = kRanges.at(static_cast<std::size_t>(row - JointNames::table().data()));
    minDegrees = range.first;
    maxDegrees = range.second;
    return true;
}

SkillChecker::Report SkillChecker::check(const std::string& dataDirectory) {
    Report report;
    Checker indexChecker(report, "");
    const std::string indexPath = dataDirectory + "/ConfigurationData/Config_FileAddresses.conf";
    if (!std::ifstream(indexPath).good()) {
        indexChecker.error("file \"" + indexPath + "\" cannot be read");
        return report;
    }
    const ConfigFile index(indexPath);
    const char* countKey = "SkillDataFileCount";
    if (!index.exists("DefultSet") || !index["DefultSet"].exists(countKey)) {
        indexChecker.error(missingIndexKey(indexPath, "DefultSet", countKey));
        return report;
    }
    const auto count = static_cast<int>(index["DefultSet"][countKey].asFloat());
    for (int i = 1; i <= count; ++i) {
        const std::string key = std::to_string(i);
        if (!index.exists("SkillDataFileName") || !index["SkillDataFileName"].exists(key)) {
            indexChecker.error(missingIndexKey(indexPath, "SkillDataFileName", key));
            continue;
        }
        const std::string name = index["SkillDataFileName"][key][0].getValue();
        Checker checker(report, name);
        ++report.skillsChecked;
        std::string path = dataDirectory;
        path += "/SkillData/";
        path += name;
        path += ".conf";
        if (!std::ifstream(path).good()) {
            checker.error("file \"" + path + "\" cannot be read");
            continue;
        }
        const ConfigFile file(path);
        const std::vector<SkillFile::Problem> problems = SkillFile::validate(file);
        for (const SkillFile::Problem& problem : problems) {
            checker.error(SkillFile::describe(path, problem));
        }
        if (problems.empty()) {
            checkSteps(file, checker);
        }
    }
    return report;
}

std::string SkillChecker::format(const Report& report) {
    std::string text;
    for (const Finding& finding : report.findings) {
        text += finding.severity == Severity::Error ? "error: " : "warning: ";
        text += finding.skill.empty() ? "index" : finding.skill;
        text += ": " + finding.text + "\n";
    }
    text += "korvel-check: " + std::to_string(report.skillsChecked) + " skills, " +
            std::to_string(report.errorCount()) + " errors, " +
            std::to_string(report.warningCount()) + " warnings\n";
    return text;
}
