// korvel-track: replays one player's recording of a game through the player's own loop and
// writes, per message, what the player knew and did, for the game report (game_report.py).
//
//   korvel-track NUMBER OUTPUT
//
// Run in the player's run directory (./Data and ./LogFiles/Korvel-1.log.offline, as start.sh
// leaves them), with the uniform number the player had. The replay makes the same decisions as
// the game did (offline play repeats online play exactly) and writes no log file; the player's
// console output goes to standard output. OUTPUT gets a header line and one tab-separated line
// per message: simulation time (s), game time (s), side (0 unknown, 1 left, 2 right), own position
// x and y (m), body direction (degrees), ball x and y (m), the fall indicator (0 or 1), and how
// many stand-ups and kicks the player had begun so far. Exit status 0, 2 on a usage error, 1 when
// the run directory has no recording.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "agent/AgentModel.h"
#include "agent/Startup.h"
#include "skills/kick/BasicKick.h"
#include "skills/standup/BasicStandUp.h"
#include "utilities/config/Config.h"
#include "utilities/logging/LogDevNull.h"
#include "utilities/logging/Logger.h"
#include "worldmodel/WorldModel.h"

int main(int argc, char** argv) {
    if (argc != 3 || std::string(argv[1]).find_first_not_of("0123456789") != std::string::npos) {
        std::cerr << "Usage : " << (argc > 0 ? argv[0] : "korvel-track") << " NUMBER OUTPUT\n";
        return 2;
    }
    if (!std::filesystem::exists("LogFiles/Korvel-1.log.offline") ||
        !std::filesystem::exists("Data/ConfigurationData")) {
        std::cerr << "No ./Data and ./LogFiles/Korvel-1.log.offline here: run in a player's run "
                     "directory\n";
        return 1;
    }
    std::ofstream out(argv[2], std::ios::trunc);
    if (!out) {
        std::cerr << "Cannot write " << argv[2] << "\n";
        return 1;
    }

    ConfigInitializing();
    config["ServerInitialize"]["Server"].add("OfflinePlaying", "true");
    config["ServerInitialize"]["Public"].add("UniformNum", argv[1]);
    // The game's own logs stay as they are.
    logger.add("Main", new LogDevNull(), true);
    logger.add("MainOff", new LogDevNull(), false);

    AgentModel agent;
    agent.setUp();
    out << "now\tgame\tside\tx\ty\theading\tballX\tballY\tfallen\tstandups\tkicks\n";
    while (agent.cycle()) {
        const WorldModel& wm = *agent.getWorldModel();
        const auto& self = wm.getSelf()->getPosition();
        const auto& ball = wm.getBall()->getPosition();
        out << wm.getTime() << '\t' << wm.getCycle() << '\t' << wm.getSide() << '\t' << self.getX()
            << '\t' << self.getY() << '\t' << wm.getSelf()->getBodyDirection() << '\t'
            << ball.getX() << '\t' << ball.getY() << '\t' << (wm.isFallen() ? 1 : 0) << '\t'
            << BasicStandUp::getStarts() << '\t' << BasicKick::getStarts() << '\n';
    }
    return 0;
}
