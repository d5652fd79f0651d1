// Ranges to which the engine clamps what a person or a file may have entered, so that every result is finite.
#pragma once

#include <algorithm>

#include "record/winp_data.h"

constexpr double heldTimeDays = 1e8;       // some 270,000 years
constexpr double heldDegrees = 1e6;        // angles; nothing is reduced, so a few turns stay as they are
constexpr double heldHeightMetres = 1e12;  // observers
constexpr double heldSeconds = 1e6;        // UT1 minus UTC
constexpr double heldArcSeconds = 1e6;     // polar motion
constexpr double heldYears = 1e5;          // epochs of coordinates
constexpr double heldMagnitudes = 1e6;

/// x clamped to plus and minus `limit`; 0 for NaN.
constexpr double held(double x, double limit)
{
    return x != x ? 0.0 : std::clamp(x, -limit, limit);
}

/// UT1 of a UTC date; both MJD, clamped. Without Earth parameters the two are one.
constexpr double heldUt1(double mjd, const WinpData& in)
{
    const double utc = held(mjd, heldTimeDays);
    return in.IERSflg ? utc + held(in.Ut1Utc, heldSeconds) / 86400.0 : utc;
}
