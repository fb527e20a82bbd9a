#pragma once

#include <fstream>
#include <memory>
#include <sstream>
#include <string>

#include "utilities/logging/LogStream.h"

// A log stream into a file. Constructed without a name it collects its text in memory until
// setFileName() gives it a file.
class LogFile : public LogStream {
public:
    // Opens (truncates) `fileName`. A file that cannot be opened silently swallows the output.
    LogFile(const std::string& fileName, const Timer* timer);
    // Collects the output in memory.
    explicit LogFile(const Timer* timer);
    ~LogFile() override;

    // Opens (truncates) `name`, writes into it what was collected so far and continues there.
    // The name given to the constructor is kept (getFileName()).
    void setFileName(const std::string& name);
    [[nodiscard]] const std::string& getFileName() const { return fileName; }

private:
    std::string fileName;
    std::ostringstream memoryStream;
    std::unique_ptr<std::ofstream> fileStream;
};
