#include "skills/dash/DashNormalGotoBall.h"

#include "commands/Command.h"
#include "math/Point.h"
#include "skills/dash/DashNormalGotoPoint.h"
#include "worldmodel/WorldModel.h"

namespace {
// Clearance (metres) kept beside and behind the ball on the way to it.
constexpr float kClearance = 0.1F;
// The ball side once the robot has approached the ball from behind.
constexpr char kBesideBall[] = "golo";
}  // namespace

std::string DashNormalGotoBall::ballSide;

DashNormalGotoBall::DashNormalGotoBall(const WorldModel& wm, bool dropCommand)
    : BasicDash(dropCommand) {
    setSuccessRate(0.0F);
    const math::Vector3<float>& b = wm.getBall()->getPosition();
    const float r = wm.getBall()->getRadius();
    const math::Vector3<float>& s = wm.getSelf()->getPosition();

    if (b.getX() > s.getX()) {
        DashNormalGotoPoint dash(math::Point(b.getX(), b.getY() + r + kClearance, 0.0F), wm, false);
        command = dash.getCommand();
        setSuccessRate(dash.getSuccessRate());
        ballSide = kBesideBall;
    } else if (s.getX() > b.getX()) {
        DashNormalGotoPoint dash(math::Point(b.getX(), b.getY(), b.getZ()), wm, false);
        command = dash.getCommand();
        setSuccessRate(dash.getSuccessRate());
    }

    if (ballSide == kBesideBall && getSuccessRate() == 100.0F) {
        DashNormalGotoPoint dash(math::Point(b.getX() - kClearance, b.getY(), 0.0F), wm, false);
        delete command;
        command = dash.getCommand();
        setSuccessRate(dash.getSuccessRate());
    }

    if (isDropCommand()) {
        delete command;
        command = nullptr;
    }
}

bool DashNormalGotoBall::isFinished() {
    return getSuccessRate() == 100.0F;
}

void DashNormalGotoBall::resetState() {
    ballSide.clear();
}
