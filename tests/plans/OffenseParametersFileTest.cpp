#include <gtest/gtest.h>

#include <string>

#include "utilities/config/ConfigFile.h"

namespace {

// The shipped attacker parameters carry the kick thresholds the plan reads every cycle.
TEST(OffenseParametersFile, HasTheKickThresholds) {
    const ConfigFile file(std::string(KORVEL_SOURCE_DIR) +
                          "/Data/ConfigurationData/OffenseParameters.conf");
    const ConfigGroup& kick = file["Kick"];
    for (const char* key : {"MaxBallDistance", "MaxBallBearing", "MaxHeadingError"}) {
        ASSERT_TRUE(kick.exists(key)) << key;
        EXPECT_GT(kick[key].asFloat(), 0.0F) << key;
        EXPECT_EQ(kick[key].size(), 1) << key;
    }
    EXPECT_LT(file["Kick"]["MaxBallDistance"].asFloat(), 1.0F);
    EXPECT_LE(file["Kick"]["MaxHeadingError"].asFloat(), 90.0F);
}

}  // namespace
