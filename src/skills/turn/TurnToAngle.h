#pragma once

#include "skills/turn/BasicTurn.h"

class WorldModel;

// A turn towards an absolute heading. It has no behaviour of its own: it builds its bases and
// holds no command.
class TurnToAngle : public BasicTurn {
public:
    TurnToAngle(float angle, const WorldModel& wm, float ignored, bool dropCommand);
    Command* getCommand() override { return command; }
};
