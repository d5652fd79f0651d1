#include "engine/pair_bounds.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "astro/angles.h"
#include "astro/earth.h"

namespace {

constexpr double flattening = 1.0 / 298.257;
constexpr double squaredEccentricity = flattening * (2.0 - flattening);
constexpr double normalRadiusKm = 6389.0;  // of curvature across the meridian: at most 11 km off
constexpr double deflectionRad = 6e-5;     // what is left in the vertical by that and by the rest
constexpr double ellipsoidKm = 0.5;        // and in the height
constexpr double leastRadiusKm = 6356.7;
constexpr double verticalTurns = 1.02;  // the vertical turns by so much more than the radius at most
constexpr double minutesPerDay = 1440.0;
constexpr PassBounds::Estimate nothingKnown{0.0, std::numeric_limits<double>::infinity()};

/// How far a satellite at this height sees beyond its horizontal plane, radians; as the search has it.
double horizonDip(double heightKm)
{
    return heightKm > 0.0 ? std::acos(earthRadiusKm / (earthRadiusKm + heightKm)) : 0.0;
}

/// A satellite by its guide, as the ellipsoid sees it.
struct Over
{
    Vec3 vertical;    // unit vector
    double height;    // km
    double offKm;     // of place and height
    double turnedBy;  // the vertical is turned by no more, radians
};

/// By how much a direction from the Earth's centre may be off, radians; more than any angle where it is not known.
double directionDoubt(double range, double offKm)
{
    if (!(offKm < 0.5 * range))
        return twoPi;
    return verticalTurns * offKm / (range - offKm) + deflectionRad + poleRad;
}

Over overOf(const PassBounds::Stand& stand)
{
    const double sine = stand.r[2] / stand.range;
    const double height = stand.range - earthRadiusKm * (1.0 - flattening * sine * sine);
    // z is (N (1 - e^2) + h) times the sine of the latitude, and the vertical meets the axis N e^2 times it below the equator
    const double sineOfLatitude = stand.r[2] / (normalRadiusKm * (1.0 - squaredEccentricity) + height);
    const Vec3 down(0.0, 0.0, normalRadiusKm * squaredEccentricity * sineOfLatitude);
    return {vnorm(stand.r + down), height, stand.offKm + ellipsoidKm, directionDoubt(stand.range, stand.offKm)};
}

double angleBetween(const Vec3& a, const Vec3& b)
{
    return std::acos(std::clamp(dot(a, b), -1.0, 1.0));
}

/// Radians a minute, as seen from the Earth's centre.
double fastestTurn(const GuideOrbit& guide)
{
    return verticalTurns * guide.fastestKmPerMinute() / guide.nearestKm();
}

double directionDoubt(const GuideOrbit& guide)
{
    return directionDoubt(guide.nearestKm(), guide.farthestOffKm());
}

/// The dips of a guide lie between these anywhere.
double leastDip(const GuideOrbit& guide)
{
    return horizonDip(guide.nearestKm() - guide.farthestOffKm() - earthRadiusKm - ellipsoidKm);
}

double greatestDip(const GuideOrbit& guide)
{
    return horizonDip(guide.farthestKm() + guide.farthestOffKm() - leastRadiusKm + ellipsoidKm);
}

}  // namespace

PairBounds::PairBounds(const WinpData& record, int firstSlot, int secondSlot, double sense)
    : poleKnown(poleNear(record)), one(record, firstSlot, sense, 0.0), other(record, secondSlot, sense, 0.0)
{}

double PairBounds::lasting(double marginRad) const
{
    const double doubt = directionDoubt(one.orbit()) + directionDoubt(other.orbit());
    const double perMinute = fastestTurn(one.orbit()) + fastestTurn(other.orbit());
    return std::max(marginRad - doubt, 0.0) / (perMinute * minutesPerDay);
}

void PairBounds::keep(Verdict verdict, double t, double days)
{
    kept = verdict;
    from = std::max({t - days, one.reachesFrom(), other.reachesFrom()});
    to = std::min({t + days, one.reachesTo(), other.reachesTo()});
}

Verdict PairBounds::inSight(double t)
{
    if (t >= from && t <= to)
        return kept;
    const auto oneStand = poleKnown ? one.stand(t) : std::nullopt;
    const auto otherStand = oneStand ? other.stand(t) : std::nullopt;
    if (!otherStand)
        return Verdict::open;
    const Over a = overOf(*oneStand);
    const Over b = overOf(*otherStand);
    const double angle = angleBetween(a.vertical, b.vertical);
    const double doubt = a.turnedBy + b.turnedBy;
    if (angle - doubt > horizonDip(a.height + a.offKm) + horizonDip(b.height + b.offKm)) {
        keep(Verdict::no, t, lasting(angle - greatestDip(one.orbit()) - greatestDip(other.orbit())));
        return Verdict::no;
    }
    if (angle + doubt < horizonDip(a.height - a.offKm) + horizonDip(b.height - b.offKm)) {
        keep(Verdict::yes, t, lasting(leastDip(one.orbit()) + leastDip(other.orbit()) - angle));
        return Verdict::yes;
    }
    return Verdict::open;
}

Verdict PairBounds::bothSunlit(double t)
{
    const Verdict lit = one.sunlit(t);
    if (lit == Verdict::no)
        return lit;
    const Verdict otherLit = other.sunlit(t);
    if (otherLit == Verdict::no)
        return otherLit;
    return lit == otherLit ? lit : Verdict::open;
}

PassBounds::Estimate PairBounds::elevation(double t)
{
    const auto a = poleKnown ? one.stand(t) : std::nullopt;
    const auto b = a ? other.stand(t) : std::nullopt;
    if (!b)
        return nothingKnown;
    const Vec3 sight = a->r - b->r;
    const double distance = abs(sight);
    const double offKm = a->offKm + b->offKm + poleRad * b->range;
    if (!(offKm < 0.5 * distance))
        return nothingKnown;
    const Over over = overOf(*b);
    const double doubt = std::asin(offKm / distance) + over.turnedBy;
    const double sine = dot(sight, over.vertical) / distance;
    return {std::asin(std::clamp(sine, -1.0, 1.0)) * degPerRad, doubt * degPerRad};
}
