#include "engine/pass_bounds.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "astro/angles.h"
#include "astro/frames.h"
#include "astro/time_scales.h"
#include "engine/pass_search.h"

namespace {

constexpr double minutesPerDay = 1440.0;
constexpr double siderealTurnsPerDay = 1.0027379093;
constexpr double mjdOfJ2000 = 51544.5;
constexpr double goodTimesDays = 3.6525e6;  // a hundred centuries: there the series are what the bounds take them for
constexpr double guideDays = 1.0;
constexpr double guideBackDays = 0.05;

constexpr double sunSpareDeg = 0.02;

// The vertical of the ellipsoid is not farther from the radius.
constexpr double deflectionRad = 0.0034;
constexpr double auKm = 1.47e8;  // at least so far is the Sun
constexpr double poleLimitArcSec = 10.0;

constexpr double turnRadPerMinute = siderealTurnsPerDay * twoPi / minutesPerDay;
constexpr PassBounds::Estimate nothingKnown{0.0, std::numeric_limits<double>::infinity()};

Verdict verdict(bool settled, bool yes)
{
    if (!settled)
        return Verdict::open;
    return yes ? Verdict::yes : Verdict::no;
}

/// A limit that `outside` measures, against the doubt about the point.
Verdict above(double outside, double doubt)
{
    return verdict(std::abs(outside) > doubt, outside < 0.0);
}

}  // namespace

bool poleNear(const WinpData& in)
{
    return std::abs(in.IERSxp) <= poleLimitArcSec && std::abs(in.IERSyp) <= poleLimitArcSec;
}

Horizon::Horizon(const Scene& s)
    : anchorMjd(s.mjd),
      sidereal(lsidtim(s.ut1, s.lngDeg, s.eqeq) * radPerHour),
      cosLat(std::cos(s.lat)),
      sinLat(std::sin(s.lat))
{
    const Vec3 place = GeoPos(s.ut1, s.eqeq, s.lat, s.lng, s.height) * earthRadiusKm;
    fromAxis = place[0] * std::cos(sidereal) + place[1] * std::sin(sidereal);
    fromEquator = place[2];
}

double Horizon::siderealAt(double mjd) const
{
    return sidereal + (mjd - anchorMjd) * (siderealTurnsPerDay * twoPi);
}

Horizon::Sight Horizon::sight(const GuideOrbit& guide, const GuideOrbit::Place& place, double mjd) const
{
    const double angle = place.node - siderealAt(mjd);
    const double south = place.x * std::cos(angle) - place.y * guide.cosInclination() * std::sin(angle);
    const double polar = place.y * guide.sinInclination();
    const double up = cosLat * (south - fromAxis) + sinLat * (polar - fromEquator);
    const double squared = place.r * place.r - 2.0 * (fromAxis * south + fromEquator * polar) + fromAxis * fromAxis +
                           fromEquator * fromEquator;
    return {up, std::sqrt(std::max(squared - up * up, 0.0))};
}

double Horizon::sineOfElevation(const Vec3& direction, double mjd) const
{
    const double angle = siderealAt(mjd);
    return cosLat * (direction[0] * std::cos(angle) + direction[1] * std::sin(angle)) + sinLat * direction[2];
}

Limit::Limit(double degrees) : sine(std::sin(degrees * radPerDeg)), cosine(std::cos(degrees * radPerDeg))
{
    if (!(std::abs(degrees) < 90.0))
        sine = cosine = std::numeric_limits<double>::quiet_NaN();
}

PassBounds::PassBounds(const WinpData& record, int slot, double sense, double least)
    : in(record),
      isat(slot),
      sign(sense),
      analytic(record.aflg[slot] != 0 && record.numflg[slot] == 0),
      satel(least),
      coarse(farBelowHorizonDeg),
      best(least),
      placeAt(std::numeric_limits<double>::quiet_NaN())
{}

double PassBounds::minutesFromEpoch(double t) const
{
    return (t - in.mjdep[isat]) * minutesPerDay;
}

bool PassBounds::guideReaches(double t) const
{
    return guide.usable() && t >= guideFrom && t <= guideTo;
}

void PassBounds::anchor(const Scene& s)
{
    const double t = s.mjd;
    if (t >= guideFrom && t <= guideTo)
        return;
    verdicts = {};
    placeAt = std::numeric_limits<double>::quiet_NaN();
    if (!analytic || in.sgpsat != isat || !(std::abs(t - mjdOfJ2000) < goodTimesDays))
        return;
    const double ahead = t + sign * guideDays;
    const double back = t - sign * guideBackDays;
    guideFrom = std::min(ahead, back);
    guideTo = std::max(ahead, back);
    guide = GuideOrbit(in, satrec, minutesFromEpoch(guideFrom), minutesFromEpoch(guideTo));
    horizon = Horizon(s);
}

void PassBounds::anchorSun(const Scene& s)
{
    if (!(std::abs(s.mjd - mjdOfJ2000) < goodTimesDays))
        return;
    if (sunKnown && std::abs(s.mjd - sunHorizon.anchor()) < 0.5)
        return;
    sunKnown = true;
    sunHorizon = Horizon(s);
    sunDirection = vnorm(s.sun);
}

void PassBounds::setBest(double degrees)
{
    inside = true;
    best = Limit(degrees);
    verdicts = {};
}

const GuideOrbit::Place* PassBounds::guidePlace(double t)
{
    if (t != placeAt) {
        placeAt = std::numeric_limits<double>::quiet_NaN();
        if (!guideReaches(t) || !guide.place(minutesFromEpoch(t), place))
            return nullptr;
        placeAt = t;
    }
    return &place;
}

/// The guide's distance from each cone, less what the satellite may be off the guide, settles on which side it is. And
/// as the guide moves in the frame of the horizon by no more than its own speed and that of the turning frame together,
/// what is left of the distance settles it for some time.
const PassBounds::Verdicts& PassBounds::at(double t)
{
    if (t >= verdicts.from && t <= verdicts.to)
        return verdicts;
    verdicts = {};
    const GuideOrbit::Place* found = guidePlace(t);
    if (!found)
        return verdicts;
    const Horizon::Sight sight = horizon.sight(guide, *found, t);
    const double outsideSatel = satel.outside(sight);
    const double outsideOther = inside ? best.outside(sight) : coarse.outside(sight);
    verdicts.highEnough = above(outsideSatel, found->offKm);
    if (inside)
        verdicts.notAboveBest = verdict(outsideOther > found->offKm, true);
    else
        verdicts.farBelow = verdict(std::abs(outsideOther) > found->offKm, outsideOther > 0.0);
    const double fastest = (guide.fastestKmPerMinute() + turnRadPerMinute * guide.farthestKm()) * minutesPerDay;
    const double settled = std::min(std::abs(outsideSatel), inside ? outsideOther : std::abs(outsideOther));
    const double days = std::max(settled - guide.farthestOffKm(), 0.0) / fastest;
    verdicts.from = t - days;
    verdicts.to = t + days;
    verdicts.from = std::max(verdicts.from, guideFrom);
    verdicts.to = std::min(verdicts.to, guideTo);
    return verdicts;
}

/// The Sun keeps its place among the stars but for a degree a day.
PassBounds::Estimate PassBounds::sunOver(double degrees, double t) const
{
    if (!sunKnown || !(std::abs(t - sunHorizon.anchor()) < Horizon::goodDays))
        return nothingKnown;
    const double sine = std::clamp(sunHorizon.sineOfElevation(sunDirection, t), -1.0, 1.0);
    return {std::asin(sine) * degPerRad - degrees, sunDoubtDeg(t)};
}

Verdict PassBounds::sunAbove(double degrees, double t) const
{
    const Estimate over = sunOver(degrees, t);
    return verdict(std::abs(over.value) > over.doubt, over.value > 0.0);
}

double PassBounds::sunDoubtDeg(double t) const
{
    return sunSpareDeg + sunDegPerDay * std::abs(t - sunHorizon.anchor());
}

bool PassBounds::shadowKnown(double t) const
{
    return sunKnown && poleNear(in) && std::abs(t - sunHorizon.anchor()) < Horizon::goodDays;
}

Vec3 PassBounds::guidePosition(const GuideOrbit::Place& at) const
{
    const double cosNode = std::cos(at.node);
    const double sinNode = std::sin(at.node);
    const double across = at.y * guide.cosInclination();
    return {at.x * cosNode - across * sinNode, at.x * sinNode + across * cosNode, at.y * guide.sinInclination()};
}

std::optional<PassBounds::Stand> PassBounds::stand(double t)
{
    const GuideOrbit::Place* found = guidePlace(t);
    if (!found)
        return std::nullopt;
    return Stand{guidePosition(*found), found->r, found->offKm};
}

/// What turns the Sun's elevation at a satellite off that of a body without parallax over the radius, radians.
double PassBounds::lightDoubtRad(double r, double t) const
{
    return deflectionRad + poleRad + r / auKm + sunDoubtDeg(t) * radPerDeg;
}

/// The elevation of the Sun over the radius and the dip of the horizon, both functions of the satellite's place.
Verdict PassBounds::sunlit(double t)
{
    const GuideOrbit::Place* found = shadowKnown(t) ? guidePlace(t) : nullptr;
    if (!found)
        return Verdict::open;
    const double nearest = found->r - found->offKm;
    if (!(nearest > earthRadiusKm))
        return Verdict::open;
    const Vec3 r = guidePosition(*found);
    const double height = std::asin(std::clamp(dot(r, sunDirection) / found->r, -1.0, 1.0));
    const double dip = std::acos(earthRadiusKm / found->r);
    const double leastDip = std::acos(earthRadiusKm / nearest);
    const double doubt = lightDoubtRad(found->r, t) + found->offKm / nearest + (dip - leastDip);
    return verdict(std::abs(height + dip) > doubt, height + dip > 0.0);
}

/// The shadow is a cylinder behind the Earth.
PassBounds::Estimate PassBounds::outsideShadow(double t)
{
    const GuideOrbit::Place* found = shadowKnown(t) ? guidePlace(t) : nullptr;
    if (!found || !(found->r - guide.farthestOffKm() > earthRadiusKm))
        return nothingKnown;
    const Vec3 r = guidePosition(*found);
    const double front = dot(r, sunDirection);
    const double aside = abs(r - front * sunDirection) - earthRadiusKm;
    const double doubt = guide.farthestOffKm() + guide.farthestKm() * lightDoubtRad(found->r, t);
    return {front > 0.0 ? std::max(front, aside) : aside, doubt};
}

PassBounds::Estimate PassBounds::outsideLeastElevation(double t)
{
    const GuideOrbit::Place* found = guidePlace(t);
    if (!found)
        return nothingKnown;
    return {satel.outside(horizon.sight(guide, *found, t)), guide.farthestOffKm()};
}

/// A point that moves by less than its distance is seen to move by the arc sine of the ratio.
PassBounds::Estimate PassBounds::elevation(double t)
{
    const GuideOrbit::Place* found = guidePlace(t);
    if (!found)
        return nothingKnown;
    const Horizon::Sight sight = horizon.sight(guide, *found, t);
    const double ratio = found->offKm / std::sqrt(sight.up * sight.up + sight.aside * sight.aside);
    if (!(ratio < 0.5))
        return nothingKnown;
    return {std::atan2(sight.up, sight.aside) * degPerRad, std::asin(ratio) * degPerRad};
}

double PassBounds::fastestKmPerS() const
{
    return (guide.fastestKmPerMinute() + turnRadPerMinute * guide.farthestKm()) / 60.0;
}
