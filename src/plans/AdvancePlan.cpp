#include "plans/AdvancePlan.h"

#include <utility>

AdvancePlan::AdvancePlan(std::string name, const WorldModel* wm) : BasicPlan(std::move(name), wm) {}

bool AdvancePlan::isFinished() {
    return true;
}

double AdvancePlan::successRate() {
    return 0.0;
}

void AdvancePlan::decide() {}
