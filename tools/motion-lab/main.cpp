// motion-lab: measures the robot's motions on a running simulation server. It connects as one
// player, kicks off and places robot and ball through the monitor port, plays a motion through
// the player's own skill engine and reports what happened, trial after trial, as a table.
//
//   motion-lab [options] MOTION...
//     --host HOST          server host (127.0.0.1)
//     --port N             player port (3100)
//     --monitor-port N     monitor port (3200)
//     --trials N           trials per motion (5)
//     --seconds S          time limit of every trial instead of the motion's own
//     --sync               send "(syn)" each cycle, for a server in agent sync mode
//     --head-tilt DEG      head pitch held during the trials (0; the player uses -20)
//     --head-sweep         drive the head as the player does (sweeping, tilted -20)
//     --trace              print the robot's pose whenever the server reports it
//     --fall-rule RULE     how the player knows it has fallen: Attitude (the torso's
//                          accelerometer and gyroscope) or Landmarks (far landmarks seen high
//                          or low, the old rule); default: as Data's WorldModelParameters say
//     --list               the motions and their targets
//
// Run from the directory holding the Data tree. Exit status: 0 when every trial passed, 1
// when one failed, 2 on a usage error, 3 when no server answered.

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "Trials.h"
#include "agent/Startup.h"
#include "utilities/config/Config.h"
#include "utilities/logging/LogDevNull.h"
#include "utilities/logging/Logger.h"
#include "worldmodel/FallRule.h"

namespace {

int usage() {
    std::cerr << "usage: motion-lab [--host HOST] [--port N] [--monitor-port N] [--trials N]\n"
                 "                  [--seconds S] [--sync] [--head-tilt DEG] [--head-sweep]\n"
                 "                  [--trace] [--fall-rule Attitude|Landmarks] [--list]\n"
                 "                  MOTION...\n";
    return 2;
}

void printRow(const std::string& motion, int trial, const trials::Result& result) {
    std::printf("%-14s %2d  %-4s", motion.c_str(), trial + 1, result.passed ? "pass" : "FAIL");
    for (const auto& [name, value] : result.values) {
        std::printf("  %s %.3f", name.c_str(), value);
    }
    if (!result.note.empty()) {
        std::printf("  (%s)", result.note.c_str());
    }
    std::printf("\n");
    std::fflush(stdout);
}

// Per measurement: the mean over the trials and the worst (the one furthest from passing is
// not known here, so both extremes are shown).
void printSummary(const std::string& motion, const std::vector<trials::Result>& results) {
    int passed = 0;
    for (const trials::Result& result : results) {
        passed += result.passed ? 1 : 0;
    }
    std::printf("%-14s passed %d/%zu", motion.c_str(), passed, results.size());
    if (!results.empty()) {
        for (const auto& [name, ignored] : results.front().values) {
            double sum = 0.0;
            double low = INFINITY;
            double high = -INFINITY;
            int count = 0;
            for (const trials::Result& result : results) {
                const double v = result.value(name);
                if (std::isnan(v)) {
                    continue;
                }
                sum += v;
                low = std::min(low, v);
                high = std::max(high, v);
                ++count;
            }
            if (count > 0) {
                std::printf("  %s mean %.3f [%.3f, %.3f]", name.c_str(), sum / count, low, high);
            }
        }
    }
    std::printf("\n");
}

}  // namespace

int main(int argc, char** argv) {
    LabSession::Options options;
    int trialCount = 5;
    double seconds = 0.0;
    std::vector<std::string> wanted;
    std::string fallRule;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        const bool hasValue = i + 1 < argc;
        if (arg == "--host" && hasValue) {
            options.host = argv[++i];
        } else if (arg == "--port" && hasValue) {
            options.agentPort = static_cast<unsigned int>(std::atoi(argv[++i]));
        } else if (arg == "--monitor-port" && hasValue) {
            options.monitorPort = static_cast<unsigned int>(std::atoi(argv[++i]));
        } else if (arg == "--trials" && hasValue) {
            trialCount = std::atoi(argv[++i]);
        } else if (arg == "--seconds" && hasValue) {
            seconds = std::atof(argv[++i]);
        } else if (arg == "--sync") {
            options.sync = true;
        } else if (arg == "--head-tilt" && hasValue) {
            options.headTilt = static_cast<float>(std::atof(argv[++i]));
        } else if (arg == "--head-sweep") {
            options.headSweep = true;
        } else if (arg == "--fall-rule" && hasValue) {
            fallRule = argv[++i];
        } else if (arg == "--trace") {
            options.trace = true;
        } else if (arg == "--list") {
            for (const std::string& motion : trials::motions()) {
                std::printf("%-14s %s\n", motion.c_str(), trials::target(motion).c_str());
            }
            return 0;
        } else if (trials::known(arg)) {
            wanted.push_back(arg);
        } else {
            std::cerr << "motion-lab: unknown motion or option \"" << arg << "\"\n";
            return usage();
        }
    }
    if (wanted.empty() || trialCount < 1) {
        return usage();
    }

    ConfigInitializing();
    if (!fallRule.empty()) {
        config["WorldModelParameters"].addGroup("Fall");
        config["WorldModelParameters"]["Fall"].add("Rule", fallRule);
    }
    // A rule other than the two stops here, with its diagnostic.
    std::printf("# fall rule: %s\n",
                readFallRule(config) == FallRule::Attitude ? "Attitude" : "Landmarks");
    logger.add("Main", new LogDevNull(), true);
    logger.add("MainOff", new LogDevNull(), false);

    bool allPassed = true;
    for (const std::string& motion : wanted) {
        std::printf("# %s: %s\n", motion.c_str(), trials::target(motion).c_str());
        std::vector<trials::Result> results;
        for (int trial = 0; trial < trialCount; ++trial) {
            trials::Result result = trials::run(motion, options, trial, seconds);
            if (result.note == "no server") {
                std::cerr << "motion-lab: the server did not answer\n";
                return 3;
            }
            printRow(motion, trial, result);
            allPassed = allPassed && result.passed;
            results.push_back(std::move(result));
        }
        printSummary(motion, results);
    }
    return allPassed ? 0 : 1;
}
