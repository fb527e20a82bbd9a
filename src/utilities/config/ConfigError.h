#pragma once

#include <string>

// Fatal checks of the configuration store and of the readers of data files.
//
// A failed check writes exactly one line to standard error and ends the process with
// EXIT_FAILURE (through std::exit, so streams are flushed). The line is
//
//   <unit>:<line>: <signature>: check "<condition>" failed
//   <unit>:<line>: <signature>: check "<condition>" failed (<detail>)
//
// where <unit> is the source unit ("Config", "Str", ...), <line> the source line of the check,
// <signature> the full signature of the function holding it (__PRETTY_FUNCTION__), <condition>
// the text of the checked condition as written in the code, and <detail> says what the user has
// to fix. Details about a data file's text start with the file and its 1-based line number,
// built by checkFileLocation(); details about a stored value name its configuration, group and
// key, built by checkValueLocation(). For example:
//
//   Config:160: virtual void ConfigFile::readFile(const std::string&): check "line[ve] == ']'"
//   failed (file "Data/ConfigurationData/ServerInitialize.conf", line 7)
//
// (one line in reality). Readers of other files (skill data) add what they know after the file
// location, e.g. checkFileLocation(path, 12) + ", step group \"3\", key \"LLE2\" is missing".

// Writes the diagnostic line described above and exits with EXIT_FAILURE. An empty detail
// leaves the bracketed part out.
[[noreturn]] void failCheck(const char* condition, const char* unit, int line,
                            const char* signature, const std::string& detail);

// The diagnostic line itself, without the end of line (exposed for tests and for callers that
// want to log the same text before stopping).
std::string checkMessage(const char* condition, const char* unit, int line, const char* signature,
                         const std::string& detail);

// "file \"<path>\", line <lineNumber>"; a lineNumber of 0 or less leaves the line out.
std::string checkFileLocation(const std::string& path, int lineNumber);

// "configuration \"<configuration>\", group \"<group>\", key \"<key>\"".
std::string checkValueLocation(const std::string& configuration, const std::string& group,
                               const std::string& key);

// Checks `condition`; on failure reports it with the given unit, this line and this function.
#define KORVEL_CHECK(condition, unit)   \
    ((condition) ? static_cast<void>(0) \
                 : ::failCheck(#condition, unit, __LINE__, __PRETTY_FUNCTION__, std::string()))

// As KORVEL_CHECK, adding `detail` (a std::string expression, evaluated only on failure).
#define KORVEL_CHECK_DETAIL(condition, unit, detail) \
    ((condition) ? static_cast<void>(0)              \
                 : ::failCheck(#condition, unit, __LINE__, __PRETTY_FUNCTION__, (detail)))
