// Games played one after another in one process play alike: after ProcessState::resetAll() a
// replayed recording gives the same effector texts, log and console output as the first game of
// the process, whatever was played before. A class static that the reset forgets makes the
// second game differ.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <regex>
#include <sstream>
#include <string>

#include "agent/AgentModel.h"
#include "agent/ProcessState.h"
#include "agent/Startup.h"
#include "support/Expected.h"
#include "support/Files.h"
#include "utilities/config/Config.h"
#include "utilities/logging/LogStream.h"
#include "utilities/logging/Logger.h"

namespace fs = std::filesystem;

namespace {

// What one game left behind: the "Main" log (every effector text is logged there) and the
// console output of the turns.
struct Game {
    std::string log;
    std::string console;
    int effectorTexts = 0;
};

class ProcessStateTest : public ::testing::TestWithParam<const char*> {
protected:
    void SetUp() override {
        fs::create_directory(dir.path() + "/LogFiles");
        fs::create_directory_symlink(fs::path(KORVEL_SOURCE_DIR) / "Data", dir.path() + "/Data");
    }
    void TearDown() override { ProcessState::resetAll(); }

    // One whole offline game from a fresh reset, as a player process runs it.
    Game play(const std::string& recording) {
        ProcessState::resetAll();
        fs::copy_file(std::string(KORVEL_TEST_DATA_DIR) + "/" + recording,
                      dir.path() + "/LogFiles/Korvel-1.log.offline",
                      fs::copy_options::overwrite_existing);
        support::ScopedChdir inRunDirectory(dir.path());
        testing::internal::CaptureStdout();  // the start-up status lines
        ConfigInitializing();
        testing::internal::GetCapturedStdout();
        config["ServerInitialize"]["Server"].add("OfflinePlaying", "true");
        config["ServerInitialize"]["Public"].add("UniformNum", GetParam());
        std::ostringstream log;
        std::ostringstream recorded;
        const support::FakeTimer timer(0);
        logger.add("Main", new LogStream(&log, &timer), true);
        logger.add("MainOff", new LogStream(&recorded, &timer), false);

        Game game;
        AgentModel agent;
        agent.setUp();
        testing::internal::CaptureStdout();
        while (agent.cycle()) {
        }
        game.console = testing::internal::GetCapturedStdout();
        Logger::resetState();  // the streams write into locals of this function
        game.log = log.str();
        for (std::string::size_type at = game.log.find("Message : : : "); at != std::string::npos;
             at = game.log.find("Message : : : ", at + 1)) {
            ++game.effectorTexts;
        }
        return game;
    }

    support::ScratchDirectory dir;
};

// Where two logs part: the first differing line of each, empty when they are equal.
std::string firstDifference(const std::string& expected, const std::string& actual) {
    const auto at = std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end());
    if (at.first == expected.end() && at.second == actual.end()) {
        return "";
    }
    const auto lineOf = [](const std::string& text, std::string::const_iterator it) {
        const auto pos = static_cast<size_t>(it - text.begin());
        const auto start = pos == 0 ? std::string::npos : text.rfind('\n', pos - 1);
        const size_t from = start == std::string::npos ? 0 : start + 1;
        return "\"" + text.substr(from, text.find('\n', from) - from) + "\"";
    };
    return lineOf(expected, at.first) + " became " + lineOf(actual, at.second);
}

TEST_P(ProcessStateTest, EveryGameAfterTheResetPlaysAsTheFirstOfTheProcess) {
    const Game shortGame = play("server-messages-sample.txt");
    ASSERT_GT(shortGame.effectorTexts, 0) << "the sample is played beyond kick-off";

    // The long recording twice in a row ...
    const Game first = play("real-session-3200.txt");
    ASSERT_GT(first.effectorTexts, 1000) << "the recording is played beyond kick-off";
    // During play the console shows only the status lines of the skill files, loaded on first use.
    EXPECT_TRUE(std::regex_match(
        first.console,
        std::regex("( Loading Config_FileAdresses File: \\./Data/SkillData/[^\\n]*\\n)*")))
        << first.console;
    const Game second = play("real-session-3200.txt");
    EXPECT_EQ(second.effectorTexts, first.effectorTexts);
    EXPECT_EQ(firstDifference(first.log, second.log), "");
    EXPECT_EQ(second.console, first.console);

    // ... and the short one again, now with the long games played before it.
    const Game shortAgain = play("server-messages-sample.txt");
    EXPECT_EQ(firstDifference(shortGame.log, shortAgain.log), "");
    EXPECT_EQ(shortAgain.console, shortGame.console);
}

INSTANTIATE_TEST_SUITE_P(EveryRole, ProcessStateTest, ::testing::Values("1", "2", "3"));

}  // namespace
