#include "utilities/config/ConfigError.h"

#include <cstdio>
#include <cstdlib>

std::string checkMessage(const char* condition, const char* unit, int line, const char* signature,
                         const std::string& detail) {
    std::string message = std::string(unit) + ":" + std::to_string(line) + ": " + signature +
                          ": check \"" + condition + "\" failed";
    if (!detail.empty()) {
        message += " (" + detail + ")";
    }
    return message;
}

void failCheck(const char* condition, const char* unit, int line, const char* signature,
               const std::string& detail) {
    const std::string message = checkMessage(condition, unit, line, signature, detail) + "\n";
    // One write, so the line is not torn apart by other output.
    std::fwrite(message.data(), 1, message.size(), stderr);
    std::fflush(stderr);
    std::exit(EXIT_FAILURE);
}

std::string checkFileLocation(const std::string& path, int lineNumber) {
    std::string location = "file \"" + path + "\"";
    if (lineNumber > 0) {
        location += ", line " + std::to_string(lineNumber);
    }
    return location;
}

std::string checkValueLocation(const std::string& configuration, const std::string& group,
                               const std::string& key) {
    return "configuration \"" + configuration + "\", group \"" + group + "\", key \"" + key + "\"";
}
