// astro/vec3.h: the triple of doubles on which all geometry is done.

#pragma once

#include <cmath>

/// Cartesian (x, y, z), or polar in the order radius, longitude-like angle, latitude-like angle, in radians.
struct Vec3
{
    double e[3] = {0, 0, 0};

    /// The zero vector.
    constexpr Vec3() = default;
    constexpr Vec3(double x, double y, double z) : e{x, y, z} {}

    constexpr void assign(double x, double y, double z) { *this = Vec3(x, y, z); }

    /// An index above 2 addresses element 0.
    constexpr double& operator[](unsigned i) { return e[i > 2 ? 0 : i]; }
    constexpr const double& operator[](unsigned i) const { return e[i > 2 ? 0 : i]; }

    constexpr Vec3& operator+=(const Vec3& b)
    {
        e[0] += b.e[0];
        e[1] += b.e[1];
        e[2] += b.e[2];
        return *this;
    }

    constexpr Vec3& operator-=(const Vec3& b)
    {
        e[0] -= b.e[0];
        e[1] -= b.e[1];
        e[2] -= b.e[2];
        return *this;
    }

    constexpr Vec3& operator*=(double c)
    {
        e[0] *= c;
        e[1] *= c;
        e[2] *= c;
        return *this;
    }

    /// See `guardedReciprocal`.
    constexpr Vec3& operator/=(double c);
};

/// 1 / c, and 0 for every c below 1e-100, the negative ones among them.
constexpr double guardedReciprocal(double c)
{
    return c < 1e-100 ? 0.0 : 1.0 / c;
}

constexpr Vec3& Vec3::operator/=(double c)
{
    return *this *= guardedReciprocal(c);
}

constexpr Vec3 operator+(const Vec3& a, const Vec3& b)
{
    return {a.e[0] + b.e[0], a.e[1] + b.e[1], a.e[2] + b.e[2]};
}

constexpr Vec3 operator-(const Vec3& a, const Vec3& b)
{
    return {a.e[0] - b.e[0], a.e[1] - b.e[1], a.e[2] - b.e[2]};
}

constexpr Vec3 operator*(double c, const Vec3& v)
{
    return {c * v.e[0], c * v.e[1], c * v.e[2]};
}

constexpr Vec3 operator*(const Vec3& v, double c)
{
    return c * v;
}

/// The vector (cross) product.
constexpr Vec3 operator*(const Vec3& a, const Vec3& b)
{
    return {a.e[1] * b.e[2] - a.e[2] * b.e[1], a.e[2] * b.e[0] - a.e[0] * b.e[2], a.e[0] * b.e[1] - a.e[1] * b.e[0]};
}

/// The zero vector for every divisor below 1e-100, the negative ones among them.
constexpr Vec3 operator/(const Vec3& v, double c)
{
    return guardedReciprocal(c) * v;
}

constexpr double dot(const Vec3& a, const Vec3& b)
{
    return a.e[0] * b.e[0] + a.e[1] * b.e[1] + a.e[2] * b.e[2];
}

/// Euclidean length. For plain numbers write `std::abs`.
inline double abs(const Vec3& v)
{
    return std::sqrt(dot(v, v));
}

/// The unit vector; the zero vector stays what it is.
inline Vec3 vnorm(const Vec3& v)
{
    return v / abs(v);
}

/// atan2(y, x), but 0 when both are zero, whatever their signs. Above -pi up to +pi: a y of -0 counts as 0.
inline double atan20(double y, double x)
{
    return x == 0.0 && y == 0.0 ? 0.0 : std::atan2(y + 0.0, x);
}

/// Cartesian to polar: (r, phi, theta) with phi in 0 to 2 pi and theta in -pi/2 to +pi/2. Zero gives zero.
Vec3 carpol(const Vec3& v);

/// Polar to Cartesian.
Vec3 polcar(const Vec3& v);
