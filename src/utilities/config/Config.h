#pragma once

#include <map>
#include <memory>
#include <string>

#include "utilities/config/ConfigFile.h"

// The front door of the configuration store: configuration name -> file -> group -> key ->
// value, e.g. config["ServerInitialize"]["Connection"]["Port"].asInt(). Every Config object
// shares the one process-wide registry, created by the first Config constructed and kept until
// the process ends. A missing name at any level stops the program with a diagnostic
// (ConfigError.h); there are no defaults.
class Config {
public:
    // The registry of configurations, each owned and registered under its name.
    class ConfigFiles {
    public:
        ConfigFiles() = default;
        ConfigFiles(const ConfigFiles&) = delete;
        ConfigFiles& operator=(const ConfigFiles&) = delete;
        virtual ~ConfigFiles() = default;

        // Registers an empty configuration unless `name` is registered already.
        void add(const std::string& name);
        // Reads `fileName` into the configuration `name`, registering it first when new.
        void add(const std::string& name, const std::string& fileName);
        ConfigFile& operator[](const std::string& name);
        const ConfigFile& operator[](const std::string& name) const;
        bool exists(const std::string& name) const;
        // Unregisters and deletes every configuration.
        void clear();

    private:
        std::map<std::string, std::unique_ptr<ConfigFile>> files;
    };

    Config();
    Config(const Config&) = default;
    Config& operator=(const Config&) = default;
    virtual ~Config() = default;

    void add(const std::string& name);
    void add(const std::string& name, const std::string& fileName);
    // The configuration registered as `name`; a missing name is a fatal configuration error.
    ConfigFile& operator[](const std::string& name);
    const ConfigFile& operator[](const std::string& name) const;
    // Whether a configuration is registered as `name`.
    bool exists(const std::string& name) const;

    // Empties the registry, as at process start (for tests).
    static void resetState();

protected:
    static ConfigFiles* configFiles;
};

// The process-wide configuration store.
extern Config config;
