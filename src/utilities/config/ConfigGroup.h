#pragma once

#include <map>
#include <string>

#include "utilities/config/ConfigValue.h"

// One group of a configuration file: keys and their values, ordered by key.
class ConfigGroup {
public:
    ConfigGroup() = default;
    // A group that knows its own name and the configuration it belongs to (for diagnostics).
    ConfigGroup(const std::string& configurationName, const std::string& name);

    // Sets `key` to the value built from `text`, replacing an earlier value entirely; `file`
    // and `line` say where the text was read (empty and 0 when it was not read from a file).
    void add(const std::string& key, const std::string& text, const std::string& file = "",
             int line = 0);
    // The value of `key`; a missing key is a fatal configuration error.
    ConfigValue& operator[](const std::string& key);
    const ConfigValue& operator[](const std::string& key) const;
    // Whether `key` is present: the way to probe for an optional key.
    bool exists(const std::string& key) const;

    const std::map<std::string, ConfigValue>& getValues() const { return values; }
    const std::string& getName() const { return name; }
    const std::string& getConfigurationName() const { return configurationName; }
    // Renames the group and every value's location.
    void setLocation(const std::string& configuration, const std::string& group);

private:
    std::map<std::string, ConfigValue> values;
    std::string configurationName;
    std::string name;
};
