#pragma once

#include <ios>
#include <ostream>
#include <sstream>
#include <string>

#include "utilities/logging/Timer.h"

// One named log output: a sink (the console, a file or nothing) that optionally begins every line
// with a stamp of the current cycle time, "  0042. " (two blanks, the milliseconds of the timer
// at least four digits wide, zero-padded, then ". ").
class LogStream {
public:
    // `out` and `timer` are not owned; a null `out` discards everything, a null `timer` stamps 0.
    LogStream(std::ostream* out, const Timer* timer);
    LogStream(const LogStream&) = delete;
    LogStream& operator=(const LogStream&) = delete;
    virtual ~LogStream();

    // Writes anything a standard output stream can print. Nothing happens (not even formatting)
    // when the stream discards or is suspended.
    template <typename T>
    LogStream& operator<<(const T& value) {
        if (out == nullptr || !enabled) {
            return *this;
        }
        std::ostringstream text;
        text << value;
        write(text.str());
        return *this;
    }
    // Applies a stream manipulator to the sink; std::endl also ends the line for stamping.
    LogStream& operator<<(std::ostream& (*manipulator)(std::ostream&));
    LogStream& operator<<(std::ios_base& (*manipulator)(std::ios_base&));
    LogStream& operator<<(LogStream& (*function)(LogStream&));

    // Writes "LOGGER: Suspended!" as its last line and then stops writing; no-op when suspended.
    void suspend();
    // Starts writing again with the line "LOGGER: Resumed!"; no-op when not suspended.
    void resume();
    [[nodiscard]] bool isEnabled() const { return enabled; }

    [[nodiscard]] const Timer* timer() const { return stampTimer; }
    void setTimer(const Timer* timer) { stampTimer = timer; }
    // The stamp switch: stamped lines, and taking part in the cycle banners.
    [[nodiscard]] bool getShowBeginEnd() const { return showBeginEnd; }
    void setShowBeginEnd(bool value) { showBeginEnd = value; }

    // The sink itself (null when discarding), for writing that bypasses stamps (cycle banners).
    [[nodiscard]] std::ostream* getOut() const { return out; }

protected:
    void setOut(std::ostream* stream) { out = stream; }

private:
    // Writes formatted text, stamping each line start when the switch is on.
    void write(const std::string& text);
    void writeStamp();

    std::ostream* out;
    bool enabled = true;
    const Timer* stampTimer;
    bool newLine = true;
    bool showBeginEnd = false;
};
