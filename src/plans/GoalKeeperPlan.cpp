#include "plans/GoalKeeperPlan.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "commands/Command.h"
#include "math/Angles.h"
#include "plans/Pitch.h"
#include "plans/SubBehaviour.h"
#include "skills/SkillNames.h"
#include "skills/dash/DashNormalGotoPoint.h"
#include "skills/dive/LeftDiv.h"
#include "skills/dive/RightDiv.h"
#include "skills/sidewalk/BasicSideWalk.h"
#include "skills/standup/BasicStandUp.h"
#include "skills/style/BasicStyle.h"
#include "utilities/config/Config.h"
#include "worldmodel/FallRule.h"
#include "worldmodel/WorldModel.h"

namespace {
// Distance of the dive limit from the centre line along x, metres.
constexpr float kDiveLimit = 5.0F;
// Longest time (seconds) a keeper that fell diving lies in the ball's way before it gets up,
// under the fall rule `Attitude`. A shot from the dive limit has passed or been stopped by then;
// lying longer only helps while the ball is really there, and seen from the ground the ball's
// position is not to be trusted: in role trials on the real server a keeper that stayed down
// for the old 20 s dive clock spent 26 of 45 s on the ground.
constexpr float kDiveBlockTime = 3.0F;
const char kParameters[] = "GoalKeeperParameters";
const char kKeep[] = "Keep";
// A walk back to the goal line ends this close to its target (metres); side steps take over.
constexpr float kWalkDone = 0.5F;
}  // namespace

bool GoalKeeperPlan::first = true;
std::string GoalKeeperPlan::name;
math::Point GoalKeeperPlan::mPoint(0.0F, 0.0F, 0.0F);
std::string GoalKeeperPlan::diveSide;
bool GoalKeeperPlan::walking = false;

GoalKeeperPlan::GoalKeeperPlan(std::string name, const WorldModel* wm)
    : AdvancePlan(std::move(name), wm) {}

bool GoalKeeperPlan::isFinished() {
    return true;
}

double GoalKeeperPlan::successRate() {
    return 0.0;
}

void GoalKeeperPlan::replaceCommand(Command* next) {
    delete command;
    command = next;
}

void GoalKeeperPlan::decide() {
    // Opening: one style step, which reports finished at once; the decision goes on.
    if (first) {
        BasicStyle style(*wm, false);
        replaceCommand(style.getCommand());
        if (style.isFinished()) {
            first = false;
        }
    }

    const math::Vector3<float>& ball = wm->getBall()->getPosition();
    ballY = ball.getY();
    ballX = ball.getX();

    if (name == subbehaviour::kStandUp) {
        // One step of the stand-up a cycle: the key-frame player moves on at every call.
        BasicStandUp standUp(*wm, false, false);
        if (standUp.isFinished()) {
            delete standUp.getCommand();
            chooseAfresh();
        } else {
            replaceCommand(standUp.getCommand());
        }
    } else if (name.empty() || name == subbehaviour::kSideWalk || name == subbehaviour::kDive) {
        chooseAfresh();
    }

    if (wm->getFallRule() == FallRule::Attitude) {
        getUpAfterFall();
        return;
    }

    // Fall check, every cycle: starts any idle dive clock, and gets a fallen keeper up once a
    // clock has run more than 20 s.
    const RightDiv rightDiv(wm);
    delete rightDiv.getCommand();
    const LeftDiv leftDiv(wm);
    delete leftDiv.getCommand();
    if (wm->isFallen() && name != subbehaviour::kStandUp &&
        (rightDiv.isFinished() || leftDiv.isFinished())) {
        beginStandUp();
    }
}

void GoalKeeperPlan::getUpAfterFall() {
    if (name != subbehaviour::kDive) {
        // No dive in progress: the next dive starts its clock afresh.
        RightDiv::setTime(-1.0F);
        LeftDiv::setTime(-1.0F);
    }
    if (!wm->isFallen() || name == subbehaviour::kStandUp) {
        return;
    }
    if (name == subbehaviour::kDive) {
        // The dive began when the first of the two clocks started. Only a dive begun before
        // the fall was known keeps the keeper down: one chosen on the ground (from the ball as
        // seen lying there) is no reason to stay.
        float began = wm->getTime();
        for (const float clock : {RightDiv::getTime(), LeftDiv::getTime()}) {
            if (clock != -1.0F && clock < began) {
                began = clock;
            }
        }
        const float fell = wm->getAttitude().getFallenSince();
        if (began < fell && wm->getTime() - fell <= kDiveBlockTime) {
            return;  // lying in the ball's way is the dive's point
        }
    }
    beginStandUp();
}

void GoalKeeperPlan::beginStandUp() {
    RightDiv::setTime(-1.0F);
    LeftDiv::setTime(-1.0F);
    Command::setTime(-1.0F);
    BasicStandUp standUp(*wm, true, false);
    replaceCommand(standUp.getCommand());
    name = subbehaviour::kStandUp;
}

void GoalKeeperPlan::chooseAfresh() {
    const bool belowLimit = isBallAtGoal();
    // Which way to dive: by the ball's y as the keeper sees it facing the opponents.
    const float sideY = isKeeping() ? ballY * Pitch::attackSign(*wm) : ballY;
    if (belowLimit && sideY > 0.0F) {
        dive(false);
    } else if (belowLimit && sideY < 0.0F) {
        dive(true);
    } else if (belowLimit && name == subbehaviour::kDive && !diveSide.empty()) {
        // The ball lies exactly on the middle line: the dive in progress goes on to its side.
        dive(diveSide == skillname::kLeftDive);
    } else {
        position();
        name = subbehaviour::kSideWalk;
    }
}

bool GoalKeeperPlan::isBallAtGoal() const {
    if (isKeeping()) {
        // Within 10 m of the own goal line, on whichever side the team plays.
        return ballX * Pitch::attackSign(*wm) < -kDiveLimit;
    }
    // The original rule: the limit by the side, with the ball below it.
    const float limit = wm->getSide() == 1 ? -kDiveLimit : kDiveLimit;
    return ballX < limit;
}

bool GoalKeeperPlan::isKeeping() {
    return config.exists(kParameters) && config[kParameters].exists(kKeep);
}

float GoalKeeperPlan::keeperY(float ballY, float goalWidth, float postMargin) {
    const float maxY = std::max(goalWidth * 0.5F - postMargin, 0.0F);
    return std::clamp(ballY, -maxY, maxY);
}

void GoalKeeperPlan::position() {
    if (!isKeeping()) {
        // Side-step towards the middle of the goal (y = 0); with the ball exactly on the middle
        // line and no dive in progress the keeper stays with this.
        BasicSideWalk sideWalk(*wm, 0.0F, false);
        replaceCommand(sideWalk.getCommand());
        return;
    }
    const ConfigGroup& values = config[kParameters][kKeep];
    const float postMargin = values["PostMargin"].asFloat();  // metres
    const float offLine = values["OffLine"].asFloat();        // metres

    const math::Vector3<float>& self = wm->getSelf()->getPosition();
    const float lineX = Pitch::toField(*wm, Pitch::beamWord(kParameters, 0), 0.0F).getX();
    const math::Point place(lineX, keeperY(ballY, Pitch::goalWidth(), postMargin), 0.0F);
    const bool offTheLine = std::fabs(self.getX() - lineX) > offLine ||
                            std::fabs(self.getY()) > Pitch::goalWidth() * 0.5F + offLine;
    const float toPlace = std::hypot(self.getX() - place.getX(), self.getY() - place.getY());
    if (offTheLine || (walking && toPlace > kWalkDone)) {
        if (!walking) {
            // A new walk decides afresh instead of going on with an earlier one.
            DashNormalGotoPoint::setActionBoolean(false);
            DashNormalGotoPoint::setFinishedBoolean(false);
            walking = true;
        }
        DashNormalGotoPoint dash(Pitch::level(*wm, place), *wm, false);
        replaceCommand(dash.getCommand());
        return;
    }
    walking = false;
    BasicSideWalk sideWalk(*wm, Pitch::sideStepY(*wm, place.getY()), false);
    replaceCommand(sideWalk.getCommand());
}

void GoalKeeperPlan::dive(bool left) {
    Command* diveCommand = nullptr;
    if (left) {
        const LeftDiv leftDiv(wm);
        diveCommand = leftDiv.getCommand();
        diveSide = skillname::kLeftDive;
    } else {
        const RightDiv rightDiv(wm);
        diveCommand = rightDiv.getCommand();
        diveSide = skillname::kRightDive;
    }
    diveCommand->setCurrentLastCommand(wm->getSelf()->getLastCommand());
    diveCommand->setAllCommands();
    replaceCommand(diveCommand);
    name = subbehaviour::kDive;
}

void GoalKeeperPlan::resetState() {
    first = true;
    name.clear();
    mPoint = math::Point(0.0F, 0.0F, 0.0F);
    diveSide.clear();
    walking = false;
}
