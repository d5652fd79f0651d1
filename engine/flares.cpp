#include "engine/flares.h"

#include <algorithm>
#include <cmath>
#include <tuple>

#include "astro/angles.h"
#include "engine/position.h"
#include "engine/satpos_data.h"
#include "record/progress.h"
#include "record/text.h"

namespace {

constexpr double minuteDays = 0.0006944444444444445;
constexpr double secondDays = 1.157407407e-5;
constexpr double tenthSecondDays = 1.157407407e-6;
constexpr double nothingSeen = 100000.0;  // start value of the best distance or magnitude
constexpr int antennas = 3;               // mirrors that the search tries one by one
constexpr double noLatitude = 100.0;

using GoTo = std::function<void(double)>;

/// CkIrid on the terms of a search.
void tryInstant(double t, const PassQuery& q, const GoTo& goTo, int k, int* state, double* times, double* best,
                double* el, double* az)
{
    const SatPosData* const sp = q.sp;
    const int isat = q.isat;
    if (state[k] == flareOver)
        return;
    goTo(t);
    if (!(sp->occlat[isat] < noGroundPoint)) {
        if (state[k] == flareSeen)
            state[k] = flareOver;
        return;
    }
    const bool first = state[k] == flareUnseen;
    if (first || state[k] == flareSought)
        state[k] = flareSeen;
    if (first || sp->mag < best[k]) {
        times[k] = t;
        best[k] = sp->mag;
        el[k] = sp->el[isat];
        az[k] = sp->az[isat];
    }
}

/// The entries of the search: one for each mirror, and the first alone for transits and known surfaces.
struct InstantSearch
{
    const PassQuery& query;
    const GoTo& goTo;
    WinpData* in = query.in;
    SatPosData* sp = query.sp;
    int isat = query.isat;
    int state[antennas] = {flareUnseen, flareUnseen, flareUnseen};
    double times[antennas] = {};
    double best[antennas] = {nothingSeen, nothingSeen, nothingSeen};
    double el[antennas] = {};
    double az[antennas] = {};

    void tryAt(double t, int k) { tryInto(state, t, k); }
    void tryInto(int* states, double t, int k);
};

void InstantSearch::tryInto(int* states, double t, int k)
{
    tryInstant(t, query, goTo, k, states, times, best, el, az);
}

struct Range
{
    double from, to;
};

bool oneSurface(const PassQuery& query)
{
    return query.events < event::iridium || query.in->irsolp;
}

/// Every surface at time t; `latitude` takes that of the first time.
void tryAll(InstantSearch& search, double t, double& latitude)
{
    WinpData& in = *search.in;
    if (oneSurface(search.query)) {
        search.tryAt(t, 0);
        return;
    }
    in.occdec = mirrorPitchDeg;
    for (int k = 0; k < antennas; ++k) {
        in.occra = mirrors[k].yaw;
        search.tryAt(t, k);
    }
    if (latitude > 99.0)
        latitude = search.sp->lat[search.isat];
}

void coarseScan(InstantSearch& search, double from, double to, double& latitude)
{
    const std::string_view name = fieldText(search.in->fsname[search.isat]);
    for (double t = from; t < to && t + minuteDays > t && tellProgress(name, t); t += minuteDays)
        tryAll(search, t, latitude);
    tryAll(search, to, latitude);
}

/// The mirror with the smallest value moves to entry 0, the lower index first.
///
/// @return  whether anything was seen
bool chooseSurface(InstantSearch& search)
{
    if (!oneSurface(search.query)) {
        const auto k = std::min_element(search.best, search.best + antennas) - search.best;
        search.state[0] = search.state[k];
        search.times[0] = search.times[k];
        search.best[0] = search.best[k];
        search.el[0] = search.el[k];
        search.az[0] = search.az[k];
        search.in->occra = mirrors[static_cast<std::size_t>(k)].yaw;
    }
    return search.best[0] < nothingSeen;
}

/// The minute around the best time that holds the minimum.
Range fineRange(InstantSearch& search, double passStart, double passEnd)
{
    const double before = search.times[0] - secondDays;
    Range range{};
    if (before < passStart) {
        range = {search.times[0], before + minuteDays};
    } else {
        const double bestBefore = search.best[0];
        search.state[0] = flareSeen;
        search.tryAt(before, 0);
        if (search.state[0] == flareSeen && search.best[0] < bestBefore)
            range = {search.times[0] + 4.0 * secondDays - minuteDays, search.times[0]};
        else
            range = {search.times[0] + 2.0 * secondDays, search.times[0] + secondDays + minuteDays};
    }
    return {std::max(range.from, passStart), std::min(range.to, passEnd)};
}

void fineScan(InstantSearch& search, const Range& range)
{
    search.state[0] = flareSought;
    for (double t = range.from; t <= range.to && search.state[0] != flareOver && t + secondDays > t; t += secondDays)
        search.tryAt(t, 0);
}

/// Tenths of a second to both sides of the best time, each side until it has lost the event.
void lastRefinement(InstantSearch& search)
{
    int later[antennas] = {flareSought, flareSought, flareSought};
    int earlier[antennas] = {flareSought, flareSought, flareSought};
    double up = search.times[0];
    double down = search.times[0];
    for (int round = 0; round < 9; ++round) {
        up += tenthSecondDays;
        down -= tenthSecondDays;
        search.tryInto(later, up, 0);
        search.tryInto(earlier, down, 0);
    }
}

/// A ground point as seen from the observer.
struct PointFromObserver
{
    bool found;
    double x, y;      // differences of longitude and latitude, degrees
    double distance;  // km
};

PointFromObserver groundPointAt(double t, const InstantSearch& search)
{
    const auto& [in, sp, isat] = std::tie(search.in, search.sp, search.isat);
    search.goTo(t);
    return {sp->occlat[isat] < noGroundPoint, sp->occlng[isat] - in->lng, sp->occlat[isat] - in->lat, sp->mag};
}

bool closeBy(const WinpData& in, const PointFromObserver& p)
{
    return std::abs(in.lat) < 80.0 && std::abs(p.x) < 2.0 && std::abs(p.y) < 1.0;
}

/// In the plane, from the line through two points.
double distanceInPlane(const WinpData& in, const PointFromObserver& p1, const PointFromObserver& p2, double best)
{
    constexpr double radiusKm = 6378.14;
    const double scale = radPerDeg * std::cos(in.lat * radPerDeg);
    const double x1 = p1.x * scale;
    const double y1 = p1.y * radPerDeg;
    const double x2 = p2.x * scale;
    const double y2 = p2.y * radPerDeg;
    const double squared = (x1 - x2) * (x1 - x2) + (y1 - y2) * (y1 - y2);
    if (!(squared > 1e-100))
        return best;
    return (0.001 * in.height + radiusKm) * std::abs(x1 * y2 - x2 * y1) / std::sqrt(squared);
}

/// From three distances at equal intervals of time.
double distanceByPythagoras(double d1, double d2, double best)
{
    const double u = (d1 * d1 + d2 * d2 - 2.0 * best * best) * 8.0;
    if (!(u > 1e-50))
        return best;
    const double difference = d1 * d1 - d2 * d2;
    const double w = best * best - difference * difference / u;
    return w >= 0.0 ? std::sqrt(w) : best;
}

/// The distance of the observer from a central line that passes close by, km.
double distanceFromLine(const InstantSearch& search, double t, double best)
{
    const PointFromObserver p1 = groundPointAt(t + tenthSecondDays, search);
    const PointFromObserver p2 = groundPointAt(t - tenthSecondDays, search);
    if (!p1.found || !p2.found)
        return best;
    if (closeBy(*search.in, p1) && closeBy(*search.in, p2))
        return distanceInPlane(*search.in, p1, p2, best);
    return distanceByPythagoras(p1.distance, p2.distance, best);
}

}  // namespace

int findEvent(const PassQuery& query, bool groundPoint, Pass& pass, const GoTo& goTo)
{
    const auto& [in, sp, isat, limits, events, absolute, thorough, recordsRead] = query;
    auto& [tm, a, b] = pass;
    constexpr int found = 1;
    constexpr int nothing = 2;
    const bool iridium = events >= event::iridium;
    InstantSearch search{query, goTo};
    if (!groundPoint) {
        if (!iridium)
            return nothing;
        search.state[0] = flareOver;
    }
    a[0] = noLatitude;
    coarseScan(search, tm[0], tm[2], a[0]);
    if (!chooseSurface(search))
        return nothing;
    if (iridium) {
        a[2] = sp->lat[isat];
        if (a[0] > 99.0) {
            goTo(search.times[0] - secondDays);
            a[0] = sp->lat[isat];
        }
    }
    fineScan(search, fineRange(search, tm[0], tm[2]));
    if (search.best[0] > (iridium ? in->irmag : limits.maxdst))
        return nothing;
    lastRefinement(search);
    tm[1] = search.times[0];
    a[1] = search.el[0];
    b[1] = search.az[0];
    b[2] = search.best[0];
    if (!iridium && b[2] < 10.0)
        b[2] = distanceFromLine(search, tm[1], search.best[0]);
    return found;
}

void putMirrors(WinpData* in)
{
    in->occra = 0.0;
    in->occdec = mirrorPitchDeg;
    in->iridflg = event::iridium;
    in->flarflg = 1;
    in->flarmod = 1;
    in->flaryst = 0;
    in->occflg = 0;
}

int GetIrid(WinpData* in, int isat, int flag, double* tm, double* a, double* b)
{
    Pass pass{{tm[0], tm[1], tm[2]}, {a[0], a[1], a[2]}, {b[0], b[1], b[2]}};
    const PassQuery query{in, satpos, isat};
    const int result = findEvent(query, flag != 0, pass, [&](double t) { positionAt(t, query); });
    for (int k = 0; k < 3; ++k) {
        tm[k] = pass.tm[k];
        a[k] = pass.a[k];
        b[k] = pass.b[k];
    }
    return result;
}

void CkIrid(double t, WinpData* in, int isat, int k, int* state, double* times, double* best, double* el, double* az)
{
    const PassQuery query{in, satpos, isat};
    const auto goTo = [&](double instant) { positionAt(instant, query); };
    tryInstant(t, query, goTo, k, state, times, best, el, az);
}
