#include "utilities/config/ConfigFile.h"

#include <filesystem>
#include <fstream>

#include "utilities/config/ConfigError.h"

using std::string;

namespace {

string emptyValueDetail(const string& fileName, int lineNumber, const string& key) {
    return checkFileLocation(fileName, lineNumber) + ", key \"" + key + "\" has no value";
}

}  // namespace

ConfigFile::ConfigFile(const std::string& fileName) {
    readFile(fileName);  // NOLINT(clang-analyzer-optin.cplusplus.VirtualCall): this class's reader
}

void ConfigFile::readFile(const std::string& fileName) {
    std::ifstream fin(fileName);
    KORVEL_CHECK_DETAIL(fin, "Config", checkFileLocation(fileName, 0) + " cannot be opened");
    // A directory opens like a file but reads as empty; say so instead of loading nothing.
    std::error_code ignored;
    const bool isDirectory = std::filesystem::is_directory(fileName, ignored);
    KORVEL_CHECK_DETAIL(!isDirectory, "Config", checkFileLocation(fileName, 0) + " is a directory");

    static const char* const kBlanks = " \t";
    addGroup("");
    string current;
    string line;
    int lineNumber = 0;
    while (std::getline(fin, line)) {
        ++lineNumber;
        const string::size_type cpos = line.find('#');
        const string::size_type vs = line.find_first_not_of(kBlanks);
        string::size_type ve = string::npos;
        if (cpos == string::npos) {
            ve = line.find_last_not_of(kBlanks);
        } else if (cpos == 0) {
            ve = 0;  // the '#' itself
        } else {
            ve = line.find_last_not_of(kBlanks, cpos - 1);
        }
        // Blank lines, comment lines and lines of a single visible character. An indented '#'
        // leaves no visible character before it (ve is npos) and falls through to the key case.
        if (vs == string::npos || ve <= vs) {
            continue;
        }

        if (line[vs] == '[') {
            KORVEL_CHECK_DETAIL(line[ve] == ']', "Config", checkFileLocation(fileName, lineNumber));
            current = line.substr(vs + 1, ve - vs - 1);
            addGroup(current);
            continue;
        }

        const string::size_type qpos = line.find('=');
        KORVEL_CHECK_DETAIL(qpos != string::npos && qpos < cpos, "Config",
                            checkFileLocation(fileName, lineNumber));
        string name;
        if (qpos > vs) {
            const string::size_type ne = line.find_last_not_of(kBlanks, qpos - 1);
            name = line.substr(vs, ne - vs + 1);
        }
        // NOLINTNEXTLINE(readability-container-size-empty): the text is the diagnostic's
        KORVEL_CHECK_DETAIL(name != "", "Config", checkFileLocation(fileName, lineNumber));
        // The '=' is visible and lies before any '#', so ve >= qpos; ve == qpos means no value.
        string value;
        if (ve > qpos) {
            const string::size_type vb = line.find_first_not_of(kBlanks, qpos + 1);
            value = line.substr(vb, ve - vb + 1);
        }
        // NOLINTNEXTLINE(readability-container-size-empty): the text is the diagnostic's
        KORVEL_CHECK_DETAIL(value != "", "Config", emptyValueDetail(fileName, lineNumber, name));
        groups[current].add(name, value, fileName, lineNumber);
    }
}

void ConfigFile::setByFile(const std::string& fileName) {
    readFile(fileName);
}

void ConfigFile::addGroup(const std::string& group) {
    groups.try_emplace(group, name, group);
}

ConfigGroup& ConfigFile::operator[](const std::string& group) {
    auto it = groups.find(group);
    KORVEL_CHECK_DETAIL(it != groups.end(), "Config",
                        "configuration \"" + name + "\", group \"" + group + "\" is missing");
    return it->second;
}

const ConfigGroup& ConfigFile::operator[](const std::string& group) const {
    auto it = groups.find(group);
    KORVEL_CHECK_DETAIL(it != groups.end(), "Config",
                        "configuration \"" + name + "\", group \"" + group + "\" is missing");
    return it->second;
}

bool ConfigFile::exists(const std::string& group) const {
    return groups.find(group) != groups.end();
}

void ConfigFile::setName(const std::string& configurationName) {
    name = configurationName;
    for (auto& [groupName, group] : groups) {
        group.setLocation(configurationName, groupName);
    }
}
