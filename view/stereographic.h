// The polar stereographic projection that hemisphere maps and the zenith sky share. The unit of length is the radius of
// the sphere; the circle 90 degrees from the pole has a radius of 2.
#pragma once

#include <cmath>
#include <optional>

namespace stereographic {

/// Distance from the pole in the picture of a point at a latitude (or elevation) in radians.
inline double radius(double latitude)
{
    return 2.0 * std::cos(latitude) / (1.0 + std::sin(latitude));
}

/// Where a point of the picture lies on the sphere.
struct Direction
{
    double angle;                // radians, counted from the axis `along`
    std::optional<double> sine;  // of the latitude; nothing where no latitude has this radius
};

/// The point at `across` and `along` of the picture; not for the pole itself, where both are 0.
inline Direction directionAt(double across, double along)
{
    constexpr double smallSine = 1e-5;
    const double angle = std::atan2(across, along);
    const double sine = std::sin(angle);
    const double half = std::abs(sine) > smallSine ? across / (2.0 * sine) : along / (2.0 * std::cos(angle));
    const double a = half * half;
    const double x1 = a / (a + 1.0);
    const double q = x1 * x1 - (a - 1.0) / (a + 1.0);
    if (q < 0)
        return {angle, std::nullopt};
    return {angle, std::sqrt(q) - x1};
}

}  // namespace stereographic
