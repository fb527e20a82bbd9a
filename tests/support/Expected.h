#pragma once

#include <map>
#include <sstream>
#include <string>

#include "utilities/logging/LogStream.h"
#include "utilities/logging/Timer.h"

namespace support {

// The effector text of a command held back: every joint at rest (the foot joints print "-0").
inline constexpr char kHeldEffectorText[] =
    "(he1 0) (he2 0)(rae1 0) (rae2 0) (rae3 0) (rae4 0)(lae1 0) (lae2 0) (lae3 0) (lae4 0)"
    "(rle1 0) (rle2 0) (rle3 0) (rle4 0) (rle5 -0) (rle6 0)"
    "(lle1 0) (lle2 0) (lle3 0) (lle4 0) (lle5 -0) (lle6 0)";

// The effector text of a sending command whose joints print "0" except those given (effector
// name -> printed velocity).
std::string effectorText(const std::map<std::string, std::string>& values);

// Escapes `text` so that a POSIX extended regular expression matches it literally.
std::string regexLiteral(const std::string& text);

// A death-test pattern for the whole standard error of a failed check (ConfigError.h): one line
// "<unit>:<n>: <signature>: check \"<condition>\" failed[ (<detail>)]", any source line <n>.
std::string checkDiagnosticPattern(const std::string& unit, const std::string& signature,
                                   const std::string& condition, const std::string& detail = "");

// A log stream writing into a string, to read back what was logged.
class LogString : public LogStream {
public:
    explicit LogString(const Timer* timer = nullptr) : LogStream(&text, timer) {}
    std::ostringstream text;
};

// A cycle timer whose reading the test sets; resetCycleTime() sets it to 0.
class FakeTimer : public Timer {
public:
    explicit FakeTimer(int milliseconds) : milliseconds(milliseconds) {}
    void resetCycleTime() override { milliseconds = 0; }
    [[nodiscard]] int getCycleTime() const override { return milliseconds; }
    void set(int value) { milliseconds = value; }

private:
    int milliseconds;
};

}  // namespace support
