#pragma once

#include <string>
#include <vector>

#include "support/ScriptedServer.h"

// How the simulation server plays a session with one player, for the scripted test server.
namespace session {

inline const char kScene[] = "(scene rsg/agent/nao/nao.rsg)";
// Messages the session start takes: two after the scene, one after the first init, ten
// answered by beams.
constexpr int kHandshakeMessages = 13;
// The real session's first message of play (the 26 before it say "BeforeKickOff").
constexpr int kFirstPlayOn = 26;

// The 3200 real messages of tests/data/real-session-3200.txt.
std::vector<std::string> realSession();

// The session start: scene expected first, two messages, init expected, one message, init
// expected, then ten times a message answered by a beam. After every expected frame the server
// listens a little longer, so a frame sent too early shows up before the next message.
void addHandshake(support::ServerScript& script, const std::vector<std::string>& messages);

// The events addHandshake must produce, for a player registering as `init` and beaming as
// `beam`.
std::vector<support::ScriptedServer::Event> handshakeEvents(
    const std::vector<std::string>& messages, const std::string& init, const std::string& beam);

// A whole game: the session start, then every further message; those before kick-off are
// followed by a short pause (no answer may come), those after it by one expected answer.
support::ServerScript game(const std::vector<std::string>& messages);

// The events as text, for failure messages.
std::string describe(const std::vector<support::ScriptedServer::Event>& events);

}  // namespace session
