#include "plans/Pitch.h"

#include <algorithm>
#include <cmath>

#include "math/Angles.h"
#include "utilities/config/Settings.h"
#include "worldmodel/WorldModel.h"

float Pitch::attackSign(const WorldModel& wm) {
    return wm.getSide() == 2 ? -1.0F : 1.0F;
}

math::Point Pitch::opponentGoal(const WorldModel& wm) {
    return {attackSign(wm) * halfLength(), 0.0F, 0.0F};
}

math::Point Pitch::ownGoal(const WorldModel& wm) {
    return {-attackSign(wm) * halfLength(), 0.0F, 0.0F};
}

math::Point Pitch::toField(const WorldModel& wm, float x, float y) {
    const float sign = attackSign(wm);
    return {sign * x, sign * y, 0.0F};
}

math::Point Pitch::inside(math::Point p, float margin) {
    const float maxX = std::max(halfLength() - margin, 0.0F);
    const float maxY = std::max(halfWidth() - margin, 0.0F);
    return {std::clamp(p.getX(), -maxX, maxX), std::clamp(p.getY(), -maxY, maxY), p.getZ()};
}

float Pitch::halfLength() {
    return settings::fieldLength() * 0.5F;
}

float Pitch::halfWidth() {
    return settings::fieldWidth() * 0.5F;
}

float Pitch::goalWidth() {
    return settings::goalWidth();
}

float Pitch::sideStepY(const WorldModel& wm, float y) {
    const double heading = math::toRadians(static_cast<double>(wm.getSelf()->getBodyDirection()));
    if (std::cos(heading) >= 0.0) {
        return y;
    }
    const float selfY = wm.getSelf()->getPosition().getY();
    return 2.0F * selfY - y;
}

math::Point Pitch::level(const WorldModel& wm, math::Point p) {
    return {p.getX(), p.getY(), wm.getSelf()->getPosition().getZ()};
}

float Pitch::beamWord(const std::string& roleFile, int word) {
    return config[roleFile]["Initialize"]["Beam"][word].b_value(0.0F);
}
