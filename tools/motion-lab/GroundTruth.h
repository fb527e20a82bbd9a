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
    // The torso's accelerometer, "(ACC (n torso) (a x y z))" (m/s^2, torso frame: x right,
    // y forward, z up); standing still it reads about (0, 0, 9.81). Sent every cycle.
    std::optional<Position> acceleration;
    // The torso's gyroscope, "(GYR (n torso) (rt x y z))" (degrees per second, torso frame).
    std::optional<Position> rates;

    // Reads the three lists from one perceptor message; absent or unreadable lists stay empty.
    static GroundTruth read(const std::string& message);
};
