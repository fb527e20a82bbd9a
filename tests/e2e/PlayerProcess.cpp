#include "PlayerProcess.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <thread>

#include "support/Files.h"

namespace fs = std::filesystem;

void PlayerProcess::prepareRunDirectory(const std::string& dir) {
    const fs::path source = fs::path(KORVEL_SOURCE_DIR) / "Data";
    fs::create_directories(fs::path(dir) / "LogFiles");
    fs::create_directories(fs::path(dir) / "Data");
    fs::copy(source / "ConfigurationData", fs::path(dir) / "Data" / "ConfigurationData",
             fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    if (!fs::exists(fs::path(dir) / "Data" / "SkillData")) {
        fs::create_directory_symlink(source / "SkillData", fs::path(dir) / "Data" / "SkillData");
    }
}

void PlayerProcess::setConfigValue(const std::string& dir, const std::string& file,
                                   const std::string& group, const std::string& key,
                                   const std::string& value) {
    const std::string path = dir + "/Data/ConfigurationData/" + file + ".conf";
    std::string text;
    std::string currentGroup;
    bool done = false;
    for (std::string line : support::readLines(path)) {
        if (line.rfind('[', 0) == 0) {
            currentGroup = line.substr(1, line.find(']') - 1);
        } else if (!done && currentGroup == group &&
                   line.substr(0, line.find_first_of(" =")) == key) {
            line = key;
            line += " = ";
            line += value;
            done = true;
        }
        text += line + '\n';
    }
    if (!done) {
        throw std::runtime_error("no key " + key + " in [" + group + "] of " + path);
    }
    std::ofstream(path, std::ios::trunc) << text;
}

PlayerProcess::PlayerProcess(std::string runDir, const std::vector<std::string>& arguments)
    : dir(std::move(runDir)) {
    std::vector<std::string> words{std::string(KORVEL_BINARY_DIR) + "/korvel"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    argv.reserve(words.size() + 1);
    for (std::string& word : words) {
        argv.push_back(word.data());
    }
    argv.push_back(nullptr);
    const std::string out = dir + "/stdout.txt";
    const std::string err = dir + "/stderr.txt";
    child = fork();
    if (child == 0) {
        const int outFd = open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        const int errFd = open(err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
        if (outFd < 0 || errFd < 0 || chdir(dir.c_str()) != 0) {
            _exit(127);
        }
        dup2(outFd, STDOUT_FILENO);
        dup2(errFd, STDERR_FILENO);
        // The player does not release its process-wide objects before exiting.
        setenv("ASAN_OPTIONS", "detect_leaks=0", 1);
        execv(argv[0], argv.data());
        _exit(127);
    }
    if (child < 0) {
        throw std::runtime_error("fork failed");
    }
}

PlayerProcess::~PlayerProcess() {
    wait(0);
}

bool PlayerProcess::running() {
    int raw = 0;
    if (status == -1 && child > 0 && waitpid(child, &raw, WNOHANG) == child) {
        status = WIFEXITED(raw) ? WEXITSTATUS(raw) : 128 + WTERMSIG(raw);
    }
    return status == -1 && child > 0;
}

int PlayerProcess::wait(int timeoutMs) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
    while (running()) {
        if (std::chrono::steady_clock::now() >= deadline) {
            kill(child, SIGKILL);
            waitpid(child, nullptr, 0);
            status = -2;
            return -1;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
    return status;
}

void PlayerProcess::signal(int signalNumber) const {
    kill(child, signalNumber);
}

std::vector<std::string> linesFrom(const std::vector<std::string>& lines,
                                   const std::string& marker) {
    std::vector<std::string> found;
    for (const std::string& line : lines) {
        if (const auto at = line.find(marker); at != std::string::npos) {
            found.push_back(line.substr(at));
        }
    }
    return found;
}

std::vector<std::string> realSession(size_t count) {
    std::vector<std::string> all =
        support::readLines(std::string(KORVEL_TEST_DATA_DIR) + "/real-session-3200.txt");
    all.resize(std::min(count, all.size()));
    return all;
}
