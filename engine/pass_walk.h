// What the two walks of a search have in common, plain_walk.h and fast_walk.h. They give the same figures: one by the
// whole position at each instant, the other faster. For the engine alone.
#pragma once

#include "engine/pass.h"
#include "engine/pass_search.h"
#include "engine/satpos_data.h"
#include "record/winp_data.h"

// The steps of a search, days.
constexpr double oneSecondDays = 1.157407407e-5;
constexpr double halfMinuteDays = 0.00034722222222222224;
constexpr double coarseStepDays = 0.0069;  // the satellite is far below the horizon
constexpr double sunStepDays = 0.0416667;  // the Sun is far above its limit
constexpr double sunFarAboveDeg = 15.0;    // above the limit of the Sun
constexpr double noneYetDeg = -100.0;      // before the scan of the maximum has improved on the pass
constexpr int bisectionRounds = 6;
constexpr int secondsPerMinute = 60;

constexpr double highestSunDeg = 90.001;     // no Sun stands higher, roundings included
constexpr unsigned instantsPerTelling = 64;  // the listener is asked so rarely

/// The conditions at an observer, each looked at only if those before it hold.
///
/// @param at  answers highEnough, dark, sunlit and moonlit
template <class Instant>
bool observerConditions(const WinpData& in, Instant&& at)
{
    if (!at.highEnough() || !at.dark())
        return false;
    if (in.visflg == 0)
        return true;
    if (in.moonflg == 0)
        return at.sunlit();
    return at.moonlit() && !at.sunlit();
}

/// What the two walks through time have in common. "Later" and "beyond" are so in the sense of the walk.
class WalkBase
{
public:
    /// @param sense  1 forward, -1 backward
    /// @param found  the pass, filled on the way
    WalkBase(const PassQuery& passQuery, double sense, Pass& found)
        : query(passQuery),
          in(query.in),
          sp(query.sp),
          isat(query.isat),
          limits(query.limits),
          sign(sense),
          pass(found)
    {}

    /// Whether a time lies after another one in the sense of the walk; false for NaN.
    bool beyond(double t, double limit) const { return sign * t > sign * limit; }

    /// Moves a maximum that lies outside the refined ends to the nearer end; false if it lies inside.
    bool maximumOutside() const;

protected:
    /// Stores time, elevation and azimuth (degrees) at an index of the pass.
    void put(int index, double t, double elevation, double azimuth) const;

    PassQuery query;
    WinpData* in;
    SatPosData* sp;
    int isat;
    PassLimits limits;
    double sign;
    Pass& pass;
};
