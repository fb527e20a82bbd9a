// The player binary against the scripted test server on 127.0.0.1: the session start byte for
// byte, silence before kick-off, one answer per message after it, the head joints, and a clean
// exit when the link ends or cannot be made.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "PlayerProcess.h"
#include "SessionScript.h"
#include "support/ClosedPort.h"
#include "support/EffectorText.h"
#include "support/FileHelpers.h"
#include "support/ScratchDirectory.h"
#include "support/ScriptedServer.h"

using support::Millis;
using support::ScriptedServer;
using support::ServerScript;
using Kind = ScriptedServer::EventKind;

namespace {

using session::addHandshake;
using session::describe;
using session::kFirstPlayOn;
using session::kHandshakeMessages;
using session::realSession;

const char kInit[] = "(init (unum 3)(teamname Korvel))";
const char kBeam[] = "(beam 0.5 -2 90)";

class SessionTest : public ::testing::Test {
protected:
    void SetUp() override {
        PlayerProcess::prepareRunDirectory(dir.path());
        PlayerProcess::setConfigValue(dir.path(), "OffenseParameters", "Initialize", "Beam",
                                      "0.5 -2 90");
    }

    std::vector<std::string> arguments(const ScriptedServer& server) const {
        return {"--number", "3", "--host", "127.0.0.1", "--port", std::to_string(server.port())};
    }

    support::ScratchDirectory dir;
};

TEST_F(SessionTest, SessionStartSilenceBeforeKickOffThenOneEffectorFramePerMessage) {
    const std::vector<std::string> messages = realSession();
    ServerScript script;
    addHandshake(script, messages);
    // The loop's turns before kick-off: nothing may come back.
    for (int i = kHandshakeMessages; i < kFirstPlayOn; ++i) {
        script.sendFrame(messages[i]).sleep(Millis(20));
    }
    // After kick-off: exactly one answer per message.
    constexpr size_t kActing = 20;
    for (size_t i = kFirstPlayOn; i < kFirstPlayOn + kActing; ++i) {
        script.sendFrame(messages[i]).expectFrame().sleep(Millis(5));
    }
    script.close();
    ScriptedServer server(script);
    PlayerProcess player(dir.path(), arguments(server));
    ASSERT_TRUE(server.wait(Millis(60000)));
    EXPECT_EQ(player.wait(20000), 0) << player.standardError();

    const std::vector<ScriptedServer::Event> events = server.events();
    std::vector<ScriptedServer::Event> expected = session::handshakeEvents(messages, kInit, kBeam);
    for (int i = kHandshakeMessages; i < kFirstPlayOn; ++i) {
        expected.push_back({Kind::Sent, messages[i]});
    }
    ASSERT_GE(events.size(), expected.size() + 2 * kActing) << describe(events);
    for (size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(events[i].kind, expected[i].kind) << "event " << i << "\n" << describe(events);
        EXPECT_EQ(events[i].data, expected[i].data) << "event " << i;
    }
    for (size_t turn = 0; turn < kActing; ++turn) {
        const auto& sent = events[expected.size() + 2 * turn];
        const auto& answer = events[expected.size() + 2 * turn + 1];
        EXPECT_EQ(sent.kind, Kind::Sent) << "turn " << turn;
        EXPECT_EQ(sent.data, messages[kFirstPlayOn + turn]);
        ASSERT_EQ(answer.kind, Kind::Received) << "turn " << turn << "\n" << describe(events);
        EXPECT_EQ(answer.data.rfind("(he1 ", 0), 0u) << answer.data;
        EXPECT_NE(answer.data.find("(lle6 "), std::string::npos) << answer.data;
    }
    // Nothing more from the player: only the two ends of the link closing.
    for (size_t i = expected.size() + 2 * kActing; i < events.size(); ++i) {
        EXPECT_TRUE(events[i].kind == Kind::ClientClosed || events[i].kind == Kind::Closed)
            << "event " << i << "\n"
            << describe(events);
    }
    EXPECT_EQ(events.back().kind, Kind::Closed);

    // The head: the first acting turn pans at the speed left from before (0, taken as 1 degree
    // per cycle) towards 7 degrees; later turns at 7 degrees per cycle. The tilt always goes to
    // -20 degrees at 7 degrees per cycle. The head stands at 0, so both run at full speed. A
    // frame of a held key frame stops every joint, the head included.
    for (size_t turn = 0; turn < kActing; ++turn) {
        const std::string& text = events[expected.size() + 2 * turn + 1].data;
        if (text == support::kHeldEffectorText) {
            continue;
        }
        // The head's text ends where the right arm's begins.
        const std::string head =
            turn == 0 ? "(he1 0.872665) (he2 -6.10865)(" : "(he1 6.10865) (he2 -6.10865)(";
        EXPECT_EQ(text.substr(0, head.size()), head) << "turn " << turn;
    }

    // Every frame sent is also logged, in order.
    const std::vector<std::string> logged =
        linesFrom(player.logLines("Korvel-1.log"), "Message : : : ");
    ASSERT_EQ(logged.size(), kActing);
    for (size_t turn = 0; turn < kActing; ++turn) {
        EXPECT_EQ(logged[turn], "Message : : : " + events[expected.size() + 2 * turn + 1].data);
    }
}

TEST_F(SessionTest, MalformedMessageInTheMiddleIsSurvived) {
    const std::vector<std::string> messages = realSession();
    ServerScript script;
    addHandshake(script, messages);
    for (int i = kHandshakeMessages; i < kFirstPlayOn + 5; ++i) {
        script.sendFrame(messages[i]).expectFrame(Millis(i < kFirstPlayOn ? 20 : 3000));
    }
    // Unbalanced, then not an S-expression at all, then an unknown perceptor.
    script.sendFrame("(time (now 1.1))(GS (sl 0) (sr 0) (t 0.1) (pm PlayOn)(HJ (n hj1")
        .sleep(Millis(300));
    script.sendFrame("#!garbage!#").sleep(Millis(300));
    script.sendFrame("(XYZ (q 1))").sleep(Millis(300));
    constexpr size_t kAfter = 5;
    for (size_t i = kFirstPlayOn + 5; i < kFirstPlayOn + 5 + kAfter; ++i) {
        script.sendFrame(messages[i]).expectFrame().sleep(Millis(5));
    }
    script.close();
    ScriptedServer server(script);
    PlayerProcess player(dir.path(), arguments(server));
    ASSERT_TRUE(server.wait(Millis(60000)));
    EXPECT_EQ(player.wait(20000), 0) << player.standardError();

    // The messages after the malformed ones are answered, one frame each.
    const std::vector<ScriptedServer::Event> events = server.events();
    size_t lastValid = 0;
    for (size_t i = 0; i < events.size(); ++i) {
        if (events[i].kind == Kind::Sent && events[i].data == messages[kFirstPlayOn + 5]) {
            lastValid = i;
        }
    }
    ASSERT_GT(lastValid, 0u) << describe(events);
    for (size_t turn = 0; turn < kAfter; ++turn) {
        ASSERT_LT(lastValid + 2 * turn + 1, events.size()) << describe(events);
        EXPECT_EQ(events[lastValid + 2 * turn].kind, Kind::Sent);
        EXPECT_EQ(events[lastValid + 2 * turn + 1].kind, Kind::Received) << describe(events);
        EXPECT_EQ(events[lastValid + 2 * turn + 1].data.rfind("(he1 ", 0), 0u);
    }
}

TEST_F(SessionTest, PlayerWithoutServerReportsTheFailureAndExitsZero) {
    support::ClosedPort closed;
    const std::string port = std::to_string(closed.port());
    PlayerProcess player(dir.path(), {"--number", "3", "--host", "127.0.0.1", "--port", port});
    EXPECT_EQ(player.wait(20000), 0);
    EXPECT_NE(player.standardOutput().find("Connecting to TCP 127.0.0.1:" + port + "\n"),
              std::string::npos)
        << player.standardOutput();
    EXPECT_NE(player.standardError().find("Connection failed with: 'Connection refused'\n"),
              std::string::npos)
        << player.standardError();
    EXPECT_TRUE(linesFrom(player.logLines("Korvel-1.log"), "Message : : : ").empty());
}

TEST_F(SessionTest, BeamWithFewerThanThreeWordsIsAConfigurationError) {
    PlayerProcess::setConfigValue(dir.path(), "OffenseParameters", "Initialize", "Beam", "0.5 -2");
    const std::vector<std::string> messages = realSession();
    ServerScript script;
    script.expectFrame();
    for (int i = 0; i < 3; ++i) {
        script.sendFrame(messages[i]);
    }
    script.expectFrame().expectFrame().expectClose();
    ScriptedServer server(script);
    PlayerProcess player(dir.path(), arguments(server));
    ASSERT_TRUE(server.wait(Millis(30000)));
    EXPECT_EQ(player.wait(20000), 1);
    EXPECT_NE(player.standardError().find(
                  "check \"Beam.size() >= 3\" failed (configuration \"OffenseParameters\", group "
                  "\"Initialize\", key \"Beam\" needs three words: x, y and the rotation)"),
              std::string::npos)
        << player.standardError();
    // Registered twice, never beamed.
    const std::vector<std::string> frames = server.frames();
    ASSERT_EQ(frames.size(), 3u);
    EXPECT_EQ(frames[2], kInit);
}

}  // namespace
