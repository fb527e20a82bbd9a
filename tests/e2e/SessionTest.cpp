// The player binary against the scripted test server on 127.0.0.1: the session start byte for
// byte, silence before kick-off, one answer per message after it, malformed messages dropped,
// and the recorded game replayed offline to the same effector texts.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "PlayerProcess.h"
#include "support/Files.h"
#include "support/ScriptedServer.h"

using support::Millis;
using support::ScriptedServer;
using support::ServerScript;

namespace {

const char kInit[] = "(init (unum 3)(teamname Korvel))";
const char kBeam[] = "(beam 0.5 -2 90)";
const char kMessageMarker[] = "Message : : : ";
// Messages the session start takes: two after the scene, one after the first init, ten
// answered by beams. The real session's first message of play is its 27th.
constexpr size_t kHandshake = 13;
constexpr size_t kFirstPlayOn = 26;

std::vector<std::string> effectorTexts(const std::vector<std::string>& logLines) {
    std::vector<std::string> texts;
    for (const std::string& line : linesFrom(logLines, kMessageMarker)) {
        texts.push_back(line.substr(std::string(kMessageMarker).size()));
    }
    return texts;
}

class SessionTest : public ::testing::Test {
protected:
    void SetUp() override {
        PlayerProcess::prepareRunDirectory(dir.path());
        PlayerProcess::setConfigValue(dir.path(), "OffenseParameters", "Initialize", "Beam",
                                      "0.5 -2 90");
    }
    [[nodiscard]] std::vector<std::string> online(const ScriptedServer& server) const {
        return {"--number", "3", "--host", "127.0.0.1", "--port", std::to_string(server.port())};
    }
    [[nodiscard]] std::string path(const std::string& name) const {
        return dir.path() + "/" + name;
    }

    support::ScratchDirectory dir;
};

// 600 real messages reach into the part where every joint is driven and the robot falls, so
// walking, falling and standing up are replayed too.
TEST_F(SessionTest, OnlineGameAnswersEveryTurnOnceAndReplaysOfflineToTheSameTexts) {
    const std::vector<std::string> messages = realSession(600);
    const std::vector<std::string> malformed{
        "(time (now 1.1))(GS (sl 0) (sr 0) (t 0.1) (pm PlayOn)(HJ (n hj1", "#!garbage!#",
        "(XYZ (q 1))"};
    // The session start: scene first, two messages, init, one message, init, then ten messages
    // each answered by a beam. After each expected frame the server listens a little longer.
    ServerScript script;
    script.expectFrame().sleep(Millis(30));
    for (size_t i = 0; i < messages.size(); ++i) {
        script.sendFrame(messages[i]);
        if (i == 0 || (i >= kHandshake && i < kFirstPlayOn)) {
            script.sleep(Millis(20));  // no answer may come
        } else {
            script.expectFrame().sleep(Millis(i < kHandshake ? 30 : 0));
        }
        if (i == kFirstPlayOn + 5) {
            for (const std::string& bad : malformed) {
                script.sendFrame(bad).expectFrame();
            }
        }
    }
    script.close();
    ScriptedServer server(script);
    {
        PlayerProcess player(dir.path(), online(server));
        ASSERT_TRUE(server.wait(Millis(100000)));
        ASSERT_EQ(player.wait(20000), 0) << player.standardError();
    }
    // The session start byte for byte, then exactly one answer to each message of play (none
    // before kick-off, none after the end): the effector texts, each also logged.
    const std::vector<std::string> frames = server.frames();
    ASSERT_EQ(frames.size(), kHandshake + messages.size() - kFirstPlayOn + malformed.size());
    const std::vector<std::string> start(frames.begin(), frames.begin() + kHandshake);
    EXPECT_EQ(start,
              std::vector<std::string>({"(scene rsg/agent/nao/nao.rsg)", kInit, kInit, kBeam, kBeam,
                                        kBeam, kBeam, kBeam, kBeam, kBeam, kBeam, kBeam, kBeam}));
    const std::vector<std::string> acted(frames.begin() + kHandshake, frames.end());
    EXPECT_EQ(effectorTexts(support::readLines(path("LogFiles/Korvel-1.log"))), acted);
    // A malformed message is dropped with a line in the log; the turn goes on with the world
    // state kept.
    EXPECT_EQ(linesFrom(support::readLines(path("LogFiles/Korvel-1.log")), "Message dropped"),
              std::vector<std::string>(
                  {"Message dropped (last time 1.08, cycle 0.12): unbalanced parentheses: a list "
                   "is not closed",
                   "Message dropped (last time 1.08, cycle 0.12): no \"time\"",
                   "Message dropped (last time 1.08, cycle 0.12): no \"time\""}));

    // The recording holds every message the world model saw: all but the ten answered by beams,
    // except the one of those that names the side (the first), so that a replay learns it too.
    const std::vector<std::string> recorded =
        support::readLines(path("LogFiles/Korvel-1.log.offline"));
    ASSERT_EQ(recorded.size(), messages.size() - 9 + malformed.size());
    EXPECT_EQ(recorded[0], messages[0]);
    EXPECT_EQ(recorded[3], messages[3]);
    EXPECT_EQ(recorded[4], messages[kHandshake]);
    EXPECT_EQ(recorded.back(), messages.back());

    std::filesystem::rename(path("LogFiles/Korvel-1.log"), path("online.log"));
    PlayerProcess replay(dir.path(), {"--number", "3", "--offline"});
    ASSERT_EQ(replay.wait(60000), 0) << replay.standardError();
    const std::vector<std::string> replayLog = replay.logLines("Korvel-1.log");
    EXPECT_EQ(linesFrom(replayLog, "last pos 5 : ").size(), recorded.size()) << "one turn per line";
    const std::vector<std::string> replayed = effectorTexts(replayLog);
    ASSERT_EQ(replayed.size(), acted.size());
    for (size_t i = 0; i < replayed.size(); ++i) {
        ASSERT_EQ(replayed[i], acted[i]) << "acting turn " << i;
    }
    // A replay never records itself: the recording is unchanged.
    EXPECT_EQ(support::readLines(path("LogFiles/Korvel-1.log.offline")), recorded);
}

// A configuration error stops the player with the failed check on its standard error, before
// it sends what needs the bad value.
TEST_F(SessionTest, ConfigurationErrorsStopThePlayerNamingTheKey) {
    struct Case {
        const char* beam;  // OffenseParameters' Beam
        std::vector<std::string> arguments;
        std::vector<std::string> frames;
        const char* diagnostic;
    };
    const Case cases[] = {
        {"0.5 -2",
         {},
         {"(scene rsg/agent/nao/nao.rsg)", kInit, kInit},
         "check \"Beam.size() >= 3\" failed (configuration \"OffenseParameters\", group "
         "\"Initialize\", key \"Beam\" needs three words: x, y and the rotation)\n"},
        {"0.5 -2 90",
         {"--team", "Bad)Name"},
         {"(scene rsg/agent/nao/nao.rsg)"},
         "check \"isTeamName(TeamName)\" failed (configuration \"ServerInitialize\", group "
         "\"Public\", key \"TeamName\" is \"Bad)Name\": a team name is one word of visible "
         "characters without brackets)\n"},
    };
    const std::vector<std::string> messages = realSession(3);
    for (const Case& c : cases) {
        PlayerProcess::setConfigValue(dir.path(), "OffenseParameters", "Initialize", "Beam",
                                      c.beam);
        ScriptedServer server(ServerScript()
                                  .expectFrame()
                                  .sendFrame(messages[0])
                                  .sendFrame(messages[1])
                                  .sendFrame(messages[2])
                                  .expectFrame()
                                  .expectFrame()
                                  .sleep(Millis(5000)));  // until the player ends
        std::vector<std::string> arguments = online(server);
        arguments.insert(arguments.end(), c.arguments.begin(), c.arguments.end());
        PlayerProcess player(dir.path(), arguments);
        ASSERT_TRUE(server.wait(Millis(30000)));
        EXPECT_EQ(player.wait(20000), 1);
        EXPECT_NE(player.standardError().find(c.diagnostic), std::string::npos)
            << player.standardError();
        EXPECT_EQ(server.frames(), c.frames);
    }
}

}  // namespace
