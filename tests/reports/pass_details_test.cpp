// The pass details: forms of the listing, and the rule of the save file.

#include "reports/pass_details.h"

#include "app/record/text.h"
#include "engine/pass_search.h"
#include "engine/position.h"
#include "reports/report_helper.h"
#include "scratch_dir.h"

#include <gtest/gtest.h>

#include <QString>
#include <algorithm>
#include <functional>
#include <string>
#include <vector>

namespace {

constexpr int station = 25544;

constexpr double secondDays = 1.0 / 86400.0;
constexpr double secondPass = 58138.06773;  // 2:37:31.9 in the zone

/// The steps of a listing as they come, the first one with its heading.
std::vector<std::string> listing(int mode, int most = 20000)
{
    std::vector<std::string> steps;
    char text[passDetailsRoom];
    double t = 0.0;
    while (static_cast<int>(steps.size()) < most && GetPassDTxt(indata, t, text, mode) == 1)
        steps.emplace_back(text);
    return steps;
}

/// The last line: that of the step.
std::string stepLine(const std::string& step)
{
    return step.substr(step.rfind('\n') + 1);
}

std::string heading(const std::string& step)
{
    return step.substr(0, step.rfind('\n') + 1);
}

std::string poleText()
{
    char text[passDetailsRoom];
    GetPoleTxt(indata, text);
    return text;
}

class PassDetails : public testing::Test
{
protected:
    PassDetails()
    {
        *indata = WinpData{};
        observeFromVienna(indata);
        addSatellite(indata, station);
        indata->aostm[0] = secondPass;
        indata->naos = 1;
        indata->tmstep = oneMinuteDays;
        indata->newsave = 1;
        assignField(indata->savename, "list.txt");
    }

    const ScratchDir folder;
};

/// A setting of the record, and the heading and the first line of the listing with it. The figures are those of
/// pass_details.txt and pass_events.txt in tests/data/reports, with the digits of the form.
struct FormCase
{
    const char* what;
    int mode;
    std::function<void(WinpData&)> set;
    const char *heading, *line;
};

const std::string rule = "ISS (ZARYA)         \n" + std::string(54, '_') + "\n";

const FormCase formCases[] = {
    {"display with four digits", passform::display, [](WinpData& in) { in.ra4d = 1; },
     "Year: 2018  +++> Timezone 1 <+++\n\n                                      Azim.  Elev.                 R.A.   "
     "Decl\n",
     "JAN 20   2:38     288.051    13.623        4.2435    22.0317"},
    {"occultation, packed degrees with a degree sign", passform::display,
     [](WinpData& in) {
         in.occflg = 3;
         in.occra = 12.0;
         in.occdec = 20.3;
         in.refrc = false;
         in.ddmm = 1;
     },
     "Year: 2018  +++> Timezone 1 <+++\n\n                              Ctr.Line  long.    lat.\n",
     "JAN 20   2:38        -3\xb0"
     "35    52\xb0"
     "12"},
    {"ground track of an occultation", passform::groundTrack, [](WinpData& in) { in.occflg = 3; },
     "Year: 2018  +++> Timezone 1 <+++\n", nullptr},
    {"no ground point", passform::display,
     [](WinpData& in) {
         in.occflg = 3;
         in.occra = 0.0;
         in.occdec = -60.0;
     },
     "Year: 2018  +++> Timezone 1 <+++\n\n                              Ctr.Line  long.    lat.\n",
     "JAN 20   2:38   No Intersection"},
    {"a zone of half an hour", passform::display, [](WinpData& in) { in.tzone = -3.5; },
     "Year: 2018  +++> Timezone -3.5 <+++\n\n                                      Azim.  Elev.                 R.A. "
     "  "
     "Decl\n",
     "JAN 19  22:08      288.05    13.62           4.24    22.03"},
};

TEST_F(PassDetails, HaveAFormForEachUse)
{
    const WinpData before = *indata;
    for (const FormCase& c : formCases) {
        SCOPED_TRACE(c.what);
        *indata = before;
        c.set(*indata);
        const std::vector<std::string> steps = listing(c.mode);
        ASSERT_EQ(steps.size(), 7u);
        EXPECT_EQ(heading(steps[0]), (c.mode == passform::display ? "" : "\n\n\n") + rule + c.heading);
        if (c.line) {
            EXPECT_EQ(stepLine(steps[0]), c.line);
        }
        EXPECT_EQ(steps[1].find('\n'), 0u);
        EXPECT_EQ(steps[1].rfind('\n'), 0u);
    }
}

struct StepCase
{
    const char* what;
    double start, step;
    const char *first, *second;  // times
};

constexpr double fullMinute = 58138.0 + 98.0 / 1440.0;  // 2:38:00 in the zone, in the pass

constexpr StepCase stepCases[] = {
    {"a minute: from the next full one", fullMinute - 20.3 * secondDays, oneMinuteDays, "JAN 20   2:38 ",
     "JAN 20   2:39 "},
    {"a minute: a full one stays", 58138.25, oneMinuteDays, "JAN 20   7:00 ", "JAN 20   7:01 "},
    {"ten seconds: from the next full second", fullMinute - 20.3 * secondDays, 10.0 * secondDays, "JAN 20   2:37:40",
     "JAN 20   2:37:50"},
    {"one second", fullMinute - 2.6 * secondDays, secondDays, "JAN 20   2:37:58", "JAN 20   2:37:59"},
    {"half a second: from the start itself", fullMinute + 5.25 * secondDays, 0.5 * secondDays, "JAN 20   2:38: 5.2",
     "JAN 20   2:38: 5.7"},
    {"tenths that would read 60", fullMinute - 0.13 * secondDays, 0.1 * secondDays, "JAN 20   2:37:59.9",
     "JAN 20   2:38: 0.0"},
    {"two minutes: seconds are told", fullMinute - 20.3 * secondDays, 2.0 * oneMinuteDays, "JAN 20   2:37:40",
     "JAN 20   2:39:40"},
};

TEST_F(PassDetails, StartAsTheTimeStepAsks)
{
    indata->satel = -90.0;
    for (const StepCase& c : stepCases) {
        SCOPED_TRACE(c.what);
        indata->aostm[0] = c.start;
        indata->tmstep = c.step;
        const std::vector<std::string> steps = listing(passform::display, 2);
        ASSERT_EQ(steps.size(), 2u);
        EXPECT_EQ(stepLine(steps[0]).substr(0, std::string(c.first).size()), c.first);
        EXPECT_EQ(stepLine(steps[1]).substr(0, std::string(c.second).size()), c.second);
    }
}

TEST_F(PassDetails, ThePoleIsTheOneAboveTheHorizon)
{
    for (double start : {58138.0007, secondPass, 58138.1356, 58138.8306, 58138.8972}) {
        indata->aostm[0] = start;
        ASSERT_GT(listing(passform::display).size(), 2u);
        double az = 0, el = 0, ra = 0, dec = 0;
        ASSERT_EQ(std::sscanf(poleText().substr(52).c_str(), "%lf%lf%lf%lf", &az, &el, &ra, &dec), 4);
        EXPECT_GE(el, 0.0);
        EXPECT_GE(az, 0.0);
        EXPECT_LT(az, 360.0);
    }
}

TEST_F(PassDetails, WithTinyStepsEndAtTheirLimit)
{
    indata->satel = -90.0;  // the whole day is one pass
    indata->aostm[0] = 58138.0;
    indata->tmstep = 0.1 * secondDays;
    ASSERT_TRUE(vsSavePassDt(passform::groundTrack));
    const std::string file = ScratchDir::read("list.txt");
    EXPECT_EQ(std::count(file.begin(), file.end(), '\n'), 3 + 3 + 16250 - 1);
    for (double step : {0.0, -secondDays}) {
        indata->tmstep = step;
        EXPECT_TRUE(vsSavePassDt(passform::save));
    }
}

}  // namespace
