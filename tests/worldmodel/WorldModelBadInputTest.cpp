// Messages that cannot be read are dropped whole: one line on "Main" says why and nothing of
// the message is applied. Each bad message is a real one (message 16 of the sample: vision
// with the ball, a new neck angle, foot pressure) with one fault put in, fed after messages 1
// to 15, so that applying any part of it would show.
#include <gtest/gtest.h>

#include "utilities/parsing/SExpression.h"
#include "worldmodel/WorldModelTesting.h"

namespace {

std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    if (at != std::string::npos) {
        text.replace(at, from.size(), to);
    }
    return text;
}

}  // namespace

class WorldModelBadInputTest : public WorldModelTest {
protected:
    void SetUp() override {
        WorldModelTest::SetUp();
        feedSample(wm, 15);
        mainLog.str("");
    }

    // Feeds `message` and checks that it is dropped with the line `"Message dropped (last
    // time 6.36, cycle 0): " + why` and that no reader sees any change.
    void expectDropped(const std::string& message, const std::string& why) {
        const std::vector<double> before = snapshot(wm);
        EXPECT_FALSE(wm.update(message));
        EXPECT_EQ(mainLog.str(), "Message dropped (last time 6.36, cycle 0): " + why + "\n");
        EXPECT_EQ(snapshot(wm), before);
        mainLog.str("");
    }

    const std::string& good = sampleMessages().at(15);
    WorldModel wm;
};

TEST_F(WorldModelBadInputTest, BadMessagesAreDroppedWholeWithTheReason) {
    // The last joint of the message: a reader that applied as it went would have moved 21.
    const std::string lastJoint = good.substr(0, good.rfind("(HJ (n llj6) (ax "));
    const std::pair<std::string, std::string> cases[] = {
        {good.substr(0, good.size() / 2), "unbalanced parentheses: a list is not closed"},
        {good + ")", "unbalanced parentheses: a \")\" closes nothing"},
        {replaced(good, "(HJ (n hj2) (ax 0.00))", "(HJ (n hj2) (ax 0.00)))(x"),
         "unbalanced parentheses: a \")\" closes nothing"},
        {std::string(300, '(') + std::string(300, ')') + good, "lists nested too deep"},
        {replaced(good, "(time (now 6.38))", ""), "no \"time\""},
        {"", "no \"time\""},
        {replaced(good, "(time (now 6.38))", "(time (then 6.38))"), "\"time\" without \"now\""},
        {replaced(good, "(now 6.38)", "(now (6.38))"), "\"now\" needs 1 value"},
        {replaced(good, "(t 0.00) ", ""), "\"GS\" without \"t\""},
        {replaced(good, "(pm BeforeKickOff)", "(pm)"), "\"pm\" needs 1 value"},
        {replaced(good, "(rt 0.00 0.00 -0.09)", "(rt 0.00 0.00)"), "\"rt\" needs 3 values"},
        {replaced(good, "(GYR (n torso) (rt 0.00 0.00 -0.09))", "(GYR (n torso))"),
         "\"GYR\" without \"rt\""},
        {replaced(good, "(a -0.00 0.00 9.67)", ""), "\"ACC\" without \"a\""},
        {replaced(good, "(a -0.00 0.00 9.67)", "(a 0.00 9.81)"), "\"a\" needs 3 values"},
        {lastJoint + "(HJ (n llj6) (ax (0.00)))", "\"ax\" needs 1 value"},
        {lastJoint + "(HJ (n llj6))", "\"HJ\" without \"ax\""},
        {lastJoint + "(HJ (ax 0.00))", "\"HJ\" without \"n\""},
        {lastJoint + "(HJ (n) (ax 0.00))", "\"n\" needs 1 value"},
        {replaced(good, "(FRP (n lf) (c ", "(FRP (n lf) (cc "), "\"FRP\" without \"c\""},
        {good + "(FRP (n rf) (c 0 0 0))", "\"FRP\" without \"f\""},
        {replaced(good, "(B (pol 14.04 -3.02 -2.22))",
                  "(B (pol 14.04 -3.02 -2.22)) (B (pol 1 2 3))"),
         "\"See\" has 2 \"B\" lists"},
        {replaced(good, "(B (pol 14.04 -3.02 -2.22))", "(B (pol 14.04 -3.02))"),
         "\"pol\" needs 3 values"},
        {replaced(good, "(B (pol 14.04 -3.02 -2.22))", "(B)"),
         "\"B\" needs exactly one \"pol\", has 0"},
        {replaced(good, "(F1R (pol 30.77 16.02 -1.02))",
                  "(F1R (pol 30.77 16.02 -1.02) (pol 30.77 16.02 -1.02))"),
         "\"F1R\" needs exactly one \"pol\", has 2"},
        {replaced(good, "(G1R (pol 29.05 -0.88 0.56))", "(G1R (pol 29.05 x (0.56)))"),
         "\"pol\" needs 3 values"},
    };
    for (const auto& [message, why] : cases) {
        expectDropped(message, why);
    }
    // The next good message is taken in whole.
    ASSERT_TRUE(wm.update(good));
    EXPECT_FLOAT_EQ(wm.getTime(), 6.38F);
    EXPECT_FLOAT_EQ(wm.getSelf()->getBody()->getHead()->getHingeJoint(0).getJointAlphaValue(),
                    1.15F);
}

TEST_F(WorldModelBadInputTest, OnlyTheFirstListOfALandmarkCounts) {
    // A second, malformed list of a landmark already read is not looked at.
    ASSERT_TRUE(wm.update(
        replaced(good, "(F1R (pol 30.77 16.02 -1.02))", "(F1R (pol 30.77 16.02 -1.02)) (F1R)")));
    EXPECT_EQ(wm.getFlagsVisionSize(), 4);
}
