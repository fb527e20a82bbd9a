#include "utilities/logging/LogFile.h"

LogFile::LogFile(const std::string& fileName, const Timer* timer)
    : LogStream(nullptr, timer),
      fileName(fileName),
      fileStream(std::make_unique<std::ofstream>(fileName, std::ios::out | std::ios::trunc)) {
    setOut(fileStream.get());
}

LogFile::LogFile(const Timer* timer) : LogStream(nullptr, timer) {
    setOut(&memoryStream);
}

LogFile::~LogFile() = default;

void LogFile::setFileName(const std::string& name) {
    auto file = std::make_unique<std::ofstream>(name, std::ios::out | std::ios::trunc);
    *file << memoryStream.str();
    file->flush();
    setOut(file.get());
    fileStream = std::move(file);  // closes a file opened earlier
}
