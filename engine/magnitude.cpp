#include "engine/magnitude.h"

#include <cmath>
#include <numbers>

#include "astro/angles.h"
#include "engine/position_stages.h"

namespace {

constexpr double auKm = 149597870.69100964;
constexpr double sunRadiusEarthRadii = 109.123;
constexpr double moonRadiusEarthRadii = 0.272493;
constexpr double sunMagnitude = -26.74;
constexpr double noLight = 20.0;  // increment, magnitudes

/// Apparent radii and distance of the two disks, radians.
struct Disks
{
    double sun, moon, distance;
};

/// The share of the Sun that a Moon in front of it leaves visible, of the disk.
struct Share
{
    bool found = false;
    double value = 0;
    double increment = 0;  // where no share is found
};

double segment(double half, double radius)
{
    const double angle = 2.0 * half;
    return (angle - std::sin(angle)) * (radius * radius) / 2.0;
}

/// The disks overlap, and neither lies inside the other, so only a rounding can bring the chord outside of one of them.
Share visibleShare(const Disks& d)
{
    // distance of the common chord from the Sun's centre
    const double x = (d.sun * d.sun - d.moon * d.moon + d.distance * d.distance) / (2.0 * d.distance);
    const double c = std::abs(d.distance - x) / d.moon;
    if (x <= -d.sun || c > 1.0)
        return {false, 0.0, noLight};
    const double s = x / d.sun;
    if (std::abs(s) > 1.0)
        return {false, 0.0, 0.0};
    double ofMoon = segment(std::acos(c), d.moon);
    if (x > d.distance)  // then the Sun is the larger disk
        ofMoon = std::numbers::pi * (d.moon * d.moon) - ofMoon;
    const double ofSun = segment(std::acos(s), d.sun);
    const double disk = std::numbers::pi * (d.sun * d.sun);
    return {true, (disk - ofSun - ofMoon) / disk, 0.0};
}

void dim(SolarEclipse& eclipse, double share)
{
    if (share > 1e-12) {
        eclipse.remaining = share;
        eclipse.increment = -2.5 * std::log10(share);
    } else {
        eclipse.increment = noLight;
    }
}

Disks disksFrom(const Vec3& sun, const Vec3& moon, const Vec3& satellite)
{
    double cosine = dot(vnorm(sun - satellite), vnorm(moon - satellite));
    if (std::abs(cosine) > 1.0)
        cosine = 1.0;
    const double toMoon = abs(moon - satellite);
    return {sunRadiusEarthRadii / abs(sun), moonRadiusEarthRadii / (toMoon < 1e-9 ? abs(moon) : toMoon),
            std::acos(cosine)};
}

}  // namespace

SolarEclipse solarEclipse(const Vec3& sun, const Vec3& moon, const Vec3& satellite)
{
    const Disks d = disksFrom(sun, moon, satellite);
    SolarEclipse eclipse;
    eclipse.distanceDeg = d.distance * degPerRad;
    if (!(d.sun + d.moon > d.distance))
        return eclipse;
    eclipse.type = 1;
    eclipse.magnitude = (d.sun + d.moon - d.distance) / (2.0 * d.sun);
    const bool inside = std::abs(d.moon - d.sun) >= d.distance || d.distance < 1.745e-6;
    if (inside && d.moon >= d.sun) {
        eclipse.type = 2;
        eclipse.increment = noLight;
    } else if (inside) {
        const double ratio = d.moon / d.sun;
        eclipse.type = 3;
        eclipse.magnitude = ratio;
        dim(eclipse, 1.0 - ratio * ratio);
    } else if (const Share share = visibleShare(d); share.found) {
        dim(eclipse, share.value);
    } else {
        eclipse.increment = share.increment;
    }
    return eclipse;
}

LightSource sunAsSource(const Vec3& sun)
{
    return {sunMagnitude, sun * earthRadiusKm, false};
}

LightSource moonAsSource(const Vec3& sun, const Vec3& moon, const Vec3& satellite)
{
    constexpr double brightnessAt1Au = 0.23;
    constexpr double phaseFoldDeg = 41.0041888;
    const Vec3 moonKm = moon * earthRadiusKm;
    double D = abs(satellite - moonKm) / auKm;
    if (D <= 0.0)
        D = 1e-30;
    const double cosine = dot(vnorm(sun * earthRadiusKm - moonKm), vnorm(satellite - moonKm));
    const double phase = std::abs(cosine) > 1.0 ? 180.0 : std::acos(cosine) * degPerRad;
    const double magnitude =
        5.0 * std::log10(D) + brightnessAt1Au - 2.5 * std::log10(std::exp(-phase / phaseFoldDeg));
    return {magnitude, moonKm, true};
}

double sphereMagnitude(const LightSource& source, const Vec3& observer, const Vec3& satellite, double rangeKm,
                       double increment, double lengthM)
{
    constexpr double brightnessLaw = 0.74;
    double f = (1.0 + dot(vnorm(observer - satellite), vnorm(source.position - satellite))) / 2.0;
    if (f < 1e-30)
        f = 1.0;
    if (rangeKm <= 0.0)
        return 0.0;
    return source.magnitude + brightnessLaw + increment + 5.0 * std::log10(1000.0 * rangeKm / lengthM) -
           2.5 * std::log10(f);
}

double extinction(double elevationDeg)
{
    return 2.9935 - 0.828865 * std::log(elevationDeg);
}
