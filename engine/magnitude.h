// How bright a satellite looks: sunlight or moonlight on a sphere, and the Moon in front of the Sun.
#pragma once

#include "astro/vec3.h"

/// The Moon in front of the Sun, as seen from the satellite.
struct SolarEclipse
{
    int type = 0;            // 0 none, 1 partial, 2 total, 3 annular
    double distanceDeg = 0;  // between the centres
    double magnitude = 0;    // covered share of the Sun's diameter; the ratio of the radii if annular
    double remaining = 0;    // share of the disk still visible; left at 0 without an eclipse
    double increment = 0;    // what the eclipse takes from a satellite's brightness, magnitudes; 20 for no light
};

/// Vectors from the Earth's centre in one frame, in Earth radii. The Sun's apparent radius is that at the Earth.
SolarEclipse solarEclipse(const Vec3& sun, const Vec3& moon, const Vec3& satellite);

/// What lights the satellite.
struct LightSource
{
    double magnitude = 0;    // the Sun's; the Moon's at the satellite
    Vec3 position{0, 0, 0};  // km
    bool moonlight = false;
};

/// The Sun at `sun`, also for a satellite in the shadow.
///
/// @param sun  Earth radii
LightSource sunAsSource(const Vec3& sun);

/// The Moon with its phase as the satellite sees it.
///
/// @param sun, moon  Earth radii
/// @param satellite  km
LightSource moonAsSource(const Vec3& sun, const Vec3& moon, const Vec3& satellite);

/// Magnitude of a sphere in the light of a source, under a simple cosine law of the phase.
///
/// @param observer, satellite  km
/// @param rangeKm    0 or less gives magnitude 0
/// @param increment  magnitudes lost to an eclipse
/// @param lengthM    characteristic length, above 0
double sphereMagnitude(const LightSource& source, const Vec3& observer, const Vec3& satellite, double rangeKm,
                       double increment, double lengthM);

/// What the air takes low in the sky, magnitudes. The law is one for elevations above 0 and below 33 degrees; the
/// callers set their limits.
double extinction(double elevationDeg);
