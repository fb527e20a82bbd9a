#pragma once

#include <string>
#include <vector>

namespace support {

// A fresh directory under the system's temporary directory, removed with its contents when the
// object goes out of scope.
class ScratchDirectory {
public:
    ScratchDirectory();
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;
    ~ScratchDirectory();

    [[nodiscard]] const std::string& path() const { return directory; }
    // Writes `content` byte for byte to `name` (folders included) inside; returns its path.
    std::string write(const std::string& name, const std::string& content) const;

private:
    std::string directory;
};

// The whole content of a file ("" when it cannot be read).
std::string readFile(const std::string& path);
// The lines of a file without their line ends (none when it cannot be read).
std::vector<std::string> readLines(const std::string& path);

// Changes the working directory for the lifetime of the object.
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
