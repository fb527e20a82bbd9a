#include "math/Point.h"

namespace math {

Point& Point::operator+=(Point other) {
    x += other.x;
    y += other.y;
    z += other.z;
    return *this;
}

Point& Point::operator-=(Point other) {
    x -= other.x;
    y -= other.y;
    z -= other.z;
    return *this;
}

bool operator==(Point a, Point b) {
    return a.getX() == b.getX() && a.getY() == b.getY();
}

bool operator!=(Point a, Point b) {
    return !(a == b);
}

bool operator<(Point a, Point b) {
    return a.getX() < b.getX() || (a.getX() == b.getX() && a.getY() < b.getY());
}

std::ostream& operator<<(std::ostream& out, Point p) {
    return out << '(' << static_cast<double>(p.getX()) << ',' << static_cast<double>(p.getY())
               << ',' << static_cast<double>(p.getZ()) << ')';
}

}  // namespace math
