#include "plans/OffensePlan.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "commands/Command.h"
#include "math/Angles.h"
#include "math/Geometry.h"
#include "plans/BallTracker.h"
#include "plans/KickApproach.h"
#include "plans/Pitch.h"
#include "plans/SubBehaviour.h"
#include "skills/SkillNames.h"
#include "skills/dash/BasicDash.h"
#include "skills/dash/DashNormalGotoPoint.h"
#include "skills/kick/BasicKick.h"
#include "skills/standup/BasicStandUp.h"
#include "skills/style/BasicStyle.h"
#include "utilities/config/Config.h"
#include "utilities/config/ConfigError.h"
#include "utilities/config/Settings.h"
#include "utilities/logging/Debugger.h"
#include "worldmodel/WorldModel.h"

namespace {
// The walking target lies this far (metres) along the attack direction, beyond the field.
constexpr float kTargetDistance = 100.0F;

const char kParameters[] = "OffenseParameters";
const char kAttack[] = "Attack";
const char kFooting[] = "Footing";
// Nearer than this to the ball (metres) an attacker that places its foot watches the ball.
constexpr float kWatchDistance = 1.0F;
// The head turns at most this far (degrees) either side to watch the ball.
constexpr float kWatchPan = 90.0F;

math::Point position(const math::Vector3<float>& v) {
    return {v.getX(), v.getY(), 0.0F};
}
}  // namespace

bool OffensePlan::first = true;
bool OffensePlan::watchingBall = false;
float OffensePlan::watchPan = 0.0F;
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
    BasicKick::rewind();  // so that this call starts the kick itself
    BasicKick kick(*wm, false);
    replaceCommand(kick.getCommand());
    name = subbehaviour::kKick;
}

bool OffensePlan::isMidGait() {
    const std::string& playing = BasicDash::getConfigSkill().getCurrentSkillName();
    return name == subbehaviour::kDash &&
           (playing == skillname::kWalk || playing == skillname::kShortWalk);
}

void OffensePlan::closeUp(bool placesFoot, math::Point ballFromBody) {
    if (!placesFoot) {
        startKick();
        return;
    }
    if (wm->getBall()->getPositionCount() != 0) {
        return;  // not seen in the latest view: where it lies is not known to the centimetre
    }
    const bool close =
        ballFromBody.getX() <= KickApproach::readFooting(kParameters, kFooting).ballAhead;
    Debugger::logg("Main") << "Offense at the ball: " << (close ? "kick" : "walk on") << std::endl;
    if (close) {
        startKick();
    }
}

bool OffensePlan::isScoring() {
    if (!config.exists(kParameters) || !config[kParameters].exists(kAttack)) {
        return false;
    }
    const std::string target = config[kParameters][kAttack]["Target"].asString();
    if (target != "goal" && target != "far") {
        failCheck("Target == goal || Target == far", "OffensePlan", __LINE__, __PRETTY_FUNCTION__,
                  checkValueLocation(kParameters, kAttack, "Target") + " is \"" + target +
                      "\": \"goal\" (play for goals) or \"far\" (walk towards x = 100 m)");
    }
    return target == "goal";
}

math::Point OffensePlan::walkingTarget(const WorldModel& wm) {
    if (!isScoring()) {
        return {kTargetDistance * Pitch::attackSign(wm), 0.0F, 0.0F};
    }
    const KickApproach::Target target = KickApproach::target(
        position(wm.getSelf()->getPosition()), BallTracker::update(wm), Pitch::opponentGoal(wm),
        KickApproach::readParameters(kParameters, kAttack));
    Debugger::logg("Main") << "Offense approach: " << KickApproach::phaseName(target.phase)
                           << std::endl;
    return Pitch::level(wm, target.point);
}

bool OffensePlan::isKickPosition(const WorldModel& wm) {
    const math::Point ball = position(wm.getBall()->getPosition());
    // The kick goes along the attack; when playing for goals, from the ball at the goal's centre.
    float direction = Pitch::attackSign(wm) > 0.0F ? 0.0F : 180.0F;
    if (isScoring()) {
        const math::Point goal = Pitch::opponentGoal(wm);
        direction = static_cast<float>(std::atan2(static_cast<double>(goal.getY() - ball.getY()),
                                                  static_cast<double>(goal.getX() - ball.getX())) *
                                       math::kDegreesPerRadian);
    }
    return KickApproach::isKickPosition(position(wm.getSelf()->getPosition()),
                                        wm.getSelf()->getBodyDirection(), ball, direction,
                                        KickApproach::readSwitch(kParameters, "Kick"));
}

void OffensePlan::decide() {
    // Opening: this cycle plays one style step and nothing else.
    if (first) {
        BasicStyle style(*wm, false);
        replaceCommand(style.getCommand());
        first = false;
        return;
    }

    mPoint = walkingTarget(*wm);
    // The ball as the body sees it: ahead (x) and to the left (y), metres.
    const math::Point ballFromBody = KickApproach::inFrame(position(wm->getSelf()->getPosition()),
                                                           wm->getSelf()->getBodyDirection(),
                                                           position(wm->getBall()->getPosition()));
    const bool placesFoot = KickApproach::hasFooting(kParameters, kFooting);
    watchingBall = placesFoot && KickApproach::readFooting(kParameters, kFooting).watchBall &&
                   isScoring() &&
                   std::hypot(ballFromBody.getX(), ballFromBody.getY()) < kWatchDistance;
    watchPan = std::clamp(static_cast<float>(std::atan2(static_cast<double>(ballFromBody.getY()),
                                                        static_cast<double>(ballFromBody.getX())) *
                                             math::kDegreesPerRadian),
                          -kWatchPan, kWatchPan);
    const math::Vector3<float>& self = wm->getSelf()->getPosition();
    const float dx = mPoint.getX() - self.getX();
    const float dy = mPoint.getY() - self.getY();
    Debugger::logg("Main") << "Offense distance to target: " << std::sqrt(dx * dx + dy * dy)
                           << " name: " << name << std::endl;

    // Whether the walk is under way: then it may be broken off only where a gait cycle ends.
    const bool midGait = isMidGait();

    // Play the current sub-behaviour once this cycle (the key-frame player steps on every call,
    // so a second call would skip key frames); when it reports it has ended, walk instead.
    bool ended = false;
    if (name == subbehaviour::kDash) {
        DashNormalGotoPoint dash(mPoint, *wm, false);
        ended = dash.isFinished();
        replaceCommand(dash.getCommand());
    } else if (name == subbehaviour::kStandUp) {
        BasicStandUp standUp(*wm, false, false);
        ended = standUp.isFinished();
        replaceCommand(standUp.getCommand());
    } else if (name == subbehaviour::kKick) {
        BasicKick kick(*wm, false);
        ended = kick.isFinished();
        replaceCommand(kick.getCommand());
    } else {
        startWalking();
    }

    if (ended) {
        // Reset walking and kicking, then walk.
        DashNormalGotoPoint::setActionBoolean(false);
        DashNormalGotoPoint::setFinishedBoolean(false);
        BasicKick::rewind();
        startWalking();
    }

    // Close behind the ball, facing the opponents' half: kick (with a group "Footing", once the
    // ball is close enough). Only where the walk has completed a gait cycle: a walk broken off
    // in the middle of its cycle tips the robot over.
    const bool gaitEnded = !midGait || (DashNormalGotoPoint::isFinishedBoolean() &&
                                        !DashNormalGotoPoint::isActionBoolean());
    if (name == subbehaviour::kDash && gaitEnded && isKickPosition(*wm)) {
        closeUp(placesFoot, ballFromBody);
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
    BallTracker::resetState();
    first = true;
    watchingBall = false;
    watchPan = 0.0F;
    name.clear();
    mPoint = math::Point(0.0F, 0.0F, 0.0F);
}
