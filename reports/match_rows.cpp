#include "reports/match_rows.h"

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/earth.h"
#include "astro/frames.h"
#include "engine/event_geometry.h"
#include "engine/pass_search.h"
#include "engine/position.h"
#include "reports/list_rows.h"
#include "scan/matching.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace {

constexpr int primeSlot = 0;
constexpr double secondsPerDay = 86400.0;
constexpr double oneSecondDays = 1.0 / secondsPerDay;
constexpr double slowRevPerDay = 2.0;

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

/// Where the sighting was.
class Sighting
{
public:
    Sighting(const WinpData& in, const SightingQuery& query) : record(in)
    {
        record.rdf = query.amongStars ? 1 : 0;
        record.az = query.first;
        record.el = query.second;
        record.mjd = query.time;
        nutmat(julcent(query.time), eqeq, false);
    }

    /// A place among the stars moves with the sky.
    SkyPlace at(double t) const
    {
        SkyPlace place{};
        convRDAE(&record, t, eqeq, place.azimuth, place.elevation);
        return place;
    }

private:
    WinpData record;
    double eqeq = 0;
};

SkyPlace satelliteAt(WinpData& in, double t)
{
    GetSatPos(t, &in, satpos, primeSlot, 0);
    return {satpos->az[primeSlot] * radPerDeg, satpos->el[primeSlot] * radPerDeg};
}

/// The instant of a pass at which a satellite came nearest.
struct Nearest
{
    double time = 0;
    double separation = 10.0;  // radians
    bool fits = false;         // near enough, and moving the right way
};

Nearest nearestOf(WinpData& in, const Sighting& sighting, const SightingQuery& query, const double* pass)
{
    Nearest best;
    const double step = in.n0[primeSlot] < slowRevPerDay ? oneMinuteDays : oneSecondDays;
    const double cosLimit = std::cos(query.radius * radPerDeg);
    for (double t = pass[0]; t <= pass[2]; t += step) {
        const SkyPlace place = satelliteAt(in, t);
        const SkyPlace target = sighting.at(t);
        const bool useDirection = query.direction && directionCounts(target.elevation, query.radius);
        const SkyPlace then = useDirection ? satelliteAt(in, t + step) : place;
        const double direction = std::remainder(query.direction.value_or(0.0) * radPerDeg, twoPi);
        best.fits = best.fits || mtchok(cosLimit, target.azimuth, target.elevation, place.azimuth, place.elevation,
                                        direction, useDirection, then.azimuth, then.elevation) != 0;
        const double separation = angleBetween(place, target);
        if (separation < best.separation) {
            best.separation = separation;
            best.time = t;
        }
        if (!(t + step > t))
            break;
    }
    return best;
}

ListRow matchRow(WinpData& in, double seen, const Nearest& nearest)
{
    const SatelliteName name = nameOf(in, primeSlot);
    const SkyPlace then = satelliteAt(in, nearest.time + oneSecondDays);
    const SkyPlace place = satelliteAt(in, nearest.time);
    const double direction = bearing(place, then) * degPerRad;
    const bool sunlit = satpos->sunel[primeSlot] >= 0.0;
    return {name.name,
            name.number,
            name.designator.empty() ? ListValue() : ListValue(name.designator),
            ListTime{nearest.time},
            nearest.separation * degPerRad,
            (nearest.time - seen) * secondsPerDay,
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
    double tm[3] = {}, a[3] = {}, b[3] = {};
    if (nextpass(&in, primeSlot, query.from, query.until, tm, a, b) == 0)
        return std::nullopt;
    const Nearest nearest = nearestOf(in, Sighting(in, query), query, tm);
    if (!nearest.fits)
        return std::nullopt;
    return MatchFound{nearest.separation, matchRow(in, query.time, nearest)};
}
