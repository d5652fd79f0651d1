// The orbit track: its span, and files that cannot be written.

#include "reports/orbit_track.h"

#include "app/record/text.h"
#include "reports/report_helper.h"
#include "scratch_dir.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>

namespace {

class OrbitTrack : public testing::Test
{
protected:
    OrbitTrack()
    {
        *indata = WinpData{};
        observeFromVienna(indata);
        addSatellite(indata, 25544);
        indata->tmstep = 1.0 / 1440.0;
        assignField(indata->savename, "track.txt");
    }

    /// Lines behind the heading.
    static long steps()
    {
        const std::string file = ScratchDir::read("track.txt");
        return std::count(file.begin(), file.end(), '\n') - 4;
    }

    const ScratchDir folder;
};

TEST_F(OrbitTrack, HoldsAnEndlessSpanAndSaysSo)
{
    indata->tmstep = 40000.0;
    for (const double days : {std::numeric_limits<double>::quiet_NaN(), 1e300, 100001.0}) {
        SCOPED_TRACE(days);
        indata->dur = days;
        EXPECT_EQ(saveOrbitTrack(indata), 0);
        EXPECT_NE(ScratchDir::read("track.txt").find(" <+++\n *** Time span held to 100000 days ***\n"),
                  std::string::npos);
        EXPECT_EQ(steps(), 1 + 3) << "the notice and three steps";
    }
}

TEST_F(OrbitTrack, IsInCivilTimeOfTheZone)
{
    indata->dur = 0.5 / 1440.0;
    ASSERT_EQ(saveOrbitTrack(indata), 0);
    const std::string east = ScratchDir::read("track.txt");
    indata->tzone = 5.5;
    indata->hour = 5;
    indata->minute = 30;
    ASSERT_EQ(saveOrbitTrack(indata), 0);
    const std::string india = ScratchDir::read("track.txt");
    EXPECT_NE(india.find("+++> Timezone 5.5 <+++\n"), std::string::npos);
    EXPECT_NE(india.find("\nJAN 20   5:30:00 "), std::string::npos);
    EXPECT_EQ(india.substr(india.size() - 45), east.substr(east.size() - 45)) << "the same instant";
}

TEST_F(OrbitTrack, TellsEventsOnlyWhereTheyAreKnown)
{
    indata->dur = 0.5 / 1440.0;
    const auto hasEvents = [] {
        saveOrbitTrack(indata);
        return ScratchDir::read("track.txt").find(" Ctr.Line  long.    lat.\n\n") != std::string::npos;
    };
    EXPECT_FALSE(hasEvents());
    indata->flarflg = 1;
    indata->flarmod = -1;
    EXPECT_FALSE(hasEvents()) << "the surface is not known";
    indata->flarmod = 1;
    EXPECT_TRUE(hasEvents());
    indata->flarflg = 0;
    indata->occflg = 1;
    EXPECT_TRUE(hasEvents());
}

}  // namespace
