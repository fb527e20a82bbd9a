#pragma once

#include <string>

#include "skills/BasicAction.h"
#include "skills/ConfigSkill.h"

class Command;
class WorldModel;

// Gets a fallen robot back on its feet: "FrontStandUp" or "BackStandUp", then "Stop"; it reports
// success once "Stop" has run out. A key frame not reached within 2.5 s is left for the next one,
// and a run that has not ended 8 s after it began (stuck in a pose it cannot leave) is begun
// again, on the side the robot lies on then. The side comes from the torso's attitude under the
// fall rule `Attitude` (the start is then logged with the tilt), from the left foot's pressure
// contact point under `Landmarks`.
class BasicStandUp : public BasicAction {
public:
    // `start` true begins a new stand-up; false continues the one in progress.
    BasicStandUp(const WorldModel& wm, bool start, bool dropCommand);
    ~BasicStandUp() override = default;

    Command* getCommand() override { return command; }
    bool isFinished() override;

    static ConfigSkill& getConfigSkill() { return configSkill; }
    // Whether a stand-up begun now would be "BackStandUp".
    static bool liesOnBack(const WorldModel& wm);
    // How many stand-ups have been begun with their command kept (not probes): for game reports.
    static unsigned int getStarts() { return starts; }

    // Restores the start-of-process state: nothing loaded.
    static void resetState();

private:
    // The stand-up for the side the robot lies on, from its first key frame; a run played for
    // real (not a probe) starts its clocks now.
    static std::string beginRun(const WorldModel& wm, bool probe);
    // Moves the run on to its next key frame when the current one has been held too long.
    static void goOnWhenHeld(const WorldModel& wm);

    Command* command = nullptr;

    static ConfigSkill configSkill;
    static unsigned int starts;
    static float runBegan;         // seconds: when the current key-frame run began
    static unsigned int heldStep;  // the key frame being played, and since when (seconds)
    static float heldSince;
};
