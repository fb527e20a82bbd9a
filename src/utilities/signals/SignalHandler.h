#pragma once

#include <atomic>

class SignalHandled;

// Routes POSIX signals to the virtual handlers of one SignalHandled object.
//
// The functions registered with the operating system do only async-signal-safe work: they record
// the signal in a pending set and return. The object's handlers then run in ordinary program
// context from dispatchPending(), which the signal loop (run) calls after every wake-up and which
// any other loop can call between its own steps (a blocking select or read returns early with
// EINTR when a handled signal arrives, because the handlers are installed without SA_RESTART).
//
// The segmentation fault is the exception: it is synchronous and cannot be deferred, so its
// object handler runs inside the asynchronous handler. Its process never resumes the faulting
// code: a handler that says "keep running" gets the default action (the process ends by SIGSEGV),
// and a second fault after a handler asked to finish stops the program on the check "!segV".
class SignalHandler {
public:
    SignalHandler() = delete;

    // The object that receives the signals; null until initSignalHandlers.
    static SignalHandled* sh;
    // Set when a handler returned false; ends the signal loop.
    static bool finished;
    // Set when a segmentation-fault handler asked to finish.
    static volatile bool segV;

    // Installs the handlers for object's signalsMask() (arms the alarm timer first when asked).
    static void initSignalHandlers(SignalHandled* object);
    // Restores the default disposition of SIGALRM, SIGINT, SIGIO, SIGKILL, SIGQUIT, SIGSEGV and
    // SIGTERM, in that order.
    static void finalSignalHandlers();
    // The signal loop: install, wait for signals and dispatch them until finished, restore.
    static void run(SignalHandled* object);
    // Calls the object's handler for every signal recorded since the last call, in the order of
    // the signal bits; a handler returning false sets finished. Returns true when any ran.
    static bool dispatchPending();
    // Whether a signal is waiting for dispatchPending().
    static bool hasPending();

    // The functions registered with the operating system.
    static void sigAlrmHandler(int);
    static void sigIntHandler(int);
    static void sigIOHandler(int);
    static void sigKillHandler(int);
    static void sigQuitHandler(int);
    static void sigTermHandler(int);
    static void sigSegVHandler(int);

    // Start-of-process state: no object, no flags, nothing pending. Does not touch the process's
    // signal dispositions (finalSignalHandlers does).
    static void resetState();

private:
    static std::atomic<int> pending;
};
