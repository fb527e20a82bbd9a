#include "LabSession.h"

#include <sys/socket.h>

#include <cmath>
#include <iostream>
#include <sstream>

#include "Angles.h"
#include "agent/ProcessState.h"
#include "body/Body.h"
#include "commands/Command.h"
#include "utilities/net/Connection.h"
#include "worldmodel/Ball.h"
#include "worldmodel/Share.h"
#include "worldmodel/WorldModel.h"

namespace {

const char kScene[] = "(scene rsg/agent/nao/nao.rsg)";
// Torso height (metres) at which a placed robot is set down; it settles from there.
constexpr double kPlacementHeight = 0.40;
// Head heights (metres) below which the robot counts as fallen and above which as standing.
constexpr double kFallenHeadHeight = 0.25;
constexpr double kStandingHeadHeight = 0.40;
// The head held straight, unless it sweeps as the player's: pan target (degrees) and speed of
// both head joints (degrees per cycle).
constexpr float kHeadTarget = 0.0F;
constexpr float kHeadSpeed = 7.0F;
constexpr double kCycleSeconds = 0.02;
// The tilt (degrees) past which a fall must be known within 0.5 s.
constexpr double kPassedTilt = 60.0;

std::string number(double value) {
    std::ostringstream out;
    out << value;
    return out.str();
}

}  // namespace

LabSession::LabSession(Options options) : options(std::move(options)) {}

LabSession::~LabSession() {
    delete Share::lastCommand;
    Share::lastCommand = nullptr;
}

bool LabSession::connect() {
    ProcessState::resetGame();
    player = std::make_unique<Connection>(options.host, options.agentPort);
    monitor = std::make_unique<Connection>(options.host, options.monitorPort);
    if (!player->init() || !monitor->init()) {
        std::cerr << "motion-lab: no simulation server at " << options.host << ":"
                  << options.agentPort << " (monitor " << options.monitorPort << ")\n";
        return false;
    }
    worldModel = std::make_unique<WorldModel>();
    Body restBody;
    lastSent = std::make_unique<Command>(&restBody);
    worldModel->setSelf()->setLastCommand(lastSent.get());
    delete Share::lastCommand;
    Share::lastCommand = new Command(&restBody);

    const std::string syn = options.sync ? "(syn)" : "";
    std::string message;
    player->sendMessage(kScene + syn);
    if (!player->getMessage(message)) {
        return false;
    }
    take(message);
    player->sendMessage("(init (unum 1)(teamname " + options.team + "))" + syn);
    if (!player->getMessage(message)) {
        return false;
    }
    take(message);
    return true;
}

void LabSession::sendMonitor(const std::string& text) {
    monitor->sendMessage(text);
}

void LabSession::drainMonitor() {
    // The lab never reads the monitor's scene updates; they are only taken off the socket so
    // that the server never blocks on a full buffer.
    char scratch[65536];
    const int fd = monitor->getSocket().getFD();
    while (recv(fd, scratch, sizeof(scratch), MSG_DONTWAIT) > 0) {
    }
}

void LabSession::kickOff() {
    sendMonitor("(playMode PlayOn)");
}

void LabSession::placeRobot(double x, double y, double headingDegrees) {
    // The monitor's rotation is that of the robot's model, which faces +y at 0 degrees.
    sendMonitor("(agent (unum 1) (team Left) (move " + number(x) + " " + number(y) + " " +
                number(kPlacementHeight) + " " + number(headingDegrees - 90.0) + "))");
    headingKnown = false;
}

void LabSession::placeBall(double x, double y) {
    sendMonitor("(ball (pos " + number(x) + " " + number(y) + " " + number(kBallRadius) +
                ") (vel 0 0 0))");
    ball = GroundTruth::Position{x, y, kBallRadius};
}

bool LabSession::step(Command* command) {
    // Idle cycles send every joint at rest; the idle command is built from the perceived body
    // so that a head target set on it is approached from where the head really is (from a
    // zero body the head would run on into its stops).
    std::unique_ptr<Command> idle;
    if (command == nullptr) {
        idle = std::make_unique<Command>(worldModel->getSelf()->getBody());
    }
    Command* sending = command != nullptr ? command : idle.get();
    if (options.headSweep) {
        agent.pointHead(sending, worldModel.get());
    } else {
        sending->getHeadCommand().getHingeJointCommand(0).setJointTargetAlphaAndVelocityValue(
            kHeadTarget, kHeadSpeed, 0.1F);
        sending->getHeadCommand().getHingeJointCommand(1).setJointTargetAlphaAndVelocityValue(
            options.headTilt, kHeadSpeed, 0.1F);
        sending->setHeadJointsCommands();
    }
    player->sendMessage(sending->toString() + (options.sync ? "(syn)" : ""));

    // The command sent becomes the last one, as in the player's own loop.
    lastSent = std::make_unique<Command>(sending);
    worldModel->setSelf()->setLastCommand(lastSent.get());
    delete Share::lastCommand;
    Share::lastCommand = new Command(sending);

    std::string message;
    if (!player->getMessage(message)) {
        return false;
    }
    take(message);
    drainMonitor();
    return true;
}

Command* LabSession::planAct(int role) {
    return agent.planAct(role, worldModel.get());
}

bool LabSession::idle(double seconds) {
    const double until = now() + seconds - kCycleSeconds / 2;
    while (now() < until) {
        if (!step(nullptr)) {
            return false;
        }
    }
    return true;
}

double LabSession::now() const {
    return worldModel->getTime();
}

void LabSession::take(const std::string& message) {
    worldModel->update(message);
    const GroundTruth truth = GroundTruth::read(message);
    if (truth.rates && truth.acceleration) {
        tilt.update(*truth.rates, *truth.acceleration, kCycleSeconds);
    }
    if (tiltPassed < 0.0 && torsoTilt() > kPassedTilt) {
        tiltPassed = now();
    }
    if (fallKnown < 0.0 && worldModel->isFallen()) {
        fallKnown = now();
    }
    if (truth.head) {
        truthSeen = true;
        current.x = truth.head->x;
        current.y = truth.head->y;
        current.headHeight = truth.head->z;
    }
    if (options.trace && truth.head) {
        std::cout << "trace t " << now() << " x " << truth.head->x << " y " << truth.head->y
                  << " z " << truth.head->z << " heading " << truth.headingDegrees.value_or(0.0)
                  << " | player: x " << worldModel->getSelf()->getPosition().getX() << " y "
                  << worldModel->getSelf()->getPosition().getY() << " heading "
                  << worldModel->getSelf()->getBodyDirection() << " fallen "
                  << worldModel->isFallen() << " (landmarks " << worldModel->getFallenValue()
                  << ", attitude tilt " << worldModel->getAttitude().getTilt() << " "
                  << TorsoAttitude::leanName(worldModel->getAttitude().getLean()) << ")";
        std::cout << " | torso forward " << tilt.forward() << " right " << tilt.right();
        // Left side's pitch joints (degrees): hip, knee, ankle, shoulder.
        const Body* body = worldModel->getSelf()->getBody();
        std::cout << " | pitch hip " << body->getLeftLeg()->getHipY().getJointAlphaValue()
                  << " knee " << body->getLeftLeg()->getKnee().getJointAlphaValue() << " ankle "
                  << body->getLeftLeg()->getFootX().getJointAlphaValue() << " shoulder "
                  << body->getLeftArm()->getHingeJoint(0).getJointAlphaValue();
        // The left foot's pressure point along the foot (metres, + towards the toes): the
        // player's stand-up chooses front or back by its sign.
        std::cout << " | left foot contact " << body->getLeftLeg()->getFRPContactPoint().getY();
        if (truth.ball) {
            std::cout << " | ball x " << truth.ball->x << " y " << truth.ball->y;
        }
        std::cout << "\n";
    }
    if (truth.ball) {
        ball = *truth.ball;
    }
    double heading = 0.0;
    bool headingSeen = false;
    if (truth.headingDegrees) {
        // The server reports the head's heading; the body's is that less the head's pan.
        heading = *truth.headingDegrees -
                  static_cast<double>(
                      worldModel->getSelf()->getBody()->getHead()->getNeckX().getJointAlphaValue());
        headingSeen = true;
    } else if (!truthSeen) {
        const Self* self = worldModel->getSelf();
        current.x = self->getPosition().getX();
        current.y = self->getPosition().getY();
        heading = self->getBodyDirection();
        headingSeen = true;
        ball.x = worldModel->getBall()->getPosition().getX();
        ball.y = worldModel->getBall()->getPosition().getY();
    }
    if (headingSeen) {
        // Unwrapped: small changes are added up, so whole turns count.
        current.heading =
            headingKnown ? current.heading + wrapDegrees(heading - current.heading) : heading;
        headingKnown = true;
    }
}

bool LabSession::fallen() const {
    return truthSeen ? current.headHeight < kFallenHeadHeight : worldModel->isFallen();
}

bool LabSession::standing() const {
    return truthSeen ? current.headHeight > kStandingHeadHeight : !worldModel->isFallen();
}

double LabSession::torsoTilt() const {
    return std::acos(std::cos(tilt.forward() * kDegToRad) * std::cos(tilt.right() * kDegToRad)) /
           kDegToRad;
}

void LabSession::watchFall() {
    tiltPassed = -1.0;
    fallKnown = -1.0;
}
