#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/CheckDiagnostic.h"
#include "utilities/config/ConfigFile.h"

namespace {

const char* const kUsage =
    "Usage : ./korvel [Options]\n"
    "Options :\n"
    "  --coach                   : Init and run as coach\n"
    "  --goalie                  : Init agent as a goalie\n"
    "  --offline                 : Run as offline agent\n"
    "  --team teamname           : Set teamname to connect to server\n"
    "  --host hostname           : Set hostname to connect to server\n"
    "  --player-port portnum     : Set player port number to connect to server\n"
    "  --coach-port portnum      : Set coach port number to connect to server\n"
    "  --number pnum             : Set player number\n";

class ConfigArgumentsTest : public ::testing::Test {
protected:
    void SetUp() override {
        for (const char* group : {"Public", "Server", "Connection"}) {
            server.addGroup(group);
        }
        logger.addGroup("Logger");
    }

    // Runs setByArguments on ./korvel followed by `arguments`; keeps what it printed.
    bool run(const std::vector<std::string>& arguments) {
        std::string program = "./korvel";
        std::vector<std::string> words = arguments;
        std::vector<char*> argv;
        argv.reserve(words.size() + 2);
        argv.push_back(program.data());
        for (std::string& word : words) {
            argv.push_back(word.data());
        }
        argv.push_back(nullptr);
        ::testing::internal::CaptureStdout();
        const bool result =
            server.setByArguments(static_cast<int>(argv.size() - 1), argv.data(), logger);
        printed = ::testing::internal::GetCapturedStdout();
        return result;
    }

    std::size_t keyCount() const {
        std::size_t count = 0;
        for (const auto& [name, group] : server.getGroups()) {
            count += group.getValues().size();
        }
        for (const auto& [name, group] : logger.getGroups()) {
            count += group.getValues().size();
        }
        return count;
    }

    ConfigFile server;
    ConfigFile logger;
    std::string printed;
};

TEST_F(ConfigArgumentsTest, NoArgumentsWriteNothing) {
    EXPECT_TRUE(run({}));
    EXPECT_EQ(keyCount(), 0U);
    EXPECT_EQ(printed, "");
}

TEST_F(ConfigArgumentsTest, ValueOptionsWriteTheirKeys) {
    EXPECT_TRUE(run({"--number", "2", "--host", "10.0.0.5", "--port", "3200", "--coach-port",
                     "3300", "--team", "Korvel", "--random-seed", "17"}));
    EXPECT_EQ(server["Public"]["UniformNum"].asString(), "2");
    EXPECT_EQ(server["Connection"]["HostName"].asString(), "10.0.0.5");
    EXPECT_EQ(server["Connection"]["Port"].asString(), "3200");
    EXPECT_EQ(server["Server"]["CoachPort"].asString(), "3300");
    EXPECT_EQ(server["Public"]["TeamName"].asString(), "Korvel");
    EXPECT_EQ(server["Public"]["RandomSeed"].asString(), "17");
    EXPECT_EQ(keyCount(), 6U);
    EXPECT_EQ(printed, "");
}

TEST_F(ConfigArgumentsTest, FlagOptionsWriteTrue) {
    EXPECT_TRUE(run({"--goalie", "--offline"}));
    EXPECT_EQ(server["Public"]["IsGoalie"].asString(), "True");
    EXPECT_EQ(server["Server"]["OfflinePlaying"].asString(), "True");
    EXPECT_EQ(logger["Logger"]["Offline"].asString(), "True");
    EXPECT_EQ(keyCount(), 3U);
}

TEST_F(ConfigArgumentsTest, CoachAloneWritesNothing) {
    EXPECT_TRUE(run({"--coach"}));
    EXPECT_EQ(keyCount(), 0U);
    EXPECT_EQ(printed, "");
}

TEST_F(ConfigArgumentsTest, OptionValuesReplaceFileValues) {
    server["Connection"].add("Port", "3100");
    EXPECT_TRUE(run({"--port", "3101", "--port", "3102"}));
    EXPECT_EQ(server["Connection"]["Port"].asInt(), 3102);
}

TEST_F(ConfigArgumentsTest, ValueIsTheNextArgumentWhateverItIs) {
    EXPECT_TRUE(run({"--team", "--goalie"}));
    EXPECT_EQ(server["Public"]["TeamName"].asString(), "--goalie");
    EXPECT_FALSE(server["Public"].exists("IsGoalie"));
}

TEST_F(ConfigArgumentsTest, UsageListsPlayerPortButTheOptionIsPort) {
    EXPECT_FALSE(run({"--player-port", "3100"}));
    EXPECT_EQ(printed, kUsage);
    EXPECT_EQ(keyCount(), 0U);
}

TEST_F(ConfigArgumentsTest, ProcessingStopsAtTheFirstUnknownOption) {
    EXPECT_FALSE(run({"--number", "3", "--bogus", "--host", "h"}));
    EXPECT_EQ(printed, kUsage);
    EXPECT_EQ(server["Public"]["UniformNum"].asString(), "3");
    EXPECT_FALSE(server["Connection"].exists("HostName"));
}

TEST_F(ConfigArgumentsTest, OptionsAreMatchedWhole) {
    for (const char* argument : {"-number", "--number=2", "--num", "--Goalie", "number", ""}) {
        EXPECT_FALSE(run({argument, "2"})) << argument;
        EXPECT_EQ(printed, kUsage) << argument;
    }
    EXPECT_EQ(keyCount(), 0U);
}

TEST_F(ConfigArgumentsTest, MissingValueIsAnError) {
    EXPECT_FALSE(run({"--goalie", "--host"}));
    EXPECT_EQ(printed, kUsage);
    EXPECT_EQ(server["Public"]["IsGoalie"].asString(), "True");
    EXPECT_FALSE(server["Connection"].exists("HostName"));
}

TEST_F(ConfigArgumentsTest, UsageNamesTheProgram) {
    ::testing::internal::CaptureStdout();
    ConfigFile::argumentsError("/opt/bin/player");
    const std::string usage = ::testing::internal::GetCapturedStdout();
    EXPECT_EQ(usage, "Usage : /opt/bin/player [Options]\n" + std::string(kUsage).substr(27));
}

TEST_F(ConfigArgumentsTest, OptionForAMissingGroupIsFatal) {
    ConfigFile bare;
    bare.setName("ServerInitialize");
    std::string program = "./korvel";
    std::string option = "--host";
    std::string value = "h";
    char* argv[] = {program.data(), option.data(), value.data(), nullptr};
    EXPECT_EXIT(bare.setByArguments(3, argv, logger), ::testing::ExitedWithCode(1),
                support::checkDiagnosticPattern(
                    "Config", "ConfigGroup& ConfigFile::operator[](const std::string&)",
                    "it != groups.end()",
                    "configuration \"ServerInitialize\", group \"Connection\" is missing"));
}

}  // namespace
