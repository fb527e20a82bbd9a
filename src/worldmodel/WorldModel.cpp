#include "worldmodel/WorldModel.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "math/Angles.h"
#include "math/Geometry.h"
#include "utilities/config/Settings.h"
#include "utilities/logging/Debugger.h"
#include "utilities/logging/OnlineTimer.h"
#include "utilities/parsing/SExpression.h"
#include "worldmodel/Share.h"

namespace {

constexpr unsigned int landmarkCount = 8;
constexpr float rightAngle = 1.5707964F;
// Below this horizontal length (metres) a vector points straight up or down.
constexpr float minHorizontalLength = 0.0001F;
// Pair estimates of the heading that add up to less than this have cancelled each other out.
constexpr float minDirectionSum = 1e-6F;
// Grid refinement of the position: half-width and step (metres), and the tolerances a
// candidate must meet for every landmark (radians, and a fraction of the seen distance).
constexpr float gridHalfWidth = 0.1F;
constexpr float gridStep = 0.01F;
constexpr float angleTolerance = 0.006F;
constexpr float distanceToleranceDivisor = 280.0F;
// Estimates farther from the centre than this (metres) are not refined; the grid step would
// vanish next to them.
constexpr float maxRefinedCoordinate = 1000.0F;

// The direction of (x, y) from the x axis (radians, in [-pi, pi]).
float direction(float y, float x) {
    return math::normalizeAngle(
        static_cast<float>(std::atan2(static_cast<double>(y), static_cast<double>(x))));
}

// normalizeAngle for any finite angle: huge angles are first wrapped in double precision, so
// that the stepwise normalisation always ends.
float wrapAngle(float radians) {
    constexpr double twoPi = 6.283185307179586;
    if (std::fabs(radians) > 64.0F) {
        radians = static_cast<float>(std::remainder(static_cast<double>(radians), twoPi));
    }
    return math::normalizeAngle(radians);
}

// A vector seen by the camera, turned into a level frame: the camera is pitched by the head's
// tilt joint (degrees, negative down), so what it sees straight ahead lies below the horizon.
// Without this a landmark 15 m away seen with the head tilted 20 degrees down comes out about a
// metre too close, and so does the robot's position (measured on the server: median position
// error 0.9 m upright, 0.07 m with the tilt taken out).
math::Vector3<float> levelled(const math::Vector3<float>& v, float tiltDegrees) {
    const double pitch = -static_cast<double>(tiltDegrees) * 3.141592653589793 / 180.0;
    const auto c = static_cast<float>(std::cos(pitch));
    const auto s = static_cast<float>(std::sin(pitch));
    return {v.x * c + v.z * s, v.y, -v.x * s + v.z * c};
}

// A camera-frame vector turned by `heading` (radians) into the field's orientation.
math::Vector3<float> turn(const math::Vector3<float>& v, float heading) {
    const float horizontal = std::sqrt(v.x * v.x + v.y * v.y);
    float elevation = 0.0F;
    if (horizontal >= minHorizontalLength) {
        elevation = math::normalizeAngle(std::atan(v.z / horizontal));
    } else {
        elevation = v.z > 0.0F ? rightAngle : -rightAngle;
    }
    const float azimuth = direction(v.y, v.x);
    const float distance = v.length();
    const float flat = std::cos(elevation) * distance;
    return {std::cos(azimuth + heading) * flat, std::sin(azimuth + heading) * flat,
            std::sin(elevation) * distance};
}

}  // namespace

WorldModel::WorldModel()
    : timer(std::make_unique<OnlineTimer>()),
      self(std::make_unique<Self>(math::Vector3<float>(), math::Vector3<float>(),
                                  math::Vector3<float>(), 0.0F, 0.0F)),
      ball(std::make_unique<Ball>(math::Vector3<float>(), math::Vector3<float>(),
                                  math::Vector3<float>(), 0.0F, 0.0F, 0.0F)) {}

WorldModel::~WorldModel() {
    for (Flag* flag : flags) {
        delete flag;
    }
}

Flag* WorldModel::getFlag(FlagType type) const {
    const auto index = static_cast<unsigned int>(type);
    return index < flags.size() ? flags[index] : nullptr;
}

void WorldModel::drop(const std::string& why) const {
    Debugger::logg("Main") << "Message dropped (last time " << time << ", cycle " << cycle
                           << "): " << why << std::endl;
}

bool WorldModel::update(const std::string& message) {
    if (!settings::offlinePlaying()) {
        Debugger::logg("MainOff") << message << std::endl;
    }
    std::string why;
    const std::unique_ptr<SExpression> root = PerceptReader::parseMessage(message, wrapped, why);
    if (root == nullptr || !PerceptReader::readMessage(*root, percepts, why)) {
        drop(why);
        return false;
    }

    setTime(percepts.now);
    if (!fallRuleRead) {
        fallRule = readFallRule(config);
        // "WorldModelParameters" / "Vision" / "LevelHeadTilt": take the head's tilt out of what
        // the camera sees (true as shipped); without the key the camera's vectors are used as
        // they come, as before the key existed.
        levelHeadTilt = config.exists("WorldModelParameters") &&
                        config["WorldModelParameters"].exists("Vision") &&
                        config["WorldModelParameters"]["Vision"].exists("LevelHeadTilt") &&
                        config["WorldModelParameters"]["Vision"]["LevelHeadTilt"].asBool();
        fallRuleRead = true;
    }
    attitude.update(time, percepts.hasAcceleration ? &percepts.acceleration : nullptr,
                    percepts.hasGyro ? &percepts.gyroRate : nullptr);
    if (percepts.hasGameState) {
        applyGameState(percepts.gameState);
    }
    if (percepts.hasGyro) {
        self->setGyroRate(percepts.gyroRate);
    }
    applyBody(percepts);
    if (percepts.hasVision) {
        applyVision(percepts.vision.landmarks);
        applyBall(percepts.vision.ballSeen, percepts.vision.ball);
        if (Share::bodyDir) {
            // The head's heading, turned back by the neck's pan angle (degrees).
            const float pan = self->getBody()->getHead()->getHingeJoint(0).getJointAlphaValue();
            self->setBodyDirection(wrapAngle(headDirection.x + pan * -math::kRadiansPerDegreeF) *
                                   math::kDegreesPerRadianF);
        }
        Debugger::logg("Main") << "BodyDirection: " << self->getBodyDirection() << std::endl;
        if (fallRule == FallRule::Attitude) {
            Debugger::logg("Main")
                << "Fall: landmarks " << fallenValue << " tilt " << attitude.getTilt() << " lean "
                << TorsoAttitude::leanName(attitude.getLean()) << " fallen " << attitude.isFallen()
                << std::endl;
        }
    }
    Debugger::logg("Main") << std::endl
                           << "Time: " << time
                           << "\t---------------------------------------- Cycle: " << cycle
                           << " ---------------------------------------"
                           << "\tPlayModeT: " << static_cast<int>(playMode) << std::endl;
    return true;
}

bool WorldModel::takeSide(const std::string& message) {
    std::string why;
    const std::unique_ptr<SExpression> root = PerceptReader::parseMessage(message, wrapped, why);
    if (root == nullptr || !PerceptReader::readMessage(*root, percepts, why) ||
        !percepts.hasGameState || percepts.gameState.side == 0) {
        return false;
    }
    side = percepts.gameState.side;
    // Recorded like the messages taken in, so that a replay of the recording learns the side too.
    if (!config["ServerInitialize"]["Server"]["OfflinePlaying"].asBool()) {
        Debugger::logg("MainOff") << message << std::endl;
    }
    return true;
}

void WorldModel::setTime(float t) {
    // Restarted in place rather than replaced, so that a holder of getTimer() never dangles.
    timer->resetCycleTime();
    timeStep = t - lastTime;
    time = t;
    lastTime = t;
}

bool WorldModel::updateGameState(const SExpression& gs) {
    GameStateReading reading;
    std::string why;
    if (!PerceptReader::readGameState(gs, reading, why)) {
        drop(why);
        return false;
    }
    applyGameState(reading);
    return true;
}

void WorldModel::applyGameState(const GameStateReading& reading) {
    cycle = reading.cycle;
    playMode = reading.beforeKickOff ? BeforeKickOff : InPlay;
    if (reading.side != 0) {
        side = reading.side;
    }
}

bool WorldModel::updateGYR(const SExpression& gyr) {
    math::Vector3<float> rate;
    std::string why;
    if (!PerceptReader::readGyro(gyr, rate, why)) {
        drop(why);
        return false;
    }
    self->setGyroRate(rate);
    return true;
}

bool WorldModel::updateBody(const SExpression& message) {
    Percepts body;
    std::string why;
    if (!PerceptReader::readBody(message, body.joints, body.feet, why)) {
        drop(why);
        return false;
    }
    applyBody(body);
    return true;
}

void WorldModel::applyBody(const Percepts& readings) {
    Body* body = self->getBody();
    for (const FootReading& foot : readings.feet) {
        Leg* leg = foot.right ? body->getRightLeg() : body->getLeftLeg();
        leg->setFRPForce(foot.force);
        leg->setFRPContactPoint(foot.contactPoint);
    }
    for (const JointReading& joint : readings.joints) {
        body->getHingeJoint(joint.part, joint.index)
            .setJointAlphaValueAndVelocity(joint.angle, timeStep);
    }
}

bool WorldModel::updateVision(const SExpression& see) {
    std::map<unsigned int, math::Vector3<float>> landmarks;
    std::string why;
    if (!PerceptReader::readLandmarks(see, landmarks, why)) {
        drop(why);
        return false;
    }
    applyVision(landmarks);
    return true;
}

void WorldModel::applyVision(const std::map<unsigned int, math::Vector3<float>>& seen) {
    std::map<unsigned int, math::Vector3<float>> landmarks;
    for (const auto& [type, vector] : seen) {
        landmarks[type] = levelled(vector, headTilt());
    }
    self->setPolarPosition(updateBodyAngularPositionByFlags(landmarks, 0));
    self->setPosition(updateBodyAngularPositionByFlags(landmarks, 1));
}

bool WorldModel::updateBall(const SExpression& see) {
    bool seen = false;
    math::Vector3<float> relative;
    std::string why;
    if (!PerceptReader::readBall(see, seen, relative, why)) {
        drop(why);
        return false;
    }
    applyBall(seen, relative);
    return true;
}

float WorldModel::headTilt() const {
    if (!levelHeadTilt) {
        return 0.0F;
    }
    return self->getBody()->getHead()->getHingeJoint(1).getJointAlphaValue();
}

void WorldModel::applyBall(bool seen, const math::Vector3<float>& relative) {
    if (!seen) {
        ball->setPositionCount(ball->getPositionCount() + 1);
        return;
    }
    const float heading = direction(flagDirectionSum.y, flagDirectionSum.x);
    ball->setPosition(self->getPosition() + turn(levelled(relative, headTilt()), heading));
    ball->setRadius(settings::ballRadius());
    ball->setPositionCount(0);
}

void WorldModel::refreshFlags() {
    // The table is rebuilt from the configuration on every call; the objects are reused so
    // that pointers from getFlag() stay valid.
    if (flags.size() == landmarkCount) {
        for (unsigned int t = 0; t < landmarkCount; ++t) {
            flags[t]->setFlagType(static_cast<FlagType>(t));
        }
        return;
    }
    for (Flag* flag : flags) {
        delete flag;
    }
    flags.clear();
    for (unsigned int t = 0; t < landmarkCount; ++t) {
        flags.push_back(new Flag(static_cast<FlagType>(t)));
    }
}

math::Vector3<float> WorldModel::updateBodyAngularPositionByFlags(
    std::map<unsigned int, math::Vector3<float>> seen, unsigned int mode) {
    refreshFlags();
    std::erase_if(seen, [](const auto& entry) { return entry.first >= landmarkCount; });
    const float previousHeading = headDirection.x;
    headDirection = math::Vector3<float>();
    flagDirectionSum = math::Vector3<float>();
    if (seen.empty()) {
        Share::bodyDir = false;
        return Self::getLastPosition();
    }

    float largest = 0.0F;
    for (const auto& entry : seen) {
        largest = std::max(largest, std::fabs(entry.second.z));
    }
    fallenValue = largest;
    Share::bodyDir = false;
    if (seen.size() < 2) {
        return Self::getLastPosition();
    }

    // Every ordered pair of landmarks gives one estimate of the heading: the direction between
    // them on the field less the direction between them as seen. Their circular mean is the
    // heading of the head.
    Share::bodyDir = true;
    for (const auto& [typeA, seenA] : seen) {
        for (const auto& [typeB, seenB] : seen) {
            if (typeA == typeB) {
                continue;
            }
            const math::Vector3<float>& fieldA = flags[typeA]->getPosition();
            const math::Vector3<float>& fieldB = flags[typeB]->getPosition();
            const float fieldDirection = direction(fieldB.y - fieldA.y, fieldB.x - fieldA.x);
            const float seenDirection = direction(seenB.y - seenA.y, seenB.x - seenA.x);
            const float estimate = fieldDirection - seenDirection;
            flagDirectionSum += math::Vector3<float>(std::cos(estimate), std::sin(estimate), 0.0F);
        }
    }
    const float sumLength = std::sqrt(flagDirectionSum.x * flagDirectionSum.x +
                                      flagDirectionSum.y * flagDirectionSum.y);
    float heading = 0.0F;
    if (sumLength > minDirectionSum && std::isfinite(sumLength)) {
        flagDirectionSum /= sumLength;
        heading = direction(flagDirectionSum.y, flagDirectionSum.x);
    } else {
        // The estimates cancel each other out: this message fixes no heading, keep the last.
        heading = previousHeading;
        flagDirectionSum = math::Vector3<float>(std::cos(heading), std::sin(heading), 0.0F);
        Share::bodyDir = false;
    }
    headDirection.x = heading;
    flagsVisionSize = static_cast<int>(seen.size());
    if (mode == 0) {
        return {heading, 0.0F, 0.0F};
    }
    if (mode != 1) {
        return Self::getLastPosition();
    }

    // Each landmark's field position less its seen vector, turned into the field's
    // orientation, is one estimate of the camera's position; start from their mean.
    math::Vector3<float> sum;
    for (auto& [type, vector] : seen) {
        vector = turn(vector, heading);
        sum += flags[type]->getPosition() - vector;
    }
    const math::Vector3<float> estimate = sum / static_cast<float>(seen.size());
    const math::Vector3<float> position = refinePosition(seen, estimate);

    Debugger::logg("Main") << "Position: " << position << std::endl;
    Debugger::logg("Main") << "last pos 8 : " << Self::getLastPosition() << std::endl;
    Self::setLastPosition(position);
    return position;
}

math::Vector3<float> WorldModel::refinePosition(
    const std::map<unsigned int, math::Vector3<float>>& turned,
    const math::Vector3<float>& estimate) {
    // A candidate passes when every one of the eight landmarks lies in the direction and at
    // the distance seen. A landmark not seen counts as seen at distance 0 straight ahead, which
    // only a candidate standing exactly on it (at height 0) can match; so unless all landmarks
    // not seen share one such place, no candidate can pass and the grid is skipped.
    std::array<math::Vector3<float>, landmarkCount> field;
    std::array<math::Vector3<float>, landmarkCount> seen{};
    const math::Vector3<float>* unseenPlace = nullptr;
    for (unsigned int t = 0; t < landmarkCount; ++t) {
        field[t] = flags[t]->getPosition();
        const auto it = turned.find(t);
        if (it != turned.end()) {
            seen[t] = it->second;
            continue;
        }
        if (field[t].z != 0.0F || (unseenPlace != nullptr && (field[t].x != unseenPlace->x ||
                                                              field[t].y != unseenPlace->y))) {
            return estimate;
        }
        unseenPlace = &field[t];
    }
    const float x0 = estimate.x;
    const float y0 = estimate.y;
    if (!std::isfinite(x0) || !std::isfinite(y0) || std::fabs(x0) > maxRefinedCoordinate ||
        std::fabs(y0) > maxRefinedCoordinate) {
        return estimate;
    }

    std::array<float, landmarkCount> seenDirection{};
    std::array<float, landmarkCount> seenDistance{};
    for (unsigned int t = 0; t < landmarkCount; ++t) {
        seenDirection[t] = direction(seen[t].y, seen[t].x);
        seenDistance[t] = seen[t].length();
    }

    math::Vector3<float> sum;
    int count = 0;
    // The grid is defined by float steps from the corner (about 20 by 20 candidates).
    float gx = x0 - gridHalfWidth;
    while (gx < x0 + gridHalfWidth) {
        float gy = y0 - gridHalfWidth;
        while (gy < y0 + gridHalfWidth) {
            bool passes = true;
            for (unsigned int t = 0; t < landmarkCount && passes; ++t) {
                const float dx = field[t].x - gx;
                const float dy = field[t].y - gy;
                const float offset = math::normalizeAngle(direction(dy, dx) - seenDirection[t]);
                const float distance = std::sqrt(dx * dx + dy * dy + field[t].z * field[t].z);
                passes = std::fabs(offset) <= angleTolerance &&
                         std::fabs(distance - seenDistance[t]) <=
                             seenDistance[t] / distanceToleranceDivisor;
            }
            if (passes) {
                sum += math::Vector3<float>(gx, gy, 0.0F);
                ++count;
            }
            gy += gridStep;
        }
        gx += gridStep;
    }
    return count > 0 ? sum / static_cast<float>(count) : estimate;
}
