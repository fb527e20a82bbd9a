#include "plans/DefencePlan.h"

#include <utility>

#include "commands/Command.h"
#include "skills/sidewalk/BasicSideWalk.h"
#include "skills/style/BasicStyle.h"
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
    BasicSideWalk sideWalk(*wm, wm->getBall()->getPosition().getY(), false);
    delete command;
    command = sideWalk.getCommand();
}

void DefencePlan::resetState() {
    first = true;
    name.clear();
    mPoint = math::Point(0.0F, 0.0F, 0.0F);
}
