#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "utilities/logging/LogStream.h"

namespace support {

// The whole content of a file ("" when it cannot be read).
std::string readFile(const std::string& path);
// The lines of a file without their line ends (none when it cannot be read).
std::vector<std::string> readLines(const std::string& path);

// A log stream writing into a string, for tests that read back what was logged.
class LogString : public LogStream {
public:
    explicit LogString(const Timer* timer = nullptr) : LogStream(&text, timer) {}
    std::ostringstream text;
};

// Changes the working directory for the lifetime of the object and restores it afterwards.
class ScopedChdir {
public:
    explicit ScopedChdir(const std::string& directory);
    ScopedChdir(const ScopedChdir&) = delete;
    ScopedChdir& operator=(const ScopedChdir&) = delete;
    ~ScopedChdir();

private:
    std::string previous;
};

}  // namespace support
