#pragma once

#include <optional>
#include <string>

// What the server itself says about the robot and the ball, when its robot description is
// switched to report it inside the vision perceptor: "(mypos x y z)" (the head's position,
// metres), "(myorien a)" (the head's heading, degrees counter-clockwise from +x) and
// "(ballpos x y z)". The server only sends them every third cycle, with the rest of vision.
struct GroundTruth {
    struct Position {
        double x = 0.0;
        double y = 0.0;
        double z = 0.0;
    };
    std::optional<Position> head;          // metres
    std::optional<double> headingDegrees;  // degrees
    std::optional<Position> ball;          // metres

    // Reads the three lists from one perceptor message; absent or unreadable lists stay empty.
    static GroundTruth read(const std::string& message);
};
