// Whole-turn timing: replays a recording offline through the agent's own loop, one turn per
// message, and reports messages per second and the median, 99th percentile and worst turn.
//
//   korvel_replay_timing [--logging shipped|off] [recording]
//
// Run from the repository root (it needs ./Data). The replay runs in a scratch run directory
// (Data linked, the recording copied to LogFiles/Korvel-1.log.offline, as offline play expects).
// "shipped" opens the log streams as the shipped configuration says (the main log is written);
// "off" registers discarding streams instead. The player's console output goes to standard
// output as usual (redirect it to /dev/null to time the turns alone); the summary goes to
// standard error.
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "agent/AgentModel.h"
#include "agent/Startup.h"
#include "utilities/config/Config.h"
#include "utilities/logging/LogDevNull.h"
#include "utilities/logging/Logger.h"

namespace fs = std::filesystem;

namespace {

int usage(const char* program) {
    std::cerr << "Usage : " << program << " [--logging shipped|off] [recording]\n";
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    std::string logging = "shipped";
    std::string recording = "Data/Replays/real-session-3200.txt";
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--logging" && i + 1 < argc) {
            logging = argv[++i];
        } else if (argument.rfind("--", 0) != 0) {
            recording = argument;
        } else {
            return usage(argv[0]);
        }
    }
    if (logging != "shipped" && logging != "off") {
        return usage(argv[0]);
    }
    const fs::path root = fs::current_path();
    if (!fs::exists(root / "Data" / "ConfigurationData") || !fs::exists(recording)) {
        std::cerr << "Run from the repository root; recording " << recording << " not found\n";
        return 1;
    }

    const fs::path run = fs::temp_directory_path() / ("korvel-replay-" + std::to_string(getpid()));
    fs::create_directories(run / "LogFiles");
    fs::create_directory_symlink(root / "Data", run / "Data");
    fs::copy_file(fs::path(recording), run / "LogFiles" / "Korvel-1.log.offline",
                  fs::copy_options::overwrite_existing);
    fs::current_path(run);

    ConfigInitializing();
    config["ServerInitialize"]["Server"].add("OfflinePlaying", "true");
    if (logging == "shipped") {
        LoggersInitializing(1);
    } else {
        logger.add("Main", new LogDevNull(), true);
        logger.add("MainOff", new LogDevNull(), false);
    }

    AgentModel agent;
    agent.setUp();
    std::vector<double> turnsUs;
    turnsUs.reserve(4096);
    const auto start = std::chrono::steady_clock::now();
    while (true) {
        const auto before = std::chrono::steady_clock::now();
        if (!agent.cycle()) {
            break;
        }
        const auto after = std::chrono::steady_clock::now();
        turnsUs.push_back(std::chrono::duration<double, std::micro>(after - before).count());
    }
    const double totalS =
        std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    fs::current_path(root);
    fs::remove_all(run);

    if (turnsUs.empty()) {
        std::cerr << "The recording gave no turn\n";
        return 1;
    }
    std::vector<double> sorted = turnsUs;
    std::sort(sorted.begin(), sorted.end());
    const auto at = [&sorted](double q) {
        return sorted[static_cast<size_t>(q * static_cast<double>(sorted.size() - 1))];
    };
    std::fprintf(
        stderr,
        "logging %s: %zu messages in %.3f s = %.0f messages/s; turn median %.1f us, "
        "p99 %.1f us, worst %.1f us (turn %zu)\n",
        logging.c_str(), turnsUs.size(), totalS, static_cast<double>(turnsUs.size()) / totalS,
        at(0.5), at(0.99), sorted.back(),
        static_cast<size_t>(std::max_element(turnsUs.begin(), turnsUs.end()) - turnsUs.begin()) +
            1);
    return 0;
}
