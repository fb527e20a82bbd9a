#pragma once

#include "utilities/logging/LogStream.h"

// A log stream on the standard error.
class LogStdErr : public LogStream {
public:
    explicit LogStdErr(const Timer* timer);
    ~LogStdErr() override;
};
