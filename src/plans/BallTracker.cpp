#include "plans/BallTracker.h"

#include <algorithm>
#include <vector>

#include "worldmodel/WorldModel.h"

namespace {
// Positions kept for the median.
constexpr std::size_t kKept = 5;

float median(std::vector<float> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}
}  // namespace

std::deque<math::Point> BallTracker::recent;

math::Point BallTracker::update(const WorldModel& wm) {
    const auto& ball = wm.getBall()->getPosition();
    const math::Point now(ball.getX(), ball.getY(), 0.0F);
    if (recent.empty() || recent.back() != now) {
        recent.push_back(now);
        if (recent.size() > kKept) {
            recent.pop_front();
        }
    }
    std::vector<float> xs;
    std::vector<float> ys;
    for (const math::Point& p : recent) {
        xs.push_back(p.getX());
        ys.push_back(p.getY());
    }
    return {median(xs), median(ys), 0.0F};
}

void BallTracker::resetState() {
    recent.clear();
}
