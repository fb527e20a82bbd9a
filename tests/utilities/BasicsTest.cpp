#include "utilities/Basics.h"

#include <gtest/gtest.h>

#include <string>

namespace {

const std::string kOk = "[\033[0;32m   OK   \033[0;39m]\n";
const std::string kFailed = "[\033[0;31m Failed \033[0;39m]\n";

struct StatusCase {
    std::string text;
    bool ok;
    std::string line;
};

// The tag starts in column 101 of the text as the shell prints it (words split at blanks), but
// the fill is counted on the text as given.
TEST(BasicsTest, StatusLines) {
    const std::string loaded =
        " Loading Config_FileAdresses File: ./Data/ConfigurationData/LoggerInitialize.conf";
    const std::string walk = " Loading Skill File: ./Data/SkillData/Walk.conf";
    const StatusCase cases[] = {
        {loaded, true, loaded + std::string(19, ' ') + kOk},
        {walk, false, walk + std::string(53, ' ') + kFailed},
        {" " + std::string(98, 'x'), true, " " + std::string(98, 'x') + " " + kOk},
        {" " + std::string(99, 'x'), true, " " + std::string(99, 'x') + kOk},
        {" " + std::string(149, 'x'), false, " " + std::string(149, 'x') + kFailed},
        {" a    b\tc", true, " a b c" + std::string(91, ' ') + kOk},
        {" Loading  a\tb\nc  ", true, " Loading a b c" + std::string(83, ' ') + kOk},
        {"word  two", true, "word two" + std::string(91, ' ') + kOk},
        {"   ", true, std::string(97, ' ') + kOk},
        {"", true, std::string(100, ' ') + kOk},
    };
    for (const StatusCase& c : cases) {
        EXPECT_EQ(basics::statusLine(c.text, c.ok), c.line) << c.text;
    }
    testing::internal::CaptureStdout();
    basics::WarnLoadingTrue(loaded);
    basics::WarnLoadingFalse(walk);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), cases[0].line + cases[1].line);
}

}  // namespace
