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

// What a reader of the world model sees, flattened, so that two states compare with one
// assertion: time, game state, localisation, every joint angle and velocity, foot pressure, ball.
inline std::vector<double> snapshot(const WorldModel& wm) {
    const Self* self = wm.getSelf();
    std::vector<double> values{wm.getTime(),
                               wm.getCycle(),
                               wm.getTimeStep(),
                               static_cast<double>(wm.getPlayMode()),
                               static_cast<double>(wm.getSide()),
                               wm.getXY(),
                               static_cast<double>(wm.getFlagsVisionSize()),
                               self->getBodyDirection(),
                               wm.getBall()->getRadius(),
                               static_cast<double>(wm.getBall()->getPositionCount())};
    std::vector<math::Vector3<float>> vectors{
        self->getPosition(),         self->getPolarPosition(), self->getGyroRate(),
        wm.getBall()->getPosition(), Self::getLastPosition(),  wm.getAttitude().getAcceleration()};
    for (const JointName& joint : JointNames::table()) {
        const HingeJoint& hinge = self->getBody()->getHingeJoint(joint.part, joint.index);
        values.push_back(hinge.getJointAlphaValue());
        vectors.push_back(hinge.getVelocity());
    }
    for (const Leg* leg : {self->getBody()->getLeftLeg(), self->getBody()->getRightLeg()}) {
        vectors.push_back(leg->getFRPForce());
        vectors.push_back(leg->getFRPContactPoint());
    }
    for (const math::Vector3<float>& v : vectors) {
        values.insert(values.end(), {v.x, v.y, v.z});
    }
    values.push_back(wm.isFallen() ? 1 : 0);
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
