#include "agent/Startup.h"
#include "utilities/config/Config.h"

// Loads the configuration, applies the command line and opens the log streams. A bad option
// prints the usage text; start-up goes on with the options read before it.
int main(int argc, char** argv) {
    ConfigInitializing();
    config["ServerInitialize"].setByArguments(argc, argv, config["LoggerInitialize"]);
    LoggersInitializing(1);
    // The agent's session and cycle loop run here once the agent model exists.
    return 0;
}
