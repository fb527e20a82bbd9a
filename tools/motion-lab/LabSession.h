#pragma once

#include <memory>
#include <string>

#include "GroundTruth.h"
#include "TorsoTilt.h"
#include "agent/AgentModel.h"

class Command;
class Connection;
class WorldModel;

// One robot on a running simulation server, driven cycle by cycle by the lab: the player link
// (scene, init, then one command per perceptor message) and the monitor link, through which
// the lab sets the play mode and places the robot and the ball.
//
// Where the server reports positions in its vision perceptor ("mypos", "myorien", "ballpos")
// they are used as the truth; otherwise the player's own localisation stands in for it.
class LabSession {
public:
    static constexpr double kBallRadius = 0.042;  // metres

    struct Options {
        std::string host = "127.0.0.1";
        unsigned int agentPort = 3100;
        unsigned int monitorPort = 3200;
        // Append "(syn)" to every message: needed when the server runs in agent sync mode.
        bool sync = false;
        std::string team = "KorvelLab";
        // Print the robot's pose on standard output whenever the server reports it.
        bool trace = false;
        // Head pitch held during the trials (degrees); the player tilts it to -20.
        float headTilt = 0.0F;
        // Drive the head as the player does (its own head step: the pan sweeping from side to
        // side, the tilt at -20 degrees) instead of holding it; headTilt is then not used.
        bool headSweep = false;
    };

    // Where the robot is, as far as the lab can tell: field metres, degrees counter-clockwise
    // from +x (unwrapped, so a turn of 400 degrees reads 400).
    struct Pose {
        double x = 0.0;
        double y = 0.0;
        double headHeight = 0.0;  // metres; 0 when only the localisation is known
        double heading = 0.0;
    };

    explicit LabSession(Options options);
    ~LabSession();
    LabSession(const LabSession&) = delete;
    LabSession& operator=(const LabSession&) = delete;

    // Resets the player's game state (ProcessState::resetGame, so that trials do not depend on
    // each other), connects both links, loads the robot and registers it as player 1; false
    // (with a line on standard error) when the server does not answer.
    bool connect();

    // "(playMode PlayOn)" through the monitor.
    void kickOff();
    // Moves the robot so that its torso stands at (x, y) facing `headingDegrees`.
    void placeRobot(double x, double y, double headingDegrees);
    // Puts the ball at rest at (x, y) on the ground.
    void placeBall(double x, double y);

    // One cycle: sends `command` (null sends the all-zero text, every joint at rest) with the
    // head held straight (or sweeping, see Options), then waits for and takes in the next perceptor
    // message. False when the server has gone. The command stays the caller's.
    bool step(Command* command);
    // The player's own plan for `role` (1 goalkeeper, 2 defender, 3 attacker) in this cycle's
    // world; the command is the caller's.
    Command* planAct(int role);
    // Cycles with every joint at rest for `seconds` of simulation time.
    bool idle(double seconds);

    const WorldModel& world() const { return *worldModel; }
    // Simulation time of the last message, seconds; only once connected (the world model comes
    // with the connection).
    double now() const;
    const Pose& pose() const { return current; }
    // True when the server reports positions itself.
    bool hasTruth() const { return truthSeen; }
    // The ball's last known position (metres).
    double ballX() const { return ball.x; }
    double ballY() const { return ball.y; }
    // Fallen: head lower than 0.25 m (by the server's report), or the localisation's fall
    // indicator where there is no report.
    bool fallen() const;
    // Standing: head higher than 0.40 m (by the server's report), or not fallen.
    bool standing() const;

    // The torso's tilt from vertical (degrees) as the lab's own estimate has it, independent of
    // the player's world model: gyroscope-led forward and backward (the stand-up trials tip the
    // robot that way), from the smoothed accelerometer alone sideways, where it lags a fall.
    double torsoTilt() const;
    // Since the last watchFall(): the simulation time (seconds) at which the lab's torso tilt
    // first passed 60 degrees, and at which the player's world model first read fallen; -1
    // while not yet.
    void watchFall();
    double tiltPassedAt() const { return tiltPassed; }
    double fallKnownAt() const { return fallKnown; }

private:
    void take(const std::string& message);
    void sendMonitor(const std::string& text);
    void drainMonitor();

    Options options;
    std::unique_ptr<Connection> player;
    std::unique_ptr<Connection> monitor;
    std::unique_ptr<WorldModel> worldModel;
    std::unique_ptr<Command> lastSent;
    // Its head decision (when the head sweeps) and its plans are used, not its loop.
    AgentModel agent;
    Pose current;
    GroundTruth::Position ball;
    bool truthSeen = false;
    bool headingKnown = false;
    TorsoTilt tilt;
    double tiltPassed = -1.0;
    double fallKnown = -1.0;
};
