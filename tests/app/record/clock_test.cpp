#include "app/record/clock.h"

#include "app/record/keep.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

namespace {
/// Another time zone of the process, put back at the end.
class Zone
{
public:
    explicit Zone(const char* tz) : before(std::getenv("TZ") ? std::getenv("TZ") : "UTC") { ::setenv("TZ", tz, 1); }
    ~Zone()
    {
        ::setenv("TZ", before.c_str(), 1);
        ::tzset();
    }
    Zone(const Zone&) = delete;
    Zone& operator=(const Zone&) = delete;

private:
    const std::string before;
};

// 20 January 2018, 12:00:09 UTC
std::time_t januaryNoon()
{
    return 1516449609;
}
// 1 July 2018, 23:30:00 UTC
std::time_t julyNight()
{
    return 1530487800;
}

TEST(Clock, GivesTheDateInUtc)
{
    const Zone zone("XYZ-2");
    const Keep frozen(systemSeconds, januaryNoon);
    WinpData in;
    DefTime(&in);
    EXPECT_EQ(in.year, 2018);
    EXPECT_EQ(in.month, 1);
    EXPECT_EQ(in.day, 20);
    EXPECT_EQ(in.hour, 12);
    EXPECT_EQ(in.minute, 0);
    EXPECT_EQ(in.second, 9);
    EXPECT_EQ(GBL_timezone, -7200.0);
}

struct ZoneCase
{
    const char* tz;
    std::time_t (*clock)();
    double secondsWest;
};

// rules as POSIX writes them, so that no zone file is needed
constexpr const char* middleEurope = "CET-1CEST,M3.5.0,M10.5.0/3";
constexpr ZoneCase zoneCases[] = {
    {"UTC0", januaryNoon, 0},           {"IST-5:30", januaryNoon, -19800}, {"NST3:30", julyNight, 12600},
    {middleEurope, januaryNoon, -3600}, {middleEurope, julyNight, -7200},  {"HST10", julyNight, 36000},
    {"LINT-14", julyNight, -50400},
};

TEST(Clock, KnowsZonesAndDaylightSaving)
{
    for (const ZoneCase& c : zoneCases) {
        SCOPED_TRACE(c.tz);
        const Zone zone(c.tz);
        const Keep frozen(systemSeconds, c.clock);
        WinpData in;
        DefTime(&in);
        EXPECT_EQ(GBL_timezone, c.secondsWest);
    }
}

TEST(StartDate, IsCivilTimeOfTheZone)
{
    WinpData in;
    in.day = 20;
    in.month = 7;
    in.year = 2015;
    in.hour = 12;
    in.minute = 15;
    in.second = 36;
    in.tzone = 5.5;
    in.dtflg = in.rtflg = in.pasjmp = 1;
    setNewMjd(&in);
    EXPECT_DOUBLE_EQ(in.mjd, 57223 + 6.76 / 24);
    EXPECT_EQ(in.dtflg, 0);
    EXPECT_EQ(in.rtflg, 0);
    EXPECT_EQ(in.pasjmp, 0);
    // 36 s of TAI - UTC from 1 July 2015 (IERS bulletin C 49), and 32.184 s
    EXPECT_NEAR(in.ttut, 68.184, 1e-9);
}

TEST(StartDate, FollowsTheSystemZoneAndKeepsARealTimePlot)
{
    const Zone zone("XYZ-2");
    const Keep frozen(systemSeconds, januaryNoon);
    WinpData in;
    DefTime(&in);
    in.tzauto = 1;
    in.rtflg = 1;
    setNewMjd(&in);
    EXPECT_EQ(in.tzone, 2.0);
    EXPECT_DOUBLE_EQ(in.mjd, 58138 + (10.0 + 9.0 / 3600) / 24);
    EXPECT_EQ(in.rtflg, 1);
}

TEST(RealTime, LeavesTheDateFieldsAndAddsItsOffset)
{
    const Zone zone("UTC0");
    const Keep frozen(systemSeconds, januaryNoon);
    WinpData in;
    in.day = 1;
    in.month = 2;
    in.year = 1999;
    in.hour = 3;
    in.minute = 4;
    in.second = 5;
    in.rtoff = -36.0;
    EXPECT_DOUBLE_EQ(RT_MJD(&in), 58137 + 9.0 / 86400);
    EXPECT_EQ(in.day, 1);
    EXPECT_EQ(in.month, 2);
    EXPECT_EQ(in.year, 1999);
    EXPECT_EQ(in.hour, 3);
    EXPECT_EQ(in.minute, 4);
    EXPECT_EQ(in.second, 5);
}

}  // namespace
