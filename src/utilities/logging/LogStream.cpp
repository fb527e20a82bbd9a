#include "utilities/logging/LogStream.h"

#include <iomanip>

namespace {

using OstreamManipulator = std::ostream& (*)(std::ostream&);

bool isEndl(OstreamManipulator manipulator) {
    return manipulator == static_cast<OstreamManipulator>(std::endl<char, std::char_traits<char>>);
}

}  // namespace

LogStream::LogStream(std::ostream* out, const Timer* timer) : out(out), stampTimer(timer) {}

LogStream::~LogStream() = default;

LogStream& LogStream::operator<<(std::ostream& (*manipulator)(std::ostream&)) {
    if (out != nullptr && enabled) {
        manipulator(*out);
        if (isEndl(manipulator)) {
            newLine = true;
        }
    }
    return *this;
}

LogStream& LogStream::operator<<(std::ios_base& (*manipulator)(std::ios_base&)) {
    if (out != nullptr && enabled) {
        manipulator(*out);
    }
    return *this;
}

LogStream& LogStream::operator<<(LogStream& (*function)(LogStream&)) {
    return function(*this);
}

void LogStream::suspend() {
    if (!enabled) {
        return;
    }
    *this << "LOGGER: Suspended!" << std::endl;
    enabled = false;
}

void LogStream::resume() {
    if (enabled) {
        return;
    }
    enabled = true;
    *this << "LOGGER: Resumed!" << std::endl;
}

void LogStream::write(const std::string& text) {
    std::string::size_type start = 0;
    std::string::size_type end = text.find('\n', start);
    while (end != std::string::npos) {
        if (newLine && showBeginEnd) {
            writeStamp();
        }
        out->write(text.data() + start, static_cast<std::streamsize>(end + 1 - start));
        newLine = true;
        start = end + 1;
        end = text.find('\n', start);
    }
    if (newLine && showBeginEnd) {
        writeStamp();
    }
    out->write(text.data() + start, static_cast<std::streamsize>(text.size() - start));
    newLine = false;
}

void LogStream::writeStamp() {
    const int milliseconds = stampTimer == nullptr ? 0 : stampTimer->getCycleTime();
    // The fill stays set on the sink, as every stamp needs it anyway.
    *out << "  " << std::setfill('0') << std::setw(4) << milliseconds << ". ";
}
