#include "utilities/signals/SignalHandler.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/time.h>

#include <csignal>
#include <vector>

#include "utilities/signals/SignalHandled.h"

namespace {

// A handled object that records which of its handlers ran, in order, and finishes on request.
class Recorder : public SignalHandled {
public:
    explicit Recorder(int mask) : mask_(mask) {}
    int signalsMask() override { return mask_; }
    bool sigAlrmHandler() override {
        calls.push_back(SIGALRM);
        ++alarms;
        if (raiseOnAlarm != 0) {
            std::raise(raiseOnAlarm);
        }
        return alarms < alarmsToFinish;
    }
    bool sigIntHandler() override { return note(SIGINT); }
    bool sigQuitHandler() override { return note(SIGQUIT); }
    bool sigTermHandler() override { return note(SIGTERM); }
    void sigAlrmTiming(long& first, long& period) override {
        first = firstMs;
        period = periodMs;
    }

    std::vector<int> calls;
    int alarms = 0;
    int alarmsToFinish = 1;
    int raiseOnAlarm = 0;
    long firstMs = 0;
    long periodMs = 0;
    bool keepRunning = true;

private:
    bool note(int signal) {
        calls.push_back(signal);
        return keepRunning;
    }
    int mask_;
};

// A handled object with the base handlers only.
class Plain : public SignalHandled {
public:
    explicit Plain(int mask) : mask_(mask) {}
    int signalsMask() override { return mask_; }

private:
    int mask_;
};

// Finishes on a segmentation fault.
class StopOnFault : public Plain {
public:
    StopOnFault() : Plain(SIGNAL_SEGV) {}
    bool sigSegVHandler() override { return false; }
};

using Handler = void (*)(int);

Handler dispositionOf(int signal) {
    struct sigaction current {};
    sigaction(signal, nullptr, &current);
    return current.sa_handler;
}

// A genuine memory fault (not one the sanitizers could intercept): a write to a page that has no
// access rights.
void faultOnProtectedPage() {
    void* page = mmap(nullptr, 4096, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    *static_cast<volatile int*>(page) = 1;
}

const int kAllSignals[] = {SIGALRM, SIGINT, SIGIO, SIGQUIT, SIGSEGV, SIGTERM};

class SignalHandlerTest : public ::testing::Test {
protected:
    void SetUp() override { SignalHandler::resetState(); }
    void TearDown() override {
        itimerval off{};
        setitimer(ITIMER_REAL, &off, nullptr);
        SignalHandler::finalSignalHandlers();
        SignalHandler::resetState();
    }
};

TEST_F(SignalHandlerTest,
       InstallsExactlyTheRequestedSignalsWithoutRestartAndWithTheirBlockedPartner) {
    Recorder agentLike(SIGNAL_INT | SIGNAL_KILL | SIGNAL_QUIT | SIGNAL_SEGV | SIGNAL_TERM);
    agentLike.initialize();
    EXPECT_EQ(dispositionOf(SIGINT), &SignalHandler::sigIntHandler);
    EXPECT_EQ(dispositionOf(SIGQUIT), &SignalHandler::sigQuitHandler);
    EXPECT_EQ(dispositionOf(SIGSEGV), &SignalHandler::sigSegVHandler);
    EXPECT_EQ(dispositionOf(SIGTERM), &SignalHandler::sigTermHandler);
    EXPECT_EQ(dispositionOf(SIGALRM), SIG_DFL);
    EXPECT_EQ(dispositionOf(SIGIO), SIG_DFL);
    EXPECT_EQ(dispositionOf(SIGKILL), SIG_DFL);

    struct sigaction term {};
    sigaction(SIGTERM, nullptr, &term);
    EXPECT_EQ(term.sa_flags & SA_RESTART, 0);

    agentLike.finalize();
    for (int signal : kAllSignals) {
        EXPECT_EQ(dispositionOf(signal), SIG_DFL) << "signal " << signal;
    }

    Recorder timed(SIGNAL_ALRM | SIGNAL_IO);
    timed.initialize();
    struct sigaction alarm {};
    sigaction(SIGALRM, nullptr, &alarm);
    EXPECT_EQ(alarm.sa_handler, &SignalHandler::sigAlrmHandler);
    EXPECT_EQ(sigismember(&alarm.sa_mask, SIGIO), 1);
    struct sigaction io {};
    sigaction(SIGIO, nullptr, &io);
    EXPECT_EQ(sigismember(&io.sa_mask, SIGALRM), 1);
}

TEST_F(SignalHandlerTest, InstallingUnblocksTheRequestedSignals) {
    sigset_t blocked;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    sigprocmask(SIG_BLOCK, &blocked, nullptr);
    Recorder recorder(SIGNAL_TERM);
    recorder.initialize();
    sigset_t now;
    sigprocmask(SIG_BLOCK, nullptr, &now);
    EXPECT_EQ(sigismember(&now, SIGTERM), 0);
}

TEST_F(SignalHandlerTest, EmptyMaskOrNullObjectInstallsNothing) {
    // What is installed before (the sanitizers keep a fault handler of their own) stays.
    std::vector<Handler> before;
    for (int signal : kAllSignals) {
        before.push_back(dispositionOf(signal));
    }
    const auto unchanged = [&before] {
        for (size_t i = 0; i < std::size(kAllSignals); ++i) {
            EXPECT_EQ(dispositionOf(kAllSignals[i]), before[i]) << "signal " << kAllSignals[i];
        }
    };
    Recorder nothing(0);
    nothing.initialize();
    unchanged();
    SignalHandler::initSignalHandlers(nullptr);
    EXPECT_EQ(SignalHandler::sh, nullptr);
    unchanged();
}

TEST_F(SignalHandlerTest, SignalsAreRecordedAsynchronouslyAndHandledOnDispatch) {
    Recorder recorder(SIGNAL_INT | SIGNAL_TERM);
    recorder.initialize();
    EXPECT_FALSE(SignalHandler::dispatchPending());

    std::raise(SIGTERM);
    std::raise(SIGINT);
    EXPECT_TRUE(recorder.calls.empty());  // nothing ran inside the asynchronous handler
    EXPECT_TRUE(SignalHandler::hasPending());

    EXPECT_TRUE(SignalHandler::dispatchPending());
    EXPECT_THAT(recorder.calls, ::testing::ElementsAre(SIGINT, SIGTERM));  // in bit order
    EXPECT_FALSE(SignalHandled::finished());
    EXPECT_FALSE(SignalHandler::hasPending());

    recorder.keepRunning = false;
    std::raise(SIGINT);
    SignalHandler::dispatchPending();
    EXPECT_TRUE(SignalHandled::finished());
    recorder.initialize();  // installing again clears the flag
    EXPECT_FALSE(SignalHandled::finished());
}

TEST_F(SignalHandlerTest, PeriodicAlarmDrivesTheLoopUntilAHandlerFinishes) {
    Recorder recorder(SIGNAL_ALRM);
    recorder.firstMs = 20;
    recorder.periodMs = 20;
    recorder.alarmsToFinish = 3;
    recorder.run();
    EXPECT_EQ(recorder.alarms, 3);
    EXPECT_TRUE(SignalHandled::finished());
    for (int signal : kAllSignals) {
        EXPECT_EQ(dispositionOf(signal), SIG_DFL) << "signal " << signal;
    }
}

TEST_F(SignalHandlerTest, TimerValuesAreSplitIntoSecondsAndMicroseconds) {
    Recorder recorder(SIGNAL_ALRM);
    recorder.firstMs = 1500;
    recorder.periodMs = 0;
    recorder.initialize();
    itimerval armed{};
    getitimer(ITIMER_REAL, &armed);
    EXPECT_EQ(armed.it_interval.tv_sec, 0);
    EXPECT_EQ(armed.it_interval.tv_usec, 0);
    // The timer has been running for a moment: between 1.4 and 1.5 s remain.
    const long remainingUs = armed.it_value.tv_sec * 1000000L + armed.it_value.tv_usec;
    EXPECT_GT(remainingUs, 1400000L);
    EXPECT_LE(remainingUs, 1500000L);

    Recorder off(SIGNAL_ALRM);  // 0 and 0 disarm
    off.initialize();
    getitimer(ITIMER_REAL, &armed);
    EXPECT_EQ(armed.it_value.tv_sec, 0);
    EXPECT_EQ(armed.it_value.tv_usec, 0);
}

TEST_F(SignalHandlerTest, ASignalRaisedByAHandlerIsNotLostBeforeTheLoopWaits) {
    Recorder recorder(SIGNAL_ALRM | SIGNAL_TERM);
    recorder.firstMs = 10;
    recorder.alarmsToFinish = 100;  // the alarm keeps running ...
    recorder.raiseOnAlarm = SIGTERM;
    recorder.keepRunning = false;  // ... the terminate finishes
    recorder.run();
    EXPECT_THAT(recorder.calls, ::testing::ElementsAre(SIGALRM, SIGTERM));
}

TEST_F(SignalHandlerTest, BaseHandlersKeepRunningAndTheBaseTimerIsOff) {
    Plain plain(0);
    EXPECT_TRUE(plain.sigAlrmHandler());
    EXPECT_TRUE(plain.sigIntHandler());
    EXPECT_TRUE(plain.sigIOHandler());
    EXPECT_TRUE(plain.sigKillHandler());
    EXPECT_TRUE(plain.sigQuitHandler());
    EXPECT_TRUE(plain.sigTermHandler());
    long first = 7;
    long period = 9;
    plain.sigAlrmTiming(first, period);
    EXPECT_EQ(first, 0);
    EXPECT_EQ(period, 0);
}

using SignalHandlerDeathTest = SignalHandlerTest;

TEST_F(SignalHandlerDeathTest, BaseFaultHandlerReportsOnceAndEndsTheProcess) {
    EXPECT_EXIT(
        {
            Plain plain(SIGNAL_SEGV);
            plain.initialize();
            faultOnProtectedPage();
        },
        ::testing::KilledBySignal(SIGSEGV), ::testing::StrEq("Crashed, GDB Connecting...\n"));
}

TEST_F(SignalHandlerDeathTest, AFaultAfterTheHandlerAskedToFinishStopsOnTheCheck) {
    EXPECT_EXIT(
        {
            StopOnFault stop;
            stop.initialize();
            faultOnProtectedPage();
        },
        ::testing::KilledBySignal(SIGABRT),
        ::testing::HasSubstr("static void SignalHandler::sigSegVHandler(int): Assertion `!segV' "
                             "failed."));
}

TEST_F(SignalHandlerTest, AFaultSignalThatIsNotAFaultLetsAFinishingHandlerEndTheLoop) {
    StopOnFault stop;
    stop.initialize();
    std::raise(SIGSEGV);  // sent, not a fault: nothing is retried
    EXPECT_TRUE(SignalHandled::finished());
    EXPECT_TRUE(SignalHandler::segV);
}

}  // namespace
