#include "observing/seen_orbit.h"

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/frames.h"
#include "engine/prediction.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double secondsPerDay = 86400.0;
constexpr double lightKmPerS = 299792.458;
constexpr double epoch1950 = 33281.0;
constexpr double gmKm3PerS2 = 398600.8;

double boundOf(const Elements& e)
{
    constexpr double margin = 1.05, escapeKmPerS = 11.2;
    if (!(e.ecc < 1.0) || !(e.n0 > 0.0))
        return escapeKmPerS;
    const double n = e.n0 * twoPi / secondsPerDay;  // of an ellipse with this axis
    return margin * std::cbrt(gmKm3PerS2 * n) * std::sqrt((1.0 + e.ecc) / (1.0 - e.ecc));
}

}  // namespace

SeenOrbit::SeenOrbit(const Orbit& orbit)
    : analytic(orbit.propagator == Propagator::analytic),
      constants(orbit.wgs84 ? wgs84 : wgs72),
      form(modelForm(orbit.forces.corrections)),
      epoch(orbit.elements.epoch),
      bound(boundOf(orbit.elements))
{
    const Elements& e = orbit.elements;
    if (analytic)
        sgp4init(constants, orbit.deepSpace, epoch - epoch1950, e.bstar, e.ecc, e.aper * radPerDeg, e.inc * radPerDeg,
                 e.m0 * radPerDeg, e.n0 * twoPi / 1440.0, e.ra * radPerDeg, elements, form);
    else
        predictor = std::make_unique<Predictor>(orbit);
}

SeenOrbit::~SeenOrbit() = default;
SeenOrbit::SeenOrbit(SeenOrbit&&) noexcept = default;

std::optional<Vec3> SeenOrbit::placeAt(double mjd)
{
    if (!analytic) {
        const Position position = predictor->position(mjd);
        double eqeq = 0;
        nutmat(julcent(mjd), eqeq, false);
        return position.found ? std::optional(mxvct(zrot(eqeq * twoPi / secondsPerDay), position.r)) : std::nullopt;
    }
    double r[3] = {}, v[3] = {};
    const int error = sgp4(constants, elements, (mjd - epoch) * 1440.0, r, v, form);
    const Vec3 place(r[0], r[1], r[2]);
    return error == 0 && std::isfinite(dot(place, place)) ? std::optional(place) : std::nullopt;
}

std::optional<Vec3> SeenOrbit::lineAt(const Sight& sight)
{
    Vec3 line;
    double lightDays = 0;
    for (int pass = 0; pass < 3; ++pass) {
        const auto place = placeAt(sight.instant() - lightDays);
        if (!place)
            return std::nullopt;
        line = *place - sight.observer();
        lightDays = abs(line) / lightKmPerS / secondsPerDay;
    }
    return line;
}

std::optional<Vec3> SeenOrbit::directionAt(const Sight& sight)
{
    const auto line = lineAt(sight);
    return line ? std::optional(sight.shown(*line)) : std::nullopt;
}
