#pragma once

#include "utilities/logging/LogStream.h"

// A log stream that discards everything written to it.
class LogDevNull : public LogStream {
public:
    LogDevNull();
    ~LogDevNull() override;
};
