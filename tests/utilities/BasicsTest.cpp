#include "utilities/Basics.h"

#include <gtest/gtest.h>

#include <string>

namespace {

const std::string kOk = "[\033[0;32m   OK   \033[0;39m]\n";
const std::string kFailed = "[\033[0;31m Failed \033[0;39m]\n";

TEST(BasicsTest, StatusLineOfALoadedFileIsAlignedToColumn101) {
    const std::string text =
        " Loading Config_FileAdresses File: ./Data/ConfigurationData/LoggerInitialize.conf";
    ASSERT_EQ(text.size(), 81U);
    testing::internal::CaptureStdout();
    basics::WarnLoadingTrue(text);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), text + std::string(19, ' ') + kOk);
}

TEST(BasicsTest, FailedStatusLineHasTheRedTag) {
    testing::internal::CaptureStdout();
    basics::WarnLoadingFalse(" Loading Skill File: ./Data/SkillData/Walk.conf");
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              " Loading Skill File: ./Data/SkillData/Walk.conf" + std::string(53, ' ') + kFailed);
}

TEST(BasicsTest, FillDependsOnTheUnsplitLength) {
    const std::string ninetyNine = " " + std::string(98, 'x');
    const std::string hundred = " " + std::string(99, 'x');
    const std::string long150 = " " + std::string(149, 'x');
    EXPECT_EQ(basics::statusLine(ninetyNine, true), ninetyNine + " " + kOk);
    EXPECT_EQ(basics::statusLine(hundred, true), hundred + kOk);
    EXPECT_EQ(basics::statusLine(long150, false), long150 + kFailed);
    // Blanks collapse when printed but still count for the fill.
    const std::string spaced = " a    b\tc";
    EXPECT_EQ(basics::statusLine(spaced, true), " a b c" + std::string(91, ' ') + kOk);
}

TEST(BasicsTest, StatusTextFollowsTheShellsWordSplitting) {
    EXPECT_EQ(basics::statusText(" Loading  a\tb\nc  "), " Loading a b c");
    EXPECT_EQ(basics::statusText("\tword"), " word");
    // Without a leading blank the first word joins the empty first argument.
    EXPECT_EQ(basics::statusText("word  two"), "word two");
    EXPECT_EQ(basics::statusText(""), "");
    EXPECT_EQ(basics::statusText("   "), "");
    EXPECT_EQ(basics::statusLine("", true), std::string(100, ' ') + kOk);
}

TEST(BasicsTest, UniformNumbersMapToBase36Digits) {
    EXPECT_EQ(basics::uniNumToChar(0), '0');
    EXPECT_EQ(basics::uniNumToChar(9), '9');
    EXPECT_EQ(basics::uniNumToChar(10), 'A');
    EXPECT_EQ(basics::uniNumToChar(11), 'B');
    EXPECT_EQ(basics::uniNumToChar(35), 'Z');
    EXPECT_EQ(basics::charToUniNum('0'), 0);
    EXPECT_EQ(basics::charToUniNum('7'), 7);
    EXPECT_EQ(basics::charToUniNum('A'), 10);
    EXPECT_EQ(basics::charToUniNum('Z'), 35);
    EXPECT_EQ(basics::charToUniNum('a'), 42);
    EXPECT_EQ(basics::charToUniNum('@'), 16);  // code 64 is below the letters
    for (unsigned int n = 0; n < 36; ++n) {
        EXPECT_EQ(basics::charToUniNum(basics::uniNumToChar(n)), static_cast<int>(n));
    }
}

TEST(BasicsTest, IsInPlayersLooksForTheCode) {
    EXPECT_TRUE(basics::isInPlayers(11, "1B5"));
    EXPECT_TRUE(basics::isInPlayers(1, "1B5"));
    EXPECT_TRUE(basics::isInPlayers(5, "1B5"));
    EXPECT_FALSE(basics::isInPlayers(2, "1B5"));
    EXPECT_FALSE(basics::isInPlayers(10, "1B5"));
    EXPECT_FALSE(basics::isInPlayers(1, ""));
}

}  // namespace
