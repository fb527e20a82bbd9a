#include "utilities/logging/LogStdErr.h"

#include <iostream>

LogStdErr::LogStdErr(const Timer* timer) : LogStream(&std::cerr, timer) {}

LogStdErr::~LogStdErr() = default;
