#include "plans/KickApproach.h"

#include <cmath>
#include <map>
#include <string>

#include "math/Angles.h"
#include "math/Geometry.h"
#include "utilities/config/Config.h"
#include "utilities/config/ConfigError.h"
#include "utilities/config/ConfigRevision.h"

namespace {

// Values read from a configuration group, with the configuration's revision when they were read:
// the plans consult them every cycle, the text is parsed again only after the store has changed.
// The revision only ever grows (ConfigRevision), so a kept value never outlives its text.
template <typename T>
struct Kept {
    unsigned long revision;
    T value;
};

template <typename T, typename Parse>
T keptValue(std::map<std::string, Kept<T>>& kept, const std::string& configuration,
            const std::string& group, Parse parse) {
    const unsigned long now = ConfigRevision::current();
    const std::string name = configuration + '/' + group;
    const auto found = kept.find(name);
    if (found != kept.end() && found->second.revision == now) {
        return found->second.value;
    }
    const T value = parse(configuration, group);
    kept.insert_or_assign(name, Kept<T>{now, value});
    return value;
}

// How far beyond the ball the run-up aims (metres): the kick switch fires before it is reached.
constexpr float kRunThrough = 1.0F;
// Within this distance (metres) of the run-up's start the robot counts as on the kick line, so
// that a walk that has arrived there (the walk stops within 0.3 m) always runs up.
constexpr float kRunUpStartRadius = 0.4F;

struct Vec {
    float x;
    float y;
};

Vec operator-(Vec a, Vec b) {
    return {a.x - b.x, a.y - b.y};
}
Vec operator+(Vec a, Vec b) {
    return {a.x + b.x, a.y + b.y};
}
Vec operator*(Vec a, float k) {
    return {a.x * k, a.y * k};
}
float dot(Vec a, Vec b) {
    return a.x * b.x + a.y * b.y;
}
float length(Vec a) {
    return std::sqrt(dot(a, a));
}
Vec of(math::Point p) {
    return {p.getX(), p.getY()};
}
math::Point point(Vec v) {
    return {v.x, v.y, 0.0F};
}

// Distance (metres) from `p` to the segment from `a` to `b`.
float segmentDistance(Vec p, Vec a, Vec b) {
    const Vec ab = b - a;
    const float squared = dot(ab, ab);
    float t = squared > 0.0F ? dot(p - a, ab) / squared : 0.0F;
    t = t < 0.0F ? 0.0F : (t > 1.0F ? 1.0F : t);
    return length(p - (a + ab * t));
}

float positiveValue(const ConfigGroup& group, const std::string& configuration,
                    const std::string& groupName, const char* key) {
    const float value = group[key].asFloat();
    if (!(value > 0.0F)) {
        failCheck("value > 0", "KickApproach", __LINE__, __PRETTY_FUNCTION__,
                  checkValueLocation(configuration, groupName, key) + " must be a positive number");
    }
    return value;
}

}  // namespace

KickApproach::Target KickApproach::target(math::Point self, math::Point ball, math::Point goal,
                                          const Parameters& parameters) {
    const Vec b = of(ball);
    const Vec toGoal = of(goal) - b;
    const float distance = length(toGoal);
    // Along the kick (u) and to its left (n); a ball on the target itself is kicked along +x.
    const Vec u = distance > 0.0F ? toGoal * (1.0F / distance) : Vec{1.0F, 0.0F};
    const Vec n{-u.y, u.x};
    const Vec lineBall = b - n * parameters.footOffset;
    const Vec runUpStart = lineBall - u * parameters.approachDistance;

    const Vec s = of(self);
    const float along = dot(s - lineBall, u);
    const float across = dot(s - lineBall, n);
    if (along < 0.0F && (std::fabs(across) <= parameters.lineTolerance ||
                         length(s - runUpStart) < kRunUpStartRadius)) {
        return {Phase::RunUp, point(lineBall + u * kRunThrough)};
    }
    if (segmentDistance(b, s, runUpStart) >= parameters.clearance * 0.5F) {
        return {Phase::Behind, point(runUpStart)};
    }
    // Round the ball on the side the robot is on.
    const float side = across < 0.0F ? -1.0F : 1.0F;
    return {Phase::Round, point(b + n * (side * parameters.clearance))};
}

math::Point KickApproach::inFrame(math::Point origin, float heading, math::Point p) {
    const double radians = math::toRadians(static_cast<double>(heading));
    const auto ux = static_cast<float>(std::cos(radians));
    const auto uy = static_cast<float>(std::sin(radians));
    const float dx = p.getX() - origin.getX();
    const float dy = p.getY() - origin.getY();
    return {dx * ux + dy * uy, -dx * uy + dy * ux, 0.0F};
}

bool KickApproach::isKickPosition(math::Point self, float heading, math::Point ball,
                                  float direction, const Switch& limits) {
    const float dx = ball.getX() - self.getX();
    const float dy = ball.getY() - self.getY();
    // The ball in a frame whose x points along the direction of the kick.
    const math::Point seen = inFrame(self, direction, ball);
    const float ahead = seen.getX();
    const float across = seen.getY();
    if (std::sqrt(dx * dx + dy * dy) > limits.maxDistance || ahead <= 0.0F) {
        return false;
    }
    const auto bearing = static_cast<float>(
        std::fabs(std::atan2(static_cast<double>(across), static_cast<double>(ahead)) *
                  math::kDegreesPerRadian));
    if (bearing > limits.maxBearing) {
        return false;
    }
    return std::fabs(math::absoluteAngle(heading - direction)) <= limits.maxHeading;
}

KickApproach::Parameters KickApproach::readParameters(const std::string& configuration,
                                                      const std::string& group) {
    static std::map<std::string, Kept<Parameters>> kept;
    return keptValue(kept, configuration, group, parseParameters);
}

KickApproach::Switch KickApproach::readSwitch(const std::string& configuration,
                                              const std::string& group) {
    static std::map<std::string, Kept<Switch>> kept;
    return keptValue(kept, configuration, group, parseSwitch);
}

bool KickApproach::hasFooting(const std::string& configuration, const std::string& group) {
    return config.exists(configuration) && config[configuration].exists(group);
}

KickApproach::Footing KickApproach::readFooting(const std::string& configuration,
                                                const std::string& group) {
    static std::map<std::string, Kept<Footing>> kept;
    return keptValue(kept, configuration, group, parseFooting);
}

KickApproach::Parameters KickApproach::parseParameters(const std::string& configuration,
                                                       const std::string& group) {
    const ConfigGroup& values = config[configuration][group];
    Parameters parameters;
    parameters.approachDistance = positiveValue(values, configuration, group, "ApproachDistance");
    parameters.clearance = positiveValue(values, configuration, group, "Clearance");
    parameters.lineTolerance = positiveValue(values, configuration, group, "LineTolerance");
    parameters.footOffset = values["FootOffset"].asFloat();
    return parameters;
}

KickApproach::Switch KickApproach::parseSwitch(const std::string& configuration,
                                               const std::string& group) {
    const ConfigGroup& values = config[configuration][group];
    Switch limits;
    limits.maxDistance = values["MaxBallDistance"].asFloat();
    limits.maxBearing = values["MaxBallBearing"].asFloat();
    limits.maxHeading = values["MaxHeadingError"].asFloat();
    return limits;
}

KickApproach::Footing KickApproach::parseFooting(const std::string& configuration,
                                                 const std::string& group) {
    const ConfigGroup& values = config[configuration][group];
    Footing footing;
    footing.ballAhead = positiveValue(values, configuration, group, "BallAhead");
    footing.watchBall = values["WatchBall"].asBool();
    return footing;
}

const char* KickApproach::phaseName(Phase phase) {
    switch (phase) {
        case Phase::Round:
            return "round";
        case Phase::Behind:
            return "behind";
        case Phase::RunUp:
            return "run-up";
    }
    return "";
}
