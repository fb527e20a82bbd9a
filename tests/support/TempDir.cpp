#include "TempDir.h"  // same folder: the support library itself has no include path to tests/

#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <vector>

TempDir::TempDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "korvel-test-XXXXXX").string();
    std::vector<char> buffer(pattern.begin(), pattern.end());
    buffer.push_back('\0');
    if (mkdtemp(buffer.data()) == nullptr) {
        throw std::runtime_error("cannot create a temporary directory");
    }
    dir = buffer.data();
}

TempDir::~TempDir() {
    std::error_code ignored;
    std::filesystem::remove_all(dir, ignored);
}

std::string TempDir::file(const std::string& name) const {
    return dir + "/" + name;
}

std::string readWholeFile(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

void writeWholeFile(const std::string& path, const std::string& text) {
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out << text;
}

ScopedChdir::ScopedChdir(const std::string& dir) : previous(std::filesystem::current_path()) {
    std::filesystem::current_path(dir);
}

ScopedChdir::~ScopedChdir() {
    std::error_code ignored;
    std::filesystem::current_path(previous, ignored);
}
