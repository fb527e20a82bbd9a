#pragma once

class Command;
class WorldModel;

// The fixed whole-body posture of a goalkeeper dive. Both dives share the posture except for the
// legs, which mirror each other; `leftDive` selects the side.
namespace dive {

// Builds the dive command from the robot's current body, precision value 2.0, every joint with
// its fixed target (degrees) and speed (degrees per cycle) and precision 0.1.
Command* buildDiveCommand(const WorldModel& wm, bool leftDive);

// Whether a dive that began at `start` (simulation seconds) is over at `now`: strictly more than
// 20.0 seconds later.
bool isDiveOver(float start, float now);

}  // namespace dive
