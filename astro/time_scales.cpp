#include "astro/time_scales.h"

#include "astro/calendar.h"

#include <array>

namespace {

// TT minus UT in whole seconds, 1986 to 1994, one a year.
constexpr std::array measuredSeconds{55, 55, 56, 56, 57, 58, 58, 59, 60};
static_assert(measuredSeconds.size() == 9);

// Taken off the polynomial from 1995 on.
constexpr double lateSeconds = 6.28;

/// @param t  centuries from an epoch of the caller's
double polynomialSeconds(double t)
{
    return (((-339.84 * t - 516.12) * t - 160.22) * t + 92.23) * t + 71.28;
}

double secondsBefore1900(double y)
{
    if (y < 948) {
        const double t = (y - 1800.0) / 100.0;
        return (44.3 * t + 320.0) * t + 1360.0;
    }
    if (y < 1650) {
        const double t = (y - 1800.0) / 100.0;
        return 25.5 * t * t;
    }
    if (y < 1865) {
        const double t = (y - 1800.0) / 100.0 - 0.19;
        return 13.3066 * t * t + 5.156;
    }
    if (y < 1885)
        return 6.0 - 0.6 * (y - 1865.0);
    return -6.0 - 0.2 * (y - 1885.0);
}

double secondsBefore2000(int year)
{
    const double t = (year - 2000.0) / 100.0;
    if (year < 1986)
        return polynomialSeconds(t);
    if (year < 1995)
        return measuredSeconds[year - 1986];
    return polynomialSeconds(t) - lateSeconds;
}

/// The years in which no leap second was inserted do not count.
int effectiveYear(int year)
{
    if (year <= 2006)
        return year;
    if (year == 2007)
        return 2006;
    if (year <= 2009)
        return year - 2;
    if (year == 2010)
        return year - 3;
    if (year <= 2012)
        return year - 4;
    return year - 5;
}

double secondsFrom2000(int year)
{
    const double y = effectiveYear(year);
    if (y <= 2004)
        return 70.3421907216 - lateSeconds;
    if (y <= 2019)
        return polynomialSeconds((y - 2006.0) / 100.0) - lateSeconds;
    const double t = (y - 2019.0) / 100.0;
    return (27.5 * t + 75.0) * t + 73.0;
}

double rawSeconds(int year)
{
    if (year < 1900)
        return secondsBefore1900(year);
    return year < 2000 ? secondsBefore2000(year) : secondsFrom2000(year);
}

}  // namespace

double DefTdUt(int year)
{
    const double v = rawSeconds(year);
    const double whole = v < 0 ? -std::floor(0.5 - v) : std::floor(v + 0.5);
    return whole + 0.184;
}

double lsidtim(double mjd, double longitude, double eqeq)
{
    const double midnight = std::trunc(mjd);
    const double ut = (mjd - midnight) * 24.0;
    const double T0 = (midnight - 51544.5) / 36525.0;
    const double greenwich =
        6.697374558 + 1.0027379093 * ut + ((0.093104 - 6.2e-6 * T0) * T0 + 8640184.812866) * T0 / 3600.0;
    return frac((greenwich + longitude / 15.0) / 24.0) * 24.0 + eqeq / 3600.0;
}
