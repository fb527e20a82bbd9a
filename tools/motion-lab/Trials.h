#pragma once

#include <string>
#include <utility>
#include <vector>

#include "LabSession.h"

// The lab's trials: each places a fresh robot, plays one motion through the player's own skill
// engine and measures it against its target.
namespace trials {

struct Result {
    bool passed = false;
    // Named measurements in the order they are reported (units in the names).
    std::vector<std::pair<std::string, double>> values;
    // Why the trial failed, or what was noticed; empty when there is nothing to say.
    std::string note;

    double value(const std::string& name) const;
};

// The motions the lab knows: skill names ("Walk", "ShortWalk", "Stop", "LeftKick",
// "LeftSideWalk", "RightSideWalk", "Style", "FrontStandUp", "BackStandUp", "TurnLeft40" ...)
// and the dash trials "dash-turn" (about turn, at most 8 s) and "dash-point" (5 m away and
// 90 degrees to the side, at most 40 s), and "goalkeeper", "defender" and "attacker": the
// player's own plan for that role from kick-off, head sweeping as in the game, and the course
// "go-to-targets": the dash to five points in turn with stops and turns between.
bool known(const std::string& motion);
std::vector<std::string> motions();
// The target the trial checks, in words.
std::string target(const std::string& motion);

// One trial of `motion`; trial numbers (from 0) vary the starting conditions where the
// target asks for it (the moment "Stop" interrupts the walk). `seconds` > 0 overrides the
// trial's time limit.
Result run(const std::string& motion, const LabSession::Options& options, int trial,
           double seconds = 0.0);

}  // namespace trials
