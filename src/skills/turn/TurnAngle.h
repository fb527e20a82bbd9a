#pragma once

#include <string>

#include "skills/turn/BasicTurn.h"

class WorldModel;

// Turns the robot on the spot by a requested angle, one cycle per construction: it plays turn
// skills of 40, 30, 25, 15, 10 or 5 degrees ("TurnLeft..." for negative angles, "TurnRight..."
// otherwise) until the commanded total lies within 5.1 degrees of the angle, then "Stop".
class TurnAngle : public BasicTurn {
public:
    // An idle turn: only the bases are built, nothing is played and no command is held.
    TurnAngle();
    // One cycle of turning by `angle` degrees (negative: to the left) measured from where the
    // turn started; the third argument is not used.
    TurnAngle(float angle, const WorldModel& wm, float ignored, bool dropCommand);
    ~TurnAngle() override = default;

    Command* getCommand() override { return command; }
    bool isFinished() override;

    // Step size (degrees) for a remaining angle of `remaining` degrees (not negative).
    static float stepSizeFor(float remaining);
    // Name of the turn skill of `stepSize` degrees, to the left when `left`.
    static std::string stepSkillName(bool left, float stepSize);

private:
    // Chooses the next step from what remains to be turned and adds it to the commanded total;
    // returns the step's skill name.
    static std::string startStep(float angle);
    void play(const std::string& name, const WorldModel& wm);
};
