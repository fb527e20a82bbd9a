#include <gtest/gtest.h>

#include "body/Body.h"
#include "commands/Command.h"
#include "skills/BasicAction.h"

namespace {

// The smallest skill: builds a resting command, or drops it.
class RestAction : public BasicAction {
public:
    explicit RestAction(bool dropCommand) : BasicAction(dropCommand) {
        const Body body;
        command = new Command(&body);
        ++built;
        if (dropCommand) {
            delete command;
            command = nullptr;
        }
    }
    Command* getCommand() override { return command; }
    void reachGoal() { setSuccessRate(100.0F); }

    static int built;

private:
    Command* command = nullptr;
};

int RestAction::built = 0;

TEST(BasicActionTest, StartsWithNoSuccessAndFinished) {
    RestAction action(false);
    EXPECT_EQ(action.getSuccessRate(), 0.0F);
    EXPECT_TRUE(action.isFinished());
    EXPECT_TRUE(action.isCurrentSkillFinished());
    EXPECT_FALSE(action.isDropCommand());
    action.reachGoal();
    EXPECT_EQ(action.getSuccessRate(), 100.0F);
    Command* command = action.getCommand();
    ASSERT_NE(command, nullptr);
    delete command;  // the caller owns it
}

TEST(BasicActionTest, DroppedCommandStillAdvancesTheState) {
    RestAction::built = 0;
    RestAction dropped(true);
    EXPECT_TRUE(dropped.isDropCommand());
    EXPECT_EQ(RestAction::built, 1);
    BasicAction& base = dropped;
    EXPECT_EQ(base.getCommand(), nullptr);
}

}  // namespace
