#include "Files.h"  // same folder: the support library sees only its users' path

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace fs = std::filesystem;

namespace support {

ScratchDirectory::ScratchDirectory() {
    std::string pattern = (fs::temp_directory_path() / "korvel-test-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) {
        throw std::runtime_error("cannot create a scratch directory from " + pattern);
    }
    directory = pattern;
}

ScratchDirectory::~ScratchDirectory() {
    std::error_code ignored;
    fs::remove_all(directory, ignored);
}

std::string ScratchDirectory::write(const std::string& name, const std::string& content) const {
    const fs::path path = fs::path(directory) / name;
    fs::create_directories(path.parent_path());
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    if (!(out << content)) {
        throw std::runtime_error("cannot write " + path.string());
    }
    return path.string();
}

std::string readFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

std::vector<std::string> readLines(const std::string& path) {
    std::ifstream in(path);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
        lines.push_back(line);
    }
    return lines;
}

ScopedChdir::ScopedChdir(const std::string& directory) : previous(fs::current_path().string()) {
    fs::current_path(directory);
}

ScopedChdir::~ScopedChdir() {
    std::error_code ignored;
    fs::current_path(previous, ignored);
}

}  // namespace support
