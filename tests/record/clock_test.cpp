#include "record/clock.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>

namespace {
/// A system with a time zone and a clock that stands still.
class SystemClock : public testing::Test
{
protected:
    static void stand(const char* zone, std::time_t (*seconds)())
    {
        ::setenv("TZ", zone, 1);
        systemSeconds = seconds;
    }
    void TearDown() override
    {
        stand("UTC0", running);
        ::tzset();
    }

private:
    std::time_t (*const running)() = systemSeconds;
};

std::array<int, 6> dateFields(const WinpData& in)
{
    return {in.year, in.month, in.day, in.hour, in.minute, in.second};
}

constexpr std::array januaryUtc{2018, 1, 20, 12, 17, 9}, julyUtc{2018, 7, 1, 23, 30, 0};

std::time_t january()
{
    return 1516450629;
}

std::time_t july()
{
    return 1530487800;
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
    {"UTC0", january, 0},   {"XYZ-2", january, -7200},      {"IST-5:30", january, -19800}, {"NST3:30", july, 12600},
    {"HST10", july, 36000}, {middleEurope, january, -3600}, {middleEurope, july, -7200},   {"LINT-14", july, -50400},
};

TEST_F(SystemClock, GivesTheDateInUtcAndTheZoneToAStartDateThatFollowsIt)
{
    for (const ZoneCase& c : zoneCases) {
        SCOPED_TRACE(c.tz);
        stand(c.tz, c.clock);
        WinpData in;
        DefTime(&in);
        EXPECT_EQ(dateFields(in), c.clock == january ? januaryUtc : julyUtc);
        EXPECT_EQ(GBL_timezone, c.secondsWest);
        in.tzauto = in.rtflg = 1;
        setNewMjd(&in);
        EXPECT_EQ(in.tzone, 0 - c.secondsWest / 3600);
        EXPECT_FALSE(in.tzone == 0 && std::signbit(in.tzone));
        EXPECT_NEAR(in.mjd, (double(c.clock()) + c.secondsWest) / 86400 + 40587, 1e-9);
        EXPECT_EQ(in.rtflg, 1);  // it goes on, unlike that of a delta plot
    }
}

TEST(StartDate, IsCivilTimeOfTheZone)
{
    WinpData in{.day = 20, .month = 7, .year = 2015, .hour = 12, .minute = 15, .second = 36, .tzone = 5.5};
    in.dtflg = in.rtflg = in.pasjmp = 1;
    setNewMjd(&in);
    EXPECT_DOUBLE_EQ(in.mjd, 57223 + 6.76 / 24);
    EXPECT_EQ(in.dtflg, 0);
    EXPECT_EQ(in.rtflg, 0);
    EXPECT_EQ(in.pasjmp, 0);
    // 36 s of TAI - UTC from 1 July 2015 (IERS bulletin C 49), and 32.184 s
    EXPECT_NEAR(in.ttut, 68.184, 1e-9);
}

TEST_F(SystemClock, AsRealTimeLeavesTheDateFieldsAndAddsAnOffset)
{
    stand("UTC0", january);
    WinpData in{.day = 1, .month = 2, .year = 1999, .hour = 3, .minute = 4, .second = 5, .rtoff = -36};
    EXPECT_DOUBLE_EQ(RT_MJD(&in), 58137 + (17 * 60 + 9) / 86400.0);
    EXPECT_EQ(dateFields(in), (std::array{1999, 2, 1, 3, 4, 5}));
}

TEST(TtMinusUt, FollowsTheIersValuesWhereTheyAreInForce)
{
    WinpData in;
    in.UtcTai = -34;
    EXPECT_NEAR(SetTtUt(&in, 2015), 68.184, 1e-9);
    in.IERSflg = true;
    EXPECT_NEAR(SetTtUt(&in, 1066), 66.184, 1e-12);
    EXPECT_EQ(utcTaiOf(65.184), -33);
    EXPECT_EQ(utcTaiOf(-4.816), 36);  // the whole part, toward 0
}
}  // namespace
