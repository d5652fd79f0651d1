// astro/leap_seconds.h: TAI minus UTC as published.
#pragma once

#include <string_view>
#include <vector>

/// From a day on TAI is ahead of UTC by so much.
struct LeapSecond
{
    double mjd;
    double taiUtc;  // seconds
};

/// A table in the order of its days.
struct LeapSeconds
{
    std::vector<LeapSecond> rows;
    double expires = 0;  // MJD; 0: the table does not tell
};

/// Reads a table in the form of the leap-seconds.list of the IERS and of tz: seconds from 1900 on, TAI minus UTC, and
/// comments after #; a line that begins with #@ has the day to which the table is good.
///
/// @return  no rows if a line does not fit the form or the days do not rise
LeapSeconds readLeapSeconds(std::string_view text);

/// TAI minus UTC in seconds. From 1961 to 1971 by the rates of the time (Explanatory Supplement, 1992, table 2.58.1).
///
/// @param mjd  UTC, not before `firstUtcMjd`
double taiMinusUtc(double mjd, const LeapSeconds& table);

/// 1961 January 1.
constexpr double firstUtcMjd = 37300.0;
