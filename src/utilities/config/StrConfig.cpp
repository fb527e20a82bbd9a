#include "utilities/config/StrConfig.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

#include "utilities/config/ConfigError.h"

namespace {

std::string quoted(const std::string& text) {
    return "text \"" + text + "\"";
}

}  // namespace

StrConfig::StrConfig(const std::string& value) : value(value) {}

const std::string& StrConfig::asString() const {
    return value;
}

float StrConfig::asFloat() const {
    char* end = nullptr;
    const float result = std::strtof(value.c_str(), &end);
    KORVEL_CHECK_DETAIL(end != value.c_str(), "Str", quoted(value));
    return result;
}

int StrConfig::asInt() const {
    char* end = nullptr;
    const long result = std::strtol(value.c_str(), &end, 0);
    KORVEL_CHECK_DETAIL(end != value.c_str(), "Str", quoted(value));
    return static_cast<int>(result);
}

char StrConfig::asChar() const {
    KORVEL_CHECK_DETAIL(value.length() == 1, "Str", quoted(value));
    return value[0];
}

bool StrConfig::asBool() const {
    std::string tmp = value;
    std::transform(tmp.begin(), tmp.end(), tmp.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    KORVEL_CHECK_DETAIL(tmp == "true" || tmp == "1" || tmp == "false" || tmp == "0", "Str",
                        quoted(value));
    return tmp == "true" || tmp == "1";
}
