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

TEST_F(WorldObjects, FlagsFollowTheProjectsFieldFile) {
    Config handle;
    handle.add("WorldModelParameters", std::string(KORVEL_SOURCE_DIR) +
                                           "/Data/ConfigurationData/WorldModelParameters.conf");
    EXPECT_EQ(Flag(F1L).getPosition(), V(-15, 10, 0));
    EXPECT_EQ(Flag(F2R).getPosition(), V(15, -10, 0));
    EXPECT_EQ(Flag(G1R).getPosition(), V(15, 1.05F, 0));
    EXPECT_EQ(Flag(G2L).getPosition(), V(-15, -1.05F, 0));
}

TEST_F(WorldObjects, SetFlagTypeReadsTheFieldAgainAndIgnoresUnknownTypes) {
    Flag flag(F1R);
    EXPECT_EQ(flag.getPosition(), V(6, 4, 0));
    setField("20", "10", "2");
    EXPECT_EQ(flag.getPosition(), V(6, 4, 0));  // nothing cached is refreshed by itself
    flag.setFlagType(G2L);
    EXPECT_EQ(flag.getFlagType(), G2L);
    EXPECT_EQ(flag.getPosition(), V(-10, -1, 0));
    flag.setFlagType(static_cast<FlagType>(8));
    EXPECT_EQ(flag.getPosition(), V(-10, -1, 0));
    flag.setFlagType(static_cast<FlagType>(-1));
    EXPECT_EQ(flag.getPosition(), V(-10, -1, 0));
}

TEST_F(WorldObjects, BallAndPlayerKeepWhatTheyAreGiven) {
    Ball ball(V(1, 2, 0), V(3, 0, 0), V(0, 0, -9.81F), 0.026F, 0.4F, 0.042F);
    EXPECT_EQ(ball.getPositionCount(), 0);
    EXPECT_EQ(ball.getPosition(), V(1, 2, 0));
    EXPECT_EQ(ball.getVelocity(), V(3, 0, 0));
    EXPECT_EQ(ball.getAcceleration(), V(0, 0, -9.81F));
    EXPECT_EQ(ball.getMass(), 0.026F);
    EXPECT_EQ(ball.getMu(), 0.4F);
    EXPECT_EQ(ball.getRadius(), 0.042F);
    ball.setPositionCount(3);
    ball.setRadius(0.05F);
    ball.setPosition(V(-1, 0, 0.05F));
    ball.setVelocity(V(0, 1, 0));
    ball.setAcceleration(V(1, 1, 1));
    ball.setMass(1);
    ball.setMu(0);
    EXPECT_EQ(ball.getPositionCount(), 3);
    EXPECT_EQ(ball.getRadius(), 0.05F);
    EXPECT_EQ(ball.getPosition(), V(-1, 0, 0.05F));
    EXPECT_EQ(ball.getVelocity(), V(0, 1, 0));
    EXPECT_EQ(ball.getAcceleration(), V(1, 1, 1));
    EXPECT_EQ(ball.getMass(), 1.0F);
    EXPECT_EQ(ball.getMu(), 0.0F);

    Player player(V(), V(), V(), 0, 0);
    EXPECT_EQ(player.getUnum(), 0);
    player.setUnum(3);
    EXPECT_EQ(player.getUnum(), 3);
}

TEST_F(WorldObjects, SelfStartsEmptyAndKeepsItsReadings) {
    Self self(V(1, 2, 0.5F), V(), V(), 4.5F, 0.1F);
    ASSERT_NE(self.getBody(), nullptr);
    EXPECT_TRUE(self.getBody()->isequal(Body(), 0.0001F));
    EXPECT_EQ(self.getLastCommand(), nullptr);
    EXPECT_EQ(self.getPolarPosition(), V());
    EXPECT_EQ(self.getBodyDirection(), 0.0F);
    EXPECT_EQ(self.getGyroRate(), V());
    EXPECT_EQ(self.getPosition(), V(1, 2, 0.5F));
    EXPECT_EQ(self.getMass(), 4.5F);

    self.setPolarPosition(V(1.5F, 0, 0));
    self.setBodyDirection(-90);
    self.setGyroRate(V(1.5F, -2, 0.25F));
    EXPECT_EQ(self.getPolarPosition(), V(1.5F, 0, 0));
    EXPECT_EQ(self.getBodyDirection(), -90.0F);
    EXPECT_EQ(self.getGyroRate(), V(1.5F, -2, 0.25F));
}

TEST_F(WorldObjects, SelfCopyHasItsOwnBodyAndSharesTheLastPosition) {
    Self original(V(1, 2, 0), V(0.5F, 0, 0), V(0, 0, 1), 4.5F, 0.1F);
    original.getBody()->getLeftLeg()->getHingeJoint(3).setJointAlphaValue(-60);
    original.getBody()->getHead()->getHingeJoint(0).setJointAlphaValue(30);
    original.setBodyDirection(45);
    original.setGyroRate(V(1, 1, 1));
    original.setPolarPosition(V(2, 2, 2));
    int storage = 0;
    original.setLastCommand(reinterpret_cast<Command*>(&storage));

    const Self copy(&original);
    ASSERT_NE(copy.getBody(), original.getBody());
    EXPECT_EQ(copy.getBody()->getLeftLeg()->getKnee().getJointAlphaValue(), -60.0F);
    EXPECT_EQ(copy.getBody()->getHead()->getNeckX().getJointAlphaValue(), 30.0F);
    EXPECT_EQ(copy.getPosition(), V(1, 2, 0));
    EXPECT_EQ(copy.getVelocity(), V(0.5F, 0, 0));
    EXPECT_EQ(copy.getAcceleration(), V(0, 0, 1));
    EXPECT_EQ(copy.getMass(), 4.5F);
    EXPECT_EQ(copy.getMu(), 0.1F);
    EXPECT_EQ(copy.getBodyDirection(), 0.0F);
    EXPECT_EQ(copy.getGyroRate(), V());
    EXPECT_EQ(copy.getPolarPosition(), V());
    EXPECT_EQ(copy.getLastCommand(), nullptr);

    // Changing the copy's joints leaves the original alone.
    copy.getBody()->getLeftLeg()->getHingeJoint(3).setJointAlphaValue(10);
    EXPECT_EQ(original.getBody()->getLeftLeg()->getKnee().getJointAlphaValue(), -60.0F);

    const Self& constOriginal = original;
    const Self second(&constOriginal);
    EXPECT_EQ(second.getBody()->getLeftLeg()->getKnee().getJointAlphaValue(), -60.0F);

    EXPECT_EQ(Self::getLastPosition(), V());
    Self::setLastPosition(V(-3, 1, 0));
    EXPECT_EQ(Self::getLastPosition(), V(-3, 1, 0));
    {
        // Class-wide: it outlives every Self.
        Self replaced(&original);
        Self::setLastPosition(V(4, -2, 0));
    }
    EXPECT_EQ(Self::getLastPosition(), V(4, -2, 0));
    Self::resetState();
    EXPECT_EQ(Self::getLastPosition(), V());
}

TEST_F(WorldObjects, ShareResetClearsWithoutDeleting) {
    EXPECT_EQ(Share::lastCommand, nullptr);
    EXPECT_FALSE(Share::bodyDir);
    int storage = 0;  // not on the heap: deleting it would be reported by the sanitizer
    Share::lastCommand = reinterpret_cast<Command*>(&storage);
    Share::bodyDir = true;
    Share::resetState();
    EXPECT_EQ(Share::lastCommand, nullptr);
    EXPECT_FALSE(Share::bodyDir);
}
