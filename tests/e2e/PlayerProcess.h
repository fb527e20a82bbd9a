#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

#include "support/Files.h"

// The player binary as built, run as a child process in a run directory of its own, the way the
// team scripts start it: ./Data (configuration copied so that a test can change it, skill data
// linked) and ./LogFiles. Its standard output and error go to stdout.txt and stderr.txt there.
class PlayerProcess {
public:
    // Makes `dir` a run directory.
    static void prepareRunDirectory(const std::string& dir);
    // Sets `key` of [group] in Data/ConfigurationData/<file>.conf under `dir` (the key must exist).
    static void setConfigValue(const std::string& dir, const std::string& file,
                               const std::string& group, const std::string& key,
                               const std::string& value);

    PlayerProcess(std::string dir, const std::vector<std::string>& arguments);
    PlayerProcess(const PlayerProcess&) = delete;
    PlayerProcess& operator=(const PlayerProcess&) = delete;
    ~PlayerProcess();  // kills the player if it still runs

    // Waits up to timeoutMs for the end: the exit status, 128 + the signal that ended it, or -1
    // when it still ran (it is then killed).
    int wait(int timeoutMs);
    bool running();
    void signal(int signalNumber) const;

    [[nodiscard]] std::string standardOutput() const {
        return support::readFile(dir + "/stdout.txt");
    }
    [[nodiscard]] std::string standardError() const {
        return support::readFile(dir + "/stderr.txt");
    }
    [[nodiscard]] std::vector<std::string> logLines(const std::string& name) const {
        return support::readLines(dir + "/LogFiles/" + name);
    }

private:
    std::string dir;
    pid_t child = -1;
    int status = -1;
};

// The first `count` messages of the recorded real session (tests/data/real-session-3200.txt).
std::vector<std::string> realSession(size_t count);

// Of the lines that contain `marker`, the part from the marker on.
std::vector<std::string> linesFrom(const std::vector<std::string>& lines,
                                   const std::string& marker);
