#include "agent/AgentModel.h"
#include "agent/Startup.h"
#include "utilities/config/Config.h"

// Loads the configuration, applies the command line, opens the log streams and runs the agent
// until its input ends. A bad option prints the usage text; start-up goes on with the options
// read before it.
int main(int argc, char** argv) {
    ConfigInitializing();
    config["ServerInitialize"].setByArguments(argc, argv, config["LoggerInitialize"]);
    LoggersInitializing(1);
    am.run();
    return 0;
}
