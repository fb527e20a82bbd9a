#include "utilities/logging/LogDevNull.h"

LogDevNull::LogDevNull() : LogStream(nullptr, nullptr) {}

LogDevNull::~LogDevNull() = default;
