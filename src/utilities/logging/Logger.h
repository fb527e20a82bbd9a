#pragma once

#include <map>
#include <ostream>
#include <string>

#include "utilities/logging/LogDevNull.h"
#include "utilities/logging/LogStream.h"

// Writes the banner that opens a cycle: an end of line, "[--BEGINNING OF CYCLE--]", an end of line.
void beginCycle(std::ostream& out);
// Writes the banner that closes a cycle: "[-----END OF CYCLE-----]" and two ends of line.
void endCycle(std::ostream& out);

// The front door to the log streams. Every Logger works on the one process-wide registry, so all
// instances see the same streams. A name never registered gives a stream that discards.
class Logger {
public:
    // The registry: streams by name (owned), plus the discarding stream for unknown names.
    class LogStreams {
    public:
        LogStreams() = default;
        LogStreams(const LogStreams&) = delete;
        LogStreams& operator=(const LogStreams&) = delete;
        virtual ~LogStreams();

        // Takes ownership of `stream` unless `name` is taken (then the first one stays and
        // `stream` is neither stored nor deleted). Sets the stream's stamp switch. A null stream
        // registers nothing.
        void add(const std::string& name, LogStream* stream, bool showBeginEnd);
        LogStream& operator[](const std::string& name);
        // Cycle banners on every stamped, writing stream, in name order.
        void showBeginCycle();
        void showEndCycle();
        [[nodiscard]] const std::map<std::string, LogStream*>& getStreams() const {
            return streams;
        }
        // Deletes every registered stream.
        void clear();

    private:
        std::map<std::string, LogStream*> streams;
        LogDevNull devNull;
    };

    Logger();
    Logger(const Logger&) = delete;
    Logger& operator=(const Logger&) = delete;
    virtual ~Logger();

    void add(const std::string& name, LogStream* stream, bool showBeginEnd);
    LogStream& operator[](const std::string& name);
    void showBeginCycle();
    void showEndCycle();
    LogStreams& getLogStreams();

    // Drops (deletes) every registered stream, as at start of process. For tests.
    static void resetState();

private:
    // Created by the first Logger constructed; lives until the process ends.
    static LogStreams* logStreams;
};

// The start-up front door to the log streams.
extern Logger logger;
