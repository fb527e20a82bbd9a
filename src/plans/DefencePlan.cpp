#include "plans/DefencePlan.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "commands/Command.h"
#include "math/Angles.h"
#include "plans/BallTracker.h"
#include "plans/KickApproach.h"
#include "plans/Pitch.h"
#include "plans/SubBehaviour.h"
#include "skills/SkillNames.h"
#include "skills/dash/DashNormalGotoPoint.h"
#include "skills/kick/BasicKick.h"
#include "skills/sidewalk/BasicSideWalk.h"
#include "skills/standup/BasicStandUp.h"
#include "skills/style/BasicStyle.h"
#include "utilities/config/Config.h"
#include "utilities/logging/Debugger.h"
#include "worldmodel/FallRule.h"
#include "worldmodel/WorldModel.h"

namespace {
const char kParameters[] = "DefenceParameters";
const char kDefend[] = "Defend";
// A walk back to the line ends this close to its target (metres); side steps take over.
constexpr float kWalkDone = 0.5F;

math::Point position(const math::Vector3<float>& v) {
    return {v.getX(), v.getY(), 0.0F};
}

float distance(math::Point a, math::Point b) {
    return std::hypot(a.getX() - b.getX(), a.getY() - b.getY());
}
}  // namespace

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

void DefencePlan::replaceCommand(Command* next) {
    delete command;
    command = next;
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
    if (isGuarding()) {
        guard();
    } else {
        followBall();
    }
}

void DefencePlan::followBall() {
    BasicSideWalk sideWalk(*wm, wm->getBall()->getPosition().getY(), false);
    replaceCommand(sideWalk.getCommand());
}

bool DefencePlan::isGuarding() {
    return config.exists(kParameters) && config[kParameters].exists(kDefend);
}

math::Point DefencePlan::guardPoint(math::Point ball, math::Point ownGoal, float lineX,
                                    float maxY) {
    const float towardsBall = ball.getX() - ownGoal.getX();
    const float towardsLine = lineX - ownGoal.getX();
    float y = ball.getY();
    // The ball beyond the line, seen from the goal: cut the line from the ball to the goal.
    if (towardsBall * towardsLine > 0.0F && std::fabs(towardsBall) > std::fabs(towardsLine)) {
        y = ownGoal.getY() + (ball.getY() - ownGoal.getY()) * towardsLine / towardsBall;
    }
    return {lineX, std::clamp(y, -maxY, maxY), 0.0F};
}

void DefencePlan::guard() {
    const ConfigGroup& values = config[kParameters][kDefend];
    const float margin = values["FieldMargin"].asFloat();           // metres
    const float offLine = values["OffLine"].asFloat();              // metres
    const float clearDistance = values["ClearDistance"].asFloat();  // metres

    if (name == subbehaviour::kKick) {
        BasicKick kick(*wm, false);
        replaceCommand(kick.getCommand());
        if (!kick.isFinished()) {
            return;
        }
        name.clear();
    }

    const math::Point self = position(wm->getSelf()->getPosition());
    const math::Point ball = BallTracker::update(*wm);
    const float sign = Pitch::attackSign(*wm);
    const bool ballInOwnHalf = ball.getX() * sign < 0.0F;
    if (ballInOwnHalf && distance(self, ball) < clearDistance) {
        const math::Point goal = Pitch::opponentGoal(*wm);
        const KickApproach::Target target = KickApproach::target(
            self, ball, goal, KickApproach::readParameters(kParameters, kDefend));
        walkTo(Pitch::inside(target.point, margin), "clear");
        const auto direction =
            static_cast<float>(std::atan2(static_cast<double>(goal.getY() - ball.getY()),
                                          static_cast<double>(goal.getX() - ball.getX())) *
                               math::kDegreesPerRadian);
        // The switch looks at the latest report: what counts at the ball.
        const math::Point seen = position(wm->getBall()->getPosition());
        if (KickApproach::isKickPosition(self, wm->getSelf()->getBodyDirection(), seen, direction,
                                         KickApproach::readSwitch(kParameters, "Kick"))) {
            startKick();
        }
        return;
    }

    const float lineX = Pitch::toField(*wm, Pitch::beamWord(kParameters, 0), 0.0F).getX();
    const math::Point place =
        guardPoint(ball, Pitch::ownGoal(*wm), lineX, Pitch::halfWidth() - margin);
    const bool offTheLine = std::fabs(self.getX() - lineX) > offLine ||
                            std::fabs(self.getY()) > Pitch::halfWidth() - margin * 0.5F;
    const bool stillWalking = name == "walk" && distance(self, place) > kWalkDone;
    if (offTheLine || stillWalking) {
        walkTo(place, "walk");
        return;
    }
    name = subbehaviour::kSideWalk;
    mPoint = place;
    BasicSideWalk sideWalk(*wm, Pitch::sideStepY(*wm, place.getY()), false);
    replaceCommand(sideWalk.getCommand());
}

void DefencePlan::walkTo(math::Point target, const char* walkName) {
    if (name != walkName) {
        // A new walk decides afresh instead of going on with an earlier one.
        DashNormalGotoPoint::setActionBoolean(false);
        DashNormalGotoPoint::setFinishedBoolean(false);
        name = walkName;
    }
    mPoint = Pitch::level(*wm, target);
    DashNormalGotoPoint dash(mPoint, *wm, false);
    replaceCommand(dash.getCommand());
    Debugger::logg("Main") << "Defence " << name << " to " << target << std::endl;
}

void DefencePlan::startKick() {
    BasicKick::rewind();  // so that this call starts the kick itself
    BasicKick kick(*wm, false);
    replaceCommand(kick.getCommand());
    name = subbehaviour::kKick;
}

bool DefencePlan::standUpAfterFall() {
    if (name == subbehaviour::kStandUp) {
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
    name = subbehaviour::kStandUp;
    return true;
}

void DefencePlan::resetState() {
    BallTracker::resetState();
    first = true;
    name.clear();
    mPoint = math::Point(0.0F, 0.0F, 0.0F);
}
