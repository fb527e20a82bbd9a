#pragma once

#include <fstream>
#include <memory>
#include <string>

#include "utilities/signals/SignalHandled.h"

class Command;
class WorldModel;

// The agent: the session with the server (scene, registration, beam) and the loop that answers
// every perceptor message, one turn per message, until the input ends. Offline, the loop is fed
// line by line from the recording "./LogFiles/Korvel-1.log.offline" and sends nothing.
//
// Its signal handlers (installed only through initialize(); the start-up path leaves the system
// defaults) log a line to "Main" and end the process.
class AgentModel : public SignalHandled {
public:
    AgentModel();

    // Interrupt, kill, quit, segmentation fault, terminate (122).
    int signalsMask() override;
    // Logs "This is very good." and "DECISON: SIGNAL: Alarm!"; keeps running.
    bool sigAlrmHandler() override;
    // The following log their line to "Main" and exit: status 5 for the segmentation fault,
    // 1 for the others.
    bool sigIntHandler() override;
    bool sigKillHandler() override;
    bool sigQuitHandler() override;
    bool sigSegVHandler() override;
    bool sigTermHandler() override;
    ~AgentModel() override;

    // The whole life of the agent after start-up; returns when the input ends.
    void run() override;

    // Session start: scene, two receives, init, one receive, init again, then ten times one
    // receive and one beam (those ten messages are not taken in, but the side they may name is).
    // Sends nothing when the connection cannot be made.
    void init(int uniformNumber, WorldModel* world);
    // The role's parameter file for a uniform number ("GoalKeeperParameters",
    // "DefenceParameters", "OffenseParameters" for 1, 2, 3); empty for a number without a role.
    static std::string roleFile(int uniformNumber);
    // The team name sent at registration: "ServerInitialize" / "Public" / "TeamName" (written by
    // --team), or "Korvel" when the key is absent. A name that cannot be one atom of the init
    // message (empty, blanks, brackets) is a configuration error.
    static std::string teamName();

    // The command of the role's plan for this cycle (1 goalkeeper, 2 defender, 3 attacker), owned
    // by the caller; null for any other role.
    Command* planAct(int role, const WorldModel* world);
    // The head pan target of this cycle, in degrees: a sweep of 7 degrees a cycle that reverses
    // when the measured pan enters [100, 130] or [-130, -100]; 0 while fallen. Sets the head
    // speed to 7 degrees per cycle.
    float headDecision(const WorldModel* world);
    // Step 4 of the acting turn on `command`: the pan target of headDecision with the speed the
    // previous decision left, the tilt held at -20 degrees; under the fall rule `Attitude` the
    // head is held straight (pan and tilt 0) while the plan plays a stand-up. Also for tools that
    // drive the head as the player does.
    void pointHead(Command* command, const WorldModel* wm);

    // The head pan target of the current cycle, degrees.
    static float headValue;
    // Direction of the head sweep: 1 towards positive pan angles, 0 towards negative ones.
    static int flag;

    // Head speed (degrees per cycle) left by the last headDecision call; 0 before the first.
    float getHeadSpeed() const { return headSpeed; }
    // The text of the last message received.
    const std::string& getMessage() const { return message; }
    // The loop's world model (null before run()).
    const WorldModel* getWorldModel() const { return world.get(); }

    // Start-of-process values of the class statics (the head sweep).
    static void resetState();

    // The parts of run(), for tools that drive the loop themselves (the replay timing):
    // set-up (world model, neutral commands, recording or session start) ...
    void setUp();
    // ... and one turn of the loop for one message; false when the input has ended.
    bool cycle();

private:
    // Steps of the turn, in the order cycle() calls them.
    bool receive();
    Command* decide();
    void setHead(Command* command, const WorldModel* wm, float speed, float pan, float tilt);
    // Whether the role's plan is playing a stand-up.
    static bool standingUp();
    void send(const Command* command);
    void handOver(Command* command);

    void sendInit(const std::string& roleFile);
    void beam(const std::string& roleFile, WorldModel* world);

    static bool offlinePlaying();

    // Speed for the head pan joint, degrees per cycle.
    float headSpeed = 0.0F;
    std::string message;
    std::unique_ptr<WorldModel> world;
    // The self's neutral command of the set-up (the last command sent is Share::lastCommand's).
    std::unique_ptr<Command> selfCommand;
    std::ifstream recording;
};

// The agent; start-up calls run() on it once.
extern AgentModel am;
