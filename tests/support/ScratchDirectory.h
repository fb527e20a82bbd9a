#pragma once

#include <string>

namespace support {

// A fresh directory under the system's temporary directory, removed with its contents when the
// object goes out of scope. Tests write their small data files into it.
class ScratchDirectory {
public:
    ScratchDirectory();
    ScratchDirectory(const ScratchDirectory&) = delete;
    ScratchDirectory& operator=(const ScratchDirectory&) = delete;
    ~ScratchDirectory();

    const std::string& path() const { return directory; }
    // Writes `content` byte for byte to `name` inside the directory; returns the file's path.
    std::string write(const std::string& name, const std::string& content) const;

private:
    std::string directory;
};

}  // namespace support
