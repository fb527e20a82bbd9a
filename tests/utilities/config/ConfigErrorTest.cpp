#include "utilities/config/ConfigError.h"

#include <gtest/gtest.h>

namespace {

TEST(ConfigErrorTest, MessageWithoutDetail) {
    EXPECT_EQ(checkMessage("fin", "Config", 42, "void f()", ""),
              "Config:42: void f(): check \"fin\" failed");
}

TEST(ConfigErrorTest, MessageWithDetail) {
    EXPECT_EQ(checkMessage("name != \"\"", "Config", 7, "virtual void A::b(int)",
                           checkFileLocation("Data/x.conf", 3)),
              "Config:7: virtual void A::b(int): check \"name != \"\"\" failed "
              "(file \"Data/x.conf\", line 3)");
}

TEST(ConfigErrorTest, Locations) {
    EXPECT_EQ(checkFileLocation("a b.conf", 12), "file \"a b.conf\", line 12");
    EXPECT_EQ(checkFileLocation("a.conf", 0), "file \"a.conf\"");
    EXPECT_EQ(checkValueLocation("C", "G", "K"), "configuration \"C\", group \"G\", key \"K\"");
}

// Source lines of the checks below, recorded when a check passes.
int plainCheckLine = 0;
int detailCheckLine = 0;

void checkPositive(int number) {
    plainCheckLine = __LINE__ + 1;
    KORVEL_CHECK(number > 0, "Skill");
}

void checkPositiveAt(int number) {
    detailCheckLine = __LINE__ + 1;
    KORVEL_CHECK_DETAIL(number > 0, "Skill", checkFileLocation("Walk.conf", 4) + ", key \"n\"");
}

TEST(ConfigErrorTest, FailedCheckWritesOneLineAndExitsWithFailure) {
    checkPositive(1);
    ASSERT_GT(plainCheckLine, 0);
    EXPECT_EXIT(checkPositive(0), ::testing::ExitedWithCode(1),
                "^Skill:" + std::to_string(plainCheckLine) +
                    ": void \\{anonymous\\}::checkPositive\\(int\\): check \"number > 0\" "
                    "failed\n$");
}

TEST(ConfigErrorTest, FailedCheckWithDetail) {
    checkPositiveAt(1);
    ASSERT_GT(detailCheckLine, 0);
    EXPECT_EXIT(checkPositiveAt(-1), ::testing::ExitedWithCode(1),
                "^Skill:" + std::to_string(detailCheckLine) +
                    ": void \\{anonymous\\}::checkPositiveAt\\(int\\): check \"number > 0\" "
                    "failed \\(file \"Walk.conf\", line 4, key \"n\"\\)\n$");
}

}  // namespace
