#include "mounts/follow_plan.h"

#include <algorithm>
#include <cmath>

#include "astro/angles.h"
#include "engine/night.h"

namespace {

constexpr double secondDays = 1.0 / 86400.0;
constexpr double pauseDays = 600 * secondDays;  // after a search that found nothing
constexpr double arcsecPerHour = 15.0 * 3600.0;

Models withEquinox(Models models, double year)
{
    models.equinox = year;
    models.sphereDiameter = 0;  // no magnitude is asked for
    return models;
}

/// Any pass, by day as well.
Conditions anyHour(const FollowLimits& limits)
{
    Conditions conditions;
    conditions.leastElevation = limits.leastElevation;
    conditions.highestSun = 91.0;
    conditions.visibleOnly = false;
    return conditions;
}

/// Hours, to -12 to 12.
double shortWay(double hours)
{
    return hours - 24.0 * std::round(hours / 24.0);
}

}  // namespace

FollowPlan::FollowPlan(const Orbit& orbit, const Site& at, const Models& models, const FollowLimits& lim)
    : site(at),
      limits(lim),
      ofDate(orbit, at, anyHour(lim), withEquinox(models, 0)),
      of2000(orbit, at, anyHour(lim), withEquinox(models, 2000)),
      search(orbit, at, anyHour(lim), withEquinox(models, 0))
{}

FollowPlan::Look FollowPlan::look(double mjd)
{
    const Position now = ofDate.position(mjd);
    const Position soon = ofDate.position(mjd + secondDays);
    const Position catalogue = of2000.position(mjd);
    Look l;
    l.elevation = now.elevation;
    l.aim.mjd = mjd;
    l.aim.azimuth = now.azimuth;
    l.aim.elevation = now.apparentElevation;
    l.aim.ra = now.ra;
    l.aim.dec = now.dec;
    l.aim.ra2000 = catalogue.ra;
    l.aim.dec2000 = catalogue.dec;
    l.aim.raRate = shortWay(soon.ra - now.ra) * arcsecPerHour;
    l.aim.decRate = (soon.dec - now.dec) * 3600.0;
    return l;
}

Aim FollowPlan::aimAt(double mjd)
{
    return look(mjd).aim;
}

double FollowPlan::sunDistance(const Aim& aim) const
{
    const SkyPlace sun = sunPlace(aim.mjd, site);
    const double c = std::sin(aim.elevation * radPerDeg) * std::sin(sun.elevation * radPerDeg) +
                     std::cos(aim.elevation * radPerDeg) * std::cos(sun.elevation * radPerDeg) *
                         std::cos((aim.azimuth - sun.azimuth) * radPerDeg);
    return std::acos(std::clamp(c, -1.0, 1.0)) * degPerRad;
}

bool FollowPlan::clearOfSun(const Aim& aim) const
{
    return limits.leastSunDistance <= 0.0 || sunDistance(aim) >= limits.leastSunDistance;
}

std::optional<Aim> FollowPlan::firstClearOfSun(const Pass& pass)
{
    const auto seconds = static_cast<int>(std::min((pass.tm[2] - pass.tm[0]) / secondDays, horizonDays / secondDays));
    for (int s = 0; s <= seconds; ++s) {
        const Look l = look(pass.tm[0] + s * secondDays);
        if (l.elevation >= limits.leastElevation && clearOfSun(l.aim))
            return l.aim;
    }
    return std::nullopt;
}

/// Where the next pass begins for the mount, kept from one call to the next.
std::optional<Aim> FollowPlan::nextStart(double mjd)
{
    if (mjd >= searchedFrom && mjd < searchedUntil)
        return start;
    searchedFrom = mjd;
    start.reset();
    double from = mjd;
    while (!start) {
        const auto pass = search.nextPass(from, mjd + horizonDays);
        if (!pass)
            break;
        start = firstClearOfSun(*pass);
        from = pass->tm[2] + 60 * secondDays;
    }
    searchedUntil = start ? start->mjd : mjd + pauseDays;
    return start;
}

FollowStep FollowPlan::at(double mjd)
{
    FollowStep step;
    const Look now = look(mjd);
    if (now.elevation >= limits.leastElevation) {
        step.kind = clearOfSun(now.aim) ? FollowStep::Kind::follow : FollowStep::Kind::sunNear;
        step.aim = now.aim;
        step.start = mjd;
        return step;
    }
    const auto next = nextStart(mjd);
    if (!next)
        return step;
    step.start = next->mjd;
    step.aim = *next;
    step.kind = next->mjd - mjd <= slewAheadDays ? FollowStep::Kind::slew : FollowStep::Kind::wait;
    return step;
}
