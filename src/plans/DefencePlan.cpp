#include "plans/DefencePlan.h"

#include <utility>

#include "commands/Command.h"
#include "skills/sidewalk/BasicSideWalk.h"
#include "skills/standup/BasicStandUp.h"
#include "skills/style/BasicStyle.h"
#include "worldmodel/FallRule.h"
#include "worldmodel/WorldModel.h"

bool DefencePlan::first = true;
std::string DefencePlan::name;
math::Point DefencePlan::mPoint(0.0F, 0.0F, 0.0F);

DefencePlan::DefencePlan(std::string name, const WorldModel* wm)
    : AdvancePlan(std::move(name), wm) {}

bool DefencePlan::isFinished() {
    return true;
}

double DefencePlan::successRate() {
    return 0.0;
}

void DefencePlan::decide() {
    if (first) {
        BasicStyle style(*wm, false);
        command = style.getCommand();
        if (style.isFinished()) {
            first = false;
        }
    }
    if (wm->getFallRule() == FallRule::Attitude && standUpAfterFall()) {
        return;
    }
    BasicSideWalk sideWalk(*wm, wm->getBall()->getPosition().getY(), false);
    delete command;
    command = sideWalk.getCommand();
}

bool DefencePlan::standUpAfterFall() {
    if (name == "standup") {
        BasicStandUp standUp(*wm, false, false);
        if (!standUp.isFinished()) {
            delete command;
            command = standUp.getCommand();
            return true;
        }
        delete standUp.getCommand();
        name.clear();
    }
    if (!wm->isFallen()) {
        return false;
    }
    Command::setTime(-1.0F);
    BasicStandUp standUp(*wm, true, false);
    delete command;
    command = standUp.getCommand();
    name = "standup";
    return true;
}

void DefencePlan::resetState() {
    first = true;
    name.clear();
    mPoint = math::Point(0.0F, 0.0F, 0.0F);
}
