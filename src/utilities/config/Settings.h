#pragma once

#include <string>

// The configuration values that the player consults during play, typed. Each is read from the
// store once and again only after the configuration has changed (for example by the command
// line), instead of being parsed from text on every use. A value missing from the store stops
// the program on first use, as a lookup in the store does.
namespace settings {

// "ServerInitialize": "Server" / "OfflinePlaying", "Version"; "Public" / "UniformNum".
bool offlinePlaying();
const std::string& serverVersion();
int uniformNumber();

// "WorldModelParameters": "Field" / "Length", "Width", "GoalWidth" and "Ball" / "Radius" (metres).
float fieldLength();
float fieldWidth();
float goalWidth();
float ballRadius();

}  // namespace settings
