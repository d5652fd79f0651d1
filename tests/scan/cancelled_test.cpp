#include "scan/all_satellites.h"
#include "scan/matching.h"
#include "scan/next_satellites.h"
#include "scan/scan_helper.h"
#include "scan/workers.h"

#include "record/progress.h"
#include "record/text.h"
#include "record/wout_data.h"

#include <gtest/gtest.h>

namespace {

struct CancelCase
{
    const char* what;
    int workers;
    int (*scan)(WinpData& in);
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
    setProgressListener([&](std::string_view) { return ++asked < 2; });
    EXPECT_EQ(c.scan(in), calculationCancelled);
    setProgressListener({});
    setScanWorkers(0);
    return asked;
}

TEST(CancelledScan, LeavesRecordsAndFilesAsTheyWere)
{
    constexpr CancelCase cases[] = {{"all passes", 1, allPasses},
                                    {"all passes", 2, allPasses},
                                    {"next satellites", 1, soonest},
                                    {"next satellites", 2, soonest},
                                    {"matching satellites", 1, matching}};
    const ScratchDir here;
    const std::string catalogue = ScratchDir::read(TEST_DATA "/elements/catalogue_2018.txt");
    std::string many;
    for (int copy = 0; copy < 40; ++copy)
        many += catalogue;
    ScratchDir::write("many.txt", many);
    for (const CancelCase& c : cases)
        for (const bool listThere : {true, false}) {
            SCOPED_TRACE(std::string(c.what) + " " + std::to_string(c.workers));
            WinpData in = scanRecord("./many.txt", "satn=2 prs=1 rlm=1 visflg=0 sunel=90 mxa=40 newsave=1");
            selectSatellite(in, 0, 694);
            selectSatellite(in, 1, 25544);
            QFile::remove("list.txt");
            if (listThere)
                ScratchDir::write("list.txt", "the old list");
            const Selection before(in);
            EXPECT_EQ(timesAsked(in, c), 2);
            EXPECT_TRUE(Selection(in) == before);
            EXPECT_EQ(in.newsave, 1);
            EXPECT_EQ(ScratchDir::read("list.txt"), listThere ? "the old list" : "(no such file)");
            EXPECT_EQ(filesHere(), listThere ? 2 : 1);
        }
}

}  // namespace
