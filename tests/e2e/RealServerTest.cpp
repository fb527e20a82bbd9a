// The team against the real simulation server, when one is installed: three players connect,
// the test kicks off through the monitor port, the team plays for 30 s, and every player must
// have answered every cycle without crashing. Skipped where the server is not on the PATH.
#include <unistd.h>

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "PlayerProcess.h"
#include "RealServer.h"
#include "support/Files.h"

namespace {

using realserver::connectLocal;

constexpr int kAgentPort = 3100;
constexpr int kMonitorPort = 3200;

TEST(RealServerTest, ThreePlayersAnswerEveryCycleForThirtySeconds) {
    const std::string server = realserver::findOnPath("rcssserver3d");
    if (server.empty()) {
        GTEST_SKIP() << "rcssserver3d is not installed (not found on the PATH)";
    }
    const int busy = connectLocal(kAgentPort);
    if (busy >= 0) {
        close(busy);
        GTEST_SKIP() << "port " << kAgentPort << " is already taken; stop the running server";
    }

    support::ScratchDirectory dir;
    const realserver::ServerProcess simulation(server, dir.path(), kAgentPort, kMonitorPort, false);
    const int probe = connectLocal(kAgentPort, std::chrono::seconds(30));
    ASSERT_GE(probe, 0) << "the server did not open port " << kAgentPort;
    close(probe);

    std::vector<std::unique_ptr<PlayerProcess>> players;
    for (int number = 1; number <= 3; ++number) {
        const std::string runDir = dir.path() + "/player" + std::to_string(number);
        PlayerProcess::prepareRunDirectory(runDir);
        players.push_back(std::make_unique<PlayerProcess>(
            runDir, std::vector<std::string>{"--number", std::to_string(number), "--host",
                                             "127.0.0.1", "--port", std::to_string(kAgentPort)}));
        // The server freezes when players connect at the same moment.
        std::this_thread::sleep_for(std::chrono::milliseconds(500));
    }
    std::this_thread::sleep_for(std::chrono::seconds(2));  // registration and beams

    const int monitorFd = connectLocal(kMonitorPort, std::chrono::seconds(10));
    ASSERT_GE(monitorFd, 0) << "no monitor port " << kMonitorPort;
    const realserver::Monitor monitor(monitorFd);
    ASSERT_TRUE(monitor.send("(playMode PlayOn)"));

    std::this_thread::sleep_for(std::chrono::seconds(30));
    for (size_t i = 0; i < players.size(); ++i) {
        EXPECT_TRUE(players[i]->running()) << "player " << i + 1 << " ended early\n"
                                           << players[i]->standardError();
        players[i]->signal(SIGTERM);
        players[i]->wait(5000);
    }

    for (size_t i = 0; i < players.size(); ++i) {
        const std::vector<std::string> log = players[i]->logLines("Korvel-1.log");
        // From the first acting turn on, every turn must have ended in an effector message
        // (the last turn may have been cut short by the stop).
        size_t firstAct = 0;
        while (firstAct < log.size() && log[firstAct].find("Message : : : ") == std::string::npos) {
            ++firstAct;
        }
        ASSERT_LT(firstAct, log.size()) << "player " << i + 1 << " never acted";
        size_t turnsFromKickOff = 1;  // the turn of the first acting message
        const std::vector<std::string> rest(log.begin() + static_cast<long>(firstAct) + 1,
                                            log.end());
        turnsFromKickOff += linesFrom(rest, "last pos 5 : ").size();
        const size_t acted = linesFrom(log, "Message : : : ").size();
        EXPECT_GE(acted + 1, turnsFromKickOff) << "player " << i + 1 << " skipped cycles";
        EXPECT_LE(acted, turnsFromKickOff);
        // 30 s at 50 cycles a second, allowing for a slow start of the simulation.
        EXPECT_GT(acted, 1000u) << "player " << i + 1;
    }
}

}  // namespace
