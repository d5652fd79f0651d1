#include "engine/sky_bounds.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "astro/angles.h"
#include "astro/earth.h"
#include "astro/time_scales.h"

namespace {

constexpr double secondsPerDay = 86400.0;
constexpr double earthRadPerDay = 1.0027379093 * twoPi;

}  // namespace

SkyBounds::SkyBounds(const Scene& s)
    : known(true),
      anchor(s.mjd),
      sidereal(lsidtim(s.ut1, s.lngDeg, s.eqeq) * radPerHour),
      cosLat(std::cos(s.lat)),
      sinLat(std::sin(s.lat)),
      fromAxis(s.site.rho * earthRadiusKm),
      fromEquator(s.site.z * earthRadiusKm)
{}

double SkyBounds::staysOutside(double azimuth, double elevation, double angle, double t, PassBounds& bounds) const
{
    const auto stand = known ? bounds.stand(t) : std::nullopt;
    if (!stand || !(angle >= 0.0 && angle <= std::numbers::pi))
        return 0.0;
    const double local = sidereal + (t - anchor) * earthRadPerDay;
    const Vec3 outward(std::cos(local), std::sin(local), 0.0);
    const Vec3 east(-outward[1], outward[0], 0.0);
    const Vec3 pole(0.0, 0.0, 1.0);
    const Vec3 level = std::cos(azimuth) * (cosLat * pole - sinLat * outward) + std::sin(azimuth) * east;
    const Vec3 toPlace = std::cos(elevation) * level + std::sin(elevation) * (cosLat * outward + sinLat * pole);
    const Vec3 sight = stand->r - fromAxis * outward - fromEquator * pole;
    const double outside = std::cos(angle) * abs(sight * toPlace) - std::sin(angle) * dot(sight, toPlace);
    const double days = (outside - bounds.orbit().farthestOffKm()) / bounds.fastestKmPerS() / secondsPerDay;
    return std::max(std::min({days, bounds.reachesTo() - t, t - bounds.reachesFrom()}), 0.0);
}
