#include "engine/sky_light.h"

#include "astro/angles.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double darkSky = 21.7;
constexpr double extinctionPerAirMass = 0.172;  // V, magnitudes, as in the paper on moonlight

/// Light per area in units of a sky of magnitude 0.
double lightOf(double magnitude)
{
    return std::pow(10.0, -0.4 * magnitude);
}

/// The fit holds for a Sun 5 to 15 degrees down; below it goes over into the dark, above it counts on.
double twilightMagnitude(double depth)
{
    const double x = std::clamp(depth, 0.0, 18.0) - 5.0;
    return 11.84 + 1.518 * x - 0.057 * x * x;
}

double airMass(double elevation)
{
    const double sine = std::cos(std::max(elevation, 0.0) * radPerDeg);
    return 1.0 / std::sqrt(1.0 - 0.96 * sine * sine);
}

/// In nanolamberts.
double moonlight(const SkyLight& s)
{
    const double phase = std::abs(s.moonPhase);
    const double illuminance = std::pow(10.0, -0.4 * (3.84 + 0.026 * phase + 4e-9 * std::pow(phase, 4)));
    const double cosine = std::cos(s.moonSeparation * radPerDeg);
    const double scattered =
        std::pow(10.0, 5.36) * (1.06 + cosine * cosine) + std::pow(10.0, 6.15 - s.moonSeparation / 40.0);
    const double dimmed = std::pow(10.0, -0.4 * extinctionPerAirMass * airMass(s.moonElevation));
    return scattered * illuminance * dimmed *
           (1.0 - std::pow(10.0, -0.4 * extinctionPerAirMass * airMass(s.elevation)));
}

/// Nanolamberts as a magnitude per square arc second.
double magnitudeOfLight(double nanolamberts)
{
    return (20.7233 - std::log(nanolamberts / 34.08)) / 0.92104;
}

}  // namespace

double skyBrightness(const SkyLight& sky)
{
    double light = lightOf(darkSky);
    if (sky.sunElevation > -18.0)
        light += lightOf(twilightMagnitude(-sky.sunElevation));
    if (sky.moonElevation > 0.0)
        light += lightOf(magnitudeOfLight(moonlight(sky)));
    return -2.5 * std::log10(light);
}

double faintestStar(double skyMagnitude)
{
    return 7.93 - 5.0 * std::log10(std::pow(10.0, 4.316 - skyMagnitude / 5.0) + 1.0);
}

double lostToSky(const SkyLight& sky)
{
    return std::max(0.0, faintestStar(darkSky) - faintestStar(skyBrightness(sky)));
}
