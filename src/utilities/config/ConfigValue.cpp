#include "utilities/config/ConfigValue.h"

#include "utilities/config/ConfigError.h"

ConfigValue::ConfigValue(const std::string& text) : text(text) {
    static const char* const kBlanks = " \t";
    std::string::size_type begin = text.find_first_not_of(kBlanks);
    while (begin != std::string::npos) {
        const std::string::size_type end = text.find_first_of(kBlanks, begin);
        values.emplace_back(text.substr(begin, end - begin));
        begin = text.find_first_not_of(kBlanks, end);
    }
    if (values.empty()) {
        values.emplace_back(std::string());
    }
}

const std::string& ConfigValue::asString() const {
    return text;
}

int ConfigValue::size() const {
    return static_cast<int>(values.size());
}

const Str& ConfigValue::operator[](int i) const {
    KORVEL_CHECK_DETAIL(i >= 0 && i < size(), "Config",
                        checkValueLocation(configurationName, groupName, key) + ": word index " +
                            std::to_string(i) + ", but the value \"" + text + "\" has " +
                            std::to_string(size()) + (size() == 1 ? " word" : " words"));
    return values[static_cast<std::size_t>(i)];
}

float ConfigValue::asFloat() const {
    // NOLINTNEXTLINE(readability-container-size-empty): the text is the diagnostic's
    KORVEL_CHECK_DETAIL(values.size() > 0, "Config",
                        checkValueLocation(configurationName, groupName, key) + " has no value");
    return values[0].b_value(0.0F);
}

int ConfigValue::asInt() const {
    // NOLINTNEXTLINE(readability-container-size-empty): the text is the diagnostic's
    KORVEL_CHECK_DETAIL(values.size() > 0, "Config",
                        checkValueLocation(configurationName, groupName, key) + " has no value");
    return values[0].b_value(0);
}

bool ConfigValue::asBool() const {
    // NOLINTNEXTLINE(readability-container-size-empty): the text is the diagnostic's
    KORVEL_CHECK_DETAIL(values.size() > 0, "Config",
                        checkValueLocation(configurationName, groupName, key) + " has no value");
    return values[0].b_value(false);
}

char ConfigValue::asChar() const {
    // NOLINTNEXTLINE(readability-container-size-empty): the text is the diagnostic's
    KORVEL_CHECK_DETAIL(values.size() > 0, "Config",
                        checkValueLocation(configurationName, groupName, key) + " has no value");
    return values[0].b_value('\0');
}

void ConfigValue::setLocation(const std::string& configuration, const std::string& group,
                              const std::string& keyName) {
    configurationName = configuration;
    groupName = group;
    key = keyName;
}

void ConfigValue::setSource(const std::string& file, int line) {
    sourceFile = file;
    sourceLine = line;
}
