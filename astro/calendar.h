// astro/calendar.h: calendar dates, Modified Julian Dates and sexagesimal parts.

#pragma once

#include <cmath>
#include <limits>

/// x - trunc(x): the sign of the result is that of x. NaN if x is not finite.
inline double frac(double x)
{
    return x - std::trunc(x);
}

/// The whole part of x as an int, clamped to the range of int; 0 for NaN.
constexpr int truncToInt(double x)
{
    using Int = std::numeric_limits<int>;
    if (x != x)
        return 0;
    if (x >= Int::max())
        return Int::max();
    if (x <= Int::min())
        return Int::min();
    return static_cast<int>(x);
}

/// The Modified Julian Date of a calendar date, Julian up to 4 October 1582 and Gregorian from then on.
///
/// Every date is taken as it stands: months beyond 12, days beyond the month and hours outside 0 to 24 count on.
double mjd(int day, int month, int year, double hour);

/// The calendar date of a Modified Julian Date, and the hours of that day: 0 up to, never including, 24.
///
/// Years count astronomically (0 is 1 BC). Beyond 7.8e11 days, some 2e9 years, the date stays at that limit; a NaN
/// gives 0 in all four.
void caldat(double mjd, int& day, int& month, int& year, double& hour);

/// Julian centuries from J2000.
constexpr double julcent(double mjd)
{
    return (mjd - 51544.5) / 36525.0;
}

/// Splits degrees (or hours) into whole degrees, whole minutes and seconds. The sign of a negative x stands on the
/// first part that is not 0. `d` stops at the range of int; `s` is NaN if x is not finite.
void dms(double x, int& d, int& m, double& s);

/// The reverse of `dms`: the sizes of the parts are added, and the sum is negative if any part is.
double ddd(int d, int m, double s);
