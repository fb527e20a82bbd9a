#pragma once

// Measures, in whole milliseconds, how long the agent has been working since a reference moment.
// Log streams stamp their lines with it; the world model restarts its own one for every server
// message, so its reading is the time spent on the current cycle so far.
class Timer {
public:
    Timer() = default;
    Timer(const Timer&) = default;
    Timer& operator=(const Timer&) = default;
    virtual ~Timer();

    // Restarts the measurement.
    virtual void resetCycleTime() = 0;
    // Milliseconds since the last restart.
    [[nodiscard]] virtual int getCycleTime() const = 0;

    // Simulation time in server steps, as the world model records it.
    void setSimTime(unsigned long value) { simTime = value; }
    [[nodiscard]] unsigned long getSimTime() const { return simTime; }
    // Game time in seconds.
    void setTime(float value) { time = value; }
    [[nodiscard]] float getTime() const { return time; }

private:
    unsigned long simTime = 0;
    float time = 0.0F;
};
