#include "skills/turn/TurnToAngle.h"

TurnToAngle::TurnToAngle(float /*angle*/, const WorldModel& /*wm*/, float /*ignored*/,
                         bool dropCommand)
    : BasicTurn(dropCommand) {}
