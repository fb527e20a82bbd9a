// Runs the built player from a copy of the repository's Data tree and checks what a user sees.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "PlayerProcess.h"
#include "support/Files.h"
#include "support/ScriptedServer.h"

namespace {

namespace fs = std::filesystem;

const std::string kBinary = std::string(KORVEL_BINARY_DIR) + "/korvel";
const std::string kOk = "[\033[0;32m   OK   \033[0;39m]\n";

std::string statusLine(const std::string& name) {
    const std::string text =
        " Loading Config_FileAdresses File: ./Data/ConfigurationData/" + name + ".conf";
    return text + std::string(100 - text.size(), ' ') + kOk;
}

const std::vector<std::string> kFiles{"LoggerInitialize",     "ServerInitialize",
                                      "WorldModelParameters", "GoalKeeperParameters",
                                      "DefenceParameters",    "OffenseParameters"};

std::string allStatusLines() {
    std::string lines;
    for (const auto& name : kFiles) {
        lines += statusLine(name);
    }
    return lines;
}

class StartupE2ETest : public ::testing::Test {
protected:
    void SetUp() override { PlayerProcess::prepareRunDirectory(dir.path()); }
    support::ScratchDirectory dir;
};

// After start-up the player connects; these runs point it at a port where nothing listens, so
// the session ends at once with the connection's own lines.
std::string sessionLines(const support::ClosedPort& closed) {
    return "Connecting to TCP 127.0.0.1:" + std::to_string(closed.port()) +
           "\nClosing Connection to 127.0.0.1:" + std::to_string(closed.port()) + "\n";
}

const char kRefused[] = "Connection failed with: 'Connection refused'\n";

// An unknown option (the usage text names --player-port, the player takes --port) prints the
// usage text; start-up goes on.
TEST_F(StartupE2ETest, LoadsEveryConfigurationFileCreatesTheLogsAndPrintsTheUsageText) {
    const support::ClosedPort closed;
    PlayerProcess player(dir.path(),
                         {"--port", std::to_string(closed.port()), "--player-port", "3100"});
    EXPECT_EQ(player.wait(20000), 0);
    EXPECT_EQ(player.standardOutput(),
              allStatusLines() + "Usage : " + kBinary +
                  " [Options]\n"
                  "Options :\n"
                  "  --coach                   : Init and run as coach\n"
                  "  --goalie                  : Init agent as a goalie\n"
                  "  --offline                 : Run as offline agent\n"
                  "  --team teamname           : Set teamname to connect to server\n"
                  "  --host hostname           : Set hostname to connect to server\n"
                  "  --player-port portnum     : Set player port number to connect to "
                  "server\n"
                  "  --coach-port portnum      : Set coach port number to connect to "
                  "server\n"
                  "  --number pnum             : Set player number\n" +
                  sessionLines(closed));
    EXPECT_EQ(player.standardError(), kRefused);
    EXPECT_TRUE(fs::is_regular_file(dir.path() + "/LogFiles/Korvel-1.log"));
    EXPECT_TRUE(fs::is_regular_file(dir.path() + "/LogFiles/Korvel-1.log.offline"));
}

}  // namespace
