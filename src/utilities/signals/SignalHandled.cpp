#include "utilities/signals/SignalHandled.h"

#include <unistd.h>

#include "utilities/signals/SignalHandler.h"

bool SignalHandled::sigAlrmHandler() {
    return true;
}

bool SignalHandled::sigIntHandler() {
    return true;
}

bool SignalHandled::sigIOHandler() {
    return true;
}

bool SignalHandled::sigKillHandler() {
    return true;
}

bool SignalHandled::sigQuitHandler() {
    return true;
}

bool SignalHandled::sigSegVHandler() {
    static const char text[] = "Crashed, GDB Connecting...\n";
    // write(2) is async-signal-safe; nothing can be done about a failed write to stderr here.
    [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, text, sizeof(text) - 1);
    return true;
}

bool SignalHandled::sigTermHandler() {
    return true;
}

void SignalHandled::sigAlrmTiming(long& first, long& period) {
    first = 0;
    period = 0;
}

SignalHandled::~SignalHandled() = default;

void SignalHandled::run() {
    SignalHandler::run(this);
}

void SignalHandled::initialize() {
    SignalHandler::initSignalHandlers(this);
}

void SignalHandled::finalize() {
    SignalHandler::finalSignalHandlers();
}

bool SignalHandled::finished() {
    return SignalHandler::finished;
}
