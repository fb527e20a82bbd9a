#include "ScratchDirectory.h"  // same folder: the support library sees only its users' path

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <vector>

#include <cstdlib>

namespace support {

ScratchDirectory::ScratchDirectory() {
    std::string pattern = (std::filesystem::temp_directory_path() / "korvel-test-XXXXXX").string();
    std::vector<char> buffer(pattern.begin(), pattern.end());
    buffer.push_back('\0');
    if (mkdtemp(buffer.data()) == nullptr) {
        throw std::runtime_error("cannot create a scratch directory from " + pattern);
    }
    directory = buffer.data();
}

ScratchDirectory::~ScratchDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(directory, ignored);
}

std::string ScratchDirectory::write(const std::string& name, const std::string& content) const {
    std::string path = directory + "/" + name;
    std::ofstream out(path, std::ios::binary);
    out << content;
    out.close();
    if (!out) {
        throw std::runtime_error("cannot write " + path);
    }
    return path;
}

}  // namespace support
