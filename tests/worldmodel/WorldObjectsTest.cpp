#include <gtest/gtest.h>

#include <string>

#include "body/Body.h"
#include "math/Vector3.h"
#include "utilities/config/Config.h"
#include "worldmodel/Ball.h"
#include "worldmodel/Flag.h"
#include "worldmodel/FlagType.h"
#include "worldmodel/Player.h"
#include "worldmodel/Self.h"
#include "worldmodel/Share.h"

namespace {

using V = math::Vector3<float>;

class WorldObjects : public testing::Test {
protected:
    void SetUp() override {
        Config::resetState();
        Self::resetState();
        Share::resetState();
        setField("12", "8", "1.4");
    }
    void TearDown() override {
        Config::resetState();
        Self::resetState();
        Share::resetState();
    }

    static void setField(const std::string& length, const std::string& width,
                         const std::string& goalWidth) {
        Config handle;
        handle.add("WorldModelParameters");
        handle["WorldModelParameters"].addGroup("Field");
        auto& field = handle["WorldModelParameters"]["Field"];
        field.add("Length", length);
        field.add("Width", width);
        field.add("GoalWidth", goalWidth);
    }
};

}  // namespace

TEST_F(WorldObjects, FlagsSitAtTheirLandmarksOnTheConfiguredField) {
    EXPECT_EQ(Flag(F1L).getPosition(), V(-6, 4, 0));
    EXPECT_EQ(Flag(F1R).getPosition(), V(6, 4, 0));
    EXPECT_EQ(Flag(F2L).getPosition(), V(-6, -4, 0));
    EXPECT_EQ(Flag(F2R).getPosition(), V(6, -4, 0));
    EXPECT_EQ(Flag(G1L).getPosition(), V(-6, 0.7F, 0));
    EXPECT_EQ(Flag(G1R).getPosition(), V(6, 0.7F, 0));
    EXPECT_EQ(Flag(G2L).getPosition(), V(-6, -0.7F, 0));
    EXPECT_EQ(Flag(G2R).getPosition(), V(6, -0.7F, 0));
    EXPECT_EQ(Flag(G2R).getFlagType(), G2R);
    EXPECT_EQ(static_cast<int>(F1L), 0);
    EXPECT_EQ(static_cast<int>(F2R), 3);
    EXPECT_EQ(static_cast<int>(G2R), 7);
}
