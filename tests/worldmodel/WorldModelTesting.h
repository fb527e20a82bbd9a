#pragma once

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "support/Files.h"
#include "utilities/config/Config.h"
#include "utilities/logging/LogStream.h"
#include "utilities/logging/Logger.h"
#include "worldmodel/Self.h"
#include "worldmodel/Share.h"
#include "worldmodel/WorldModel.h"

inline const std::vector<std::string>& sampleMessages() {
    static const std::vector<std::string> lines =
        support::readLines(std::string(KORVEL_TEST_DATA_DIR) + "/server-messages-sample.txt");
    return lines;
}

// Every value a reader of the world model can see, flattened, so that two states compare with
// one assertion.
inline std::vector<double> snapshot(const WorldModel& wm) {
    std::vector<double> values;
    auto add = [&values](float v) { values.push_back(static_cast<double>(v)); };
    auto addVector = [&add](const math::Vector3<float>& v) {
        add(v.x);
        add(v.y);
        add(v.z);
    };
    add(wm.getTime());
    add(wm.getCycle());
    add(wm.getTimeStep());
    values.push_back(wm.getPlayMode());
    values.push_back(wm.getSide());
    add(wm.getXY());
    values.push_back(wm.getFlagsVisionSize());
    values.push_back(wm.isFallen() ? 1 : 0);
    const Self* self = wm.getSelf();
    addVector(self->getPosition());
    addVector(self->getPolarPosition());
    addVector(self->getGyroRate());
    add(self->getBodyDirection());
    const Body* body = self->getBody();
    for (const JointName& joint : JointNames::table()) {
        const HingeJoint& hinge = body->getHingeJoint(joint.part, joint.index);
        add(hinge.getJointAlphaValue());
        addVector(hinge.getVelocity());
    }
    for (const Leg* leg : {body->getLeftLeg(), body->getRightLeg()}) {
        addVector(leg->getFRPForce());
        addVector(leg->getFRPContactPoint());
    }
    addVector(wm.getBall()->getPosition());
    add(wm.getBall()->getRadius());
    values.push_back(wm.getBall()->getPositionCount());
    values.push_back(static_cast<double>(wm.getFlags().size()));
    addVector(Self::getLastPosition());
    values.push_back(Share::bodyDir ? 1 : 0);
    return values;
}

// A clean process state for every test: the configuration the world model reads (the current
// server's 30 x 20 m field), "Main" captured unstamped in `mainLog`, and the class-wide values
// of Self and Share at their start.
class WorldModelTest : public ::testing::Test {
protected:
    void SetUp() override {
        Config::resetState();
        Logger::resetState();
        Self::resetState();
        Share::resetState();
        setConfig("ServerInitialize", "Server", "OfflinePlaying", "true");
        setConfig("WorldModelParameters", "Field", "Length", "30");
        setConfig("WorldModelParameters", "Field", "Width", "20");
        setConfig("WorldModelParameters", "Field", "GoalWidth", "2.1");
        setConfig("WorldModelParameters", "Ball", "Radius", "0.042");
        logger.add("Main", new LogStream(&mainLog, nullptr), false);
    }

    void TearDown() override {
        Logger::resetState();
        Config::resetState();
        Self::resetState();
        Share::resetState();
    }

    static void setConfig(const std::string& name, const std::string& group, const std::string& key,
                          const std::string& value) {
        config.add(name);
        config[name].addGroup(group);
        config[name][group].add(key, value);
    }

    // Feeds messages `first` to `last` (1-based) of the sample recording, checking each is
    // taken in.
    static void feedSample(WorldModel& wm, std::size_t last, std::size_t first = 1) {
        ASSERT_LE(last, sampleMessages().size());
        for (std::size_t i = first - 1; i < last; ++i) {
            ASSERT_TRUE(wm.update(sampleMessages()[i])) << "message " << i + 1;
        }
    }

    std::ostringstream mainLog;
};
