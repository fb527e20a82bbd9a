#pragma once

#include <map>
#include <string>

class Command;

// Scripted worlds for the tests of the motion skills and the plans: small skill files written by
// the tests, the configuration they read, and perceptor messages in the server's own format with
// chosen joint angles, foot pressure, landmarks and ball.
namespace motiontest {

// Writes the test skill files and configuration files into a fresh directory, registers the
// configurations, makes the directory the working directory and reloads the skill database.
// Every skill step targets 0 for every joint except the left shoulder (lae1), whose target is
// the step's marker, so a command's lae1 target reveals the skill and step played.
void installSkillData();

// Restores the player's whole game state (ProcessState::resetGame): the motion skills' players,
// clocks, turn and walk memory, the plans, the commands' wait clock and the skill database.
void resetSkillState();

// The marker angle (degrees) of step `step` (from 0) of the test skill `skill`.
float marker(const std::string& skill, unsigned int step);

// The target (degrees) of the left shoulder joint lae1 in `command`: the marker of the step the
// command was taken from.
float markerOf(const Command& command);

// One perceptor message.
struct Scene {
    float time = 10.0F;                   // simulation time, seconds
    int side = 1;                         // 1 left, 2 right, 0: the message names no team
    std::map<std::string, float> joints;  // perceptor name -> angle (degrees); others are 0
    float leftContactY = 0.01F;           // the left foot's contact point's y
    bool vision = true;                   // send a "See" list
    float x = 0.0F;                       // robot position on the field, metres
    float y = 0.0F;
    float heading = 0.0F;  // body direction, degrees
    float ballX = 1.0F;    // ball position, metres
    float ballY = 0.0F;
    bool fallen = false;  // landmarks seen as by a robot lying on the ground
    // The torso's accelerometer (m/s^2; x right, y forward, z up): upright and still as set.
    float accX = 0.0F;
    float accY = 0.0F;
    float accZ = 9.81F;
};

// The "(pol distance horizontal vertical)" list of a point `dx`, `dy`, `dz` metres away (field
// axes) as a camera turned to `heading` and pitched by `tilt` (degrees, negative down) sees it.
std::string polar(double dx, double dy, double dz, double heading, double tilt = 0.0);

// The message text of `scene`, as the server sends it (without the length prefix).
std::string message(const Scene& scene);

}  // namespace motiontest
