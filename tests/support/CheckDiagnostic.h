#pragma once

#include <string>

namespace support {

// Escapes `text` so that a POSIX extended regular expression matches it literally.
std::string regexLiteral(const std::string& text);

// A death-test pattern for the whole standard-error output of a failed check (ConfigError.h):
// exactly one line "<unit>:<n>: <signature>: check \"<condition>\" failed[ (<detail>)]" where
// only the source line number <n> may be any number.
std::string checkDiagnosticPattern(const std::string& unit, const std::string& signature,
                                   const std::string& condition, const std::string& detail = "");

}  // namespace support
