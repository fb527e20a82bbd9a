#pragma once

#include <map>
#include <string>
#include <vector>

#include "utilities/config/Config.h"

class Command;

// The skill database: every skill file listed in the configuration index, loaded once on first
// use and kept as key frames under the skill's name. A listed file that is missing, lacks a
// group or key, or has a key with fewer words than the reader needs stops the program with a
// diagnostic naming the file, group, key and what is missing.
class ConfigReader {
public:
    using Database = std::map<std::string, std::vector<Command*>>;

    // Where the index and the skill files are found, relative to the working directory.
    static constexpr const char* kSkillDirectory = "./Data/SkillData/";

    ConfigReader(const ConfigReader&) = delete;
    ConfigReader& operator=(const ConfigReader&) = delete;
    virtual ~ConfigReader();

    // The one reader; the first call loads every skill file.
    static ConfigReader* instance();
    // Deletes the reader and its key frames, as at process start (for tests).
    static void resetState();

    // A copy of the database; the commands are shared, not copied.
    [[nodiscard]] Database getConfigSkillCommandDataBase() const { return database; }
    [[nodiscard]] const std::vector<std::string>& getSkillNames() const { return skillNames; }
    // The key frames of skill `name`, kept by the reader (empty for a name without a skill).
    [[nodiscard]] const std::vector<Command*>& keyFrames(const std::string& name) const;

    // Builds the database from the loaded skill files (called by the constructor).
    void configReaderFile();

private:
    ConfigReader();

    Config store;
    std::vector<std::string> skillNames;
    Database database;

    static ConfigReader* mConfigReader;
};
