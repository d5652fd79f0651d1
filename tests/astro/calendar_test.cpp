#include "astro/calendar.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

struct DateCase
{
    const char* what;
    int day, month, year;
    double hour, mjd;
};

// Meeus, Astronomical Algorithms (2nd ed.), chapter 7, less 2400000.5 days; the two of 1582 by the decree of that
// year; those of 1900, 2000, 2018 and 2100 from the proleptic Gregorian ordinals of the Python standard library.
constexpr DateCase dateCases[] = {
    {"launch of Sputnik 1", 4, 10, 1957, 19.44, 36115.81},
    {"J2000", 1, 1, 2000, 12.0, 51544.5},
    {"1987 in June", 19, 6, 1987, 12.0, 46965.5},
    {"1988 in June", 19, 6, 1988, 12.0, 47331.5},
    {"leap day of 2000", 29, 2, 2000, 0.0, 51603.0},
    {"day before the leap day that 1900 had not", 28, 2, 1900, 0.0, 15078.0},
    {"day before the leap day that 2100 has not", 28, 2, 2100, 0.0, 88127.0},
    {"day after the leap day that 1900 had not", 1, 3, 1900, 0.0, 15079.0},
    {"20 January 2018", 20, 1, 2018, 0.0, 58138.0},
    {"31 December 1600", 31, 12, 1600, 0.0, -94188.0},
    {"first Gregorian day", 15, 10, 1582, 0.0, -100840.0},
    {"last Julian day", 4, 10, 1582, 0.0, -100841.0},
    {"a date of 837", 10, 4, 837, 7.2, -373128.7},
    {"a date of antiquity", 27, 1, 333, 12.0, -557287.5},
    {"year -122", 1, 1, -122, 0.0, -723503.0},
    {"year -1000", 12, 7, -1000, 12.0, -1043999.5},
    {"leap day of -1000", 29, 2, -1000, 0.0, -1044134.0},
    {"start of the Julian day count", 1, 1, -4712, 12.0, -2400000.5},
};

TEST(Calendar, AgreesWithPublishedDatesBothWays)
{
    for (const DateCase& c : dateCases) {
        SCOPED_TRACE(c.what);
        // a double of a million days resolves 1e-10
        EXPECT_NEAR(mjd(c.day, c.month, c.year, c.hour), c.mjd, 1e-9);
        int day = 0, month = 0, year = 0;
        double hour = 0;
        caldat(c.mjd, day, month, year, hour);
        EXPECT_EQ(day, c.day);
        EXPECT_EQ(month, c.month);
        EXPECT_EQ(year, c.year);
        EXPECT_NEAR(hour, c.hour, 2e-8);
    }
}

/// Days of four Julian years.
constexpr int cycleDays = 1461;

TEST(Calendar, ContinuesTheJulianCalendarBeforeTheDayCount)
{
    for (const int cycles : {1, 2, 300}) {
        for (int i = 0; i < cycleDays; ++i) {
            const double later = -2400001.0 + i;
            int day = 0, month = 0, year = 0, dayBefore = 0, monthBefore = 0, yearBefore = 0;
            double hour = 0;
            caldat(later, day, month, year, hour);
            caldat(later - cycles * cycleDays, dayBefore, monthBefore, yearBefore, hour);
            ASSERT_EQ(dayBefore, day) << later;
            ASSERT_EQ(monthBefore, month) << later;
            ASSERT_EQ(yearBefore, year - 4 * cycles) << later;
            ASSERT_EQ(mjd(dayBefore, monthBefore, yearBefore, 0.0), later - cycles * cycleDays);
        }
    }
}

TEST(Calendar, GivesDayAndHourOfOneDayJustBelowMidnight)
{
    struct
    {
        double mjd;
        int day, month, year;
    } const cases[] = {
        {std::nextafter(58138.0, 0.0), 19, 1, 2018},
        {std::nextafter(0.0, -1.0), 16, 11, 1858},
        {-1e-17, 16, 11, 1858},
        {std::nextafter(-100840.0, -1e9), 4, 10, 1582},
    };
    for (const auto& c : cases) {
        int day = 0, month = 0, year = 0;
        double hour = 0;
        caldat(c.mjd, day, month, year, hour);
        EXPECT_EQ(day, c.day) << c.mjd;
        EXPECT_EQ(month, c.month) << c.mjd;
        EXPECT_EQ(year, c.year) << c.mjd;
        EXPECT_LT(hour, 24.0) << c.mjd;
        EXPECT_GT(hour, 23.999) << c.mjd;
    }
}

TEST(Calendar, TakesEveryNumber)
{
    const double inf = std::numeric_limits<double>::infinity();
    for (const double x : {1e300, -1e300, inf, -inf, 1e12, -1e12}) {
        int day = 0, month = 0, year = 0;
        double hour = -1;
        caldat(x, day, month, year, hour);
        EXPECT_GE(day, 1);
        EXPECT_LE(day, 31);
        EXPECT_GE(month, 1);
        EXPECT_LE(month, 12);
        EXPECT_GT(x < 0 ? -year : year, 2000000000);
        EXPECT_GE(hour, 0.0);
        EXPECT_LT(hour, 24.0);
    }
    int day = 1, month = 1, year = 1;
    double hour = 1;
    caldat(std::nan(""), day, month, year, hour);
    EXPECT_TRUE(day == 0 && month == 0 && year == 0 && hour == 0);

    const int least = std::numeric_limits<int>::min(), most = std::numeric_limits<int>::max();
    EXPECT_LT(mjd(least, least, least, 0), -7e11);
    EXPECT_GT(mjd(most, most, most, 0), 7e11);
}

TEST(Calendar, FracKeepsTheSign)
{
    EXPECT_EQ(frac(-1.25), -0.25);
    EXPECT_EQ(frac(7.75), 0.75);
    EXPECT_TRUE(std::isnan(frac(std::numeric_limits<double>::infinity())));
}

TEST(Calendar, TruncToIntStopsAtTheRangeOfInt)
{
    EXPECT_EQ(truncToInt(-1.9), -1);
    EXPECT_EQ(truncToInt(2147483646.9), 2147483646);
    EXPECT_EQ(truncToInt(1e300), std::numeric_limits<int>::max());
    EXPECT_EQ(truncToInt(-1e300), std::numeric_limits<int>::min());
    EXPECT_EQ(truncToInt(std::nan("")), 0);
}

struct SexagesimalCase
{
    double x;
    int d, m;
    double s;
};

constexpr SexagesimalCase sexagesimalCases[] = {
    {-0.5, 0, -30, 0.0}, {48.4791666666666667, 48, 28, 45.0}, {-12.75, -12, 45, 0.0}, {-0.0041666666, 0, 0, -15},
    {0.0, 0, 0, 0.0},    {-0.0166666666666667, 0, -1, 0.0},
};

TEST(Calendar, SplitsAndJoinsSexagesimalParts)
{
    for (const SexagesimalCase& c : sexagesimalCases) {
        int d = 9, m = 9;
        double s = 9;
        dms(c.x, d, m, s);
        EXPECT_EQ(d, c.d) << c.x;
        EXPECT_EQ(m, c.m) << c.x;
        EXPECT_NEAR(s, c.s, 1e-6) << c.x;  // the figures of x end at 1e-10 degrees
        EXPECT_NEAR(ddd(c.d, c.m, c.s), c.x, 1e-10);
    }
}

TEST(Calendar, SplitsEveryNumber)
{
    int d = 0, m = 0;
    double s = 0;
    dms(-1e300, d, m, s);
    EXPECT_EQ(d, -std::numeric_limits<int>::max());
    EXPECT_EQ(m, 0);
    EXPECT_EQ(s, 0.0);
    dms(std::nan(""), d, m, s);
    EXPECT_EQ(d, 0);
    EXPECT_EQ(m, 0);
    EXPECT_TRUE(std::isnan(s));
}

}  // namespace
