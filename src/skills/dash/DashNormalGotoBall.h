#pragma once

#include <string>

#include "skills/dash/BasicDash.h"

class Command;
class WorldModel;

// Walks to the ball: from behind it (seen along the x axis) first to a point beside it, then to
// just behind it; otherwise straight at it. Its success rate is that of its last inner dash.
class DashNormalGotoBall : public BasicDash {
public:
    DashNormalGotoBall(const WorldModel& wm, bool dropCommand);
    ~DashNormalGotoBall() override = default;

    // Null when ball and robot share the same x coordinate (no dash is run then).
    Command* getCommand() override { return command; }
    bool isFinished() override;

    // "golo" once the robot has approached the ball from behind; empty before.
    static const std::string& getBallSide() { return ballSide; }

    static void resetState();

private:
    Command* command = nullptr;

    static std::string ballSide;
};
