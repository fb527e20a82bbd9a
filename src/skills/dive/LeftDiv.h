#pragma once

class Command;
class WorldModel;

// The goalkeeper's dive to the left: a fixed whole-body posture built directly (no skill
// file), timed by a class-wide clock so that the plan can tell when the dive is over.
class LeftDiv {
public:
    // Builds this cycle's dive command; starts the clock when no dive is in progress.
    explicit LeftDiv(const WorldModel* wm);
    ~LeftDiv() = default;

    // The dive command; ownership passes to the caller.
    Command* getCommand() const { return command; }
    // True when the dive began more than 20.0 seconds of simulation time ago.
    bool isFinished() const { return finished; }

    // The simulation time (seconds) at which the current dive began; -1.0 means no dive.
    static void setTime(float t) { time = t; }
    static float getTime() { return time; }

    // Restores the start-of-process state: no dive in progress.
    static void resetState() { time = -1.0F; }

private:
    Command* command = nullptr;
    bool finished = false;

    static float time;
};
