#pragma once

#include <string>

#include "utilities/logging/LogStream.h"
#include "utilities/logging/Logger.h"

// The program's way into the log streams, its trace lines and its assertion. No instances.
class Debugger {
public:
    Debugger() = delete;

    // Shares the one registry with every other Logger.
    static Logger logger;

    static Logger::LogStreams& logStreams();
    // The stream registered as `stream`, or one that discards.
    static LogStream& logg(const std::string& stream);

    // file:line 'text'
    static void message(const std::string& stream, const std::string& file, int line,
                        const std::string& text);
    // file:line <<< MARK >>>
    static void mark(const std::string& stream, const std::string& file, int line);
    // file:line DOING 'text'
    static void doo(const std::string& stream, const std::string& file, int line,
                    const std::string& text);
    // file:line 'text' DONE
    static void done(const std::string& stream, const std::string& file, int line,
                     const std::string& text);
    // When `condition` is false: writes "file:line 'expression' FAILED!" to the stream and to the
    // standard output, then stops the process with a failure status.
    static void assrt(const std::string& stream, const std::string& file, int line,
                      const std::string& expression, bool condition);
};
