#include "body/Body.h"

#include <gtest/gtest.h>

#include <fstream>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "body/JointNames.h"
#include "utilities/logging/LogStream.h"
#include "utilities/logging/Logger.h"
#include "utilities/parsing/SExpAtomic.h"
#include "utilities/parsing/SExpression.h"

namespace {

// Every joint of a body, in table order, with the table row it should answer to.
std::vector<const HingeJoint*> jointsOf(const Body& body) {
    std::vector<const HingeJoint*> joints;
    for (const JointName& row : JointNames::table()) {
        joints.push_back(&body.getHingeJoint(row.part, row.index));
    }
    return joints;
}

}  // namespace

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

TEST(JointNaming, LooksNamesUpBothWays) {
    for (const JointName& row : JointNames::table()) {
        EXPECT_EQ(JointNames::findByPerceptorName(row.perceptorName), &row);
        EXPECT_EQ(JointNames::findByEffectorName(row.effectorName), &row);
    }
    const JointName* knee = JointNames::findByPerceptorName("rlj4");
    ASSERT_NE(knee, nullptr);
    EXPECT_STREQ(knee->effectorName, "rle4");
    EXPECT_EQ(knee->part, BodyPart::RightLeg);
    EXPECT_EQ(knee->index, 3U);

    EXPECT_EQ(JointNames::findByPerceptorName("xyz"), nullptr);
    EXPECT_EQ(JointNames::findByPerceptorName("HJ1"), nullptr);
    EXPECT_EQ(JointNames::findByPerceptorName("hj"), nullptr);
    EXPECT_EQ(JointNames::findByPerceptorName("hj11"), nullptr);
    EXPECT_EQ(JointNames::findByPerceptorName(""), nullptr);
    EXPECT_EQ(JointNames::findByPerceptorName("he1"), nullptr);  // an effector name
    EXPECT_EQ(JointNames::findByEffectorName("hj1"), nullptr);   // a perceptor name

    EXPECT_EQ(JointNames::armEffectorName(sideRight, 0), "rae1");
    EXPECT_EQ(JointNames::armEffectorName(sideLeft, 3), "lae4");
    EXPECT_EQ(JointNames::armEffectorName(sideHead, 1), "lae2");
    EXPECT_EQ(JointNames::legEffectorName(sideRight, 5), "rle6");
    EXPECT_EQ(JointNames::legEffectorName(sideLeft, 2), "lle3");
}

TEST(JointNaming, ServerMessagesNameEveryJointOfTheTable) {
    std::ifstream in(std::string(KORVEL_TEST_DATA_DIR) + "/server-messages-sample.txt");
    int messages = 0;
    for (std::string line; std::getline(in, line);) {
        const auto root = SExpression::parse("(" + line + ")");
        std::set<const JointName*> seen;
        for (const SExpression* hj : (*root)["HJ"]) {
            const std::string name =
                (*hj->firstWithHeader("n"))[1]->as<SExpAtomic>().getValue().getValue();
            const JointName* row = JointNames::findByPerceptorName(name);
            EXPECT_NE(row, nullptr) << name;
            seen.insert(row);
        }
        EXPECT_EQ(seen.size(), 22U) << line;
        ++messages;
    }
    EXPECT_EQ(messages, 73);
}

TEST(BodyModel, NewBodyHasTwentyTwoJointsNamedByTheTableAtZero) {
    const Body body;
    const std::vector<const HingeJoint*> joints = jointsOf(body);
    for (std::size_t i = 0; i < joints.size(); ++i) {
        const JointName& row = JointNames::table()[i];
        EXPECT_EQ(joints[i]->getJointName(), row.effectorName);
        EXPECT_EQ(joints[i]->getJointAlphaValue(), 0.0F);
        EXPECT_EQ(joints[i]->getVelocity(), math::Vector3<float>());
    }
    EXPECT_EQ(body.getHead()->getSide(), 0);
    EXPECT_EQ(body.getRightArm()->getSide(), 2);
    EXPECT_EQ(body.getLeftArm()->getSide(), 1);
    EXPECT_EQ(body.getRightLeg()->getSide(), 2);
    EXPECT_EQ(body.getLeftLeg()->getSide(), 1);
    // The named accessors reach the same joints as the indices.
    EXPECT_EQ(body.getHead()->getNeckY().getJointName(), "he2");
    EXPECT_EQ(body.getRightArm()->getElbow().getJointName(), "rae3");
    EXPECT_EQ(body.getLeftArm()->getRotation().getJointName(), "lae4");
    EXPECT_EQ(body.getRightLeg()->getHipX().getJointName(), "rle2");
    EXPECT_EQ(body.getLeftLeg()->getFootY().getJointName(), "lle6");
    EXPECT_EQ(body.getLeftLeg()->getFRPForce(), math::Vector3<float>());
    EXPECT_EQ(body.getRightLeg()->getFRPContactPoint(), math::Vector3<float>());
}

TEST(BodyModel, LimbsNameTheirJointsBySide) {
    const Arm unknown(0);
    const Arm left(1);
    const Arm right(2);
    for (unsigned int i = 0; i < Arm::jointCount; ++i) {
        EXPECT_EQ(unknown.getHingeJoint(i).getJointName(), left.getHingeJoint(i).getJointName());
        EXPECT_EQ(left.getHingeJoint(i).getJointName(), "lae" + std::to_string(i + 1));
        EXPECT_EQ(right.getHingeJoint(i).getJointName(), "rae" + std::to_string(i + 1));
    }
    const Leg leg(7);  // any side but 2 is named like the left one
    EXPECT_EQ(leg.getKnee().getJointName(), "lle4");
    EXPECT_EQ(Leg(2).getRotation().getJointName(), "rle1");
    EXPECT_EQ(Head(0).getNeckX().getJointName(), "he1");
}

TEST(BodyModel, JointAnglesAndVelocities) {
    HingeJoint joint("rle4", 9.0F);
    joint.setJointAlphaValueAndVelocity(10.0F, 0.02F);
    EXPECT_FLOAT_EQ(joint.getJointAlphaValue(), 10.0F);
    EXPECT_FLOAT_EQ(joint.getVelocity().x, 50.0F);
    EXPECT_EQ(joint.getVelocity().y, 0.0F);
    EXPECT_EQ(joint.getVelocity().z, 0.0F);

    // A time step of 0 has no rate of change: the velocity stays, the angle is taken.
    joint.setJointAlphaValueAndVelocity(12.0F, 0.0F);
    EXPECT_FLOAT_EQ(joint.getJointAlphaValue(), 12.0F);
    EXPECT_FLOAT_EQ(joint.getVelocity().x, 50.0F);

    joint.setJointAlphaValueAndVelocity(11.0F, 0.5F);
    EXPECT_FLOAT_EQ(joint.getVelocity().x, -2.0F);

    const HingeJoint empty;
    EXPECT_EQ(empty.getJointName(), "");
    EXPECT_EQ(empty.getJointAlphaValue(), 0.0F);

    const HingeJoint copy(&joint);
    EXPECT_EQ(copy.getJointName(), "rle4");
    EXPECT_FLOAT_EQ(copy.getJointAlphaValue(), 11.0F);
    EXPECT_FLOAT_EQ(copy.getVelocity().x, -2.0F);

    const HingeJoint zero("a", 0.0F);
    EXPECT_FALSE(zero.isequal(HingeJoint("b", 1.0F), 1.0F));
    EXPECT_TRUE(zero.isequal(HingeJoint("b", 0.999F), 1.0F));
    EXPECT_TRUE(zero.isequal(HingeJoint("b", -0.999F), 1.0F));
    EXPECT_FALSE(zero.isequal(HingeJoint("b", -1.0F), 1.0F));
    const HingeJoint near("c", 0.5F);
    EXPECT_TRUE(zero.isequal(&near, 0.6F));
    EXPECT_FALSE(zero.isequal(&near, 0.5F));
}

TEST(BodyModel, FullJointConstructorCarriesThePhysicalFields) {
    const Joint joint("lle1", 0.05F, {1, 2, 3}, {4, 5, 6}, {7, 8, 9}, {10, 11, 12}, {13, 14, 15},
                      {16, 17, 18}, 0.5F, 0.25F);
    EXPECT_EQ(joint.getJointName(), "lle1");
    EXPECT_EQ(joint.getRadius(), 0.05F);
    EXPECT_EQ(joint.getLength(), math::Vector3<float>(1, 2, 3));
    EXPECT_EQ(joint.getInertia(), math::Vector3<float>(4, 5, 6));
    EXPECT_EQ(joint.getExternalForce(), math::Vector3<float>(7, 8, 9));
    EXPECT_EQ(joint.getPosition(), math::Vector3<float>(10, 11, 12));
    EXPECT_EQ(joint.getVelocity(), math::Vector3<float>(13, 14, 15));
    EXPECT_EQ(joint.getAcceleration(), math::Vector3<float>(16, 17, 18));
    EXPECT_EQ(joint.getMass(), 0.5F);
    EXPECT_EQ(joint.getMu(), 0.25F);
    const Joint named("x");
    EXPECT_EQ(named.getRadius(), 0.0F);
    EXPECT_EQ(named.getMass(), 0.0F);
    EXPECT_EQ(named.getLength(), math::Vector3<float>());
}

TEST(BodyModel, SetHingeJointCopiesWholeJointsAndIgnoresBadIndices) {
    Leg leg(sideRight);
    HingeJoint moved("other", 33.0F);
    moved.setVelocity({4, 0, 0});
    moved.setRadius(0.1F);
    leg.setHingeJoint(3, moved);
    EXPECT_EQ(leg.getKnee().getJointName(), "other");
    EXPECT_EQ(leg.getKnee().getJointAlphaValue(), 33.0F);
    EXPECT_EQ(leg.getKnee().getVelocity().x, 4.0F);
    EXPECT_EQ(leg.getKnee().getRadius(), 0.1F);

    const Leg before = leg;
    leg.setHingeJoint(6, HingeJoint("x", 99.0F));
    EXPECT_TRUE(leg.isequal(before, 0.001F));
    for (unsigned int i = 0; i < Leg::jointCount; ++i) {
        EXPECT_EQ(leg.getHingeJoint(i).getJointName(), before.getHingeJoint(i).getJointName());
    }

    Head head(sideHead);
    head.setHingeJoint(1, HingeJoint("he2", -7.0F));
    head.setHingeJoint(2, HingeJoint("x", 99.0F));
    EXPECT_EQ(head.getNeckY().getJointAlphaValue(), -7.0F);
    EXPECT_EQ(head.getNeckX().getJointAlphaValue(), 0.0F);
    // Head and arm answer an index beyond them with joint 0; so does the leg.
    head.setNeckX(HingeJoint("he1", 5.0F));
    EXPECT_EQ(&head.getHingeJoint(2), &head.getHingeJoint(0));
    EXPECT_EQ(head.getHingeJoint(9).getJointAlphaValue(), 5.0F);
    Arm arm(sideLeft);
    arm.setShoulderX(HingeJoint("lae1", 3.0F));
    arm.setHingeJoint(4, HingeJoint("x", 99.0F));
    EXPECT_EQ(arm.getHingeJoint(4).getJointAlphaValue(), 3.0F);
    EXPECT_EQ(&leg.getHingeJoint(6), &leg.getHingeJoint(0));

    // Writing through the non-const accessor changes the limb itself.
    arm.getHingeJoint(2).setJointAlphaValue(-45.0F);
    EXPECT_EQ(arm.getElbow().getJointAlphaValue(), -45.0F);
}

TEST(BodyModel, LimbComparisonStopsAtTheFirstDifferenceAndBodyIgnoresTheHead) {
    Body a;
    Body b;
    EXPECT_TRUE(a.isequal(b, 0.5F));

    b.getHead()->getHingeJoint(0).setJointAlphaValue(80.0F);
    b.getHead()->getHingeJoint(1).setJointAlphaValue(-30.0F);
    EXPECT_TRUE(a.isequal(b, 0.5F));
    EXPECT_TRUE(a.isequal(&b, 0.5F));
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

TEST(BodyModel, BodyAccessorsReachTheMembersAndSettersCopyLimbsIn) {
    Body body;
    Leg leg(sideLeft);
    leg.setFRPForce({1, 2, 22.5F});
    leg.setFRPContactPoint({0.01F, -0.02F, -0.03F});
    leg.setHipY(HingeJoint("lle3", 25.0F));
    body.setLeftLeg(leg);
    EXPECT_EQ(body.getLeftLeg()->getFRPForce(), math::Vector3<float>(1, 2, 22.5F));
    EXPECT_EQ(body.getLeftLeg()->getFRPContactPoint(), math::Vector3<float>(0.01F, -0.02F, -0.03F));
    EXPECT_EQ(body.getHingeJoint(BodyPart::LeftLeg, 2).getJointAlphaValue(), 25.0F);
    EXPECT_EQ(body.getRightLeg()->getFRPForce(), math::Vector3<float>());

    body.getRightArm()->setElbow(HingeJoint("rae3", 12.0F));
    EXPECT_EQ(body.getHingeJoint(BodyPart::RightArm, 2).getJointAlphaValue(), 12.0F);
    EXPECT_EQ(body.getHingeJoint(BodyPart::LeftArm, 2).getJointAlphaValue(), 0.0F);

    Head head(sideHead);
    head.setNeckX(HingeJoint("he1", 40.0F));
    body.setHead(head);
    EXPECT_EQ(body.getHingeJoint(BodyPart::Head, 0).getJointAlphaValue(), 40.0F);

    // Limbs copy by value: the body keeps its own joints.
    leg.setHipY(HingeJoint("lle3", -1.0F));
    EXPECT_EQ(body.getLeftLeg()->getHipY().getJointAlphaValue(), 25.0F);
    const Leg fromPointer(body.getLeftLeg());
    EXPECT_EQ(fromPointer.getHipY().getJointAlphaValue(), 25.0F);
    const Arm armCopy(body.getRightArm());
    EXPECT_EQ(armCopy.getElbow().getJointAlphaValue(), 12.0F);
    const Head headCopy(body.getHead());
    EXPECT_EQ(headCopy.getNeckX().getJointAlphaValue(), 40.0F);
}

TEST(BodyModel, LegIndexBeyondItsJointsIsExplainedOnMain) {
    Logger::resetState();
    std::ostringstream text;
    logger.add("Main", new LogStream(&text, nullptr), false);
    Leg leg(sideLeft);
    leg.setRotation(HingeJoint("lle1", 8.0F));
    EXPECT_EQ(leg.getHingeJoint(0).getJointAlphaValue(), 8.0F);
    EXPECT_EQ(text.str(), "");
    const Leg& constLeg = leg;
    EXPECT_EQ(&constLeg.getHingeJoint(6), &constLeg.getHingeJoint(0));
    EXPECT_EQ(&leg.getHingeJoint(99), &leg.getHingeJoint(0));
    EXPECT_EQ(text.str(),
              "Leg::getHingeJoint: no joint 6 in a leg of 6 joints; answering joint 0\n"
              "Leg::getHingeJoint: no joint 99 in a leg of 6 joints; answering joint 0\n");
    Logger::resetState();
}
