#include "utilities/logging/Logger.h"

#include "utilities/config/ConfigError.h"

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
    if (stream == nullptr || streams.find(name) != streams.end()) {
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
    // A Logger used before any was constructed finds no registry.
    KORVEL_CHECK(logStreams, "Logger");
    logStreams->add(name, stream, showBeginEnd);
}

LogStream& Logger::operator[](const std::string& name) {
    KORVEL_CHECK(logStreams, "Logger");
    return (*logStreams)[name];
}

void Logger::showBeginCycle() {
    KORVEL_CHECK(logStreams, "Logger");
    logStreams->showBeginCycle();
}

void Logger::showEndCycle() {
    KORVEL_CHECK(logStreams, "Logger");
    logStreams->showEndCycle();
}

Logger::LogStreams& Logger::getLogStreams() {
    KORVEL_CHECK(logStreams, "Logger");
    return *logStreams;
}

void Logger::resetState() {
    if (logStreams == nullptr) {
        logStreams = new LogStreams();
    }
    logStreams->clear();
}
