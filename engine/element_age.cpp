#include "engine/element_age.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "record/winp_data.h"

namespace {

constexpr double secondsPerDay = 86400.0;
constexpr double deepRevPerDay = 6.4;  // slower ones feel Sun and Moon more than the air
constexpr double slowRevPerDay = 1.2;  // near synchronous ones, and slower
constexpr double longEccentricity = 0.4;
constexpr double doubtfulS = 5.0, doubtfulDays = 7.0;
constexpr double staleS = 30.0, staleDays = 30.0;

/// What two of three orbits of the kind do not exceed, seconds a day.
double plainGrowth(double revPerDay, double ecc)
{
    if (revPerDay >= deepRevPerDay)
        return 0.1;
    if (ecc > longEccentricity)
        return 7.0;
    return revPerDay >= slowRevPerDay ? 0.2 : 0.8;
}

}  // namespace

double errorAlongTrack(double days, double halfNdot, double revPerDay, double ecc, double uncertainty)
{
    const double plain = plainGrowth(revPerDay, ecc) * std::abs(days);
    if (!(revPerDay >= deepRevPerDay) || halfNdot == 0.0)
        return plain;
    const double motion = revPerDay + 2.0 * halfNdot * days;
    if (!(motion > 0.0))
        return std::numeric_limits<double>::infinity();
    const double drag = secondsPerDay * uncertainty * std::abs(halfNdot) * days * days / motion;
    return std::max(plain, drag);
}

ElementAge elementAge(const WinpData& in, int slot, double mjd, double uncertainty)
{
    const double days = mjd - in.mjdep[slot];
    return {std::abs(days), errorAlongTrack(days, in.ndot[slot], in.n0[slot], in.ecc[slot], uncertainty)};
}

Freshness freshnessOf(const ElementAge& age)
{
    if (!(age.seconds < staleS) || !(age.days < staleDays))
        return Freshness::stale;
    return age.seconds < doubtfulS && age.days < doubtfulDays ? Freshness::fresh : Freshness::doubtful;
}
