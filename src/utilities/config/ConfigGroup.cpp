#include "utilities/config/ConfigGroup.h"

#include "utilities/config/ConfigError.h"
#include "utilities/config/ConfigRevision.h"

ConfigGroup::ConfigGroup(const std::string& configurationName, const std::string& name)
    : configurationName(configurationName), name(name) {}

void ConfigGroup::add(const std::string& key, const std::string& text, const std::string& file,
                      int line) {
    ConfigRevision::advance();
    ConfigValue value(text);
    value.setLocation(configurationName, name, key);
    value.setSource(file, line);
    values.insert_or_assign(key, std::move(value));
}

ConfigValue& ConfigGroup::operator[](const std::string& key) {
    auto it = values.find(key);
    KORVEL_CHECK_DETAIL(it != values.end(), "Config",
                        checkValueLocation(configurationName, name, key) + " is missing");
    return it->second;
}

const ConfigValue& ConfigGroup::operator[](const std::string& key) const {
    auto it = values.find(key);
    KORVEL_CHECK_DETAIL(it != values.end(), "Config",
                        checkValueLocation(configurationName, name, key) + " is missing");
    return it->second;
}

bool ConfigGroup::exists(const std::string& key) const {
    return values.find(key) != values.end();
}

void ConfigGroup::setLocation(const std::string& configuration, const std::string& group) {
    configurationName = configuration;
    name = group;
    for (auto& [key, value] : values) {
        value.setLocation(configuration, group, key);
    }
}
