#include "utilities/logging/Timer.h"

Timer::~Timer() = default;
