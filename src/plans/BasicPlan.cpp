#include "plans/BasicPlan.h"

#include <utility>

BasicPlan::BasicPlan(std::string name, const WorldModel* wm) : wm(wm), planName(std::move(name)) {}

bool BasicPlan::isFinished() {
    return true;
}

double BasicPlan::successRate() {
    return 0.0;
}

void BasicPlan::decide() {}
