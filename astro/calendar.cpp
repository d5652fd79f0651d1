#include "astro/calendar.h"

#include <algorithm>

namespace {

using Whole = long long;

// The first day of the Gregorian calendar as 10000 year + 100 month + day lies above this figure.
constexpr double lastJulianDate = 15821004.1;

// The years of these days fit an int.
constexpr double farthestDays = 7.8e11;

constexpr double hoursBelow24 = 23.999999999999996;  // the double next to 24

Whole wholeOf(double x)
{
    return static_cast<Whole>(x);
}

/// Rounds down, unlike the division of C++; b is above 0.
constexpr Whole floorQuotient(Whole a, Whole b)
{
    return a / b - (a % b < 0 ? 1 : 0);
}

/// Leap days up to the year: of the Gregorian calendar, or of the Julian one shifted onto the same count.
Whole leapDays(Whole y, bool gregorian)
{
    return gregorian ? y / 400 - y / 100 + y / 4 : floorQuotient(y + 4716, 4) - 1181;
}

struct Date
{
    Whole day, month, year;
};

/// @param a  Julian day number of the day that begins at midnight, 0 or above
Date dateOfDayNumber(Whole a)
{
    Whole c = a + 1524;
    if (a > 2299160) {
        const Whole b = wholeOf((static_cast<double>(a) - 1867216.25) / 36524.25);
        c = a + b - b / 4 + 1525;
    }
    const Whole d = wholeOf((static_cast<double>(c) - 122.1) / 365.25);
    const Whole e = 365 * d + d / 4;
    const Whole f = wholeOf(static_cast<double>(c - e) / 30.6001);
    const Whole month = f - 1 - 12 * (f / 14);
    return {c - e - wholeOf(30.6001 * static_cast<double>(f)), month, d - 4715 - (7 + month) / 10};
}

/// The Julian calendar continued backwards from the start of the day count.
///
/// @param a  day number plus 1, so 0 or below
Date dateBeforeDayCount(Whole a)
{
    const Whole k = wholeOf((static_cast<double>(-a) - 0.1) / 365.25) + 1;
    const Whole dayOfYear = 365 * k + k / 4 + a;
    if (dayOfYear == 0)
        return {31, 12, -4713 - k};
    const Whole year = -4712 - k;
    const Whole firstOfMarch = k % 4 == 0 ? 61 : 60;
    if (dayOfYear < firstOfMarch)
        return dayOfYear > 31 ? Date{dayOfYear - 31, 2, year} : Date{dayOfYear, 1, year};
    const double s = static_cast<double>(dayOfYear - firstOfMarch + 123);
    const Whole month = wholeOf(s / 30.6001);
    return {wholeOf(s) - wholeOf(30.6001 * static_cast<double>(month)), month - 1, year};
}

}  // namespace

double mjd(int day, int month, int year, double hour)
{
    const bool gregorian = 10000.0 * year + 100.0 * month + day > lastJulianDate;
    Whole y = year;
    Whole m = month;
    if (m < 3) {
        y = y - 1;
        m = m + 12;
    }
    const Whole days =
        365 * y - 679004 + leapDays(y, gregorian) + wholeOf(30.6001 * static_cast<double>(m + 1)) + day;
    return static_cast<double>(days) + hour / 24.0;
}

void caldat(double mjd, int& day, int& month, int& year, double& hour)
{
    day = month = year = 0;
    hour = 0;
    if (mjd != mjd)
        return;
    const double x = std::clamp(mjd, -farthestDays, farthestDays);
    // The whole part is taken before the sum: just below midnight the sum would round up to the next day.
    const Whole a = wholeOf(std::floor(x)) + 2400001;
    const Date date = a < 0 ? dateBeforeDayCount(a + 1) : dateOfDayNumber(a);
    day = static_cast<int>(date.day);
    month = static_cast<int>(date.month);
    year = static_cast<int>(date.year);
    hour = std::min(24.0 * (x - std::floor(x)), hoursBelow24);
}

void dms(double x, int& d, int& m, double& s)
{
    const double size = std::abs(x);
    const double minutes = frac(size) * 60.0;
    d = truncToInt(size);
    m = truncToInt(minutes);
    s = frac(minutes) * 60.0;
    if (x < 0) {
        if (d != 0)
            d = -d;
        else if (m != 0)
            m = -m;
        else
            s = -s;
    }
}

double ddd(int d, int m, double s)
{
    const double size = std::abs(1.0 * d) + std::abs(1.0 * m) / 60.0 + std::abs(s) / 3600.0;
    return d < 0 || m < 0 || s < 0 ? -size : size;
}
