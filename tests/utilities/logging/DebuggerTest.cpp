#include "utilities/logging/Debugger.h"

#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

#include "support/FakeTimer.h"
#include "utilities/logging/LogStdErr.h"

namespace {

class LogString : public LogStream {
public:
    explicit LogString(const Timer* timer) : LogStream(&text, timer) {}
    std::ostringstream text;
};

class DebuggerTest : public ::testing::Test {
protected:
    void SetUp() override {
        Logger::resetState();
        main = new LogString(&timer);
        logger.add("Main", main, true);
    }
    void TearDown() override { Logger::resetState(); }
    FakeTimer timer{42};
    LogString* main = nullptr;
};

TEST_F(DebuggerTest, LoggReachesTheStartUpStreams) {
    EXPECT_EQ(&Debugger::logg("Main"), main);
    EXPECT_EQ(&Debugger::logStreams(), &logger.getLogStreams());
    EXPECT_EQ(Debugger::logg("Other").getOut(), nullptr);
}

TEST_F(DebuggerTest, TraceLinesAreStampedOneLineEach) {
    Debugger::message("Main", "Walk", 17, "hello there");
    Debugger::mark("Main", "Walk", 18);
    Debugger::doo("Main", "Kick", 3, "x");
    Debugger::done("Main", "Kick", 4, "x");
    EXPECT_EQ(main->text.str(),
              "  0042. Walk:17 'hello there'\n"
              "  0042. Walk:18 <<< MARK >>>\n"
              "  0042. Kick:3 DOING 'x'\n"
              "  0042. Kick:4 'x' DONE\n");
}

TEST_F(DebuggerTest, TraceToAnUnknownStreamDoesNothing) {
    Debugger::mark("Nowhere", "Walk", 1);
    Debugger::message("Nowhere", "Walk", 1, "t");
    EXPECT_EQ(main->text.str(), "");
}

TEST_F(DebuggerTest, TrueAssertionWritesNothing) {
    testing::internal::CaptureStdout();
    Debugger::assrt("Main", "Leg", 120, "error == 1", true);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(main->text.str(), "");
}

// In the dying process the console is sent to standard error and "Main" is a stamped stream on
// standard error too, so the death test sees both lines in the order they were written.
TEST_F(DebuggerTest, FailedAssertionLogsPrintsAndStops) {
    FakeTimer late(7);
    EXPECT_DEATH(
        {
            std::cout.rdbuf(std::cerr.rdbuf());
            Logger::resetState();
            logger.add("Main", new LogStdErr(&late), true);
            Debugger::assrt("Main", "Leg", 120, "error == 1", false);
        },
        "  0007\\. Leg:120 'error == 1' FAILED!\nLeg:120 'error == 1' FAILED!\n");
}

TEST_F(DebuggerTest, FailedAssertionOnAnUnknownStreamStillStops) {
    EXPECT_DEATH(
        {
            std::cout.rdbuf(std::cerr.rdbuf());
            Debugger::assrt("Nowhere", "Ball", 7, "balls.size() == 1", false);
        },
        "Ball:7 'balls.size\\(\\) == 1' FAILED!");
}

}  // namespace
