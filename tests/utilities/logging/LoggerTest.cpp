#include "utilities/logging/Logger.h"

#include <gtest/gtest.h>

#include <sstream>

#include "support/FakeTimer.h"
#include "support/FileHelpers.h"
#include "support/ScratchDirectory.h"
#include "utilities/logging/LogDevNull.h"
#include "utilities/logging/LogFile.h"
#include "utilities/logging/LogStdErr.h"
#include "utilities/logging/LogStdOut.h"

namespace {

// A stream on a string, so the tests can see what the registry does with it.
class LogString : public LogStream {
public:
    explicit LogString(const Timer* timer) : LogStream(&text, timer) {}
    std::ostringstream text;
};

class LoggerTest : public ::testing::Test {
protected:
    void SetUp() override { Logger::resetState(); }
    void TearDown() override { Logger::resetState(); }
    FakeTimer timer{42};
};

TEST_F(LoggerTest, BannersAreWrittenByteForByte) {
    std::ostringstream out;
    beginCycle(out);
    endCycle(out);
    EXPECT_EQ(out.str(), "\n[--BEGINNING OF CYCLE--]\n[-----END OF CYCLE-----]\n\n");
}

TEST_F(LoggerTest, RegisteredFileStreamIsStamped) {
    support::ScratchDirectory dir;
    const std::string path = dir.path() + "/Korvel-1.log";
    logger.add("Main", new LogFile(path, &timer), true);
    logger["Main"] << "abc" << 5 << std::endl;
    EXPECT_EQ(support::readFile(path), "  0042. abc5\n");
}

TEST_F(LoggerTest, SwitchOffWritesRawText) {
    support::ScratchDirectory dir;
    const std::string path = dir.path() + "/Korvel-1.log.offline";
    logger.add("MainOff", new LogFile(path, &timer), false);
    logger["MainOff"] << "abc" << 5 << std::endl;
    EXPECT_EQ(support::readFile(path), "abc5\n");
}

TEST_F(LoggerTest, UnknownNameGivesADiscardingStream) {
    LogStream& unknown = logger["NeverRegistered"];
    EXPECT_EQ(unknown.getOut(), nullptr);
    unknown << "ignored" << std::endl;
    EXPECT_TRUE(logger.getLogStreams().getStreams().empty());
}

TEST_F(LoggerTest, FirstRegistrationOfANameStays) {
    auto* first = new LogString(&timer);
    LogString second(&timer);
    logger.add("Main", first, true);
    logger.add("Main", &second, false);  // neither stored nor deleted
    EXPECT_EQ(&logger["Main"], first);
    EXPECT_TRUE(first->getShowBeginEnd());
    EXPECT_FALSE(second.getShowBeginEnd());
    logger["Main"] << "x" << std::endl;
    EXPECT_EQ(first->text.str(), "  0042. x\n");
    EXPECT_EQ(second.text.str(), "");
}

TEST_F(LoggerTest, NullStreamRegistersNothing) {
    logger.add("Main", nullptr, true);
    EXPECT_TRUE(logger.getLogStreams().getStreams().empty());
    auto* later = new LogString(&timer);
    logger.add("Main", later, true);
    EXPECT_EQ(&logger["Main"], later);
}

TEST_F(LoggerTest, AllLoggersShareOneRegistry) {
    Logger another;
    auto* stream = new LogString(&timer);
    another.add("Shared", stream, false);
    EXPECT_EQ(&logger["Shared"], stream);
    EXPECT_EQ(&logger.getLogStreams(), &another.getLogStreams());
    EXPECT_EQ(&logger.getLogStreams()["Shared"], stream);
}

TEST_F(LoggerTest, BannersGoToStampedWritingStreamsInNameOrder) {
    auto* b = new LogString(&timer);
    auto* a = new LogString(&timer);
    auto* raw = new LogString(&timer);
    auto* quiet = new LogString(&timer);
    logger.add("B", b, true);
    logger.add("A", a, true);
    logger.add("Raw", raw, false);
    logger.add("Quiet", quiet, true);
    logger.add("Null", new LogDevNull(), true);
    quiet->suspend();
    const std::string quietBefore = quiet->text.str();

    *b << "open";
    logger.showBeginCycle();
    *b << "next" << std::endl;
    logger.showEndCycle();

    EXPECT_EQ(a->text.str(), "\n[--BEGINNING OF CYCLE--]\n[-----END OF CYCLE-----]\n\n");
    // Banners bypass the stamps and leave the line state alone.
    EXPECT_EQ(b->text.str(),
              "  0042. open\n[--BEGINNING OF CYCLE--]\nnext\n[-----END OF CYCLE-----]\n\n");
    EXPECT_EQ(raw->text.str(), "");
    EXPECT_EQ(quiet->text.str(), quietBefore);

    std::vector<std::string> names;
    for (const auto& entry : logger.getLogStreams().getStreams()) {
        names.push_back(entry.first);
    }
    EXPECT_EQ(names, (std::vector<std::string>{"A", "B", "Null", "Quiet", "Raw"}));
}

TEST_F(LoggerTest, RegistryBannersMatchTheLoggers) {
    auto* a = new LogString(&timer);
    logger.add("A", a, true);
    logger.getLogStreams().showBeginCycle();
    logger.getLogStreams().showEndCycle();
    EXPECT_EQ(a->text.str(), "\n[--BEGINNING OF CYCLE--]\n[-----END OF CYCLE-----]\n\n");
}

TEST_F(LoggerTest, ResetStateDropsEveryStream) {
    logger.add("Main", new LogString(&timer), true);
    Logger::resetState();
    EXPECT_TRUE(logger.getLogStreams().getStreams().empty());
    EXPECT_EQ(logger["Main"].getOut(), nullptr);
}

TEST_F(LoggerTest, FileThatCannotBeOpenedSwallowsOutput) {
    support::ScratchDirectory dir;
    const std::string path = dir.path() + "/missing/sub/Korvel-1.log";
    logger.add("Main", new LogFile(path, &timer), true);
    logger["Main"] << "lost" << std::endl;
    EXPECT_EQ(logger["Main"].getOut()->good(), false);
    EXPECT_EQ(support::readFile(path), "");
}

TEST_F(LoggerTest, FileIsTruncatedWhenOpened) {
    support::ScratchDirectory dir;
    const std::string path = dir.path() + "/old.log";
    dir.write("old.log", "old content\n");
    LogFile file(path, &timer);
    EXPECT_EQ(file.getFileName(), path);
    file << "new" << std::endl;
    EXPECT_EQ(support::readFile(path), "new\n");
}

TEST_F(LoggerTest, MemoryFileMovesItsTextIntoTheFileItIsGiven) {
    support::ScratchDirectory dir;
    const std::string path = dir.path() + "/late.log";
    dir.write("late.log", "stale\n");
    LogFile file(&timer);
    file.setShowBeginEnd(true);
    file << "first" << std::endl << "second";
    EXPECT_EQ(file.getFileName(), "");
    file.setFileName(path);
    file << " line" << std::endl;
    EXPECT_EQ(file.getFileName(), "");
    EXPECT_EQ(support::readFile(path), "  0042. first\n  0042. second line\n");

    // A named file keeps its constructor name when moved to another file.
    const std::string renamed = dir.path() + "/renamed.log";
    LogFile named(dir.path() + "/named.log", nullptr);
    named.setFileName(renamed);
    named << "moved" << std::endl;
    EXPECT_EQ(named.getFileName(), dir.path() + "/named.log");
    EXPECT_EQ(support::readFile(renamed), "moved\n");
}

TEST_F(LoggerTest, ConsoleStreamsWriteToStandardOutputAndError) {
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    {
        LogStdOut out(&timer);
        LogStdErr err(&timer);
        out.setShowBeginEnd(true);
        out << "to out" << std::endl;
        err << "to err" << std::endl;
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "to err\n");
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "  0042. to out\n");
}

}  // namespace
