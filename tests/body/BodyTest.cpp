#include "body/Body.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "body/JointNames.h"

TEST(JointNaming, TableListsEveryJointOnceInPerceptorOrder) {
    const std::vector<std::string> perceptors = {
        "hj1",  "hj2",  "laj1", "laj2", "laj3", "laj4", "raj1", "raj2", "raj3", "raj4", "llj1",
        "llj2", "llj3", "llj4", "llj5", "llj6", "rlj1", "rlj2", "rlj3", "rlj4", "rlj5", "rlj6"};
    const std::vector<std::string> effectors = {
        "he1",  "he2",  "lae1", "lae2", "lae3", "lae4", "rae1", "rae2", "rae3", "rae4", "lle1",
        "lle2", "lle3", "lle4", "lle5", "lle6", "rle1", "rle2", "rle3", "rle4", "rle5", "rle6"};
    const auto& table = JointNames::table();
    ASSERT_EQ(table.size(), perceptors.size());
    std::set<std::pair<int, unsigned int>> places;
    for (std::size_t i = 0; i < table.size(); ++i) {
        EXPECT_EQ(table[i].perceptorName, perceptors[i]);
        EXPECT_EQ(table[i].effectorName, effectors[i]);
        places.insert({static_cast<int>(table[i].part), table[i].index});
    }
    EXPECT_EQ(places.size(), 22U);  // no two rows name the same joint
    EXPECT_EQ(table[5].part, BodyPart::LeftArm);
    EXPECT_EQ(table[5].index, 3U);
    EXPECT_EQ(table[21].part, BodyPart::RightLeg);
    EXPECT_EQ(table[21].index, 5U);
}

TEST(BodyModel, LimbComparisonStopsAtTheFirstDifferenceAndBodyIgnoresTheHead) {
    Body a;
    Body b;
    EXPECT_TRUE(a.isequal(b, 0.5F));

    b.getHead()->getHingeJoint(0).setJointAlphaValue(80.0F);
    b.getHead()->getHingeJoint(1).setJointAlphaValue(-30.0F);
    EXPECT_TRUE(a.isequal(b, 0.5F));
    EXPECT_FALSE(a.getHead()->isequal(b.getHead(), 0.5F));

    for (const JointName& row : JointNames::table()) {
        if (row.part == BodyPart::Head) {
            continue;
        }
        Body c;
        c.getHingeJoint(row.part, row.index).setJointAlphaValue(1.0F);
        EXPECT_FALSE(a.isequal(c, 1.0F)) << row.perceptorName;
        EXPECT_TRUE(a.isequal(c, 1.01F)) << row.perceptorName;
    }

    Arm arm(sideRight);
    Arm other(sideLeft);  // names do not matter, angles do
    EXPECT_TRUE(arm.isequal(&other, 0.1F));
    other.setRotation(HingeJoint("lae4", 2.0F));
    EXPECT_FALSE(arm.isequal(other, 0.1F));
    EXPECT_TRUE(arm.isequal(other, 2.5F));
}
