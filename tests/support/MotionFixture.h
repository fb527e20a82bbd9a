#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "commands/Command.h"
#include "support/MotionWorld.h"
#include "worldmodel/WorldModel.h"

namespace motiontest {

// A test of skills or plans against a scripted world: the test skill data are installed, every
// class-wide skill and plan state is reset, and each cycle feeds one perceptor message to a fresh
// world model. By default the robot tracks its targets: each message shows the left shoulder at the
// target of the previous cycle's command, so a skill moves on by one key frame per cycle.
class MotionFixture : public ::testing::Test {
protected:
    void SetUp() override {
        installSkillData();
        resetSkillState();
        scene.vision = false;
    }

    // Sends the next message (0.02 s after the previous one). With `track` the left shoulder
    // shows the previous command's target; otherwise it shows `shown`.
    void perceive(bool track = true, float shown = 0.0F) {
        scene.time += 0.02F;
        scene.joints["laj1"] = track ? lastMarker : shown;
        wm.update(message(scene));
    }

    // One cycle of the plan P: perceive, build, decide, take the command.
    template <class P>
    std::unique_ptr<Command> cycle(const std::string& name, bool track = true) {
        perceive(track);
        P plan(name, &wm);
        plan.decide();
        auto command = take(plan.getCommand());
        EXPECT_NE(command, nullptr);
        return command;
    }

    // Takes over a command handed out by a skill or plan and remembers its marker.
    std::unique_ptr<Command> take(Command* command) {
        std::unique_ptr<Command> owned(command);
        if (owned) {
            lastMarker = markerOf(*owned);
        }
        return owned;
    }

    WorldModel wm;
    Scene scene;
    float lastMarker = 0.0F;
};

}  // namespace motiontest
