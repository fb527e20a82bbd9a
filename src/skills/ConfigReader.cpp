#include "skills/ConfigReader.h"

#include <fstream>

#include "commands/Command.h"
#include "skills/SkillFile.h"
#include "utilities/Basics.h"
#include "utilities/config/ConfigError.h"
#include "utilities/config/Str.h"
#include "worldmodel/Share.h"

ConfigReader* ConfigReader::mConfigReader = nullptr;

namespace {

std::string skillPath(const std::string& name) {
    return std::string(ConfigReader::kSkillDirectory) + name + ".conf";
}

}  // namespace

ConfigReader::ConfigReader() {
    const ConfigGroup& index = store["Config_FileAdresses"]["DefultSet"];
    const auto count = static_cast<int>(index["SkillDataFileCount"].asFloat());
    for (int i = 1; i <= count; ++i) {
        const std::string name =
            store["Config_FileAdresses"]["SkillDataFileName"][Str(i).getValue()][0].getValue();
        const std::string path = skillPath(name);
        const bool readable = std::ifstream(path).good();
        KORVEL_CHECK_DETAIL(readable, "ConfigReader",
                            checkFileLocation(path, 0) + ": skill \"" + name +
                                "\" is listed in the index but its file cannot be read");
        skillNames.push_back(name);
        store.add(name);
        store[name].setByFile(path);
        basics::WarnLoadingTrue(" Loading Config_FileAdresses File: " + path);
    }
    configReaderFile();
}

ConfigReader::~ConfigReader() {
    for (auto& [name, frames] : database) {
        for (Command* frame : frames) {
            delete frame;
        }
    }
}

ConfigReader* ConfigReader::instance() {
    if (mConfigReader == nullptr) {
        mConfigReader = new ConfigReader();
    }
    return mConfigReader;
}

const std::vector<Command*>& ConfigReader::keyFrames(const std::string& name) const {
    static const std::vector<Command*> none;
    const auto entry = database.find(name);
    return entry != database.end() ? entry->second : none;
}

void ConfigReader::resetState() {
    delete mConfigReader;
    mConfigReader = nullptr;
}

void ConfigReader::configReaderFile() {
    for (const std::string& name : skillNames) {
        const ConfigFile& file = store[name];
        const std::vector<SkillFile::Problem> problems = SkillFile::validate(file);
        KORVEL_CHECK_DETAIL(problems.empty(), "ConfigReader",
                            SkillFile::describe(skillPath(name), problems.front()));
        std::vector<Command*> frames = SkillFile::buildKeyFrames(file, Share::lastCommand);
        if (frames.empty()) {
            continue;  // a skill without steps gets no entry
        }
        std::vector<Command*>& entry = database[name];
        entry.insert(entry.end(), frames.begin(), frames.end());
    }
}
