#include "engine/near_sight.h"

#include <algorithm>
#include <cmath>

#include "astro/angles.h"
#include "astro/earth.h"
#include "astro/time_scales.h"
#include "orbit/sgp4.h"

namespace {

constexpr double earthRadPerDay = 1.00273790935 * twoPi;

// Nutation moves by less than 0.3 arc seconds a day: 3e-9 radians within `goodDays`. The sidereal time of a date as a
// double has steps of 5e-11 radians.
constexpr double frameRad = 5e-9;
constexpr double roundingsKm = 1e-6;

}  // namespace

NearSight::NearSight(const Scene& s)
    : anchor(s.mjd),
      toTrue(s.nutation * analyticTurn(s.nutation, s.eqeq, s.models.corrections)),
      cosLat(std::cos(s.lat)),
      sinLat(std::sin(s.lat)),
      fromAxis(s.site.rho * earthRadiusKm),
      fromEquator(s.site.z * earthRadiusKm)
{
    const double sidereal = lsidtim(s.ut1, s.lngDeg, s.eqeq) * radPerHour;
    cosSidereal = std::cos(sidereal);
    sinSidereal = std::sin(sidereal);
}

NearSight::Sine NearSight::sineAt(double mjd, const Vec3& state) const
{
    const Vec3 r = mxvct(toTrue, state);
    const double turn = (mjd - anchor) * earthRadPerDay;  // 0.011 at most: the series leave less than 1e-14 out
    const double squared = turn * turn;
    const double sine = turn * (1.0 - squared / 6.0 * (1.0 - squared / 20.0));
    const double cosine = 1.0 - squared / 2.0 * (1.0 - squared / 12.0);
    const double south =
        r[0] * (cosSidereal * cosine - sinSidereal * sine) + r[1] * (sinSidereal * cosine + cosSidereal * sine);
    const double up = cosLat * (south - fromAxis) + sinLat * (r[2] - fromEquator);
    const double range = abs(r);
    const double distance = std::sqrt(std::max(range * range - 2.0 * (fromAxis * south + fromEquator * r[2]) +
                                                   fromAxis * fromAxis + fromEquator * fromEquator,
                                               1e-6));
    return {up / distance, 2.0 * (frameRad * range + roundingsKm) / distance};
}
