#include "utilities/config/Config.h"

#include "utilities/config/ConfigError.h"
#include "utilities/config/ConfigRevision.h"

// Zero-initialised before any constructor runs, so the first Config anywhere creates the registry.
Config::ConfigFiles* Config::configFiles = nullptr;

Config config;

void Config::ConfigFiles::add(const std::string& name) {
    ConfigRevision::advance();
    if (files.find(name) != files.end()) {
        return;
    }
    auto file = std::make_unique<ConfigFile>();
    file->setName(name);
    files.emplace(name, std::move(file));
}

void Config::ConfigFiles::add(const std::string& name, const std::string& fileName) {
    ConfigRevision::advance();
    auto it = files.find(name);
    if (it != files.end()) {
        it->second->setByFile(fileName);
        return;
    }
    auto file = std::make_unique<ConfigFile>();
    file->setName(name);
    file->setByFile(fileName);
    files.emplace(name, std::move(file));
}

ConfigFile& Config::ConfigFiles::operator[](const std::string& name) {
    auto it = files.find(name);
    KORVEL_CHECK_DETAIL(it != files.end(), "Config",
                        "configuration \"" + name + "\" is not registered");
    return *it->second;
}

const ConfigFile& Config::ConfigFiles::operator[](const std::string& name) const {
    auto it = files.find(name);
    KORVEL_CHECK_DETAIL(it != files.end(), "Config",
                        "configuration \"" + name + "\" is not registered");
    return *it->second;
}

bool Config::ConfigFiles::exists(const std::string& name) const {
    return files.find(name) != files.end();
}

void Config::ConfigFiles::clear() {
    ConfigRevision::advance();
    files.clear();
}

Config::Config() {
    if (configFiles == nullptr) {
        // Lives until the process ends; Config's destructor leaves it alone.
        configFiles = new ConfigFiles();  // NOLINT(cppcoreguidelines-owning-memory)
    }
}

void Config::add(const std::string& name) {
    KORVEL_CHECK(configFiles, "Config");
    configFiles->add(name);
}

void Config::add(const std::string& name, const std::string& fileName) {
    KORVEL_CHECK(configFiles, "Config");
    configFiles->add(name, fileName);
}

ConfigFile& Config::operator[](const std::string& name) {
    KORVEL_CHECK(configFiles, "Config");
    return (*configFiles)[name];
}

const ConfigFile& Config::operator[](const std::string& name) const {
    KORVEL_CHECK(configFiles, "Config");
    return static_cast<const ConfigFiles&>(*configFiles)[name];
}

bool Config::exists(const std::string& name) const {
    KORVEL_CHECK(configFiles, "Config");
    return configFiles->exists(name);
}

void Config::resetState() {
    if (configFiles == nullptr) {
        configFiles = new ConfigFiles();  // NOLINT(cppcoreguidelines-owning-memory)
    }
    configFiles->clear();
}
