#include "agent/Startup.h"

#include <sys/stat.h>

#include <cmath>
#include <limits>
#include <string>

#include "agent/AgentModel.h"
#include "utilities/Basics.h"
#include "utilities/config/Config.h"
#include "utilities/config/Str.h"
#include "utilities/logging/LogDevNull.h"
#include "utilities/logging/LogFile.h"
#include "utilities/logging/Logger.h"
#include "worldmodel/WorldModel.h"

namespace {

const std::string kConfigurationDirectory = "./Data/ConfigurationData/";
const std::string kIndexName = "Config_FileAdresses";
const std::string kIndexFile = kConfigurationDirectory + "Config_FileAddresses.conf";

// The count of files to load, truncated toward zero; counts beyond int are clamped (every
// numbered key must exist anyway, so a huge count stops at the first missing key).
int fileCount(float count) {
    if (std::isnan(count) || count <= 0.0F) {
        return 0;
    }
    if (count >= static_cast<float>(std::numeric_limits<int>::max())) {
        return std::numeric_limits<int>::max();
    }
    return static_cast<int>(count);
}

}  // namespace

// The process-wide world model and agent, constructed in this order before main (after the
// configuration store and the log registry, which are built on first use). The loop updates a
// world model of its own, so the timer of `wm` is never restarted and stamps the start-up log
// streams with the milliseconds since the process began.
WorldModel wm;
AgentModel am;

const Timer* startupTimer() {
    return wm.getTimer();
}

void ConfigInitializing() {
    config.add(kIndexName);
    config[kIndexName].setByFile(kIndexFile);

    const int count =
        fileCount(config[kIndexName]["DefultSet"]["ConfigurationDataFileCount"].asFloat());
    for (int i = 1; i <= count; ++i) {
        const std::string key = Str(i).b_value(std::string());
        const std::string name =
            config[kIndexName]["ConfigurationDataFileName"][key][0].b_value(std::string());
        config.add(name);
        const std::string path = kConfigurationDirectory + name + ".conf";
        config[name].setByFile(path);
        basics::WarnLoadingTrue(" Loading Config_FileAdresses File: " + path);
        if (i == std::numeric_limits<int>::max()) {
            break;
        }
    }
}

void LoggersInitializing(int n) {
    const ConfigGroup& settings = config["LoggerInitialize"]["Logger"];
    std::string directory = settings["Directory"].asString();
    if (directory.empty() || directory.back() != '/') {
        directory += '/';
    }
    // One level only; an existing directory, or one that cannot be made, shows up (if at all)
    // as log files that cannot be opened, which discard their output.
    mkdir(directory.c_str(), 0755);

    if (settings["LogMain"].asBool()) {
        logger.add("Main",
                   new LogFile(directory + "Korvel-" + std::to_string(n) + ".log", startupTimer()),
                   true);
    } else {
        logger.add("Main", new LogDevNull(), true);
    }

    // A replay never records itself.
    const bool record = settings["Offline"].asBool() &&
                        !config["ServerInitialize"]["Server"]["OfflinePlaying"].asBool();
    if (record) {
        logger.add("MainOff", new LogFile(directory + "Korvel-1.log.offline", startupTimer()),
                   false);
    } else {
        logger.add("MainOff", new LogDevNull(), false);
    }
}
