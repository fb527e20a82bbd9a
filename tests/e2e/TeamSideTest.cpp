// The team name on the wire, and a game on the right half: the server's answer names the right
// team, the beams stay as configured (the server turns them into the right half), and a game
// seen from the right half, the field turned by 180 degrees, is answered with the same effector
// texts as the same game seen from the left: every role's decisions follow the side. The real
// session names the team's half in the first answer read before a beam, so the side must be
// taken from there.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "PlayerProcess.h"
#include "support/Files.h"
#include "support/ScriptedServer.h"

using support::Millis;
using support::ScriptedServer;
using support::ServerScript;

namespace {

// Messages the session start takes: two after the scene, one after the first init, ten
// answered by beams.
constexpr size_t kHandshake = 13;

// The whole game: the session start, then every message, answered once play is on.
ServerScript game(const std::vector<std::string>& messages) {
    // The session start: scene, two messages, init, one message, init, ten messages each
    // answered by a beam.
    const Millis settle(30);
    ServerScript script;
    script.expectFrame().sleep(settle);
    script.sendFrame(messages[0]).sendFrame(messages[1]).expectFrame().sleep(settle);
    script.sendFrame(messages[2]).expectFrame().sleep(settle);
    for (size_t i = 3; i < kHandshake; ++i) {
        script.sendFrame(messages[i]).expectFrame().sleep(settle);
    }
    for (size_t i = kHandshake; i < messages.size(); ++i) {
        if (messages[i].find("(pm BeforeKickOff)") != std::string::npos) {
            script.sendFrame(messages[i]).sleep(Millis(20));
        } else {
            script.sendFrame(messages[i]).expectFrame();
        }
    }
    script.close();
    return script;
}

void replaceAll(std::string& text, const std::string& from, const std::string& to) {
    for (size_t at = text.find(from); at != std::string::npos;
         at = text.find(from, at + to.size())) {
        text.replace(at, from.size(), to);
    }
}

// The same messages as a player on the right half receives them for the same game turned by 180
// degrees about the centre spot: its side is "right", and every landmark it sees in a direction
// is the one opposite (F1L at (-15, 10) becomes F2R at (15, -10), and so on). The robot's own
// senses and what it sees of the ball are the same.
std::vector<std::string> turnedToTheRight(std::vector<std::string> messages) {
    const std::pair<const char*, const char*> opposite[] = {
        {"(F1L ", "(F2R "}, {"(F2L ", "(F1R "}, {"(G1L ", "(G2R "}, {"(G2L ", "(G1R "}};
    for (std::string& message : messages) {
        replaceAll(message, "(team left)", "(team right)");
        for (const auto& [a, b] : opposite) {
            replaceAll(message, a, "(#1 ");
            replaceAll(message, b, a);
            replaceAll(message, "(#1 ", b);
        }
    }
    return messages;
}

class TeamSideTest : public ::testing::Test {
protected:
    // Plays `messages` as a whole game with a player started with `arguments` (host and port
    // added) in a fresh run directory; returns every frame the player sent.
    std::vector<std::string> play(const std::vector<std::string>& messages,
                                  std::vector<std::string> arguments) {
        const support::ScratchDirectory dir;
        PlayerProcess::prepareRunDirectory(dir.path());
        ScriptedServer server(game(messages));
        arguments.insert(arguments.end(),
                         {"--host", "127.0.0.1", "--port", std::to_string(server.port())});
        PlayerProcess player(dir.path(), arguments);
        EXPECT_TRUE(server.wait(Millis(120000)));
        EXPECT_EQ(player.wait(20000), 0) << player.standardError();
        return server.frames();
    }
};

TEST_F(TeamSideTest, EveryRolePlaysTheRightHalfAsTheLeftTurnedRound) {
    // Real messages: the session start, 13 before kick-off, then play while the robot is driven
    // through its whole joint range and falls.
    const std::vector<std::string> left = realSession(500);
    const std::vector<std::string> right = turnedToTheRight(left);
    struct Case {
        const char* number;
        const char* beam;
    };
    for (const Case c : {Case{"1", "(beam -14 0 0)"}, Case{"2", "(beam -9 1.5 0)"},
                         Case{"3", "(beam -0.6 -0.06 0)"}}) {
        const std::vector<std::string> fromLeft = play(left, {"--number", c.number});
        const std::vector<std::string> fromRight =
            play(right, {"--number", c.number, "--team", "Rival"});
        // Scene, two inits, ten beams as configured, then one answer per message of play.
        ASSERT_GT(fromRight.size(), 13u) << c.number;
        // The name goes into both init messages.
        const std::string init = "(init (unum " + std::string(c.number) + ")(teamname Rival))";
        EXPECT_EQ(fromRight[1], init);
        EXPECT_EQ(fromRight[2], init);
        for (size_t i = 3; i < 13; ++i) {
            EXPECT_EQ(fromRight[i], c.beam) << c.number << ", beam " << i - 3;
        }
        ASSERT_EQ(fromLeft.size(), fromRight.size()) << c.number;
        size_t differing = 0;
        for (size_t i = 13; i < fromLeft.size(); ++i) {
            differing += fromLeft[i] != fromRight[i] ? 1 : 0;
        }
        EXPECT_EQ(differing, 0u) << "role " << c.number << ": of " << fromLeft.size() - 13
                                 << " answers";
    }
}

}  // namespace
