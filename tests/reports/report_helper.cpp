#include "reports/report_helper.h"

#include "elements/reader.h"
#include "engine/pass_search.h"
#include "record/files.h"
#include "record/text.h"

#include <fstream>
#include <iterator>

void ReportTest::startAnew()
{
    WinpData* in = indata;
    *in = WinpData{};
    setDefaults(in);
    in->sgpsat = noSlot;
    assignField(in->geoname, "Vienna");
    in->lat = 48.25;
    in->lng = 16.5;
    in->height = 200.0;
    in->tzone = 1.0;
    in->year = 2018;
    in->month = 1;
    in->day = 20;
    in->hour = 1;
    in->mjd = 58138.0;
    in->visflg = 0;
    in->sunel = 90.0;
    in->yrepoch = 0.0;
    in->aostm[0] = secondPass;
    in->naos = 1;
    in->tmstep = oneMinuteDays;
    in->newsave = 1;
    assignField(in->savename, "list.txt");
    assignField(in->tlename, TEST_DATA "/elements/visual_2018.txt");
    addSatellite(in, 25544);
}

void ReportTest::occultStar()
{
    indata->occflg = 3;
    indata->occra = 12.0;
    indata->occdec = 20.3;
    indata->refrc = false;
}

void addSatellite(WinpData* in, int norad)
{
    const FilePtr file = openForReading(in->tlename);
    ASSERT_TRUE(file);
    char report[entryTextRoom];
    in->srcmd = 1;
    in->norad[workSlot] = norad;
    ASSERT_GT(tleread(in, file.get(), report, 0), 0) << norad;
    ShiftElm(in, in->satn++, workSlot);
}

std::string expectedText(const char* name)
{
    std::ifstream file(std::string(TEST_DATA "/reports/") + name, std::ios::binary);
    EXPECT_TRUE(file) << name;
    return {std::istreambuf_iterator<char>(file), {}};
}
