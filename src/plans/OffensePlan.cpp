#include "plans/OffensePlan.h"

#include <cmath>
#include <utility>

#include "commands/Command.h"
#include "math/Angles.h"
#include "math/Geometry.h"
#include "plans/SubBehaviour.h"
#include "skills/SkillNames.h"
#include "skills/dash/DashNormalGotoPoint.h"
#include "skills/kick/BasicKick.h"
#include "skills/standup/BasicStandUp.h"
#include "skills/style/BasicStyle.h"
#include "utilities/config/Config.h"
#include "utilities/config/Settings.h"
#include "utilities/logging/Debugger.h"
#include "worldmodel/WorldModel.h"

namespace {
// The walking target lies this far (metres) along the attack direction, beyond the field.
constexpr float kTargetDistance = 100.0F;

// The direction of attack along x: +1 playing on the left (or side not yet known), -1 on the
// right.
float attackSign(const WorldModel& wm) {
    return wm.getSide() == 2 ? -1.0F : 1.0F;
}
}  // namespace

bool OffensePlan::first = true;
std::string OffensePlan::name;
math::Point OffensePlan::mPoint(0.0F, 0.0F, 0.0F);

OffensePlan::OffensePlan(std::string name, const WorldModel* wm)
    : AdvancePlan(std::move(name), wm) {}

bool OffensePlan::isFinished() {
    return true;
}

double OffensePlan::successRate() {
    return 0.0;
}

void OffensePlan::replaceCommand(Command* next) {
    delete command;
    command = next;
}

void OffensePlan::startWalking() {
    DashNormalGotoPoint dash(mPoint, *wm, false);
    replaceCommand(dash.getCommand());
    name = subbehaviour::kDash;
}

void OffensePlan::startKick() {
    // A complete reset of the kick player, so that the next call starts the kick itself.
    BasicKick::getConfigSkill().setCurrentSkillName(skillname::kNoSkill);
    BasicKick::getConfigSkill().setFinishedSkill(false);
    BasicKick kick(*wm, false);
    replaceCommand(kick.getCommand());
    name = subbehaviour::kKick;
}

bool OffensePlan::isKickPosition(const WorldModel& wm) {
    const float maxDistance = settings::kickMaxBallDistance();  // metres
    const float maxBearing = settings::kickMaxBallBearing();    // degrees
    const float maxHeading = settings::kickMaxHeadingError();   // degrees

    const float sign = attackSign(wm);
    const math::Vector3<float>& ball = wm.getBall()->getPosition();
    const math::Vector3<float>& self = wm.getSelf()->getPosition();
    // Ball position relative to the robot, in a frame whose x points along the attack.
    const float ahead = (ball.getX() - self.getX()) * sign;
    const float across = (ball.getY() - self.getY()) * sign;
    const float distance = std::sqrt(ahead * ahead + across * across);
    if (distance > maxDistance || ahead <= 0.0F) {
        return false;
    }
    const auto bearing = static_cast<float>(std::fabs(
        math::toDegrees(std::atan2(static_cast<double>(across), static_cast<double>(ahead)))));
    if (bearing > maxBearing) {
        return false;
    }
    // Heading relative to the attack direction, in [-180, 180) degrees.
    const float attackDirection = sign > 0.0F ? 0.0F : 180.0F;
    const float headingError =
        std::fabs(math::absoluteAngle(wm.getSelf()->getBodyDirection() - attackDirection));
    return headingError <= maxHeading;
}

void OffensePlan::decide() {
    // Opening: this cycle plays one style step and nothing else.
    if (first) {
        BasicStyle style(*wm, false);
        replaceCommand(style.getCommand());
        first = false;
        return;
    }

    mPoint = math::Point(kTargetDistance * attackSign(*wm), 0.0F, 0.0F);
    const math::Vector3<float>& self = wm->getSelf()->getPosition();
    const float dx = mPoint.getX() - self.getX();
    const float dy = mPoint.getY() - self.getY();
    Debugger::logg("Main") << "Offense distance to target: " << std::sqrt(dx * dx + dy * dy)
                           << " name: " << name << std::endl;

    // Has the current sub-behaviour ended? Each test runs the skill once without a command.
    bool ended = false;
    if (name == subbehaviour::kDash) {
        ended = DashNormalGotoPoint(mPoint, *wm, true).isFinished();
    } else if (name == subbehaviour::kStandUp) {
        ended = BasicStandUp(*wm, false, true).isFinished();
    } else if (name == subbehaviour::kKick) {
        ended = BasicKick(*wm, true).isFinished();
    }

    if (ended) {
        // Reset walking and kicking, then walk.
        const DashNormalGotoPoint resetDash(mPoint, *wm, true);
        DashNormalGotoPoint::setActionBoolean(false);
        DashNormalGotoPoint::setFinishedBoolean(false);
        const BasicKick resetKick(*wm, true);
        BasicKick::getConfigSkill().setCurrentSkillName(skillname::kNoSkill);
        BasicKick::getConfigSkill().setFinishedSkill(false);
        startWalking();
    } else if (name == subbehaviour::kDash) {
        DashNormalGotoPoint dash(mPoint, *wm, false);
        replaceCommand(dash.getCommand());
    } else if (name == subbehaviour::kStandUp) {
        BasicStandUp standUp(*wm, false, false);
        replaceCommand(standUp.getCommand());
    } else if (name == subbehaviour::kKick) {
        BasicKick kick(*wm, false);
        replaceCommand(kick.getCommand());
    } else {
        startWalking();
    }

    // Kick when walking has brought the robot close behind the ball, facing the opponents' half.
    if (name == subbehaviour::kDash && isKickPosition(*wm)) {
        startKick();
    }

    // Fall rule: a fallen robot starts a stand-up (unless one is running).
    if (wm->isFallen() && name != subbehaviour::kStandUp) {
        Command::setTime(-1.0F);
        BasicStandUp standUp(*wm, true, false);
        replaceCommand(standUp.getCommand());
        name = subbehaviour::kStandUp;
    }
}

void OffensePlan::resetState() {
    first = true;
    name.clear();
    mPoint = math::Point(0.0F, 0.0F, 0.0F);
}
