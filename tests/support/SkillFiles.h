#pragma once

#include <map>
#include <string>
#include <vector>

#include "ScratchDirectory.h"

namespace skilltest {

// The keys of one step; a key mapped to "" is left out of the file.
using StepKeys = std::map<std::string, std::string>;

// A step that moves nothing: every flag false, every target 0, every speed 1.
StepKeys restingStep();

// restingStep() with the given keys replaced (or, mapped to "", removed).
StepKeys step(const StepKeys& changes);

// The text of a skill file with the given steps and loop step (counting from 1).
std::string skillText(const std::vector<StepKeys>& steps, int loopStep);

// Writes text to path, creating or truncating the file.
void writeWholeFile(const std::string& path, const std::string& text);

// A Data tree in a temporary directory: the configuration index listing the given skills, and
// their files. The tree lives at root()/Data.
class DataTree {
public:
    DataTree();
    // Lists `name` in the index and writes its file (unless text is empty: listed but missing).
    void addSkill(const std::string& name, const std::string& text);
    // Writes the index for the skills added so far.
    void writeIndex() const;
    [[nodiscard]] const std::string& root() const { return dir.path(); }
    [[nodiscard]] std::string dataDirectory() const { return dir.path() + "/Data"; }
    [[nodiscard]] std::string skillPath(const std::string& name) const;

private:
    support::ScratchDirectory dir;
    std::vector<std::string> skills;
};

}  // namespace skilltest
