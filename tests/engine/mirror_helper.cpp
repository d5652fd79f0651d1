#include "engine/mirror_helper.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

constexpr double degree = std::numbers::pi / 180;

Vec3 unit(const Vec3& a)
{
    return a * (1.0 / std::sqrt(dot(a, a)));
}

double angleBetween(const Vec3& a, const Vec3& b)
{
    return std::atan2(abs(a * b), dot(a, b)) / degree;
}

Vec3 orbitNormal(const MirrorScene& scene)
{
    return unit(scene.r * scene.v);
}

}  // namespace

Vec3 mirrorNormal(const MirrorScene& scene, double yaw, double pitch)
{
    const Vec3 forward = unit(scene.v);
    const Vec3 left = orbitNormal(scene);
    const Vec3 up = forward * left;
    const Vec3 level = std::cos(yaw * degree) * forward - std::sin(yaw * degree) * left;
    return std::cos(pitch * degree) * level + std::sin(pitch * degree) * up;
}

bool panelCanFlare(const MirrorScene& scene)
{
    const double beta = std::abs(90.0 - angleBetween(orbitNormal(scene), scene.sun));
    return beta >= 40.0 && beta <= 65.0;
}

Vec3 panelNormal(const MirrorScene& scene)
{
    const Vec3 n = orbitNormal(scene);
    const Vec3 sun = unit(scene.sun);
    const double height = dot(sun, n);
    const Vec3 inPlane = unit(sun - height * n);
    const double side = height < 0 ? -1.0 : 1.0;
    return std::cos(40 * degree) * inPlane + side * std::sin(40 * degree) * n;
}

bool isSunlit(const MirrorScene& scene)
{
    const double fromZenith = angleBetween(scene.r, scene.sun - scene.r);
    const double limb = 180.0 - std::asin(std::min(1.0, 6378.137 / abs(scene.r))) / degree;
    return fromZenith < limb;
}

Glint glintOf(const MirrorScene& scene, const Vec3& normal)
{
    const Vec3 d = unit(scene.sun - scene.r);
    Glint glint;
    glint.cosIncidence = dot(d, normal);
    glint.lit = glint.cosIncidence >= 0;
    const Vec3 reflected = 2.0 * glint.cosIncidence * normal - d;
    glint.offset = angleBetween(reflected, scene.observer - scene.r);
    return glint;
}

double glintMagnitude(const MirrorScene& scene, const Glint& glint, bool panel)
{
    if (!glint.lit)
        return 99.0;
    const double range = abs(scene.observer - scene.r);
    // the offset never falls below that of a cosine of 0.9999999999
    const double offset = std::max(glint.offset, 0.00081);
    double m = 5 * std::log10(range) - 14.4 - 2.5 * std::log10(std::max(glint.cosIncidence, 1e-4));
    if (panel)
        m += offset < 3.5 ? 0.993 * offset - 4.567 : 1.5 * offset - 6.3415;
    else
        m += offset < std::exp(-5.91785 / 3.2437) ? -8.9 : 3.2437 * std::log(offset) - 2.98215;
    return m;
}
