#include "PlayerProcess.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <thread>
#include "support/FileHelpers.h"

namespace fs = std::filesystem;

void PlayerProcess::prepareRunDirectory(const std::string& dir) {
    const fs::path data = fs::path(dir) / "Data";
    fs::create_directories(data);
    fs::create_directories(fs::path(dir) / "LogFiles");
    fs::copy(fs::path(KORVEL_SOURCE_DIR) / "Data" / "ConfigurationData", data / "ConfigurationData",
             fs::copy_options::recursive | fs::copy_options::overwrite_existing);
    const fs::path skills = data / "SkillData";
    if (!fs::exists(skills)) {
        fs::create_directory_symlink(fs::path(KORVEL_SOURCE_DIR) / "Data" / "SkillData", skills);
    }
}

void PlayerProcess::setConfigValue(const std::string& dir, const std::string& configuration,
                                   const std::string& group, const std::string& key,
                                   const std::string& value) {
    const std::string path = dir + "/Data/ConfigurationData/" + configuration + ".conf";
    std::ifstream in(path);
    std::ostringstream out;
    std::string line;
    std::string currentGroup;
    bool done = false;
    while (std::getline(in, line)) {
        const auto first = line.find_first_not_of(" \t");
        if (first != std::string::npos && line[first] == '[') {
            currentGroup = line.substr(first + 1, line.find(']') - first - 1);
        } else if (!done && currentGroup == group && first != std::string::npos) {
            const auto end = line.find_first_of(" \t=", first);
            if (line.substr(first, end - first) == key) {
                line = key;
                line.append(" = ").append(value);
                done = true;
            }
        }
        out << line << '\n';
    }
    if (!done) {
        throw std::runtime_error("no key " + key + " in [" + group + "] of " + path);
    }
    std::ofstream(path, std::ios::trunc) << out.str();
}

PlayerProcess::PlayerProcess(const std::string& dir, const std::vector<std::string>& arguments)
    : dir(dir) {
    const std::string binary = std::string(KORVEL_BINARY_DIR) + "/korvel";
    std::vector<std::string> words{binary};
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
        execv(binary.c_str(), argv.data());
        _exit(127);
    }
    if (child < 0) {
        throw std::runtime_error("fork failed");
    }
}

PlayerProcess::~PlayerProcess() {
    if (running()) {
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
    }
}

bool PlayerProcess::running() {
    if (child <= 0 || status != -1) {
        return false;
    }
    int raw = 0;
    if (waitpid(child, &raw, WNOHANG) == child) {
        status = WIFEXITED(raw) ? WEXITSTATUS(raw) : 128 + WTERMSIG(raw);
        return false;
    }
    return true;
}

int PlayerProcess::wait(int timeoutMs) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::milliseconds(timeoutMs);
    while (running()) {
        if (std::chrono::steady_clock::now() > deadline) {
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

std::string PlayerProcess::standardOutput() const {
    std::ifstream in(dir + "/stdout.txt");
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::string PlayerProcess::standardError() const {
    std::ifstream in(dir + "/stderr.txt");
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

std::vector<std::string> PlayerProcess::logLines(const std::string& name) const {
    return support::readLines(dir + "/LogFiles/" + name);
}

std::vector<std::string> linesFrom(const std::vector<std::string>& lines,
                                   const std::string& marker) {
    std::vector<std::string> found;
    for (const std::string& line : lines) {
        const auto at = line.find(marker);
        if (at != std::string::npos) {
            found.push_back(line.substr(at));
        }
    }
    return found;
}
