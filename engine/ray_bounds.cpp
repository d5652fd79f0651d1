#include "engine/ray_bounds.h"

#include <algorithm>
#include <cmath>

#include "astro/angles.h"
#include "astro/earth.h"
#include "astro/time_scales.h"

namespace {

constexpr double secondsPerDay = 86400.0;
constexpr double earthRadPerDay = 1.0027379093 * twoPi;
constexpr double sunRadPerDay = 0.026;
constexpr double moonRadPerDay = 0.26;
constexpr double observerKmPerS = 0.47;
constexpr double farthestKm = 1e5;       // of a satellite; less than a third of the way to the Moon
constexpr double greatestScale = 1.004;  // of distances on the ellipsoid and on the sphere
constexpr double spareKm = 10.0;
constexpr double lowestKm = -1.0, highestKm = 20.0;  // observers between these have the ground at their own height
constexpr double shortestStepS = 2.0;

}  // namespace

RayBounds::RayBounds(const Scene& s)
    : anchor(s.mjd),
      sidereal(lsidtim(s.ut1, s.lngDeg, s.eqeq) * radPerHour),
      fromAxis(s.site.rho * earthRadiusKm),
      fromEquator(s.site.z * earthRadiusKm),
      heightKm(0.001 * s.height),
      direction(s.transit == 3),
      target(transitTarget(s)),
      turnRadPerDay(direction        ? 0.0
                    : s.transit == 1 ? sunRadPerDay
                                     : moonRadPerDay)
{
    target = direction ? vnorm(target) : target * earthRadiusKm;
}

double RayBounds::reachKm(double distanceKm) const
{
    const double aside = heightKm > lowestKm && heightKm < highestKm ? 0.0 : std::abs(heightKm);
    return greatestScale * std::max(distanceKm, 0.0) + spareKm + aside;
}

PassBounds::Estimate RayBounds::fromLine(double t, PassBounds& bounds) const
{
    constexpr PassBounds::Estimate nothing{0.0, 1e300};
    const auto stand = bounds.stand(t);
    if (!stand)
        return nothing;
    const double angle = sidereal + (t - anchor) * earthRadPerDay;
    const Vec3 observer(fromAxis * std::cos(angle), fromAxis * std::sin(angle), fromEquator);
    const Vec3 sight = stand->r - observer;
    const Vec3 toTarget = direction ? target : vnorm(target - observer);
    const double turned = turnRadPerDay * (t - anchor);
    return {abs(sight * toTarget), bounds.orbit().farthestOffKm() + turned * (stand->range + earthRadiusKm)};
}

bool RayBounds::staysFar(double until, double distanceKm, PassBounds& bounds) const
{
    if (!(bounds.reachesFrom() <= anchor && until <= bounds.reachesTo()))
        return false;
    const double far = bounds.orbit().farthestKm();
    const double perSecond = bounds.fastestKmPerS() + 2.0 * observerKmPerS + turnRadPerDay * far / secondsPerDay;
    const double reach = reachKm(distanceKm);
    if (!(far < farthestKm))
        return false;
    for (double t = anchor; t <= until;) {
        const PassBounds::Estimate line = fromLine(t, bounds);
        const double seconds = (line.value - line.doubt - reach) / perSecond;
        if (!(seconds > shortestStepS))
            return false;
        t += seconds / secondsPerDay;
    }
    return true;
}
