#include "Expected.h"  // same folder: the support library sees only its users' path

namespace support {

std::string regexLiteral(const std::string& text) {
    std::string escaped;
    for (char c : text) {
        if (std::string("\\^$.|?*+()[]{}").find(c) != std::string::npos) {
            escaped += '\\';
        }
        escaped += c;
    }
    return escaped;
}

std::string checkDiagnosticPattern(const std::string& unit, const std::string& signature,
                                   const std::string& condition, const std::string& detail) {
    std::string pattern = "^" + regexLiteral(unit) + ":[0-9]+: " + regexLiteral(signature) +
                          ": check \"" + regexLiteral(condition) + "\" failed";
    if (!detail.empty()) {
        pattern += " \\(" + regexLiteral(detail) + "\\)";
    }
    return pattern + "\n$";
}

}  // namespace support
