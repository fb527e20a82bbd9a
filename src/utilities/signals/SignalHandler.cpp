#include "utilities/signals/SignalHandler.h"

#include <sys/time.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include "utilities/signals/SignalHandled.h"

SignalHandled* SignalHandler::sh = nullptr;
bool SignalHandler::finished = false;
volatile bool SignalHandler::segV = false;
std::atomic<int> SignalHandler::pending{0};

static_assert(std::atomic<int>::is_always_lock_free,
              "the pending set is written by signal handlers");

namespace {

// One row per signal bit, in bit order: the signal, the signal also blocked while its handler
// runs (0: none), the registered function and the object's handler.
struct SignalRoute {
    int bit;
    int signal;
    int alsoBlocked;
    void (*registered)(int);
    bool (SignalHandled::*handler)();
};

const SignalRoute kRoutes[] = {
    {SIGNAL_ALRM, SIGALRM, SIGIO, &SignalHandler::sigAlrmHandler, &SignalHandled::sigAlrmHandler},
    {SIGNAL_INT, SIGINT, 0, &SignalHandler::sigIntHandler, &SignalHandled::sigIntHandler},
    {SIGNAL_IO, SIGIO, SIGALRM, &SignalHandler::sigIOHandler, &SignalHandled::sigIOHandler},
    {SIGNAL_KILL, SIGKILL, 0, &SignalHandler::sigKillHandler, &SignalHandled::sigKillHandler},
    {SIGNAL_QUIT, SIGQUIT, 0, &SignalHandler::sigQuitHandler, &SignalHandled::sigQuitHandler},
    {SIGNAL_SEGV, SIGSEGV, 0, &SignalHandler::sigSegVHandler, &SignalHandled::sigSegVHandler},
    {SIGNAL_TERM, SIGTERM, 0, &SignalHandler::sigTermHandler, &SignalHandled::sigTermHandler},
};

// The segmentation-fault handler runs on a stack of its own, so that a stack overflow can be
// reported too.
alignas(16) char segvStack[64 * 1024];

void useAlternateStack() {
    stack_t stack{};
    stack.ss_sp = segvStack;
    stack.ss_size = sizeof(segvStack);
    stack.ss_flags = 0;
    sigaltstack(&stack, nullptr);
}

void armAlarm(long firstMs, long periodMs) {
    itimerval timer{};
    timer.it_value.tv_sec = firstMs / 1000;
    timer.it_value.tv_usec = (firstMs % 1000) * 1000;
    timer.it_interval.tv_sec = periodMs / 1000;
    timer.it_interval.tv_usec = (periodMs % 1000) * 1000;
    setitimer(ITIMER_REAL, &timer, nullptr);
}

void install(const SignalRoute& route) {
    struct sigaction action {};
    action.sa_handler = route.registered;
    sigemptyset(&action.sa_mask);
    if (route.alsoBlocked != 0) {
        sigaddset(&action.sa_mask, route.alsoBlocked);
    }
    // No SA_RESTART: a blocking call returns with EINTR so that its loop can dispatch the signal.
    action.sa_flags = route.signal == SIGSEGV ? SA_ONSTACK : 0;
    sigaction(route.signal, &action, nullptr);  // fails for SIGKILL, by design of the system

    sigset_t unblock;
    sigemptyset(&unblock);
    sigaddset(&unblock, route.signal);
    if (route.alsoBlocked != 0) {
        sigaddset(&unblock, route.alsoBlocked);
    }
    sigprocmask(SIG_UNBLOCK, &unblock, nullptr);
}

}  // namespace

void SignalHandler::initSignalHandlers(SignalHandled* object) {
    sh = object;
    if (sh == nullptr) {
        return;
    }
    const int mask = sh->signalsMask();
    if ((mask & SIGNAL_ALRM) != 0) {
        long first = 0;
        long period = 0;
        sh->sigAlrmTiming(first, period);
        armAlarm(first, period);
    }
    if ((mask & SIGNAL_SEGV) != 0) {
        useAlternateStack();
    }
    for (const SignalRoute& route : kRoutes) {
        if ((mask & route.bit) != 0) {
            install(route);
        }
    }
    finished = false;
}

void SignalHandler::finalSignalHandlers() {
    for (int signal : {SIGALRM, SIGINT, SIGIO, SIGKILL, SIGQUIT, SIGSEGV, SIGTERM}) {
        std::signal(signal, SIG_DFL);
    }
}

void SignalHandler::run(SignalHandled* object) {
    initSignalHandlers(object);
    sigset_t waitMask;
    sigprocmask(SIG_BLOCK, nullptr, &waitMask);

    // Block the handled signals while checking for work, and unblock them only atomically with
    // the wait: a signal arriving between the check and the wait cannot be missed.
    sigset_t handled;
    sigemptyset(&handled);
    const int mask = object != nullptr ? object->signalsMask() : 0;
    for (const SignalRoute& route : kRoutes) {
        if ((mask & route.bit) != 0 && route.signal != SIGSEGV) {
            sigaddset(&handled, route.signal);
        }
    }
    sigprocmask(SIG_BLOCK, &handled, nullptr);
    while (true) {
        dispatchPending();
        if (finished) {
            break;
        }
        sigsuspend(&waitMask);
    }
    sigprocmask(SIG_SETMASK, &waitMask, nullptr);
    finalSignalHandlers();
}

bool SignalHandler::hasPending() {
    return pending.load() != 0;
}

bool SignalHandler::dispatchPending() {
    const int now = pending.exchange(0);
    if (now == 0) {
        return false;
    }
    for (const SignalRoute& route : kRoutes) {
        if ((now & route.bit) != 0 && sh != nullptr && !(sh->*route.handler)()) {
            finished = true;
        }
    }
    return true;
}

void SignalHandler::sigAlrmHandler(int /*signal*/) {
    pending.fetch_or(SIGNAL_ALRM);
}

void SignalHandler::sigIntHandler(int /*signal*/) {
    pending.fetch_or(SIGNAL_INT);
}

void SignalHandler::sigIOHandler(int /*signal*/) {
    pending.fetch_or(SIGNAL_IO);
}

void SignalHandler::sigKillHandler(int /*signal*/) {
    pending.fetch_or(SIGNAL_KILL);
}

void SignalHandler::sigQuitHandler(int /*signal*/) {
    pending.fetch_or(SIGNAL_QUIT);
}

void SignalHandler::sigTermHandler(int /*signal*/) {
    pending.fetch_or(SIGNAL_TERM);
}

#define KORVEL_TEXT_OF(x) #x
#define KORVEL_LINE_TEXT(x) KORVEL_TEXT_OF(x)

void SignalHandler::sigSegVHandler(int /*signal*/) {
    if (segV) {
        // A fault again after a handler asked to finish: stop here instead of faulting forever.
        static const char report[] = "SignalHandler:" KORVEL_LINE_TEXT(
            __LINE__) ": static void SignalHandler::sigSegVHandler(int): Assertion `!segV' failed.\n";
        [[maybe_unused]] const ssize_t written = ::write(STDERR_FILENO, report, sizeof(report) - 1);
        std::abort();
    }
    if (sh != nullptr) {
        finished = !sh->sigSegVHandler();
        segV = finished;
    }
    if (!segV) {
        // Nobody can keep running after a fault: retrying the faulting instruction would only
        // come back here. End the process the default way.
        std::signal(SIGSEGV, SIG_DFL);
        std::raise(SIGSEGV);
    }
}

void SignalHandler::resetState() {
    sh = nullptr;
    finished = false;
    segV = false;
    pending.store(0);
}
