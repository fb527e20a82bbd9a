#include <gtest/gtest.h>

#include <functional>
#include <sstream>
#include <string>

#include "support/Expected.h"
#include "support/Files.h"
#include "utilities/logging/Debugger.h"
#include "utilities/logging/LogFile.h"
#include "utilities/logging/Logger.h"

namespace {

using support::FakeTimer;
using support::LogString;

struct StampCase {
    const char* name;
    std::function<void(LogStream&, FakeTimer&)> write;
    const char* text;
};

TEST(LogStreamTest, StampsEachLineWithTheTimeItStarted) {
    const StampCase cases[] = {
        {"one line", [](LogStream& s, FakeTimer&) { s << "abc" << 5 << std::endl; },
         "  0042. abc5\n"},
        {"open last line", [](LogStream& s, FakeTimer&) { s << "a\nb"; }, "  0042. a\n  0042. b"},
        {"stamped at once",
         [](LogStream& s, FakeTimer& t) {
             s << "x\n";
             t.set(7);
             s << "y" << std::endl;
         },
         "  0042. x\n  0042. y\n"},
        {"width",
         [](LogStream& s, FakeTimer& t) {
             t.set(123456);
             s << "two" << std::endl;
             t.set(3);
             s << 2.5F << std::endl;
         },
         "  123456. two\n  0003. 2.5\n"},
        {"suspend and resume",
         [](LogStream& s, FakeTimer&) {
             s << "open ";
             s.suspend();
             s.suspend();
             s << "hidden" << std::endl << std::hex << 255 << "\n";
             s.resume();
             s.resume();
             s << 255 << std::endl;
         },
         "  0042. open LOGGER: Suspended!\n  0042. LOGGER: Resumed!\n  0042. 255\n"},
    };
    for (const StampCase& c : cases) {
        FakeTimer timer(42);
        LogString stream(&timer);
        stream.setShowBeginEnd(true);
        c.write(stream, timer);
        EXPECT_EQ(stream.text.str(), c.text) << c.name;
    }
}

class LoggerTest : public ::testing::Test {
protected:
    void SetUp() override { Logger::resetState(); }
    void TearDown() override { Logger::resetState(); }
    FakeTimer timer{42};
    support::ScratchDirectory dir;
};

TEST_F(LoggerTest, FilesAreStampedOrRawAndUnknownNamesDiscard) {
    logger.add("Main", new LogFile(dir.path() + "/main.log", &timer), true);
    logger.add("MainOff", new LogFile(dir.path() + "/raw.log", &timer), false);
    logger["Main"] << "abc" << 5 << std::endl;
    logger["MainOff"] << "abc" << 5 << std::endl;
    logger["Unknown"] << "ignored" << std::endl;
    Debugger::message("Main", "Walk", 17, "hello there");
    EXPECT_EQ(support::readFile(dir.path() + "/main.log"),
              "  0042. abc5\n  0042. Walk:17 'hello there'\n");
    EXPECT_EQ(support::readFile(dir.path() + "/raw.log"), "abc5\n");
    EXPECT_EQ(logger.getLogStreams().getStreams().size(), 2U);
    Logger::resetState();
    EXPECT_EQ(logger["Main"].getOut(), nullptr);
}

TEST_F(LoggerTest, CycleBannersGoToStampedWritingStreamsOnly) {
    auto* a = new LogString(&timer);
    auto* raw = new LogString(&timer);
    auto* quiet = new LogString(&timer);
    logger.add("A", a, true);
    logger.add("Raw", raw, false);
    logger.add("Quiet", quiet, true);
    quiet->suspend();
    const std::string quietBefore = quiet->text.str();
    *a << "open";
    logger.showBeginCycle();
    *a << "next" << std::endl;
    logger.showEndCycle();
    EXPECT_EQ(a->text.str(),
              "  0042. open\n[--BEGINNING OF CYCLE--]\nnext\n[-----END OF CYCLE-----]\n\n");
    EXPECT_EQ(raw->text.str(), "");
    EXPECT_EQ(quiet->text.str(), quietBefore);
}

}  // namespace
