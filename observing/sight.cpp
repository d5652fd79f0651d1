#include "observing/sight.h"

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/earth.h"
#include "astro/frames.h"
#include "astro/sun_moon.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double secondsPerDay = 86400.0;
constexpr double daysPerCentury = 36525.0;
constexpr double lightAuPerDay = 173.144632674;

/// Of the Earth around the Sun, in parts of the speed of light; mean equator of date.
Vec3 velocityOfEarth(double T)
{
    constexpr double stepDays = 0.25;
    Sun200 sun;
    const double step = stepDays / daysPerCentury;
    const Vec3 before = eclequ(T, sun.position(T - step)), after = eclequ(T, sun.position(T + step));
    return (1.0 / (2.0 * stepDays * lightAuPerDay)) * (before - after);
}

/// From the true equator and equinox of date to the horizon.
Mat3 horizon(double ut1, double eqeq, const Site& site)
{
    const auto column = [&](const Vec3& axis) {
        return EquHor(ut1, eqeq, site.lat * radPerDeg, site.lng * radPerDeg, axis);
    };
    const Vec3 x = column({1, 0, 0}), y = column({0, 1, 0}), z = column({0, 0, 1});
    return {x[0], y[0], z[0], x[1], y[1], z[1], x[2], y[2], z[2]};
}

/// The elevation without refraction of one that was seen, degrees. Bennett, J. Navig. 35, 255 (1982): within 0.07
/// minutes of arc, for 10 degrees Celsius and 1010 hPa.
double withoutRefraction(double seen)
{
    constexpr double lowest = -1.0;
    const double h = std::max(seen, lowest);
    return seen - 1.0 / std::tan((h + 7.31 / (h + 4.4)) * radPerDeg) / 60.0;
}

}  // namespace

Sight::Sight(const EarthOrientation& earth, const SitedObservation& sited, double mjd, bool againstStars)
    : when(mjd), second(mxidn()), aberration(0, 0, 0)
{
    double eqeq = 0;
    const double ut1 = mjd + (earth.iers ? earth.ut1Utc : 0.0) / secondsPerDay;
    const double T = julcent(ut1 + ttMinusUt(earth, mjd) / secondsPerDay);
    const Mat3 nutation = nutmat(T, eqeq, true);
    const Mat3 toTrue = zrot(-eqeq * twoPi / secondsPerDay);
    const Site& site = sited.site;
    const Vec3 standing =
        GeoPos(ut1, eqeq, site.lat * radPerDeg, site.lng * radPerDeg, site.height, earth.xp, earth.yp);
    place = earthRadiusKm * mxvct(mxtrn(toTrue), standing);
    const Mat3 toHorizon = horizon(ut1, eqeq, site) * toTrue;
    up = mxvct(mxtrn(toHorizon), {0, 0, 1});
    const Observation& o = sited.observation;
    turns = o.angles == SkyAngles::horizontal;
    if (turns) {
        first = toHorizon;
    } else if (o.equinox == 0.0) {
        first = toTrue;
    } else {
        first = mxtrn(nutation) * toTrue;
        aberration = againstStars ? velocityOfEarth(T) : aberration;
        second = pmatequ(T, (o.equinox - 2000.0) / 100.0);
    }
}

Sight Sight::at(double mjd) const
{
    constexpr double turnsPerDay = 1.00273790935;
    const Mat3 ahead = zrot(-twoPi * turnsPerDay * (mjd - when));
    Sight other = *this;
    other.when = mjd;
    other.place = mxvct(ahead, place);
    other.up = mxvct(ahead, up);
    if (turns)
        other.first = first * mxtrn(ahead);
    return other;
}

Vec3 Sight::shown(const Vec3& line) const
{
    return mxvct(second, vnorm(vnorm(mxvct(first, line)) - aberration));
}

Vec3 Sight::inward(const Vec3& direction) const
{
    return mxvct(mxtrn(first), vnorm(mxvct(mxtrn(second), direction) + aberration));
}

Vec3 observedAs(const Observation& o)
{
    const bool horizontal = o.angles == SkyAngles::horizontal;
    const double longitude = horizontal ? 180.0 - o.first : o.first;
    const double height = horizontal && o.refracted ? withoutRefraction(o.second) : o.second;
    return polcar({1.0, longitude * radPerDeg, height * radPerDeg});
}
