#include "agent/AgentModel.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>

#include "body/Body.h"
#include "commands/Command.h"
#include "plans/DefencePlan.h"
#include "plans/GoalKeeperPlan.h"
#include "plans/OffensePlan.h"
#include "utilities/config/Config.h"
#include "utilities/config/ConfigError.h"
#include "utilities/config/Settings.h"
#include "utilities/config/Str.h"
#include "utilities/logging/Debugger.h"
#include "utilities/net/Connection.h"
#include "utilities/signals/SignalHandler.h"
#include "worldmodel/FallRule.h"
#include "worldmodel/Share.h"
#include "worldmodel/WorldModel.h"

float AgentModel::headValue = 0.0F;
int AgentModel::flag = 1;

namespace {

const char kRecording[] = "./LogFiles/Korvel-1.log.offline";
const char kScene[] = "(scene rsg/agent/nao/nao.rsg)";
// The team name registered when the configuration names none.
const char kDefaultTeamName[] = "Korvel";

// Head tilt of every acting turn: degrees, degrees per cycle.
constexpr float kHeadTilt = -20.0F;
constexpr float kHeadTiltSpeed = 7.0F;
// Dead band of both head joints, degrees.
constexpr float kHeadPrecision = 0.1F;
// Head pan step per cycle, degrees, and the bands of measured pan that reverse the sweep.
constexpr float kHeadStep = 7.0F;
constexpr float kPanBandInner = 100.0F;
constexpr float kPanBandOuter = 130.0F;
// Watching the ball close in front: the head bowed this far (degrees; 30 still shows a ball
// 0.15 m ahead of the feet, and the walk keeps its balance: bowed 35 or more it falls within
// 4 s).
constexpr float kWatchTilt = -30.0F;

int uniformNumber() {
    return settings::uniformNumber();
}

[[noreturn]] void logAndExit(const char* line, int status) {
    Debugger::logg("Main") << line << std::endl;
    std::exit(status);
}

}  // namespace

AgentModel::AgentModel() = default;

AgentModel::~AgentModel() = default;

int AgentModel::signalsMask() {
    return SIGNAL_INT | SIGNAL_KILL | SIGNAL_QUIT | SIGNAL_SEGV | SIGNAL_TERM;
}

bool AgentModel::sigAlrmHandler() {
    Debugger::logg("Main") << "This is very good." << std::endl;
    Debugger::logg("Main") << "DECISON: SIGNAL: Alarm!" << std::endl;
    return true;
}

bool AgentModel::sigIntHandler() {
    logAndExit("DECISON: SIGNAL: Interrupted!", 1);
}

bool AgentModel::sigKillHandler() {
    logAndExit("DECISON: SIGNAL: Killed!", 1);
}

bool AgentModel::sigQuitHandler() {
    logAndExit("DECISON: SIGNAL: Quited!", 1);
}

bool AgentModel::sigSegVHandler() {
    // Runs inside the fault handler: after a memory fault the static objects cannot be trusted,
    // so the line is flushed and the process ends without running their destructors.
    Debugger::logg("Main") << "DECISON: SIGNAL: Segmentation Violation!" << std::endl;
    std::_Exit(5);
}

bool AgentModel::sigTermHandler() {
    logAndExit("DECISON: SIGNAL: Terminated!", 1);
}

void AgentModel::resetState() {
    headValue = 0.0F;
    flag = 1;
}

bool AgentModel::offlinePlaying() {
    return settings::offlinePlaying();
}

void AgentModel::run() {
    setUp();
    while (cycle()) {
    }
    delete Connection::instance();
}

void AgentModel::setUp() {
    world = std::make_unique<WorldModel>();

    // Two distinct neutral commands: one as the last command sent, one as the self's.
    Body lastBody;
    delete Share::lastCommand;
    Share::lastCommand = new Command(&lastBody);
    if (offlinePlaying()) {
        recording.close();
        recording.clear();
        recording.open(kRecording);  // a missing recording just yields no line
    }
    if (!offlinePlaying()) {
        init(uniformNumber(), world.get());
    }
    Body selfBody;
    selfCommand = std::make_unique<Command>(&selfBody);
    world->setSelf()->setLastCommand(selfCommand.get());
}

// One turn, for one message. Before kick-off the agent only perceives.
bool AgentModel::cycle() {
    // 1. Receive: the next message from the server or the next line of the recording.
    if (!receive()) {
        return false;
    }
    Debugger::mark("Main", "AgentModel", __LINE__);
    Debugger::logg("Main") << "last pos 5 : " << Self::getLastPosition() << std::endl;

    // 2. Update the world model (online it also records the message to "MainOff").
    world->update(message);
    Debugger::mark("Main", "AgentModel", __LINE__);
    if (world->getPlayMode() == 0) {
        return true;
    }

    // 3. Decide: the role's plan builds this cycle's whole-body command.
    Command* command = decide();

    // 4. Set the head: the speed left by the previous decision goes with this cycle's target.
    pointHead(command, world.get());

    // 5. Send the effector text (not offline) and log it (always).
    send(command);

    // 6. Hand over: the command becomes the last one, the previous one is deleted.
    handOver(command);
    return true;
}

bool AgentModel::receive() {
    bool received = false;
    if (offlinePlaying()) {
        if (!std::getline(recording, message)) {
            message.clear();
        }
        received = !message.empty();
    } else {
        received = Connection::instance()->getMessage(message);
    }
    // Signals that arrived while waiting (only when the signal handlers are installed) are
    // handled here, outside their asynchronous handlers; one that asks to finish ends the loop.
    SignalHandler::dispatchPending();
    return received && !SignalHandled::finished();
}

Command* AgentModel::decide() {
    Command* command = planAct(uniformNumber(), world.get());
    if (command == nullptr) {
        // No role for this uniform number: hold the current posture (every joint at rest).
        command = new Command(world->getSelf()->getBody());
    }
    return command;
}

void AgentModel::pointHead(Command* command, const WorldModel* wm) {
    const float speed = headSpeed;
    const float pan = headDecision(wm);
    if (wm->getFallRule() == FallRule::Attitude && standingUp()) {
        // The stand-ups are tuned with the head held straight: a sweeping or bowed head shifts
        // the weight they balance. Motion lab, real time, robot tipped over and got up by the
        // attacker plan at once: on its feet 21 of 40 times with the head held, 7 of 40 without.
        setHead(command, wm, kHeadStep, 0.0F, 0.0F);
        return;
    }
    if (OffensePlan::watchingBall) {
        setHead(command, wm, kHeadStep, OffensePlan::watchPan, kWatchTilt);
        return;
    }
    setHead(command, wm, speed, pan, kHeadTilt);
}

bool AgentModel::standingUp() {
    return GoalKeeperPlan::name == "standup" || DefencePlan::name == "standup" ||
           OffensePlan::name == "standup";
}

void AgentModel::setHead(Command* command, const WorldModel* wm, float speed, float pan,
                         float tilt) {
    command->getHeadCommand().getHingeJointCommand(0).setJointTargetAlphaAndVelocityValue(
        pan, speed, kHeadPrecision);
    command->getHeadCommand().getHingeJointCommand(1).setJointTargetAlphaAndVelocityValue(
        tilt, kHeadTiltSpeed, kHeadPrecision);
    command->setHeadJointsCommands();
    Debugger::message("Main", "AgentModel", __LINE__,
                      "acting turn, gyro y " + Str(wm->getSelf()->getGyroRate().y).getValue());
}

void AgentModel::send(const Command* command) {
    const std::string text = command->toString();
    if (!offlinePlaying()) {
        Connection::instance()->sendMessage(text);
    }
    Debugger::logg("Main") << "Message : : : " << text << std::endl;
}

void AgentModel::handOver(Command* command) {
    world->setSelf()->setLastCommand(command);
    Debugger::message("Main", "AgentModel", __LINE__,
                      "position " + Str(world->getSelf()->getPosition()).getValue());
    delete Share::lastCommand;
    Share::lastCommand = command;
}

std::string AgentModel::roleFile(int uniformNumber) {
    switch (uniformNumber) {
        case 1:
            return "GoalKeeperParameters";
        case 2:
            return "DefenceParameters";
        case 3:
            return "OffenseParameters";
        default:
            return "";
    }
}

void AgentModel::init(int uniformNumber, WorldModel* world) {
    if (!Connection::instance()->init()) {
        return;
    }
    const std::string file = roleFile(uniformNumber);
    Connection::instance()->sendMessage(kScene);
    for (int i = 0; i < 2; ++i) {
        Connection::instance()->getMessage(message);
        world->update(message);
    }
    sendInit(file);
    Connection::instance()->getMessage(message);
    world->update(message);
    sendInit(file);
    beam(file, world);
}

void AgentModel::sendInit(const std::string& roleFile) {
    const std::string number = config[roleFile]["Initialize"]["UniNum"][0].b_value(std::string());
    Connection::instance()->sendMessage("(init (unum " + number + ")(teamname " + teamName() +
                                        "))");
}

std::string AgentModel::teamName() {
    const ConfigGroup& group = config["ServerInitialize"]["Public"];
    if (!group.exists("TeamName")) {
        return kDefaultTeamName;
    }
    std::string name = group["TeamName"].asString();
    // The name goes into the init message as one atom: no blanks, no brackets, visible text.
    const bool valid = !name.empty() && std::all_of(name.begin(), name.end(), [](char c) {
        return std::isgraph(static_cast<unsigned char>(c)) != 0 && c != '(' && c != ')';
    });
    if (!valid) {
        failCheck("isTeamName(TeamName)", "AgentModel", __LINE__, __PRETTY_FUNCTION__,
                  checkValueLocation("ServerInitialize", "Public", "TeamName") + " is \"" + name +
                      "\": a team name is one word of visible characters without brackets");
    }
    return name;
}

void AgentModel::beam(const std::string& roleFile, WorldModel* world) {
    for (int i = 0; i < 10; ++i) {
        const ConfigValue& position = config[roleFile]["Initialize"]["Beam"];
        if (position.size() < 3) {
            failCheck("Beam.size() >= 3", "AgentModel", __LINE__, __PRETTY_FUNCTION__,
                      checkValueLocation(roleFile, "Initialize", "Beam") +
                          " needs three words: x, y and the rotation");
        }
        const std::string x = position[0].b_value(std::string());
        const std::string y = position[1].b_value(std::string());
        const std::string r = position[2].b_value(std::string());
        Debugger::logg("Main") << "PLAYERnAME: " << x << std::endl;
        Connection::instance()->getMessage(message);
        // Not taken in, except for the side: the answer to the registration may come here.
        world->takeSide(message);
        std::string text = "(beam ";
        text.append(x).append(" ").append(y).append(" ").append(r).append(")");
        Connection::instance()->sendMessage(text);
    }
}

Command* AgentModel::planAct(int role, const WorldModel* world) {
    AdvancePlan* plan = nullptr;
    switch (role) {
        case 1:
            plan = new GoalKeeperPlan("Goalie", world);
            break;
        case 2:
            plan = new DefencePlan("Defence", world);
            break;
        case 3:
            plan = new OffensePlan("Offense", world);
            break;
        default:
            return nullptr;
    }
    plan->decide();
    Command* command = plan->getCommand();
    delete plan;
    return command;
}

float AgentModel::headDecision(const WorldModel* world) {
    if (flag == 0) {
        headValue -= kHeadStep;
    } else if (flag == 1) {
        headValue += kHeadStep;
    }
    headSpeed = kHeadStep;
    const float pan = world->getSelf()->getBody()->getHead()->getNeckX().getJointAlphaValue();
    if (pan >= kPanBandInner && pan <= kPanBandOuter && flag == 1) {
        flag = 0;
    }
    if (pan >= -kPanBandOuter && pan <= -kPanBandInner && flag == 0) {
        flag = 1;
    }
    if (world->isFallen()) {
        headValue = 0.0F;
    }
    return headValue;
}
