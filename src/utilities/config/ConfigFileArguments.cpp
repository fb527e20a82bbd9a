// The command line of the player: options that override values of the configuration store.
#include <iostream>

#include "utilities/config/ConfigFile.h"

namespace {

// An option followed by one value, stored as text under group/key of "ServerInitialize".
struct ValueOption {
    const char* option;
    const char* group;
    const char* key;
};

constexpr ValueOption kValueOptions[] = {
    {"--host", "Connection", "HostName"},    {"--port", "Connection", "Port"},
    {"--coach-port", "Server", "CoachPort"}, {"--number", "Public", "UniformNum"},
    {"--team", "Public", "TeamName"},        {"--random-seed", "Public", "RandomSeed"},
};

const ValueOption* findValueOption(const std::string& argument) {
    for (const ValueOption& option : kValueOptions) {
        if (argument == option.option) {
            return &option;
        }
    }
    return nullptr;
}

}  // namespace

bool ConfigFile::setByArguments(int argc, char** argv, ConfigFile& loggerConfig) {
    const std::string programName = (argc > 0 && argv[0] != nullptr) ? argv[0] : "";
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--goalie") {
            (*this)["Public"].add("IsGoalie", "True");
        } else if (argument == "--offline") {
            (*this)["Server"].add("OfflinePlaying", "True");
            loggerConfig["Logger"].add("Offline", "True");
        } else if (argument == "--coach") {
            // Accepted for compatibility with the usual start scripts; the player has no coach.
        } else if (const ValueOption* option = findValueOption(argument)) {
            if (i + 1 >= argc) {
                argumentsError(programName);
                return false;
            }
            ++i;
            (*this)[option->group].add(option->key, argv[i]);
        } else {
            argumentsError(programName);
            return false;
        }
    }
    return true;
}

void ConfigFile::argumentsError(const std::string& programName) {
    std::cout << "Usage : " << programName << " [Options]\n"
              << "Options :\n"
              << "  --coach                   : Init and run as coach\n"
              << "  --goalie                  : Init agent as a goalie\n"
              << "  --offline                 : Run as offline agent\n"
              << "  --team teamname           : Set teamname to connect to server\n"
              << "  --host hostname           : Set hostname to connect to server\n"
              << "  --player-port portnum     : Set player port number to connect to server\n"
              << "  --coach-port portnum      : Set coach port number to connect to server\n"
              << "  --number pnum             : Set player number\n"
              << std::flush;
}
