#pragma once

#include <map>
#include <string>

#include "utilities/config/ConfigGroup.h"

// One configuration: named groups of keys, read from one or more text files.
//
// Text format, line by line (a blank is a space or a tab; a line ends at '\n' only):
//   - empty lines, lines of blanks, lines starting with '#' in the first column and lines with
//     a single visible character are ignored;
//   - "[name]" starts (or continues) the group `name`, taken exactly as written between the
//     brackets; a trailing "# comment" is allowed;
//   - "key = value" sets `key` in the current group; blanks around key and value are dropped,
//     everything from '#' on is a comment; keys before the first header go to the group "";
//   - anything else stops the program with a diagnostic naming the file and line (ConfigError.h).
// Reading another file into the same configuration merges it: later keys replace earlier ones.
class ConfigFile {
public:
    // No groups at all, not even "".
    ConfigFile() = default;
    // Empty, then readFile(fileName).
    explicit ConfigFile(const std::string& fileName);
    ConfigFile(const ConfigFile&) = default;
    ConfigFile(ConfigFile&&) = default;
    ConfigFile& operator=(const ConfigFile&) = default;
    ConfigFile& operator=(ConfigFile&&) = default;
    virtual ~ConfigFile() = default;

    // Parses `fileName` and merges it into this configuration.
    virtual void readFile(const std::string& fileName);
    // readFile through the virtual slot.
    void setByFile(const std::string& fileName);
    // Adds an empty group unless one of that name exists (its keys then stay).
    void addGroup(const std::string& group);
    // The group `group`; a missing group is a fatal configuration error.
    ConfigGroup& operator[](const std::string& group);
    const ConfigGroup& operator[](const std::string& group) const;
    // Whether the group is present.
    bool exists(const std::string& group) const;

    // Applies the command-line options to this configuration ("ServerInitialize") and to
    // `loggerConfig` ("LoggerInitialize"). Returns false, after printing the usage text, at the
    // first unknown option or missing value; options before it stay applied.
    bool setByArguments(int argc, char** argv, ConfigFile& loggerConfig);
    // Prints the usage text to standard output.
    static void argumentsError(const std::string& programName);

    const std::map<std::string, ConfigGroup>& getGroups() const { return groups; }
    // The configuration name under which this file is registered ("" when not registered); it
    // appears in diagnostics. Setting it renames every group's and value's location.
    const std::string& getName() const { return name; }
    void setName(const std::string& configurationName);

private:
    std::map<std::string, ConfigGroup> groups;
    std::string name;
};
