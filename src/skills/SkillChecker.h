#pragma once

#include <string>
#include <vector>

// Checks a Data tree's skills without connecting to a server: loads the configuration index
// and every skill file it lists, and reports files that cannot be read, missing groups and keys,
// keys with too few words, target angles outside the simulated robot's joint ranges, and speeds
// above what the motors can do.
class SkillChecker {
public:
    enum class Severity { Error, Warning };

    struct Finding {
        Severity severity;
        std::string skill;  // "" for findings about the index
        std::string text;
    };

    struct Report {
        unsigned int skillsChecked = 0;
        std::vector<Finding> findings;
        [[nodiscard]] unsigned int errorCount() const;
        [[nodiscard]] unsigned int warningCount() const;
    };

    // The motors' top speed: 351.77 degrees per second, in degrees per 0.02 s cycle.
    static constexpr float kMaxSpeedDegreesPerCycle = 351.77F * 0.02F;

    // The range of a joint in degrees, by effector name; false for an unknown name.
    static bool jointRange(const std::string& joint, float& minDegrees, float& maxDegrees);

    // Checks the tree under dataDirectory (the directory holding ConfigurationData/ and
    // SkillData/). A skill file whose text breaks the configuration grammar stops the program
    // with the configuration store's diagnostic.
    static Report check(const std::string& dataDirectory);

    // One line per finding ("error: " or "warning: ", the skill, the text) and a summary line.
    static std::string format(const Report& report);
};
