#include "GroundTruth.h"

#include <cstdlib>

namespace {

// The numbers after the first "(<name> " at or after `from` up to the closing parenthesis;
// false unless exactly `count`.
bool readNumbers(const std::string& message, const char* name, int count, double* out,
                 size_t from = 0) {
    const std::string opening = std::string("(") + name + " ";
    const size_t at = message.find(opening, from);
    if (at == std::string::npos) {
        return false;
    }
    const size_t close = message.find(')', at);
    if (close == std::string::npos) {
        return false;
    }
    const std::string body = message.substr(at + opening.size(), close - at - opening.size());
    const char* cursor = body.c_str();
    for (int i = 0; i < count; ++i) {
        char* end = nullptr;
        out[i] = std::strtod(cursor, &end);
        if (end == cursor) {
            return false;
        }
        cursor = end;
    }
    while (*cursor == ' ') {
        ++cursor;
    }
    return *cursor == '\0';
}

}  // namespace

GroundTruth GroundTruth::read(const std::string& message) {
    GroundTruth truth;
    double values[3] = {0.0, 0.0, 0.0};
    if (readNumbers(message, "mypos", 3, values)) {
        truth.head = Position{values[0], values[1], values[2]};
    }
    if (readNumbers(message, "myorien", 1, values)) {
        truth.headingDegrees = values[0];
    }
    if (readNumbers(message, "ballpos", 3, values)) {
        truth.ball = Position{values[0], values[1], values[2]};
    }
    const size_t accelerometer = message.find("(ACC ");
    if (accelerometer != std::string::npos && readNumbers(message, "a", 3, values, accelerometer)) {
        truth.acceleration = Position{values[0], values[1], values[2]};
    }
    const size_t gyroscope = message.find("(GYR ");
    if (gyroscope != std::string::npos && readNumbers(message, "rt", 3, values, gyroscope)) {
        truth.rates = Position{values[0], values[1], values[2]};
    }
    return truth;
}
