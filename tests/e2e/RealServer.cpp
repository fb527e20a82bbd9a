#include "RealServer.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

namespace realserver {

namespace {

// The installed settings file (<prefix>/share/simspark/spark.rb beside <prefix>/bin), made
// single-threaded and optionally synchronous, written to <home>/.simspark/spark.rb; when
// synchronous, also the main script without its real-time timer, written to <home>.
void writeSettings(const std::string& binary, const std::string& home, bool sync) {
    namespace fs = std::filesystem;
    const fs::path installed =
        fs::path(binary).parent_path().parent_path() / "share" / "simspark" / "spark.rb";
    std::ifstream in(installed);
    if (!in) {
        return;  // the server then writes its own defaults
    }
    std::stringstream text;
    text << in.rdbuf();
    std::string settings = text.str();
    settings = std::regex_replace(settings, std::regex(R"(\$threadedAgentControl = true)"),
                                  "$$threadedAgentControl = false");
    settings = std::regex_replace(settings, std::regex(R"(\$serverMultiThreadedMode = true)"),
                                  "$$serverMultiThreadedMode = false");
    if (sync) {
        settings = std::regex_replace(settings, std::regex(R"(\$agentSyncMode = false)"),
                                      "$$agentSyncMode = true");
    }
    fs::create_directories(fs::path(home) / ".simspark");
    std::ofstream(fs::path(home) / ".simspark" / "spark.rb") << settings;
    if (!sync) {
        return;
    }
    // The main script also starts the real-time timer, which would pace the synchronous
    // simulation at one cycle per 20 ms. A copy without it in the server's working directory
    // is found before the installed one.
    std::ifstream mainScript(fs::path(binary).parent_path().parent_path() / "share" /
                             "rcssserver3d" / "rcssserver3d.rb");
    if (!mainScript) {
        return;
    }
    std::stringstream script;
    script << mainScript.rdbuf();
    std::ofstream(fs::path(home) / "rcssserver3d.rb") << std::regex_replace(
        script.str(), std::regex(R"(\$enableRealTimeMode = true)"), "$$enableRealTimeMode = false");
}

}  // namespace

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

int connectLocal(int port, std::chrono::seconds limit) {
    const auto deadline = std::chrono::steady_clock::now() + limit;
    do {
        const int fd = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_port = htons(static_cast<uint16_t>(port));
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        if (connect(fd, reinterpret_cast<sockaddr*>(&address), sizeof(address)) == 0) {
            return fd;
        }
        close(fd);
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    } while (std::chrono::steady_clock::now() < deadline);
    return -1;
}

ServerProcess::ServerProcess(const std::string& binary, const std::string& dir, int agentPort,
                             int monitorPort, bool sync) {
    writeSettings(binary, dir, sync);
    const std::string agent = std::to_string(agentPort);
    const std::string monitor = std::to_string(monitorPort);
    pid = fork();
    if (pid == 0) {
        const std::string out = dir + "/server.txt";
        const int fd = open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        if (fd < 0 || chdir(dir.c_str()) != 0) {
            _exit(127);
        }
        setenv("HOME", dir.c_str(), 1);
        dup2(fd, STDOUT_FILENO);
        dup2(fd, STDERR_FILENO);
        execl(binary.c_str(), binary.c_str(), "--agent-port", agent.c_str(), "--server-port",
              monitor.c_str(), static_cast<char*>(nullptr));
        _exit(127);
    }
}

ServerProcess::~ServerProcess() {
    if (pid <= 0) {
        return;
    }
    // The server ignores SIGTERM; SIGINT stops it cleanly.
    kill(pid, SIGINT);
    for (int i = 0; i < 30; ++i) {
        if (waitpid(pid, nullptr, WNOHANG) == pid) {
            return;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    kill(pid, SIGKILL);
    waitpid(pid, nullptr, 0);
}

Monitor::Monitor(int fd)
    : fd(fd), reader([this] {
          std::array<char, 65536> buffer{};
          while (!stop && read(this->fd, buffer.data(), buffer.size()) > 0) {
          }
      }) {}

Monitor::~Monitor() {
    stop = true;
    shutdown(fd, SHUT_RDWR);
    reader.join();
    close(fd);
}

bool Monitor::send(const std::string& text) const {
    const uint32_t length = htonl(static_cast<uint32_t>(text.size()));
    std::string frame(reinterpret_cast<const char*>(&length), 4);
    frame += text;
    return write(fd, frame.data(), frame.size()) == static_cast<ssize_t>(frame.size());
}

}  // namespace realserver
