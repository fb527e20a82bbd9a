// The world model fed with real server messages (tests/data/server-messages-sample.txt: the
// robot is dropped at the centre spot facing +y, then beamed to (-14, 0) facing +x, where it
// stands while only the neck pan joint turns).
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

#include "worldmodel/WorldModelTesting.h"

namespace {

// Message n (1-based) of the sample recording.
const std::string& sample(std::size_t n) {
    return sampleMessages().at(n - 1);
}

// The number after "(now " in a real message.
float nowOf(const std::string& message) {
    const std::size_t at = message.find("(now ");
    return std::strtof(message.c_str() + at + 5, nullptr);
}

}  // namespace

TEST_F(WorldModelTest, EveryRecordedMessageIsTakenIn) {
    for (const char* file : {"server-messages-sample.txt", "real-session-3200.txt"}) {
        Self::resetState();
        WorldModel wm;
        const std::vector<std::string> messages =
            support::readLines(std::string(KORVEL_TEST_DATA_DIR) + "/" + file);
        ASSERT_FALSE(messages.empty()) << file;
        for (std::size_t i = 0; i < messages.size(); ++i) {
            ASSERT_TRUE(wm.update(messages[i])) << file << " message " << i + 1;
            ASSERT_EQ(wm.getTime(), nowOf(messages[i])) << file << " message " << i + 1;
            for (double value : snapshot(wm)) {
                ASSERT_TRUE(std::isfinite(value)) << file << " message " << i + 1;
            }
        }
        EXPECT_EQ(mainLog.str().find("dropped"), std::string::npos) << file;
    }
}

TEST_F(WorldModelTest, GameStateOfTheRightTeamAfterKickOff) {
    WorldModel wm;
    ASSERT_TRUE(wm.update("(time (now 12.34))(GS (t 0.00) (pm BeforeKickOff))"));
    EXPECT_EQ(wm.getSide(), 0);
    ASSERT_TRUE(
        wm.update("(time (now 12.36))(GS (unum 2) (team right) (t 3.50) (pm KickOff_Left))"));
    EXPECT_EQ(wm.getSide(), 2);
    EXPECT_EQ(wm.getPlayMode(), InPlay);
    EXPECT_FLOAT_EQ(wm.getCycle(), 3.5F);
    ASSERT_TRUE(wm.update("(time (now 12.38))(GS (t 3.52) (pm PlayOn))"));
    EXPECT_EQ(wm.getSide(), 2);
    // A message without "GS" keeps the game state.
    ASSERT_TRUE(wm.update("(time (now 12.40))(GYR (n torso) (rt 1.5 -2 0.25))"));
    EXPECT_FLOAT_EQ(wm.getCycle(), 3.52F);
    EXPECT_EQ(wm.getSelf()->getGyroRate(), math::Vector3<float>(1.5F, -2.0F, 0.25F));
}

TEST_F(WorldModelTest, JointVelocityIsTheChangeOverTheTimeStep) {
    WorldModel wm;
    feedSample(wm, 17);  // hj1 1.15 at 6.38, then 2.29 at 6.40
    const HingeJoint& pan = wm.getSelf()->getBody()->getHead()->getHingeJoint(0);
    EXPECT_FLOAT_EQ(pan.getVelocity().x, (2.29F - 1.15F) / (6.40F - 6.38F));
    EXPECT_EQ(pan.getVelocity().y, 0.0F);

    // A second message at the same time gives no rate of change: the velocity stays.
    const float velocity = pan.getVelocity().x;
    std::string again = sample(17);
    again.replace(again.find("(ax 2.29)"), 9, "(ax 5.00)");
    ASSERT_TRUE(wm.update(again));
    EXPECT_EQ(wm.getTimeStep(), 0.0F);
    EXPECT_EQ(pan.getJointAlphaValue(), 5.0F);
    EXPECT_EQ(pan.getVelocity().x, velocity);
}

TEST_F(WorldModelTest, LogsEveryMessageOnMain) {
    WorldModel wm;
    ASSERT_TRUE(wm.update(sample(1)));
    mainLog.str("");
    ASSERT_TRUE(wm.update(sample(2)));
    EXPECT_EQ(mainLog.str(),
              "\nTime: 6.1\t---------------------------------------- Cycle: 0 "
              "---------------------------------------\tPlayModeT: 0\n");
}

TEST_F(WorldModelTest, NonNumbersReadAsZero) {
    WorldModel wm;
    feedSample(wm, 2);
    ASSERT_TRUE(
        wm.update("(time (now 6.12))(GYR (n torso) (rt nan inf 1.5))(HJ (n hj1) (ax abc))"
                  "(HJ (n hj2) (ax 1e999))(HJ (n xyz) (ax 30))"));
    EXPECT_EQ(wm.getSelf()->getGyroRate(), math::Vector3<float>(0.0F, 0.0F, 1.5F));
    EXPECT_EQ(wm.getSelf()->getBody()->getHead()->getHingeJoint(0).getJointAlphaValue(), 0.0F);
    EXPECT_EQ(wm.getSelf()->getBody()->getHead()->getHingeJoint(1).getJointAlphaValue(), 0.0F);
}
