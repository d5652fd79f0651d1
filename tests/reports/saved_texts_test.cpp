// The files that the reports write, byte by byte. Where the expected texts come from: tests/data/reports/README.md.

#include "engine/aos_list.h"
#include "engine/pass_search.h"
#include "record/text.h"
#include "record/wout_data.h"
#include "report_lines.h"
#include "reports/orbit_track.h"
#include "reports/pass_details.h"
#include "reports/report_helper.h"
#include "scan/all_satellites.h"
#include "scan/iridium_scan.h"

#include <limits>

namespace {

class SavedText : public ReportTest
{};

TEST_F(SavedText, OfTheAosListAndOfAllPasses)
{
    indata->dur = 1.0;
    indata->tofile = 1;
    aospass(indata, outdata);
    EXPECT_EQ(saved(), expectedText("aos_list.txt"));

    assignField(indata->tlename, TEST_DATA "/reports/three_entries.txt");
    indata->newsave = 1;
    EXPECT_EQ(AllSatAos(indata), 0);
    EXPECT_EQ(saved(), expectedText("all_passes.txt"));
}

TEST_F(SavedText, OfAFlareSearchAndItsTable)
{
    assignField(indata->tlename, TEST_DATA "/reports/four_iridiums.txt");
    indata->satn = 0;
    indata->lat = 48.2;
    indata->lng = 16.37;
    indata->height = 180.0;
    indata->visflg = 1;
    indata->dur = 2.0;
    IridiumSearch search(indata);
    search.accept(-3.0, false, false);
    ASSERT_EQ(AllSatAos(indata), 0);
    EXPECT_EQ(saved(), expectedText("flare_passes.txt"));

    Iriddspy(indata, outdata);
    std::string table;
    for (const std::string& line : reportLines(*outdata))
        table += line + "\n";
    EXPECT_EQ(table, expectedText("flare_table.txt"));
    EXPECT_EQ(indata->satn, 4);
}

TEST_F(SavedText, OfThePassDetails)
{
    indata->ra4d = 1;
    EXPECT_TRUE(vsSavePassDt(passform::save));
    EXPECT_EQ(saved(), expectedText("pass_details.txt"));

    indata->newsave = 1;
    indata->tmstep = minuteDays / 2;
    EXPECT_TRUE(vsSavePassDt(passform::groundTrack));
    EXPECT_EQ(saved(), expectedText("ground_track.txt"));

    occultStar();
    indata->newsave = 1;
    indata->tmstep = oneMinuteDays;
    EXPECT_TRUE(vsSavePassDt(passform::save));
    EXPECT_EQ(saved(), expectedText("pass_events.txt"));
}

TEST_F(SavedText, OfTheOrbitTrack)
{
    indata->dur = 48 * 2 * minuteDays - 1e-6;
    indata->tmstep = 2 * minuteDays;
    indata->newsave = 0;
    ScratchDir::write("list.txt", "old\n");
    EXPECT_EQ(saveOrbitTrack(indata), 0);
    EXPECT_EQ(saved(), expectedText("orbit_track.txt"));
    EXPECT_EQ(indata->newsave, 0);
    occultStar();
    EXPECT_EQ(saveOrbitTrack(indata), 0);
    EXPECT_EQ(saved(), expectedText("orbit_track_events.txt"));
    assignField(indata->savename, "no/such/directory.txt");
    EXPECT_EQ(saveOrbitTrack(indata), 1);
}

class OrbitTrack : public ReportTest
{
protected:
    static std::string track()
    {
        EXPECT_EQ(saveOrbitTrack(indata), 0);
        return saved();
    }

    static bool has(const std::string& text, const char* part) { return text.find(part) != std::string::npos; }
};

TEST_F(OrbitTrack, HoldsAnEndlessSpanAndSaysSo)
{
    indata->tmstep = 40000.0;
    for (const double days : {std::numeric_limits<double>::quiet_NaN(), 1e300, 100001.0}) {
        SCOPED_TRACE(days);
        indata->dur = days;
        const std::string text = track();
        EXPECT_TRUE(has(text, " <+++\n *** Time span held to 100000 days ***\n"));
        EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 5 + 3) << "the notice and three steps";
    }
}

TEST_F(OrbitTrack, TellsFlaresOfAKnownSurfaceOnly)
{
    indata->dur = minuteDays / 2;
    indata->flarflg = 1;
    for (const int surface : {-1, 1}) {
        indata->flarmod = surface;
        EXPECT_EQ(has(track(), " Ctr.Line  long.    lat.\n\n"), surface > 0);
    }
}

}  // namespace
