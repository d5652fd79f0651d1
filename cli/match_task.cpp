// The satellites that fit a sighting.

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/earth.h"
#include "astro/frames.h"
#include "cli/entry_walk.h"
#include "cli/tasks.h"
#include "engine/event_geometry.h"
#include "engine/pass_search.h"
#include "engine/position.h"
#include "reports/list_rows.h"
#include "scan/matching.h"

#include <algorithm>
#include <cmath>
#include <optional>
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
    Sighting(const WinpData& in, const Request& request) : record(in), fixed(request.azel.has_value())
    {
        const Angles& place = fixed ? *request.azel : *request.radec;
        record.rdf = fixed ? 0 : 1;
        record.az = fixed ? place.first : DegFDms(place.first / 15.0);
        record.el = fixed ? place.second : DegFDms(place.second);
        nutmat(julcent(in.mjd), eqeq, false);
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
    bool fixed;
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

Nearest nearestOf(WinpData& in, const Sighting& sighting, const Request& request, const double* pass)
{
    Nearest best;
    const double step = in.n0[primeSlot] < slowRevPerDay ? oneMinuteDays : oneSecondDays;
    const double cosLimit = std::cos(request.radius * radPerDeg);
    for (double t = pass[0]; t <= pass[2]; t += step) {
        const SkyPlace place = satelliteAt(in, t);
        const SkyPlace target = sighting.at(t);
        const bool useDirection = request.direction && directionCounts(target.elevation, request.radius);
        const SkyPlace then = useDirection ? satelliteAt(in, t + step) : place;
        const double direction = std::remainder(request.direction.value_or(0.0) * radPerDeg, twoPi);
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

ListRow matchRow(WinpData& in, const Session& session, const Nearest& nearest)
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
            (nearest.time - session.now) * secondsPerDay,
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

Problem findMatches(const Session& session, const Channels& channels, Answer& answer)
{
    EntryWalk walk(session, channels, [&] { return answer.full(); });
    WinpData record = *session.record;
    record.mjd = session.now;
    const Sighting sighting(record, session.request);
    const auto search = [&](EntryRows& entry) {
        double tm[3] = {}, a[3] = {}, b[3] = {};
        if (nextpass(&entry.in, primeSlot, session.from, session.to, tm, a, b) == 0)
            return;
        const Nearest nearest = nearestOf(entry.in, sighting, session.request, tm);
        if (nearest.fits)
            entry.rows.emplace_back(nearest.separation, matchRow(entry.in, session, nearest));
    };
    const Problem problem = walk.shared(record, search, [&](const EntryRows& entry) {
        for (const auto& [separation, row] : entry.rows) {
            answer.use({nameOf(entry.in, primeSlot), entry.in.mjdep[primeSlot]});
            answer.add(separation, row);
        }
    });
    channels.err(walk.missing());
    return problem;
}
