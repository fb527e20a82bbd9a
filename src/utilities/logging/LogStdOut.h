#pragma once

#include "utilities/logging/LogStream.h"

// A log stream on the standard output.
class LogStdOut : public LogStream {
public:
    explicit LogStdOut(const Timer* timer);
    ~LogStdOut() override;
};
