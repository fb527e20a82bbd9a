#pragma once

#include <ostream>

namespace math {

// A point of the field in metres. Equality and ordering look at x and y only: two points that
// differ only in height are the same place on the field.
class Point {
public:
    constexpr Point() = default;
    constexpr Point(float x, float y, float z = 0.0F) : x(x), y(y), z(z) {}

    constexpr float getX() const { return x; }
    constexpr float getY() const { return y; }
    constexpr float getZ() const { return z; }

    Point& operator+=(Point other);
    Point& operator-=(Point other);

private:
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;
};

// Exact comparison of x and y; z is ignored, and a NaN in x or y makes the points unequal.
bool operator==(Point a, Point b);
bool operator!=(Point a, Point b);
// Lexicographic on x, then y; z is ignored.
bool operator<(Point a, Point b);
// Text form "(x,y,z)" without blanks, each component written as a double.
std::ostream& operator<<(std::ostream& out, Point p);

}  // namespace math
