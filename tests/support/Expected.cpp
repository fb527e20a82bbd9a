#include "Expected.h"  // same folder: the support library sees only its users' path

namespace support {

namespace {

const char* const kJointOrder[] = {"he1",  "he2",  "rae1", "rae2", "rae3", "rae4", "lae1", "lae2",
                                   "lae3", "lae4", "rle1", "rle2", "rle3", "rle4", "rle5", "rle6",
                                   "lle1", "lle2", "lle3", "lle4", "lle5", "lle6"};

}  // namespace

std::string effectorText(const std::map<std::string, std::string>& values) {
    std::string text;
    for (std::size_t i = 0; i < std::size(kJointOrder); ++i) {
        const std::string name = kJointOrder[i];
        const bool limbStart = i == 0 || i == 2 || i == 6 || i == 10 || i == 16;
        if (!limbStart) {
            text += ' ';
        }
        const auto found = values.find(name);
        text += "(" + name + " " + (found != values.end() ? found->second : "0") + ")";
    }
    return text + "(Say )";
}

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
