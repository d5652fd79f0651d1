#include <gtest/gtest.h>

#include <functional>

#include "app/record/text.h"
#include "app/record/wout_data.h"
#include "engine/scan/all_satellites.h"
#include "engine/scan/matching.h"
#include "engine/scan/next_satellites.h"
#include "engine/scan/scratch_helper.h"
#include "engine/scan/workers.h"

namespace {

struct CancelCase
{
    const char* what;
    int workers;
    std::function<int(WinpData&)> scan;
};

int allPasses(WinpData& in)
{
    return AllSatAos(&in);
}

int soonest(WinpData& in)
{
    return nextSatellites(&in, 58138.0);
}

int matching(WinpData& in)
{
    WoutData out;
    const int result = SatMatch(&in, &out);
    EXPECT_EQ(out.nlines, 0);
    return result;
}

/// Ends a scan in its midst, at the second time that it asks. The number of times it asked.
int timesAsked(WinpData& in, const CancelCase& c)
{
    int asked = 0;
    setScanWorkers(c.workers);
    setScanProgress([&](std::string_view) { return ++asked < 2; });
    EXPECT_EQ(c.scan(in), scanCancelled);
    setScanProgress({});
    setScanWorkers(0);
    return asked;
}

std::string longElementFile()
{
    const std::string once = contentOf(TEST_DATA "/elements/catalogue_2018.txt");
    std::string content;
    for (int copy = 0; copy < 40; ++copy)
        content += once;
    return content;
}

TEST(CancelledScan, LeavesRecordsAndFilesAsTheyWere)
{
    const CancelCase cases[] = {{"all passes", 1, allPasses},
                                {"all passes", 2, allPasses},
                                {"next satellites", 1, soonest},
                                {"next satellites", 2, soonest},
                                {"matching satellites", 1, matching}};
    const ScratchDirectory here;
    writeFile("many.txt", longElementFile());
    for (const CancelCase& c : cases) {
        for (const bool listThere : {true, false}) {
            SCOPED_TRACE(std::string(c.what) + " " + std::to_string(c.workers));
            WinpData in = scanRecord("catalogue_2018.txt");
            ASSERT_TRUE(selectSatellite(in, 0, 694));
            ASSERT_TRUE(selectSatellite(in, 1, 25544));
            in.satn = 2;
            in.prs = 1;
            in.rlm = 1;
            in.visflg = 0;
            in.sunel = 90.0;
            in.mxa = 40.0;
            in.newsave = 1;
            assignField(in.tlename, "many.txt");
            std::filesystem::remove("list.txt");
            if (listThere)
                writeFile("list.txt", "the old list");
            const Selection before(in);
            EXPECT_EQ(timesAsked(in, c), 2);
            EXPECT_TRUE(Selection(in) == before);
            EXPECT_EQ(in.newsave, 1);
            EXPECT_EQ(contentOf("list.txt"), listThere ? "the old list" : "");
            EXPECT_EQ(here.files(), listThere ? 2u : 1u);
        }
    }
}

}  // namespace
