// A game recorded online replays offline to exactly the effector texts that were sent, and the
// offline loop's own rules: one turn per line, ending at the first empty line or the end.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "PlayerProcess.h"
#include "SessionScript.h"
#include "support/FileHelpers.h"
#include "support/ScratchDirectory.h"
#include "support/ScriptedServer.h"

using support::Millis;
using support::ScriptedServer;

namespace {

// Real messages: 26 before kick-off, then play; 600 messages reach into the part where every
// joint is driven and the robot falls, so walking, falling and standing up are replayed too.
constexpr size_t kMessages = 600;

std::vector<std::string> realSession(size_t count) {
    std::vector<std::string> all = session::realSession();
    all.resize(std::min(count, all.size()));
    return all;
}

void writeLines(const std::string& path, const std::vector<std::string>& lines) {
    std::ofstream out(path, std::ios::trunc);
    for (const std::string& line : lines) {
        out << line << '\n';
    }
}

std::vector<std::string> effectorTexts(const std::vector<std::string>& logLines) {
    std::vector<std::string> texts;
    for (const std::string& line : linesFrom(logLines, "Message : : : ")) {
        texts.push_back(line.substr(std::string("Message : : : ").size()));
    }
    return texts;
}

size_t count(const std::vector<std::string>& lines, const std::string& marker) {
    return linesFrom(lines, marker).size();
}

class RecordReplayTest : public ::testing::Test {
protected:
    void SetUp() override { PlayerProcess::prepareRunDirectory(dir.path()); }
    [[nodiscard]] std::string recordingPath() const {
        return (dir.path() + "/" + "LogFiles/Korvel-1.log.offline");
    }
    support::ScratchDirectory dir;
};

TEST_F(RecordReplayTest, OnlineGameReplaysOfflineToTheSameEffectorTexts) {
    PlayerProcess::setConfigValue(dir.path(), "LoggerInitialize", "Logger", "Offline", "true");
    const std::vector<std::string> messages = realSession(kMessages);
    ScriptedServer server(session::game(messages));
    std::vector<std::string> sentOnline;
    {
        PlayerProcess player(dir.path(), {"--number", "3", "--host", "127.0.0.1", "--port",
                                          std::to_string(server.port())});
        ASSERT_TRUE(server.wait(Millis(100000)));
        ASSERT_EQ(player.wait(20000), 0) << player.standardError();
    }
    // The frames after the session start (scene, init twice, ten beams) are the effector texts.
    const std::vector<std::string> frames = server.frames();
    ASSERT_GT(frames.size(), 13u);
    sentOnline.assign(frames.begin() + 13, frames.end());
    ASSERT_EQ(sentOnline.size(), kMessages - 26) << "one answer per message after kick-off";
    const std::vector<std::string> loggedOnline =
        effectorTexts(support::readLines((dir.path() + "/" + "LogFiles/Korvel-1.log")));
    EXPECT_EQ(loggedOnline, sentOnline);

    // The recording holds every message the world model saw: all but the ten answered by beams.
    const std::vector<std::string> recorded = support::readLines(recordingPath());
    ASSERT_EQ(recorded.size(), kMessages - 10);
    EXPECT_EQ(recorded[0], messages[0]);
    EXPECT_EQ(recorded[3], messages[13]);
    EXPECT_EQ(recorded.back(), messages.back());

    std::filesystem::rename((dir.path() + "/" + "LogFiles/Korvel-1.log"),
                            (dir.path() + "/" + "online.log"));
    PlayerProcess replay(dir.path(), {"--number", "3", "--offline"});
    ASSERT_EQ(replay.wait(60000), 0) << replay.standardError();
    const std::vector<std::string> replayLog =
        support::readLines((dir.path() + "/" + "LogFiles/Korvel-1.log"));
    EXPECT_EQ(count(replayLog, "last pos 5 : "), recorded.size()) << "one turn per line";
    const std::vector<std::string> replayed = effectorTexts(replayLog);
    ASSERT_EQ(replayed.size(), sentOnline.size());
    for (size_t i = 0; i < replayed.size(); ++i) {
        ASSERT_EQ(replayed[i], sentOnline[i]) << "acting turn " << i;
    }
    // A replay never records itself: the recording is unchanged.
    EXPECT_EQ(support::readLines(recordingPath()), recorded);
}

TEST_F(RecordReplayTest, UniformNumberWithoutARoleHoldsItsPosture) {
    std::vector<std::string> lines = realSession(30);
    writeLines(recordingPath(), std::vector<std::string>(lines.begin() + 26, lines.end()));
    PlayerProcess player(dir.path(), {"--number", "4", "--offline"});
    ASSERT_EQ(player.wait(30000), 0) << player.standardError();
    const std::vector<std::string> texts = effectorTexts(player.logLines("Korvel-1.log"));
    ASSERT_EQ(texts.size(), 4u);
    // Every body joint at rest; only the head moves (pan at 1 degree per cycle in the first turn,
    // at 7 from the second on; tilt towards -20 degrees).
    const std::string body =
        "(rae1 0) (rae2 0) (rae3 0) (rae4 0)(lae1 0) (lae2 0) (lae3 0) (lae4 0)"
        "(rle1 0) (rle2 0) (rle3 0) (rle4 0) (rle5 0) (rle6 0)"
        "(lle1 0) (lle2 0) (lle3 0) (lle4 0) (lle5 0) (lle6 0)(Say )";
    EXPECT_EQ(texts[0], "(he1 0.872665) (he2 -6.10865)" + body);
    EXPECT_EQ(texts[1], "(he1 6.10865) (he2 -6.10865)" + body);
}

}  // namespace
