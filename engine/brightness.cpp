#include "engine/brightness.h"

#include "astro/angles.h"
#include "engine/brightness_families.h"
#include "engine/magnitude.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <numbers>

namespace {

constexpr double standardRangeKm = 1000.0;
constexpr double sunRadiusDeg = 0.2666;
constexpr double leastShare = 1e-6;
constexpr double classSpread = 1.5;
constexpr double airBelowDeg = 33.0, airAboveDeg = 0.01;

/// The share of full light.
double phaseFunction(PhaseLaw law, double phaseDeg)
{
    const double p = std::clamp(phaseDeg, 0.0, 180.0) * radPerDeg;
    switch (law) {
    case PhaseLaw::diffuse:
        return ((std::numbers::pi - p) * std::cos(p) + std::sin(p)) / std::numbers::pi;
    case PhaseLaw::cosine:
        return (1.0 + std::cos(p)) / 2.0;
    default:
        return 1.0;
    }
}

/// Year and number of the launch as one figure; 0 for a text that is no designator.
int launchOf(std::string_view designator)
{
    int year = 0, number = 0;
    if (designator.size() < 8 || designator[4] != '-')
        return 0;
    const char* text = designator.data();
    const bool good = std::from_chars(text, text + 4, year).ptr == text + 4 &&
                      std::from_chars(text + 5, text + 8, number).ptr == text + 8;
    return good ? year * 1000 + number : 0;
}

}  // namespace

std::string_view sourceName(BrightnessSource source, std::string_view family)
{
    switch (source) {
    case BrightnessSource::list:
        return "list";
    case BrightnessSource::family:
        return family;
    case BrightnessSource::radarClass:
        return "radar class";
    default:
        return "length";
    }
}

double phaseLoss(PhaseLaw law, double phaseDeg)
{
    return -2.5 * std::log10(std::max(phaseFunction(law, phaseDeg), leastShare));
}

double sunlitShare(double sunElevationDeg)
{
    const double x = std::clamp(sunElevationDeg / sunRadiusDeg, -1.0, 1.0);
    return (std::acos(-x) + x * std::sqrt(1.0 - x * x)) / std::numbers::pi;
}

std::optional<double> magnitudeOf(const StandardMagnitude& standard, const Illumination& seen, bool air)
{
    if (!(seen.rangeKm > 0.0) || !(seen.litShare > leastShare))
        return std::nullopt;
    const double el = seen.elevationDeg;
    const double lost = air && el > airAboveDeg && el < airBelowDeg ? extinction(el) : 0.0;
    return standard.full + 5.0 * std::log10(seen.rangeKm / standardRangeKm) + phaseLoss(standard.law, seen.phaseDeg) -
           2.5 * std::log10(seen.litShare) + lost;
}

StandardMagnitude diffuseSphere(double magnitude, double phaseDeg)
{
    return {.full = magnitude - phaseLoss(PhaseLaw::diffuse, phaseDeg)};
}

StandardMagnitude sphereOfLength(double lengthM)
{
    constexpr double sunMagnitude = -26.74, brightnessLaw = 0.74;
    return {.full = sunMagnitude + brightnessLaw + 5.0 * std::log10(1000.0 * standardRangeKm / lengthM),
            .law = PhaseLaw::cosine,
            .source = BrightnessSource::length};
}

StandardMagnitude sphereOfClass(RadarClass size)
{
    const double lengthM = size == RadarClass::small ? 0.2 : size == RadarClass::medium ? 0.6 : 3.0;
    StandardMagnitude standard = sphereOfLength(lengthM);
    standard.spread = classSpread;
    standard.source = BrightnessSource::radarClass;
    return standard;
}

std::optional<StandardMagnitude> familyMagnitude(std::string_view name, std::string_view designator)
{
    const int launch = launchOf(designator);
    for (const BrightnessFamily& row : brightnessFamilies) {
        if (!name.starts_with(row.nameStart) || name.find(row.namePart) == std::string_view::npos ||
            launch < row.firstLaunch || launch > row.lastLaunch)
            continue;
        StandardMagnitude standard = diffuseSphere(row.magnitude, std::max(row.phaseDeg, 0.0));
        if (row.phaseDeg == meanPhase)
            standard.law = PhaseLaw::none;
        standard.spread = row.spread;
        standard.source = BrightnessSource::family;
        standard.family = row.family;
        return standard;
    }
    return std::nullopt;
}

std::optional<StandardMagnitude> BrightnessBook::of(int norad, std::string_view name,
                                                    std::string_view designator) const
{
    if (const auto row = listed.find(norad); row != listed.end())
        return row->second;
    if (auto family = familyMagnitude(name, designator))
        return family;
    if (const auto row = classes.find(norad); row != classes.end())
        return sphereOfClass(row->second);
    return lengthM > 0.0 ? std::optional(sphereOfLength(lengthM)) : std::nullopt;
}
