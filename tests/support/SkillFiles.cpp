#include "SkillFiles.h"  // same folder: the support library sees only its users' path

namespace skilltest {

StepKeys step(const StepKeys& changes) {
    StepKeys keys;
    for (const char* flag : {"leftFootParallerGround", "rightFootParallerGround", "leftRaise2",
                             "rightRaise2", "precision"}) {
        keys[flag] = "false";
    }
    for (const auto& [limb, zeros, ones] : {std::tuple{"Head::Instance", "0 0", "1 1"},
                                            {"Arm::Left", "0 0 0 0", "1 1 1 1"},
                                            {"Arm::Right", "0 0 0 0", "1 1 1 1"},
                                            {"Leg::Left", "0 0 0 0 0 0", "1 1 1 1 1 1"},
                                            {"Leg::Right", "0 0 0 0 0 0", "1 1 1 1 1 1"}}) {
        const std::string name = limb;
        keys[name] =
            zeros;  // the speeds' key: "P" before the side ("Arm::PLeft", "Head::PInstance")
        keys[name.substr(0, name.find("::") + 2) + "P" + name.substr(name.find("::") + 2)] = ones;
    }
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
            text += key;
            text += " = ";
            text += value;
            text += '\n';
        }
    }
    return text;
}

void DataTree::addSkill(const std::string& name, const std::string& text) {
    skills.push_back(name);
    if (!text.empty()) {
        dir.write("Data/SkillData/" + name + ".conf", text);
    }
    writeIndex();
}

void DataTree::writeIndex() const {
    std::string text = "[DefultSet]\nConfigurationDataFileCount = 0\nSkillDataFileCount = " +
                       std::to_string(skills.size()) + "\n[SkillDataFileName]\n";
    for (std::size_t i = 0; i < skills.size(); ++i) {
        text += std::to_string(i + 1) + " = " + skills[i] + "\n";
    }
    dir.write("Data/ConfigurationData/Config_FileAddresses.conf", text);
}

}  // namespace skilltest
