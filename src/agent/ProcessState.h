#pragma once

// The one owner of the player's process-wide state: the class statics of every layer (plans'
// sub-behaviours, the skill players and their step counter, dive clocks, the head sweep,
// Share, Self's last position, ...), the skill database and the registries of configuration,
// log streams, connection and signal handlers.
//
// Anything that plays more than one game in one process (tests, the motion lab, replay tools)
// resets through here, never through its own list of classes. A class that gains a static adds
// its reset to ProcessState.cpp; the replay test of the agent fails when one is missing.
class ProcessState {
public:
    // Everything a game changes, back to its start-of-process value: plans, skills, the skill
    // database (loaded again on its next use), the last command (deleted), the world model's
    // statics and the head sweep. Configuration and log streams stay as they are.
    static void resetGame();
    // resetGame(), and the configuration store, the log streams, the connection and the signal
    // handlers emptied as well: the process as it was before start-up.
    static void resetAll();
};
