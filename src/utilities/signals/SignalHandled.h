#pragma once

// Bits of the signal set an object asks for (SignalHandled::signalsMask()).
enum SignalBit : int {
    SIGNAL_ALRM = 1,   // SIGALRM: the interval timer
    SIGNAL_INT = 2,    // SIGINT
    SIGNAL_IO = 4,     // SIGIO: input ready
    SIGNAL_KILL = 8,   // SIGKILL: never delivered to a handler, asking for it has no effect
    SIGNAL_QUIT = 16,  // SIGQUIT
    SIGNAL_SEGV = 32,  // SIGSEGV
    SIGNAL_TERM = 64,  // SIGTERM
};

// An object that receives POSIX signals through virtual member functions. Every handler returns
// true to keep running and false to finish. Handlers other than the segmentation-fault one run
// in ordinary program context (the asynchronous part only records the signal; see
// SignalHandler), so they may log, allocate and exit.
class SignalHandled {
public:
    SignalHandled() = default;
    SignalHandled(const SignalHandled&) = delete;
    SignalHandled& operator=(const SignalHandled&) = delete;

    // The set of signals this object wants handled, as SignalBit values or'ed together.
    virtual int signalsMask() = 0;
    virtual bool sigAlrmHandler();
    virtual bool sigIntHandler();
    virtual bool sigIOHandler();
    virtual bool sigKillHandler();
    virtual bool sigQuitHandler();
    // Runs inside the asynchronous handler of a segmentation fault: only async-signal-safe work.
    // The base writes "Crashed, GDB Connecting...\n" to standard error.
    virtual bool sigSegVHandler();
    virtual bool sigTermHandler();
    // First expiry and period of the alarm timer, in milliseconds; 0 and 0: no timer.
    virtual void sigAlrmTiming(long& first, long& period);
    virtual ~SignalHandled();
    // Installs the handlers and waits for signals until a handler asks to finish.
    virtual void run();
    // Installs the handlers for this object.
    virtual void initialize();
    // Restores the default dispositions.
    virtual void finalize();

    // The framework's finish flag.
    static bool finished();
};
