#include "utilities/logging/Logger.h"

#include <cstdlib>
#include <iostream>

// A missing registry means a Logger was used before any was constructed: stop with the condition
// and the function, like every other broken invariant of the program.
#define KORVEL_LOGGER_CHECK(condition)                                                       \
    do {                                                                                     \
        if (!(condition)) {                                                                  \
            std::cerr << "Logger:" << __LINE__ << ": " << static_cast<const char*>(__func__) \
                      << ": check '" #condition "' failed." << std::endl;                    \
            std::abort();                                                                    \
        }                                                                                    \
    } while (false)

Logger::LogStreams* Logger::logStreams = nullptr;

Logger logger;

void beginCycle(std::ostream& out) {
    out << std::endl << "[--BEGINNING OF CYCLE--]" << std::endl;
}

void endCycle(std::ostream& out) {
    out << "[-----END OF CYCLE-----]" << std::endl << std::endl;
}

Logger::LogStreams::~LogStreams() {
    clear();
}

void Logger::LogStreams::add(const std::string& name, LogStream* stream, bool showBeginEnd) {
    if (streams.find(name) != streams.end()) {
        return;
    }
    stream->setShowBeginEnd(showBeginEnd);
    streams.emplace(name, stream);
}

LogStream& Logger::LogStreams::operator[](const std::string& name) {
    const auto it = streams.find(name);
    if (it == streams.end()) {
        return devNull;
    }
    return *it->second;
}

namespace {

void showBanner(const std::map<std::string, LogStream*>& streams, void (*banner)(std::ostream&)) {
    for (const auto& [name, stream] : streams) {
        if (stream->getShowBeginEnd() && stream->getOut() != nullptr && stream->isEnabled()) {
            banner(*stream->getOut());
        }
    }
}

}  // namespace

void Logger::LogStreams::showBeginCycle() {
    showBanner(streams, &beginCycle);
}

void Logger::LogStreams::showEndCycle() {
    showBanner(streams, &endCycle);
}

void Logger::LogStreams::clear() {
    for (auto& [name, stream] : streams) {
        delete stream;
    }
    streams.clear();
}

Logger::Logger() {
    if (logStreams == nullptr) {
        logStreams = new LogStreams();
    }
}

Logger::~Logger() = default;

void Logger::add(const std::string& name, LogStream* stream, bool showBeginEnd) {
    KORVEL_LOGGER_CHECK(logStreams);
    logStreams->add(name, stream, showBeginEnd);
}

LogStream& Logger::operator[](const std::string& name) {
    KORVEL_LOGGER_CHECK(logStreams);
    return (*logStreams)[name];
}

void Logger::showBeginCycle() {
    KORVEL_LOGGER_CHECK(logStreams);
    logStreams->showBeginCycle();
}

void Logger::showEndCycle() {
    KORVEL_LOGGER_CHECK(logStreams);
    logStreams->showEndCycle();
}

Logger::LogStreams& Logger::getLogStreams() {
    KORVEL_LOGGER_CHECK(logStreams);
    return *logStreams;
}

void Logger::resetState() {
    if (logStreams == nullptr) {
        logStreams = new LogStreams();
    }
    logStreams->clear();
}
