#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

// The player binary as built, run as a child process in a run directory of its own, the way the
// team scripts start it: ./Data (configuration copied so that a test can change it, skill data
// linked) and ./LogFiles.
class PlayerProcess {
public:
    // Makes `dir` a run directory: Data/ConfigurationData copied from the repository,
    // Data/SkillData a link to the repository's, an empty LogFiles.
    static void prepareRunDirectory(const std::string& dir);
    // Sets `key` in [group] of Data/ConfigurationData/<configuration>.conf under `dir` to `value`
    // (the key line must exist).
    static void setConfigValue(const std::string& dir, const std::string& configuration,
                               const std::string& group, const std::string& key,
                               const std::string& value);

    // Starts the player in `dir` with these arguments; its standard output and error go to
    // dir/stdout.txt and dir/stderr.txt.
    PlayerProcess(const std::string& dir, const std::vector<std::string>& arguments);
    PlayerProcess(const PlayerProcess&) = delete;
    PlayerProcess& operator=(const PlayerProcess&) = delete;
    // Kills the player if it still runs.
    ~PlayerProcess();

    // Waits up to timeoutMs for the player to end. Returns its exit status, 128 + the signal
    // number when a signal ended it, or -1 when it still runs after the time (it is then killed).
    int wait(int timeoutMs);
    // Whether the process is still running.
    bool running();
    void signal(int signalNumber) const;

    [[nodiscard]] std::string standardOutput() const;
    [[nodiscard]] std::string standardError() const;
    // The lines of dir/LogFiles/<name>.
    [[nodiscard]] std::vector<std::string> logLines(const std::string& name) const;

private:
    std::string dir;
    pid_t child = -1;
    int status = -1;
};

// The lines of `text` that contain `marker`, from the marker on.
std::vector<std::string> linesFrom(const std::vector<std::string>& lines,
                                   const std::string& marker);
