#include "skills/dash/DashNormalGotoPoint.h"

#include <algorithm>
#include <cmath>

#include "commands/Command.h"
#include "math/Angles.h"
#include "math/Geometry.h"
#include "skills/SkillNames.h"
#include "utilities/config/Settings.h"
#include "utilities/logging/Debugger.h"
#include "worldmodel/WorldModel.h"

namespace {
// Nearer than this (metres) the robot has arrived.
constexpr float kArrivedDistance = 0.3F;
// Nearer than this (metres) the short gait is used.
constexpr float kShortWalkDistance = 0.5F;
// A target off the walking line by more than this (metres) may call for a turn.
constexpr float kMaxLateralOffset = 0.2F;
// Largest turn started at once, degrees.
constexpr float kMaxTurn = 40.0F;
// The server version whose heading comes from the polar position instead of the body direction.
constexpr char kOldServerVersion[] = "6.0.0";
}  // namespace

std::unique_ptr<TurnAngle> DashNormalGotoPoint::turnAngle = std::make_unique<TurnAngle>();
bool DashNormalGotoPoint::isAction = false;
bool DashNormalGotoPoint::finished = false;
bool DashNormalGotoPoint::firstFinished = false;
std::string DashNormalGotoPoint::walkSkillType = skillname::kWalk;
float DashNormalGotoPoint::deltaAlpha = 0.0F;

DashNormalGotoPoint::Geometry DashNormalGotoPoint::computeGeometry(const math::Point& target,
                                                                   const WorldModel& wm) {
    Geometry g;
    const Self* self = wm.getSelf();
    if (settings::serverVersion() != kOldServerVersion) {
        const double b = static_cast<double>(self->getBodyDirection()) * math::kPi / 180.0;
        g.heading = math::Vector3<float>(static_cast<float>(std::cos(b)),
                                         static_cast<float>(std::sin(b)), 0.0F);
    } else {
        const float p = self->getPolarPosition().getX();
        g.heading = math::Vector3<float>(std::cos(-p), std::sin(-p), 0.0F);
    }
    const math::Vector3<float>& pos = self->getPosition();
    g.toTarget = math::Vector3<float>(target.getX() - pos.getX(), target.getY() - pos.getY(),
                                      target.getZ() - pos.getZ());
    g.distance = g.toTarget.length();
    g.angle = math::toDegrees(
        math::getDegree<float>(g.heading, math::Vector3<float>(0.0F, 0.0F, 0.0F), g.toTarget));
    if (std::fabs(g.angle) > 90.0F) {
        g.lateral = 100.0F;
    } else {
        g.lateral = g.distance * std::sin(g.angle / static_cast<float>(math::kDegreesPerRadian));
    }
    if (g.distance >= 5.0F) {
        g.minTurnAngle = 30.0F;
    } else if (g.distance >= 2.5F) {
        g.minTurnAngle = 15.0F;
    } else {
        g.minTurnAngle = 10.0F;
    }
    return g;
}

DashNormalGotoPoint::DashNormalGotoPoint(math::Point /*target*/, float /*angle*/,
                                         const WorldModel& /*wm*/, float /*ignored*/,
                                         bool dropCommand)
    : BasicDash(dropCommand) {}

DashNormalGotoPoint::DashNormalGotoPoint(const math::Point& target, const WorldModel& wm,
                                         bool dropCommand)
    : BasicDash(dropCommand) {
    setSuccessRate(0.0F);
    const Geometry g = computeGeometry(target, wm);
    Debugger::logg("Main") << "Dash target: " << target << " heading: " << g.heading
                           << " toTarget: " << g.toTarget << " distance: " << g.distance
                           << " angle: " << g.angle << " lateral: " << g.lateral
                           << " minTurnAngle: " << g.minTurnAngle << std::endl;

    checkMovementEnded(g);
    if (!firstFinished) {
        firstDecision(g, wm);
        firstFinished = true;
    } else if (!finished) {
        continueMovement(wm);
    } else {
        decideAfresh(g, wm);
    }

    if (isDropCommand()) {
        delete command;
        command = nullptr;
    }
}

void DashNormalGotoPoint::checkMovementEnded(const Geometry& g) {
    if (!isAction) {
        finished = configSkill.isFinished();
        return;
    }
    finished = turnAngle->isFinished();
    if (finished) {
        const float lengths = g.heading.length() * g.toTarget.length();
        const float dot = g.heading.getX() * g.toTarget.getX() +
                          g.heading.getY() * g.toTarget.getY() +
                          g.heading.getZ() * g.toTarget.getZ();
        // Rounding may carry the cosine of a straight line just past 1; on the target itself
        // there is no angle left.
        deltaAlpha = lengths > 0.0F
                         ? math::toDegrees(std::acos(std::clamp(dot / lengths, -1.0F, 1.0F)))
                         : 0.0F;
        resetTurnPlayer();
    }
}

void DashNormalGotoPoint::firstDecision(const Geometry& g, const WorldModel& wm) {
    // The remembered angle is still 0 here.
    if (g.distance < kArrivedDistance) {
        play(skillname::kStop, wm);
        isAction = false;
    } else if (std::fabs(deltaAlpha) > g.minTurnAngle && std::fabs(g.lateral) > kMaxLateralOffset) {
        startTurn(g.angle, wm);
    } else {
        walkSkillType = g.distance < kShortWalkDistance ? skillname::kShortWalk : skillname::kWalk;
        play(walkSkillType, wm);
        isAction = false;
    }
}

void DashNormalGotoPoint::continueMovement(const WorldModel& wm) {
    if (isAction) {
        turnAngle = std::make_unique<TurnAngle>(-deltaAlpha, wm, 0.0F, false);
        command = turnAngle->getCommand();
    } else {
        play(configSkill.getCurrentSkillName(), wm);
        isAction = false;
    }
}

void DashNormalGotoPoint::decideAfresh(const Geometry& g, const WorldModel& wm) {
    const bool offLine =
        std::fabs(g.angle) > g.minTurnAngle && std::fabs(g.lateral) > kMaxLateralOffset;
    walkSkillType = g.distance < kShortWalkDistance ? skillname::kShortWalk : skillname::kWalk;
    if (g.distance < kArrivedDistance) {
        if (configSkill.getCurrentSkillName() == skillname::kStop) {
            setSuccessRate(100.0F);
            command = new Command(
                configSkill.getConfigCommandSkill(configSkill.getCurrentSkillName(), wm.getSelf()));
        } else {
            configSkill.setCurrentConfigStepNumber(0);
            play(skillname::kStop, wm);
        }
        isAction = false;
    } else if (offLine) {
        if (configSkill.getCurrentSkillName() == walkSkillType) {
            configSkill.setCurrentConfigStepNumber(0);
            play(skillname::kStop, wm);
            isAction = false;
        } else {
            resetTurnPlayer();
            startTurn(g.angle, wm);
        }
    } else {
        if (configSkill.getCurrentSkillName() == walkSkillType) {
            configSkill.setCurrentConfigStepNumber(configSkill.getConfigLoopStepNumber());
        } else {
            configSkill.setCurrentConfigStepNumber(0);
        }
        play(walkSkillType, wm);
        isAction = false;
    }
}

bool DashNormalGotoPoint::isFinished() {
    return getSuccessRate() == 100.0F;
}

void DashNormalGotoPoint::play(const std::string& name, const WorldModel& wm) {
    command = new Command(configSkill.getConfigCommandSkill(name, &wm));
}

void DashNormalGotoPoint::startTurn(float angle, const WorldModel& wm) {
    deltaAlpha = std::fabs(angle) > kMaxTurn ? kMaxTurn * angle / std::fabs(angle) : angle;
    turnAngle = std::make_unique<TurnAngle>(-deltaAlpha, wm, 0.0F, false);
    command = turnAngle->getCommand();
    isAction = true;
}

void DashNormalGotoPoint::resetTurnPlayer() {
    BasicTurn::setDoAngle(0.0F);
    BasicTurn::getConfigSkill().setCurrentSkillName(skillname::kNoSkill);
    BasicTurn::getConfigSkill().setFinishedSkill(false);
}

void DashNormalGotoPoint::resetState() {
    turnAngle = std::make_unique<TurnAngle>();
    isAction = false;
    finished = false;
    firstFinished = false;
    walkSkillType = skillname::kWalk;
    deltaAlpha = 0.0F;
}
