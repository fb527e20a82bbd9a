// The team against the real simulation server, when one is installed: three players connect,
// the test kicks off through the monitor port, the team plays for 30 s, and every player must
// have answered every cycle without crashing. Skipped where the server is not on the PATH.
#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "PlayerProcess.h"
#include "support/FileHelpers.h"
#include "support/ScratchDirectory.h"

namespace {

constexpr int kAgentPort = 3100;
constexpr int kMonitorPort = 3200;

std::string findOnPath(const std::string& program) {
    const char* path = std::getenv("PATH");
    std::stringstream dirs(path != nullptr ? path : "");
    std::string dir;
    while (std::getline(dirs, dir, ':')) {
        std::string candidate = (dir.empty() ? "." : dir) + "/" + program;
        if (access(candidate.c_str(), X_OK) == 0) {
            return candidate;
        }
    }
    return "";
}

// A connected socket to 127.0.0.1:port, or -1.
int connectLocal(int port) {
    const int fd = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(static_cast<uint16_t>(port));
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof(address)) != 0) {
        close(fd);
        return -1;
    }
    return fd;
}

int connectWithin(int port, std::chrono::seconds limit) {
    const auto deadline = std::chrono::steady_clock::now() + limit;
    while (std::chrono::steady_clock::now() < deadline) {
        const int fd = connectLocal(port);
        if (fd >= 0) {
            return fd;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    return -1;
}

// The server as a child process in its own directory, stopped at the end of the test.
class ServerProcess {
public:
    ServerProcess(const std::string& binary, const std::string& dir) {
        pid = fork();
        if (pid == 0) {
            const std::string out = dir + "/server.txt";
            const int fd = open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
            if (fd < 0 || chdir(dir.c_str()) != 0) {
                _exit(127);
            }
            dup2(fd, STDOUT_FILENO);
            dup2(fd, STDERR_FILENO);
            execl(binary.c_str(), binary.c_str(), static_cast<char*>(nullptr));
            _exit(127);
        }
    }
    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;
    ~ServerProcess() {
        if (pid > 0) {
            kill(pid, SIGTERM);
            std::this_thread::sleep_for(std::chrono::milliseconds(500));
            kill(pid, SIGKILL);
            waitpid(pid, nullptr, 0);
        }
    }

private:
    pid_t pid = -1;
};

// The monitor connection: sends one framed command and keeps reading (and dropping) what the
// server sends, so that the server never blocks on a full monitor buffer.
class Monitor {
public:
    explicit Monitor(int fd) : fd(fd), reader([this] { drain(); }) {}
    Monitor(const Monitor&) = delete;
    Monitor& operator=(const Monitor&) = delete;
    ~Monitor() {
        stop = true;
        shutdown(fd, SHUT_RDWR);
        reader.join();
        close(fd);
    }
    bool send(const std::string& text) const {
        const uint32_t length = htonl(static_cast<uint32_t>(text.size()));
        std::string frame(reinterpret_cast<const char*>(&length), 4);
        frame += text;
        return write(fd, frame.data(), frame.size()) == static_cast<ssize_t>(frame.size());
    }

private:
    void drain() const {
        char buffer[65536];
        while (!stop && read(fd, buffer, sizeof(buffer)) > 0) {
        }
    }
    int fd;
    std::atomic<bool> stop{false};
    std::thread reader;
};

size_t countContaining(const std::vector<std::string>& lines, const std::string& marker) {
    size_t count = 0;
    for (const std::string& line : lines) {
        count += line.find(marker) != std::string::npos ? 1 : 0;
    }
    return count;
}

TEST(RealServerTest, ThreePlayersAnswerEveryCycleForThirtySeconds) {
    const std::string server = findOnPath("rcssserver3d");
    if (server.empty()) {
        GTEST_SKIP() << "rcssserver3d is not installed (not found on the PATH)";
    }
    const int busy = connectLocal(kAgentPort);
    if (busy >= 0) {
        close(busy);
        GTEST_SKIP() << "port " << kAgentPort << " is already taken; stop the running server";
    }

    support::ScratchDirectory dir;
    ServerProcess simulation(server, dir.path());
    const int probe = connectWithin(kAgentPort, std::chrono::seconds(30));
    ASSERT_GE(probe, 0) << "the server did not open port " << kAgentPort;
    close(probe);

    std::vector<std::unique_ptr<PlayerProcess>> players;
    for (int number = 1; number <= 3; ++number) {
        const std::string runDir = (dir.path() + "/" + "player" + std::to_string(number));
        PlayerProcess::prepareRunDirectory(runDir);
        players.push_back(std::make_unique<PlayerProcess>(
            runDir, std::vector<std::string>{"--number", std::to_string(number), "--host",
                                             "127.0.0.1", "--port", std::to_string(kAgentPort)}));
        // The server freezes when players connect at the same moment.
        std::this_thread::sleep_for(std::chrono::milliseconds(500));
    }
    std::this_thread::sleep_for(std::chrono::seconds(2));  // registration and beams

    const int monitorFd = connectWithin(kMonitorPort, std::chrono::seconds(10));
    ASSERT_GE(monitorFd, 0) << "no monitor port " << kMonitorPort;
    Monitor monitor(monitorFd);
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
        turnsFromKickOff += countContaining(rest, "last pos 5 : ");
        const size_t acted = countContaining(log, "Message : : : ");
        EXPECT_GE(acted + 1, turnsFromKickOff) << "player " << i + 1 << " skipped cycles";
        EXPECT_LE(acted, turnsFromKickOff);
        // 30 s at 50 cycles a second, allowing for a slow start of the simulation.
        EXPECT_GT(acted, 1000u) << "player " << i + 1;
    }
}

}  // namespace
