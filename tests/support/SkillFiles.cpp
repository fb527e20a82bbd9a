#include "SkillFiles.h"  // same folder: the support library sees only its users' path

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace skilltest {

StepKeys restingStep() {
    return {
        {"leftFootParallerGround", "false"},
        {"rightFootParallerGround", "false"},
        {"leftRaise2", "false"},
        {"rightRaise2", "false"},
        {"precision", "false"},
        {"Head::Instance", "0 0"},
        {"Head::PInstance", "1 1"},
        {"Arm::Left", "0 0 0 0"},
        {"Arm::PLeft", "1 1 1 1"},
        {"Arm::Right", "0 0 0 0"},
        {"Arm::PRight", "1 1 1 1"},
        {"Leg::Left", "0 0 0 0 0 0"},
        {"Leg::PLeft", "1 1 1 1 1 1"},
        {"Leg::Right", "0 0 0 0 0 0"},
        {"Leg::PRight", "1 1 1 1 1 1"},
    };
}

StepKeys step(const StepKeys& changes) {
    StepKeys keys = restingStep();
    for (const auto& [key, value] : changes) {
        if (value.empty()) {
            keys.erase(key);
        } else {
            keys[key] = value;
        }
    }
    return keys;
}

std::string skillText(const std::vector<StepKeys>& steps, int loopStep) {
    std::string text =
        "# written by a test\n[DefaultSet]\nStepCount = " + std::to_string(steps.size()) +
        "\nLoopStepNumber = " + std::to_string(loopStep) + "\n";
    for (std::size_t s = 0; s < steps.size(); ++s) {
        text += "\n[Step" + std::to_string(s + 1) + "]\n";
        for (const auto& [key, value] : steps[s]) {
            text.append(key).append(" = ").append(value).append("\n");
        }
    }
    return text;
}

void writeWholeFile(const std::string& path, const std::string& text) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << text;
    if (!out) {
        throw std::runtime_error("cannot write " + path);
    }
}

DataTree::DataTree() {
    std::filesystem::create_directories(dir.path() + "/Data/ConfigurationData");
    std::filesystem::create_directories(dir.path() + "/Data/SkillData");
    writeIndex();
}

void DataTree::addSkill(const std::string& name, const std::string& text) {
    skills.push_back(name);
    if (!text.empty()) {
        writeWholeFile(skillPath(name), text);
    }
    writeIndex();
}

void DataTree::writeIndex() const {
    std::string text = "[DefultSet]\nConfigurationDataFileCount = 0\nSkillDataFileCount = " +
                       std::to_string(skills.size()) + "\n[SkillDataFileName]\n";
    for (std::size_t i = 0; i < skills.size(); ++i) {
        text += std::to_string(i + 1) + " = " + skills[i] + "\n";
    }
    writeWholeFile(dir.path() + "/Data/ConfigurationData/Config_FileAddresses.conf", text);
}

std::string DataTree::skillPath(const std::string& name) const {
    return dir.path() + "/Data/SkillData/" + name + ".conf";
}

}  // namespace skilltest
