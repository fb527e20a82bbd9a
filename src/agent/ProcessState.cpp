#include "agent/ProcessState.h"

#include "agent/AgentModel.h"
#include "commands/Command.h"
#include "plans/DefencePlan.h"
#include "plans/GoalKeeperPlan.h"
#include "plans/OffensePlan.h"
#include "skills/ConfigReader.h"
#include "skills/ConfigSkill.h"
#include "skills/dash/BasicDash.h"
#include "skills/dash/DashNormalGotoBall.h"
#include "skills/dash/DashNormalGotoPoint.h"
#include "skills/dive/LeftDiv.h"
#include "skills/dive/RightDiv.h"
#include "skills/kick/BasicKick.h"
#include "skills/sidewalk/BasicSideWalk.h"
#include "skills/standup/BasicStandUp.h"
#include "skills/style/BasicStyle.h"
#include "skills/turn/BasicTurn.h"
#include "utilities/config/Config.h"
#include "utilities/logging/Logger.h"
#include "utilities/net/Connection.h"
#include "utilities/signals/SignalHandler.h"
#include "worldmodel/Self.h"
#include "worldmodel/Share.h"

void ProcessState::resetGame() {
    // Plans.
    GoalKeeperPlan::resetState();
    DefencePlan::resetState();
    OffensePlan::resetState();
    // Skills and their players.
    ConfigSkill::resetState();
    BasicDash::resetState();
    DashNormalGotoPoint::resetState();
    DashNormalGotoBall::resetState();
    BasicTurn::resetState();
    BasicKick::resetState();
    BasicSideWalk::resetState();
    BasicStandUp::resetState();
    BasicStyle::resetState();
    LeftDiv::resetState();
    RightDiv::resetState();
    ConfigReader::resetState();
    // Commands and the world model's statics.
    Command::resetState();
    delete Share::lastCommand;
    Share::resetState();
    Self::resetState();
    // The agent's head sweep.
    AgentModel::resetState();
}

void ProcessState::resetAll() {
    resetGame();
    Connection::resetState();
    SignalHandler::resetState();
    Logger::resetState();
    Config::resetState();
}
