// "WorldModelParameters" / "Fall" / "Rule" chooses the fall rule; a value other than the two
// names stops the player naming the file, the line and the key.
#include "worldmodel/FallRule.h"

#include <gtest/gtest.h>

#include "support/Expected.h"
#include "support/Files.h"
#include "utilities/config/Config.h"

namespace {

class FallRuleTest : public ::testing::Test {
protected:
    void SetUp() override { Config::resetState(); }
    void TearDown() override { Config::resetState(); }

    // Registers "WorldModelParameters" read from a file with `content`; returns its path.
    std::string load(const std::string& content) {
        std::string path = dir.write("WorldModelParameters.conf", content);
        config.add("WorldModelParameters", path);
        return path;
    }

    support::ScratchDirectory dir;
};

TEST_F(FallRuleTest, TheKeyChoosesAndItsAbsenceMeansLandmarks) {
    EXPECT_EQ(readFallRule(config), FallRule::Landmarks);  // no such configuration
    const std::vector<std::pair<std::string, FallRule>> cases = {
        {"[Ball]\nRadius = 0.042\n", FallRule::Landmarks},
        {"[Fall]\nOther = 1\n", FallRule::Landmarks},
        {"[Fall]\nRule = Attitude   # comment\n", FallRule::Attitude},
        {"[Fall]\nRule = Landmarks\n", FallRule::Landmarks},
    };
    for (const auto& [content, rule] : cases) {
        Config::resetState();
        load(content);
        EXPECT_EQ(readFallRule(config), rule) << content;
    }
}

TEST_F(FallRuleTest, AnyOtherValueStopsNamingFileLineAndKey) {
    const std::string path = load("[Field]\nLength = 30\n\n[Fall]\nRule = attitude\n");
    EXPECT_EXIT(readFallRule(config), ::testing::ExitedWithCode(1),
                support::checkDiagnosticPattern(
                    "FallRule", "FallRule readFallRule(const Config&)",
                    "Rule == \"Attitude\" || Rule == \"Landmarks\"",
                    "file \"" + path +
                        "\", line 5, configuration \"WorldModelParameters\", group \"Fall\", key "
                        "\"Rule\": \"attitude\" is neither \"Attitude\" nor \"Landmarks\""));
}

}  // namespace
