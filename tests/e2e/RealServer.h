#pragma once

#include <sys/types.h>

#include <atomic>
#include <chrono>
#include <string>
#include <thread>

// The real simulation server for the tests that need one. They skip when rcssserver3d is not on
// the PATH.
namespace realserver {

// The full path of `program` on the PATH, or "".
std::string findOnPath(const std::string& program);
// A socket connected to 127.0.0.1:port, or -1; tried again every 100 ms until `limit` has passed.
int connectLocal(int port, std::chrono::seconds limit = std::chrono::seconds(0));

// The server as a child process in `dir`, listening on the given ports, stopped (SIGINT, the
// signal it honours) at the end of the test. Its settings file is a copy of the installed one,
// made single-threaded (its threaded modes crash with current Ruby when a monitor connects)
// and, with `sync`, in agent sync mode: the simulation advances one cycle whenever every
// player has sent "(syn)", as fast as the machine allows.
class ServerProcess {
public:
    ServerProcess(const std::string& binary, const std::string& dir, int agentPort, int monitorPort,
                  bool sync);
    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;
    ~ServerProcess();

private:
    pid_t pid = -1;
};

// The monitor connection: sends framed commands and keeps reading (and dropping) what the
// server sends, so that the server never blocks on a full monitor buffer.
class Monitor {
public:
    explicit Monitor(int fd);
    Monitor(const Monitor&) = delete;
    Monitor& operator=(const Monitor&) = delete;
    ~Monitor();
    [[nodiscard]] bool send(const std::string& text) const;

private:
    int fd;
    std::atomic<bool> stop{false};
    std::thread reader;
};

}  // namespace realserver
