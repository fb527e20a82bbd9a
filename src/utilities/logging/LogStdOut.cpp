#include "utilities/logging/LogStdOut.h"

#include <iostream>

LogStdOut::LogStdOut(const Timer* timer) : LogStream(&std::cout, timer) {}

LogStdOut::~LogStdOut() = default;
