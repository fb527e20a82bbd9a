#pragma once

#include <string>

// A fresh directory under the system's temporary directory, removed with its contents when the
// object goes out of scope.
class TempDir {
public:
    TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;
    ~TempDir();

    [[nodiscard]] const std::string& path() const { return dir; }
    // path() + "/" + name
    [[nodiscard]] std::string file(const std::string& name) const;

private:
    std::string dir;
};

// The whole content of a file ("" when it cannot be read).
std::string readWholeFile(const std::string& path);
// Writes `text` to `path`, creating or truncating the file.
void writeWholeFile(const std::string& path, const std::string& text);

// Changes the working directory for the lifetime of the object and restores it afterwards.
class ScopedChdir {
public:
    explicit ScopedChdir(const std::string& dir);
    ScopedChdir(const ScopedChdir&) = delete;
    ScopedChdir& operator=(const ScopedChdir&) = delete;
    ~ScopedChdir();

private:
    std::string previous;
};
