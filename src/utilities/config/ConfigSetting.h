#pragma once

#include <string>
#include <type_traits>
#include <utility>

#include "utilities/config/Config.h"
#include "utilities/config/ConfigRevision.h"

// One configuration value, read from the store into a T (float, int, bool or std::string) on
// first use and again only after the store has changed (ConfigRevision), for values that are
// consulted every cycle. A missing configuration, group or key stops the program on use, as the
// store's own lookups do.
template <typename T>
class ConfigSetting {
public:
    ConfigSetting(std::string configuration, std::string group, std::string key)
        : configuration(std::move(configuration)), group(std::move(group)), key(std::move(key)) {}

    const T& get() const {
        if (!valid || revision != ConfigRevision::current()) {
            value = read(Config()[configuration][group][key]);
            revision = ConfigRevision::current();
            valid = true;
        }
        return value;
    }

private:
    static T read(const ConfigValue& text) {
        if constexpr (std::is_same_v<T, float>) {
            return text.asFloat();
        } else if constexpr (std::is_same_v<T, int>) {
            return text.asInt();
        } else if constexpr (std::is_same_v<T, bool>) {
            return text.asBool();
        } else {
            static_assert(std::is_same_v<T, std::string>, "float, int, bool or std::string");
            return text.asString();
        }
    }

    std::string configuration;
    std::string group;
    std::string key;
    mutable T value{};
    mutable unsigned long revision = 0;
    mutable bool valid = false;
};
