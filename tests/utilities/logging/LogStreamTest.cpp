#include "utilities/logging/LogStream.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/FakeTimer.h"

namespace {

struct Stamped {
    std::ostringstream sink;
    FakeTimer timer{42};
    LogStream stream{&sink, &timer};
    Stamped() { stream.setShowBeginEnd(true); }
};

TEST(LogStreamTest, StampsEachLineOnceWhenItsFirstTextArrives) {
    Stamped s;
    s.stream << "abc" << 5 << std::endl;
    EXPECT_EQ(s.sink.str(), "  0042. abc5\n");
}

TEST(LogStreamTest, SplitsTextAtNewlinesAndLeavesTheLastLineOpen) {
    Stamped s;
    s.stream << "a\nb";
    EXPECT_EQ(s.sink.str(), "  0042. a\n  0042. b");
    s.stream << "c" << std::endl;
    EXPECT_EQ(s.sink.str(), "  0042. a\n  0042. bc\n");
}

TEST(LogStreamTest, TextEndingInNewlineStampsTheNextLineAtOnce) {
    Stamped s;
    s.stream << "x\n";
    EXPECT_EQ(s.sink.str(), "  0042. x\n  0042. ");
    s.timer.set(7);
    s.stream << "y" << std::endl;
    EXPECT_EQ(s.sink.str(), "  0042. x\n  0042. y\n");
}

TEST(LogStreamTest, StampReadsTheTimerWhenTheLineStarts) {
    Stamped s;
    s.stream << "one" << std::endl;
    s.timer.set(123456);
    s.stream << "two" << std::endl;
    s.timer.set(3);
    s.stream << "three" << std::endl;
    EXPECT_EQ(s.sink.str(), "  0042. one\n  123456. two\n  0003. three\n");
}

TEST(LogStreamTest, NullTimerStampsZero) {
    std::ostringstream sink;
    LogStream stream(&sink, nullptr);
    stream.setShowBeginEnd(true);
    stream << "z" << std::endl;
    EXPECT_EQ(sink.str(), "  0000. z\n");
}

TEST(LogStreamTest, UnstampedStreamWritesExactlyWhatIsPassed) {
    std::ostringstream sink;
    FakeTimer timer(42);
    LogStream stream(&sink, &timer);
    EXPECT_FALSE(stream.getShowBeginEnd());
    stream << "abc" << 5 << std::endl << "(time (now 1.5))\n" << 2.5F << '!';
    EXPECT_EQ(sink.str(), "abc5\n(time (now 1.5))\n2.5!");
}

TEST(LogStreamTest, FormatsNumbersWithDefaultStreamFormatting) {
    std::ostringstream sink;
    LogStream stream(&sink, nullptr);
    stream << 0.1F << " " << 1234567.0 << " " << 100000 << " " << -3;
    EXPECT_EQ(sink.str(), "0.1 1.23457e+06 100000 -3");
}

// Values are formatted in a fresh stream, so a base manipulator changes only what is written on
// the sink itself: the stamp.
TEST(LogStreamTest, BaseManipulatorsReachTheSinkButNotTheValues) {
    Stamped s;
    s.stream << std::hex << 255 << std::endl;
    s.stream << std::dec << 255 << std::endl;
    EXPECT_EQ(s.sink.str(), "  002a. 255\n  0042. 255\n");
}

LogStream& writeFn(LogStream& stream) {
    return stream << "fn";
}

TEST(LogStreamTest, StreamFunctionsAreCalledWithTheStream) {
    Stamped s;
    s.stream << writeFn << std::endl;
    EXPECT_EQ(s.sink.str(), "  0042. fn\n");
}

TEST(LogStreamTest, SuspendWritesOnceAndSilencesUntilResume) {
    Stamped s;
    s.stream << "before" << std::endl;
    s.stream.suspend();
    s.stream.suspend();
    EXPECT_FALSE(s.stream.isEnabled());
    s.stream << "hidden" << std::endl << std::hex << 255 << "\n";
    s.stream.resume();
    s.stream.resume();
    EXPECT_TRUE(s.stream.isEnabled());
    s.stream << 255 << std::endl;
    EXPECT_EQ(
        s.sink.str(),
        "  0042. before\n  0042. LOGGER: Suspended!\n  0042. LOGGER: Resumed!\n  0042. 255\n");
}

TEST(LogStreamTest, ResumeOnAnEnabledStreamWritesNothing) {
    Stamped s;
    s.stream.resume();
    EXPECT_EQ(s.sink.str(), "");
}

TEST(LogStreamTest, SuspendInTheMiddleOfALineContinuesThatLine) {
    Stamped s;
    s.stream << "open ";
    s.stream.suspend();
    EXPECT_EQ(s.sink.str(), "  0042. open LOGGER: Suspended!\n");
}

TEST(LogStreamTest, NullSinkDiscardsEverything) {
    LogStream stream(nullptr, nullptr);
    stream.setShowBeginEnd(true);
    stream << "nothing" << std::endl << std::hex;
    stream.suspend();
    stream.resume();
    EXPECT_EQ(stream.getOut(), nullptr);
}

TEST(LogStreamTest, TimerCanBeReplaced) {
    Stamped s;
    FakeTimer other(9);
    EXPECT_EQ(s.stream.timer(), &s.timer);
    s.stream.setTimer(&other);
    EXPECT_EQ(s.stream.timer(), &other);
    s.stream << "t" << std::endl;
    EXPECT_EQ(s.sink.str(), "  0009. t\n");
}

}  // namespace
