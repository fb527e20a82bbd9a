#include "SessionScript.h"

#include "support/FileHelpers.h"

using support::Millis;
using support::ScriptedServer;
using support::ServerScript;
using Kind = ScriptedServer::EventKind;

namespace session {

std::vector<std::string> realSession() {
    return support::readLines(std::string(KORVEL_TEST_DATA_DIR) + "/real-session-3200.txt");
}

void addHandshake(ServerScript& script, const std::vector<std::string>& messages) {
    const Millis settle(30);
    script.expectFrame().sleep(settle);
    script.sendFrame(messages[0]).sendFrame(messages[1]).expectFrame().sleep(settle);
    script.sendFrame(messages[2]).expectFrame().sleep(settle);
    for (int i = 3; i < kHandshakeMessages; ++i) {
        script.sendFrame(messages[i]).expectFrame().sleep(settle);
    }
}

std::vector<ScriptedServer::Event> handshakeEvents(const std::vector<std::string>& messages,
                                                   const std::string& init,
                                                   const std::string& beam) {
    std::vector<ScriptedServer::Event> events{{Kind::Accepted, ""},      {Kind::Received, kScene},
                                              {Kind::Sent, messages[0]}, {Kind::Sent, messages[1]},
                                              {Kind::Received, init},    {Kind::Sent, messages[2]},
                                              {Kind::Received, init}};
    for (int i = 3; i < kHandshakeMessages; ++i) {
        events.push_back({Kind::Sent, messages[i]});
        events.push_back({Kind::Received, beam});
    }
    return events;
}

ServerScript game(const std::vector<std::string>& messages) {
    ServerScript script;
    addHandshake(script, messages);
    for (size_t i = kHandshakeMessages; i < messages.size(); ++i) {
        if (messages[i].find("(pm BeforeKickOff)") != std::string::npos) {
            script.sendFrame(messages[i]).sleep(Millis(20));
        } else {
            script.sendFrame(messages[i]).expectFrame();
        }
    }
    script.close();
    return script;
}

std::string describe(const std::vector<ScriptedServer::Event>& events) {
    std::string text;
    for (const auto& event : events) {
        text += std::string(ScriptedServer::kindName(event.kind)) + ": " +
                event.data.substr(0, 80) + "\n";
    }
    return text;
}

}  // namespace session
