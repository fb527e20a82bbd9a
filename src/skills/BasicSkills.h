#pragma once

// The base of the skill players.
class BasicSkills {
public:
    BasicSkills() = default;
    BasicSkills(const BasicSkills&) = default;
    BasicSkills& operator=(const BasicSkills&) = default;
    virtual ~BasicSkills() = default;
};
