// Ranges to which the engine clamps what a person or a file may have entered, so that every result is finite.
#pragma once

#include <algorithm>

#include "record/winp_data.h"

constexpr double limitDays = 1e8;           // some 270,000 years
constexpr double limitDegrees = 1e6;        // angles; nothing is reduced, so a few turns stay as they are
constexpr double limitHeightMetres = 1e12;  // observers
constexpr double limitSeconds = 1e6;        // UT1 minus UTC
constexpr double limitArcSeconds = 1e6;     // polar motion
constexpr double limitYears = 1e5;          // epochs of coordinates
constexpr double limitMagnitudes = 1e6;

/// x clamped to plus and minus `limit`; 0 for NaN.
constexpr double clamped(double x, double limit)
{
    return x != x ? 0.0 : std::clamp(x, -limit, limit);
}

/// UT1 of a UTC date; both MJD, clamped. Without Earth parameters the two are one.
constexpr double clampedUt1(double mjd, bool iers, double ut1Utc)
{
    const double utc = clamped(mjd, limitDays);
    return iers ? utc + clamped(ut1Utc, limitSeconds) / 86400.0 : utc;
}

/// The same with the Earth parameters of a record.
constexpr double clampedUt1(double mjd, const WinpData& in)
{
    return clampedUt1(mjd, in.IERSflg, in.Ut1Utc);
}
