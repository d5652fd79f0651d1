#include "reports/match_rows.h"

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/earth.h"
#include "astro/frames.h"
#include "engine/aos_list.h"
#include "engine/event_geometry.h"
#include "engine/lazy_position.h"
#include "engine/pass_bounds.h"
#include "engine/pass_search.h"
#include "engine/position.h"
#include "engine/sky_bounds.h"
#include "reports/list_rows.h"
#include "scan/matching.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

namespace {

constexpr int primeSlot = 0;
constexpr double secondsPerDay = 86400.0;
constexpr double oneSecondDays = 1.0 / secondsPerDay;
constexpr double slowRevPerDay = 2.0;
constexpr double roundOrbitEcc = 0.1;
constexpr double finestShiftDays = 0.001 / secondsPerDay;

/// A place in the sky, radians.
struct SkyPlace
{
    double azimuth, elevation;
};

double angleBetween(const SkyPlace& one, const SkyPlace& other)
{
    const double cosine = std::sin(one.elevation) * std::sin(other.elevation) +
                          std::cos(one.elevation) * std::cos(other.elevation) * std::cos(one.azimuth - other.azimuth);
    return std::acos(std::clamp(cosine, -1.0, 1.0));
}

/// From one place towards another: radians from the upward direction, positive to the right.
double bearing(const SkyPlace& from, const SkyPlace& to)
{
    const double w = to.azimuth - from.azimuth;
    return std::atan2(std::sin(w) * std::cos(to.elevation),
                      std::cos(from.elevation) * std::sin(to.elevation) -
                          std::sin(from.elevation) * std::cos(to.elevation) * std::cos(w));
}

/// A place where something was seen, at other times.
class Target
{
public:
    explicit Target(const SeenPlace& place) : entry{place.first, place.second, place.amongStars}, seen(place.time)
    {
        nutmat(julcent(seen), eqeq, false);
    }

    /// MJD UTC.
    double seenAt() const { return seen; }

    /// A place among the stars moves with the sky.
    SkyPlace at(double t, const WinpData& in) const
    {
        SkyPlace place{};
        toHorizontal(entry, in, t, eqeq, place.azimuth, place.elevation);
        return place;
    }

private:
    SkyEntry entry;
    double seen;
    double eqeq = 0;
};

/// A stretch of time, days after a sighting.
struct Span
{
    double from, to;
};

SkyPlace satelliteAt(WinpData& in, double t)
{
    GetSatPos(t, &in, satpos, primeSlot, 0);
    return {satpos->az[primeSlot] * radPerDeg, satpos->el[primeSlot] * radPerDeg};
}

/// When a satellite in slot 0 is visible around an instant.
std::vector<Span> spansAround(WinpData& in, double centre, const SightingQuery& query)
{
    std::vector<Span> spans;
    const PassQuery search{&in, satpos, primeSlot};
    const double until = centre + query.halfWidth;
    double t = centre - query.halfWidth;
    while (t <= until) {
        Pass pass;
        if (findNextPass(search, t, until, pass) == 0)
            break;
        spans.push_back({pass.tm[0] - centre, pass.tm[2] - centre});
        const double next = timeAfterPass(search, pass);
        if (query.asReported || !(next > t))
            break;
        t = next;
    }
    return spans;
}

/// What lies in both lists.
std::vector<Span> common(const std::vector<Span>& one, const std::vector<Span>& other)
{
    std::vector<Span> both;
    for (const Span& a : one)
        for (const Span& b : other)
            if (std::max(a.from, b.from) <= std::min(a.to, b.to))
                both.push_back({std::max(a.from, b.from), std::min(a.to, b.to)});
    return both;
}

/// How a satellite fits the sightings if it comes so much later than it was seen.
struct Fit
{
    double late = 0;           // days
    double separation = 10.0;  // radians, the greatest of all sightings
    bool fits = false;         // near enough, and moving the right way
};

/// A satellite in slot 0 against all sightings.
class Comparison
{
public:
    Comparison(WinpData& record, const std::vector<Target>& sightings, const SightingQuery& theQuery)
        : in(record),
          targets(sightings),
          query(theQuery),
          step(record.n0[primeSlot] < slowRevPerDay && record.ecc[primeSlot] < roundOrbitEcc ? oneMinuteDays
                                                                                             : oneSecondDays),
          cosLimit(std::cos(query.radius * radPerDeg))
    {}

    /// The best fit of all; it fits if one does.
    Fit best(const std::vector<Span>& spans) const
    {
        Fit best;
        bool fits = false;
        for (const Span& span : spans) {
            const Fit fit = refined(nearestStep(span, fits), span);
            fits = fits || (fit.fits && !query.asReported);
            if (fit.separation < best.separation)
                best = fit;
        }
        best.fits = fits;
        return best;
    }

private:
    Fit nearestStep(const Span& span, bool& anyFits) const
    {
        Fit best;
        for (double late = span.from; late <= span.to; late += step) {
            const Fit fit = fitOf(late);
            anyFits = anyFits || fit.fits;
            if (fit.separation < best.separation)
                best = fit;
            const double t = targets.front().seenAt() + late;
            if (!(t + step > t))  // a time too far off for such steps
                break;
        }
        return best;
    }

    /// Between the steps beside the nearest one.
    Fit refined(Fit best, const Span& span) const
    {
        for (double shift = step / 2.0; shift > finestShiftDays; shift /= 2.0)
            for (const double late : {best.late - shift, best.late + shift}) {
                const Fit fit = fitOf(std::clamp(late, span.from, span.to));
                if (fit.separation < best.separation)
                    best = fit;
            }
        return best;
    }

    Fit fitOf(double late) const
    {
        Fit fit{late, 0.0, true};
        for (const Target& target : targets) {
            const double t = target.seenAt() + late;
            const SkyPlace place = satelliteAt(in, t);
            const SkyPlace seen = target.at(t, in);
            fit.separation = std::max(fit.separation, angleBetween(place, seen));
            fit.fits = fit.fits && isNear(t, place, seen);
        }
        return fit;
    }

    bool isNear(double t, const SkyPlace& place, const SkyPlace& seen) const
    {
        const bool useDirection = query.direction && directionCounts(seen.elevation, query.radius);
        const SkyPlace then = useDirection ? satelliteAt(in, t + step) : place;
        const double direction = std::remainder(query.direction.value_or(0.0) * radPerDeg, twoPi);
        return mtchok(cosLimit, seen.azimuth, seen.elevation, place.azimuth, place.elevation, direction, useDirection,
                      then.azimuth, then.elevation) != 0;
    }

    WinpData& in;
    const std::vector<Target>& targets;
    const SightingQuery& query;
    double step;  // days
    double cosLimit;
};

/// Whether bounds tell that a satellite stays out of the circle all through a stretch of time. The place moves no faster
/// than the sky: it is taken for the middle of a wider circle for some time.
bool staysAway(WinpData& in, const Target& target, double radiusDeg, const Span& span)
{
    constexpr double skyRadPerDay = 6.4;
    constexpr double driftRad = 0.05;
    if (relativeMode(in) || in.numflg[primeSlot])
        return false;
    const double until = target.seenAt() + span.to;
    double t = target.seenAt() + span.from;
    LazyPosition position(&in, satpos, primeSlot);
    position.look(t);
    PassBounds bounds(in, primeSlot, 1.0, 0.0);
    bounds.anchor(position.scene());
    const SkyBounds sky(position.scene());
    while (t <= until) {
        const SkyPlace place = target.at(t, in);
        const double away =
            sky.staysOutside(place.azimuth, place.elevation, radiusDeg * radPerDeg + driftRad, t, bounds);
        const double days = std::min(away, driftRad / skyRadPerDay);
        if (!(days > oneSecondDays))
            return false;
        t += days;
    }
    return true;
}

/// Leaves out stretches in which nothing fits. They are farther from one of the places than any fit.
void dropHopeless(std::vector<Span>& spans, WinpData& in, const std::vector<Target>& targets, double radiusDeg)
{
    std::erase_if(spans, [&](const Span& span) {
        return std::any_of(targets.begin(), targets.end(),
                           [&](const Target& target) { return staysAway(in, target, radiusDeg, span); });
    });
}

ListRow matchRow(WinpData& in, double seen, const Fit& fit)
{
    const double time = seen + fit.late;
    const SatelliteName name = nameOf(in, primeSlot);
    const SkyPlace then = satelliteAt(in, time + oneSecondDays);
    const SkyPlace place = satelliteAt(in, time);
    const double direction = bearing(place, then) * degPerRad;
    const bool sunlit = satpos->sunel[primeSlot] >= 0.0;
    return {name.name,
            name.number,
            name.designator.empty() ? ListValue() : ListValue(name.designator),
            ListTime{time},
            fit.separation * degPerRad,
            fit.late * secondsPerDay,
            place.azimuth * degPerRad,
            place.elevation * degPerRad,
            direction < 0.0 ? direction + 360.0 : direction,
            angleBetween(place, then) * degPerRad,
            std::string(sunlit ? "sunlit" : "shadow"),
            in.a[primeSlot] * (1.0 - in.ecc[primeSlot]) - earthRadiusKm,
            in.a[primeSlot] * (1.0 + in.ecc[primeSlot]) - earthRadiusKm,
            in.inc[primeSlot]};
}

}  // namespace

std::optional<MatchFound> matchOf(WinpData& in, const SightingQuery& query)
{
    std::vector<Target> targets(query.places.begin(), query.places.end());
    std::vector<Span> spans{{-query.halfWidth, query.halfWidth}};
    for (const Target& target : targets) {
        spans = common(spans, spansAround(in, target.seenAt(), query));
        if (spans.empty())
            return std::nullopt;
    }
    dropHopeless(spans, in, targets, query.radius);
    if (spans.empty())
        return std::nullopt;
    const Fit fit = Comparison(in, targets, query).best(spans);
    if (!fit.fits)
        return std::nullopt;
    return MatchFound{fit.separation, matchRow(in, query.places.front().time, fit)};
}
