#pragma once

#include <map>
#include <string>
#include <vector>

#include "Files.h"

namespace skilltest {

// The keys of one step of a skill file.
using StepKeys = std::map<std::string, std::string>;

// A step that moves nothing (every flag false, every target 0, every speed 1) with the given
// keys replaced or, mapped to "", left out.
StepKeys step(const StepKeys& changes);

// The text of a skill file with the given steps and loop step (counting from 1).
std::string skillText(const std::vector<StepKeys>& steps, int loopStep);

// A Data tree in a temporary directory (root()/Data): the configuration index listing the
// skills added, and their files.
class DataTree {
public:
    DataTree() { writeIndex(); }
    // Lists `name` in the index and writes its file (unless text is empty: listed but missing).
    void addSkill(const std::string& name, const std::string& text);
    [[nodiscard]] const std::string& root() const { return dir.path(); }
    [[nodiscard]] std::string dataDirectory() const { return dir.path() + "/Data"; }
    [[nodiscard]] std::string skillPath(const std::string& name) const {
        return dir.path() + "/Data/SkillData/" + name + ".conf";
    }
    // Writes `text` to `name` inside the tree; returns its path.
    std::string write(const std::string& name, const std::string& text) const {
        return dir.write(name, text);
    }

private:
    void writeIndex() const;
    support::ScratchDirectory dir;
    std::vector<std::string> skills;
};

}  // namespace skilltest
