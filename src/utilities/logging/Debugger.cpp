#include "utilities/logging/Debugger.h"

#include <cstdlib>
#include <iostream>
#include <ostream>

Logger Debugger::logger;

Logger::LogStreams& Debugger::logStreams() {
    return logger.getLogStreams();
}

LogStream& Debugger::logg(const std::string& stream) {
    return logger[stream];
}

void Debugger::message(const std::string& stream, const std::string& file, int line,
                       const std::string& text) {
    logg(stream) << file << ":" << line << " '" << text << "'" << std::endl;
}

void Debugger::mark(const std::string& stream, const std::string& file, int line) {
    logg(stream) << file << ":" << line << " <<< MARK >>>" << std::endl;
}

void Debugger::doo(const std::string& stream, const std::string& file, int line,
                   const std::string& text) {
    logg(stream) << file << ":" << line << " DOING '" << text << "'" << std::endl;
}

void Debugger::done(const std::string& stream, const std::string& file, int line,
                    const std::string& text) {
    logg(stream) << file << ":" << line << " '" << text << "' DONE" << std::endl;
}

void Debugger::assrt(const std::string& stream, const std::string& file, int line,
                     const std::string& expression, bool condition) {
    if (condition) {
        return;
    }
    logg(stream) << file << ":" << line << " '" << expression << "' FAILED!" << std::endl;
    std::cout << file << ":" << line << " '" << expression << "' FAILED!" << std::endl;
    std::cerr << "Debugger:" << __LINE__ << ": " << static_cast<const char*>(__PRETTY_FUNCTION__)
              << ": Assertion failed." << std::endl;
    std::abort();
}
