#include "astro/calendar.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr int leastInt = std::numeric_limits<int>::min(), mostInt = std::numeric_limits<int>::max();

struct Date
{
    int day = 9, month = 9, year = 9;
    double hour = 9;
};

Date dateOf(double mjd)
{
    Date date;
    caldat(mjd, date.day, date.month, date.year, date.hour);
    return date;
}

bool operator==(const Date& a, const Date& b)
{
    return a.day == b.day && a.month == b.month && a.year == b.year && std::abs(a.hour - b.hour) < 2e-8;
}

void PrintTo(const Date& date, std::ostream* to)
{
    *to << date.day << '.' << date.month << '.' << date.year << ' ' << date.hour << " h";
}

struct DateCase
{
    const char* what;
    Date date;
    double mjd;
};

// Meeus, Astronomical Algorithms (2nd ed.), chapter 7, less 2400000.5 days; the two of 1582 by the decree of that
// year; those of 1900, 2000, 2018 and 2100 from the proleptic Gregorian ordinals of the Python standard library.
constexpr DateCase dateCases[] = {
    {"launch of Sputnik 1", {4, 10, 1957, 19.44}, 36115.81},
    {"J2000", {1, 1, 2000, 12.0}, 51544.5},
    {"1987 in June", {19, 6, 1987, 12.0}, 46965.5},
    {"leap day of 2000", {29, 2, 2000, 0.0}, 51603.0},
    {"day before the leap day that 1900 had not", {28, 2, 1900, 0.0}, 15078.0},
    {"day before the leap day that 2100 has not", {28, 2, 2100, 0.0}, 88127.0},
    {"day after the leap day that 1900 had not", {1, 3, 1900, 0.0}, 15079.0},
    {"first Gregorian day", {15, 10, 1582, 0.0}, -100840.0},
    {"last Julian day", {4, 10, 1582, 0.0}, -100841.0},
    {"a date of 837", {10, 4, 837, 7.2}, -373128.7},
    {"a date of antiquity", {27, 1, 333, 12.0}, -557287.5},
    {"year -1000", {12, 7, -1000, 12.0}, -1043999.5},
    {"leap day of -1000", {29, 2, -1000, 0.0}, -1044134.0},
    {"start of the Julian day count", {1, 1, -4712, 12.0}, -2400000.5},
};

TEST(Calendar, AgreesWithPublishedDatesBothWays)
{
    for (const auto& [what, date, days] : dateCases) {
        SCOPED_TRACE(what);
        // a double of a million days resolves 1e-10
        EXPECT_NEAR(mjd(date.day, date.month, date.year, date.hour), days, 1e-9);
        EXPECT_EQ(dateOf(days), date);
    }
}

TEST(Calendar, ContinuesTheJulianCalendarBeforeTheDayCount)
{
    constexpr int cycleDays = 1461;  // of four Julian years
    for (const int cycles : {1, 2, 300}) {
        for (int i = 0; i < cycleDays; ++i) {
            const double later = -2400001.0 + i;
            Date date = dateOf(later);
            date.year -= 4 * cycles;
            ASSERT_EQ(dateOf(later - cycles * cycleDays), date) << later;
            ASSERT_EQ(mjd(date.day, date.month, date.year, 0.0), later - cycles * cycleDays);
        }
    }
}

TEST(Calendar, GivesDayAndHourOfOneDayJustBelowMidnight)
{
    const DateCase cases[] = {
        {"today", {19, 1, 2018, 24}, std::nextafter(58138.0, 0.0)},
        {"the start of the count", {16, 11, 1858, 24}, std::nextafter(0.0, -1.0)},
        {"a sum that would round up", {16, 11, 1858, 24}, -1e-17},
        {"the last Julian day", {4, 10, 1582, 24}, std::nextafter(-100840.0, -1e9)},
    };
    for (const DateCase& c : cases) {
        EXPECT_EQ(dateOf(c.mjd), c.date) << c.what;
        EXPECT_LT(dateOf(c.mjd).hour, 24.0) << c.what;
    }
}

TEST(Calendar, TakesEveryNumber)
{
    for (const double x : {1e300, -1e300, inf, -inf, 1e12, -1e12}) {
        const auto [day, month, year, hour] = dateOf(x);
        EXPECT_TRUE(day >= 1 && day <= 31 && month >= 1 && month <= 12 && hour >= 0 && hour < 24) << x;
        EXPECT_GT(x < 0 ? -year : year, 2000000000);
    }
    EXPECT_EQ(dateOf(std::nan("")), (Date{0, 0, 0, 0}));
    EXPECT_LT(mjd(leastInt, leastInt, leastInt, 0), -7e11);
    EXPECT_GT(mjd(mostInt, mostInt, mostInt, 0), 7e11);
}

TEST(Calendar, FracAndTruncToIntTakeEveryNumber)
{
    EXPECT_EQ(frac(-1.25), -0.25);
    EXPECT_TRUE(std::isnan(frac(inf)));
    EXPECT_EQ(truncToInt(-1.9), -1);
    EXPECT_EQ(truncToInt(2147483646.9), 2147483646);
    EXPECT_EQ(truncToInt(1e300), mostInt);
    EXPECT_EQ(truncToInt(-1e300), leastInt);
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
    int d = 9, m = 9;
    double s = 9;
    dms(-1e300, d, m, s);
    EXPECT_EQ(d, -mostInt);
    dms(std::nan(""), d, m, s);
    EXPECT_TRUE(d == 0 && m == 0 && std::isnan(s));
}

}  // namespace
