#pragma once

#include <cmath>
#include <ostream>

namespace math {

// A three-component vector: positions and offsets in metres, velocities, forces, gyroscope
// rates, and polar triples (distance, horizontal angle, vertical angle) before conversion.
// A plain value type; the components are public and also reachable through get/set accessors.
template <typename T>
class Vector3 {
public:
    T x{};
    T y{};
    T z{};

    constexpr Vector3() = default;
    constexpr Vector3(T x, T y, T z) : x(x), y(y), z(z) {}

    constexpr T getX() const { return x; }
    constexpr T getY() const { return y; }
    constexpr T getZ() const { return z; }
    constexpr void setX(T value) { x = value; }
    constexpr void setY(T value) { y = value; }
    constexpr void setZ(T value) { z = value; }

    constexpr Vector3& operator+=(const Vector3& other) {
        x += other.x;
        y += other.y;
        z += other.z;
        return *this;
    }
    constexpr Vector3& operator-=(const Vector3& other) {
        x -= other.x;
        y -= other.y;
        z -= other.z;
        return *this;
    }
    constexpr Vector3& operator*=(T factor) {
        x *= factor;
        y *= factor;
        z *= factor;
        return *this;
    }
    constexpr Vector3& operator/=(T divisor) {
        x /= divisor;
        y /= divisor;
        z /= divisor;
        return *this;
    }

    constexpr Vector3 operator-() const { return Vector3(-x, -y, -z); }

    // Euclidean length, in the unit of the components.
    T length() const { return std::sqrt(x * x + y * y + z * z); }

    constexpr bool operator==(const Vector3& other) const = default;
};

template <typename T>
constexpr Vector3<T> operator+(Vector3<T> a, const Vector3<T>& b) {
    return a += b;
}

template <typename T>
constexpr Vector3<T> operator-(Vector3<T> a, const Vector3<T>& b) {
    return a -= b;
}

template <typename T>
constexpr Vector3<T> operator*(Vector3<T> v, T factor) {
    return v *= factor;
}

template <typename T>
constexpr Vector3<T> operator*(T factor, Vector3<T> v) {
    return v *= factor;
}

template <typename T>
constexpr Vector3<T> operator/(Vector3<T> v, T divisor) {
    return v /= divisor;
}

// Text form "(x, y, z)"; each component is written as a double with the stream's formatting.
template <typename T>
std::ostream& operator<<(std::ostream& out, const Vector3<T>& v) {
    return out << '(' << static_cast<double>(v.x) << ", " << static_cast<double>(v.y) << ", "
               << static_cast<double>(v.z) << ')';
}

}  // namespace math
