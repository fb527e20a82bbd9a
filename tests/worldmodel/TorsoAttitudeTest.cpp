// The fall rule `Attitude`: the torso's accelerometer and gyroscope, message by message, against
// known answers (fallen or up after each message, and the side the robot lies on). Sequences
// come from the recorded session where the robot stands, falls onto its back and flails there
// for 55 s, or are built the way the server reports a robot that walks, lies or falls.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "support/Expected.h"
#include "worldmodel/FallRule.h"
#include "worldmodel/WorldModelTesting.h"

namespace {

// The message that carries the accelerometer's and gyroscope's readings (time in seconds,
// rates in degrees per second, acceleration in m/s^2), as the server writes them.
struct Reading {
    float ax, ay, az;
    float rx, ry, rz;
};

std::string messageAt(int index, const Reading& r) {
    char text[160];
    std::snprintf(text, sizeof text,
                  "(time (now %.2f))(GYR (n torso) (rt %.2f %.2f %.2f))(ACC (n torso) (a %.2f "
                  "%.2f %.2f))",
                  1.0 + 0.02 * index, static_cast<double>(r.rx), static_cast<double>(r.ry),
                  static_cast<double>(r.rz), static_cast<double>(r.ax), static_cast<double>(r.ay),
                  static_cast<double>(r.az));
    return text;
}

constexpr Reading kUpright{0.0F, 0.0F, 9.81F, 0.0F, 0.0F, 0.0F};

// `count` messages of one reading.
std::vector<std::string> hold(const Reading& r, int count, std::vector<std::string> before = {}) {
    for (int i = 0; i < count; ++i) {
        before.push_back(messageAt(static_cast<int>(before.size()), r));
    }
    return before;
}

// Lines `first` to `last` (1-based) of the recorded session.
std::vector<std::string> recorded(std::size_t first, std::size_t last) {
    static const std::vector<std::string> all =
        support::readLines(std::string(KORVEL_TEST_DATA_DIR) + "/real-session-3200.txt");
    return {all.begin() + static_cast<long>(first) - 1, all.begin() + static_cast<long>(last)};
}

// Walking in place of a gait: the torso sways +-3 degrees sideways (1 Hz) and +-2 degrees
// forward (2 Hz), the gyroscope showing the swaying; each foot strike (every 0.25 s) shakes the
// accelerometer by up to 6 m/s^2.
std::vector<std::string> walking(int count) {
    std::vector<std::string> out;
    constexpr double kTwoPi = 6.283185307179586;
    for (int i = 0; i < count; ++i) {
        const double t = 0.02 * i;
        const double side = 3.0 * std::sin(kTwoPi * t) / 57.29578;
        const double forward = 2.0 * std::sin(2.0 * kTwoPi * t) / 57.29578;
        const double strike = (i % 12 == 0) ? 6.0 : 0.0;
        const Reading r{static_cast<float>(-9.81 * std::sin(side) + 0.5 * strike),
                        static_cast<float>(-9.81 * std::sin(forward) - strike),
                        static_cast<float>(9.81 * std::cos(side) * std::cos(forward) + strike),
                        static_cast<float>(-2.0 * 2.0 * kTwoPi * std::cos(2.0 * kTwoPi * t)),
                        static_cast<float>(3.0 * kTwoPi * std::cos(kTwoPi * t)),
                        0.0F};
        out.push_back(messageAt(i, r));
    }
    return out;
}

struct Case {
    const char* name;
    std::vector<std::string> messages;
    // The messages (0-based) after which the answer changes, the first to fallen.
    std::vector<std::size_t> changes;
    // The side a stand-up begun after the last message would take: 'F' front, 'B' back, '-'
    // (standing) not asked.
    char side;
};

class TorsoAttitudeTest : public WorldModelTest {
protected:
    void SetUp() override {
        WorldModelTest::SetUp();
        setConfig("WorldModelParameters", "Fall", "Rule", "Attitude");
    }
};

TEST_F(TorsoAttitudeTest, KnownSequencesGiveTheKnownAnswerAfterEveryMessage) {
    // Pitching forward at 150 degrees per second from upright, the accelerometer useless while
    // the robot drops (about 0.3 g), then lying face down: the tilt passes 60 degrees with the
    // 21st turning message (63 degrees) and the fall stands 0.06 s later.
    std::vector<std::string> falling = hold(kUpright, 10);
    falling = hold({0.0F, 1.0F, 2.8F, -150.0F, 0.0F, 0.0F}, 30, falling);
    falling = hold({0.0F, -9.81F, 0.0F, 0.0F, 0.0F, 0.0F}, 10, falling);
    // Lying on the back, then pushed up at 180 degrees per second (the accelerometer thrown
    // about): below 35 degrees with the 16th turning message (32 degrees), up 0.04 s later.
    std::vector<std::string> rising = hold({0.0F, 9.81F, 0.0F, 0.0F, 0.0F, 0.0F}, 10);
    rising = hold({3.0F, 3.0F, 3.0F, -180.0F, 0.0F, 0.0F}, 25, rising);
    rising = hold(kUpright, 10, rising);
    // One reading spiked on every axis (a collision) among upright ones: the accelerometer
    // shows 1 g as if lying face down.
    std::vector<std::string> spike = hold(kUpright, 10);
    spike = hold({0.0F, -9.5F, 2.0F, 600.0F, -400.0F, 300.0F}, 1, spike);
    spike = hold(kUpright, 20, spike);
    std::vector<std::string> recordedFall = recorded(381, 3200);

    const std::vector<Case> cases = {
        {"upright and still (recorded)", recorded(41, 140), {}, '-'},
        {"walking", walking(300), {}, '-'},
        {"one spiked reading", spike, {}, '-'},
        // The first trusted reading starts the estimate; fallen 0.06 s later.
        {"lying face down", hold({0.0F, -9.81F, 0.0F, 0.0F, 0.0F, 0.0F}, 10), {3}, 'F'},
        {"lying on the back", hold({0.0F, 9.81F, 0.0F, 0.0F, 0.0F, 0.0F}, 10), {3}, 'B'},
        {"lying on the left side", hold({9.81F, 0.5F, 0.0F, 0.0F, 0.0F, 0.0F}, 10), {3}, 'B'},
        {"lying on the right side", hold({-9.81F, -0.5F, 0.0F, 0.0F, 0.0F, 0.0F}, 10), {3}, 'F'},
        {"mid-fall, forward", falling, {10 + 20 + 3}, 'F'},
        {"getting up from the back", rising, {3, 10 + 15 + 2}, '-'},
        // Lines 381-3200: standing until 8.48 s, then thrown about; the tilt passes 60 degrees
        // at 9.26 s (line 441), fallen at 9.32 s (line 444), never up again while it flails on
        // its back.
        {"recorded fall onto the back", recordedFall, {444 - 381}, 'B'},
    };
    for (const Case& c : cases) {
        WorldModel wm;
        std::size_t next = 0;
        bool expected = false;
        for (std::size_t i = 0; i < c.messages.size(); ++i) {
            ASSERT_TRUE(wm.update(c.messages[i])) << c.name << ", message " << i;
            if (next < c.changes.size() && c.changes[next] == i) {
                expected = !expected;
                ++next;
            }
            ASSERT_EQ(wm.isFallen(), expected)
                << c.name << ", message " << i << ", tilt " << wm.getAttitude().getTilt();
        }
        if (c.side != '-') {
            EXPECT_EQ(wm.getAttitude().liesOnBack() ? 'B' : 'F', c.side) << c.name;
        }
    }
}

TEST_F(TorsoAttitudeTest, AMessageWithoutTheAccelerometerKeepsTheLastReading) {
    WorldModel wm;
    for (const std::string& m : hold({0.0F, -9.81F, 0.0F, 0.0F, 0.0F, 0.0F}, 4)) {
        ASSERT_TRUE(wm.update(m));
    }
    ASSERT_TRUE(wm.isFallen());
    ASSERT_TRUE(wm.update("(time (now 1.08))(GYR (n torso) (rt 0.00 0.00 0.00))"));
    EXPECT_EQ(wm.getAttitude().getAcceleration(), math::Vector3<float>(0.0F, -9.81F, 0.0F));
    EXPECT_TRUE(wm.isFallen());
}

// "WorldModelParameters" / "Fall" / "Rule" chooses the fall rule; a value other than the two
// names stops the player naming the file, the line and the key.
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
