#pragma once

#include <string>

namespace support {

// The whole content of a file ("" when it cannot be read).
std::string readFile(const std::string& path);

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
