#include "astro/vec3.h"

#include "astro/angles.h"

Vec3 carpol(const Vec3& v)
{
    const double rho = std::sqrt(v[0] * v[0] + v[1] * v[1]);
    const double phi = atan20(v[1], v[0]);
    return {abs(v), phi < 0 ? phi + twoPi : phi, atan20(v[2], rho)};
}

Vec3 polcar(const Vec3& v)
{
    const double rho = v[0] * std::cos(v[2]);
    return {rho * std::cos(v[1]), rho * std::sin(v[1]), v[0] * std::sin(v[2])};
}
