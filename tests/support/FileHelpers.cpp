#include "FileHelpers.h"  // same folder: the support library sees only its users' path

#include <filesystem>
#include <fstream>
#include <sstream>

namespace support {

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

ScopedChdir::ScopedChdir(const std::string& directory)
    : previous(std::filesystem::current_path().string()) {
    std::filesystem::current_path(directory);
}

ScopedChdir::~ScopedChdir() {
    std::error_code ignored;
    std::filesystem::current_path(previous, ignored);
}

}  // namespace support
