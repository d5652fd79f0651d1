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
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace {

constexpr int station = 25544;
constexpr int terra = 25994;

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
const std::string margin = "\n" + std::string(29, ' ');

const FormCase formCases[] = {
    {"display", passform::display, [](WinpData&) {},
     "Year: 2018  +++> Timezone 1 <+++\n\n                                      Azim.  Elev.                 R.A.   "
     "Decl\n",
     "JAN 20   2:38      288.05    13.62           4.24    22.03"},
    {"display with four digits", passform::display, [](WinpData& in) { in.ra4d = 1; },
     "Year: 2018  +++> Timezone 1 <+++\n\n                                      Azim.  Elev.                 R.A.   "
     "Decl\n",
     "JAN 20   2:38     288.051    13.623        4.2435    22.0317"},
    {"for the file, without four digits", passform::save, [](WinpData&) {},
     "Year: 2018  +++> Timezone 1 <+++\n\n                                      Azim.  Elev.                 R.A.   "
     "Decl\n",
     "JAN 20   2:38     288.051    13.623           4.24    22.03"},
    {"without refraction", passform::save, [](WinpData& in) { in.refrc = false; },
     "Year: 2018  +++> Timezone 1 <+++\n\n                                      Azim.  Elev.                 R.A.   "
     "Decl\n",
     "JAN 20   2:38     288.051    13.560           4.24    22.03"},
    {"occultation, decimal degrees", passform::display,
     [](WinpData& in) {
         in.occflg = 3;
         in.occra = 12.0;
         in.occdec = 20.3;
         in.refrc = false;
     },
     "Year: 2018  +++> Timezone 1 <+++\n\n                              Ctr.Line  long.    lat.\n",
     "JAN 20   2:38        -3.59    52.21"},
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

TEST_F(PassDetails, SayThatOnlyVisiblePartsAreListed)
{
    indata->visflg = 1;
    indata->mjd = indata->aostm[0] = 58138.7;
    double t = 0.0;
    char text[passDetailsRoom];
    GetPassDTxt(indata, t, text, passform::groundTrack);
    EXPECT_NE(std::string(text).find("Timezone 1 <+++  visible\n"), std::string::npos);
    indata->moonflg = 1;
    t = 0.0;
    GetPassDTxt(indata, t, text, passform::groundTrack);
    EXPECT_NE(std::string(text).find("Timezone 1 <+++  Moonshine\n"), std::string::npos);
}

TEST_F(PassDetails, InRelativeModeTellWhereTheSecondSatelliteIs)
{
    addSatellite(indata, terra);
    indata->rlm = 1;
    indata->ra4d = 1;  // without effect here
    indata->aostm[0] = 0.0;
    for (double t = 58138.0; t < 58139.0 && indata->aostm[0] == 0.0; t += oneMinuteDays) {
        GetSatPos(t, indata, satpos, 0, 0);
        if (cksatok(indata, satpos, 0))
            indata->aostm[0] = t;
    }
    const std::vector<std::string> steps = listing(passform::display);
    ASSERT_GT(steps.size(), 3u);
    EXPECT_EQ(heading(steps[0]), "ISS (ZARYA)         \nTERRA               \n" + std::string(54, '_') +
                                     "\nYear: 2018  +++> Timezone 1 <+++\n" + margin +
                                     "       Azim.  Elev.              lat.   long\n");
    const double step = indata->tmstep;
    indata->rlm = 0;
    double az = 0, el = 0, lat = 0, lng = 0;
    ASSERT_EQ(std::sscanf(stepLine(steps[2]).substr(13).c_str(), "%lf%lf%lf%lf", &az, &el, &lat, &lng), 4);
    double t = 0.0;
    char text[passDetailsRoom];
    GetPassDTxt(indata, t, text, passform::display);  // only to find the aligned start
    GetSatPos(t + step, indata, satpos, 1, 0);
    EXPECT_NEAR(lat, satpos->lat[1], 0.0051);
    EXPECT_NEAR(lng, satpos->lng[1], 0.0051);
    indata->rlm = 1;
    EXPECT_EQ(poleText(), "\n\n");
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

TEST_F(PassDetails, AreNotTakenForAFirstStepAtTimeZero)
{
    constexpr double step = 0x1p-20;  // 0.08 s
    indata->aostm[0] = -step;
    indata->tmstep = step;
    double t = 0.0;
    char text[passDetailsRoom];
    GetPassDTxt(indata, t, text, passform::display);
    EXPECT_EQ(t, 1.0);
}

TEST_F(PassDetails, CarryTheSecondsIntoTheHour)
{
    indata->satel = -90.0;
    indata->tmstep = 0.5 * secondDays;
    indata->aostm[0] = 58138.0 - 0.03 * secondDays;  // 0:59:59.97 in the zone
    EXPECT_EQ(stepLine(listing(passform::display, 1).at(0)).substr(0, 18), "JAN 20   1:00: 0.0");
    indata->tzone = 0.0;  // the date is not rolled
    EXPECT_EQ(stepLine(listing(passform::display, 1).at(0)).substr(0, 18), "JAN 19  24:00: 0.0");
}

TEST_F(PassDetails, NoteTheGreatestElevation)
{
    indata->tmstep = secondDays;
    const std::size_t steps = listing(passform::display).size();
    EXPECT_NEAR(static_cast<double>(steps), 390.0, 2.0);  // 2:37:32 to 2:44:02
    EXPECT_NEAR(indata->tmaxel, 58138.0 + (1 * 3600 + 40 * 60 + 46) / 86400.0, 1.1 * secondDays);
    indata->aostm[0] = 58138.3;  // below the horizon
    EXPECT_EQ(listing(passform::display).size(), 0u);
    EXPECT_EQ(indata->tmaxel, 0.0);
    EXPECT_EQ(poleText().substr(0, 51), "\n\nApparent Pole of orbit (Azim   Elev   R.A.  Decl)");
}

TEST_F(PassDetails, OfASunTransitGoOnInDaylight)
{
    indata->sunel = -60.0;
    EXPECT_EQ(listing(passform::save).size(), 0u);
    indata->occflg = 1;
    EXPECT_EQ(listing(passform::save).size(), 7u);
    EXPECT_EQ(indata->sunel, -60.0);
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

TEST_F(PassDetails, ThePoleStaysANumberWithAnAbsurdUT1)
{
    ASSERT_GT(listing(passform::display).size(), 2u);
    indata->IERSflg = true;
    indata->Ut1Utc = 1e300;
    EXPECT_EQ(poleText().find("nan"), std::string::npos) << poleText();
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

TEST_F(PassDetails, FollowTheRuleOfTheSaveFile)
{
    ScratchDir::write("list.txt", "old\n");
    ASSERT_TRUE(vsSavePassDt(passform::save));
    EXPECT_EQ(indata->newsave, 0);
    const std::string once = ScratchDir::read("list.txt");
    EXPECT_EQ(once.substr(0, 6), "\n\n\nISS");
    ASSERT_TRUE(vsSavePassDt(passform::save));
    EXPECT_EQ(ScratchDir::read("list.txt"), once + once);
}

TEST_F(PassDetails, WithoutAStepCostNoOldFile)
{
    ScratchDir::write("list.txt", "old\n");
    indata->aostm[0] = 58138.3;
    EXPECT_TRUE(vsSavePassDt(passform::save));
    EXPECT_EQ(ScratchDir::read("list.txt"), "old\n");
    EXPECT_EQ(indata->newsave, 1);
}

TEST_F(PassDetails, OfOneStepHaveNoPole)
{
    indata->aostm[0] = 58138.0722;  // the last seconds of the pass
    indata->tmstep = 30.0 * secondDays;
    ASSERT_TRUE(vsSavePassDt(passform::save));
    EXPECT_EQ(ScratchDir::read("list.txt").find("Apparent"), std::string::npos);
}

TEST_F(PassDetails, CompleteTheNameOfTheFile)
{
    std::filesystem::create_directory("elements");
    assignField(indata->tlename, "elements/visual.txt");
    assignField(indata->savename, "*satsave.txt");
    ASSERT_TRUE(vsSavePassDt(passform::groundTrack));
    EXPECT_EQ(fieldText(indata->savename), "elements/satsave.txt");
    EXPECT_EQ(ScratchDir::read("elements/satsave.txt").substr(0, 6), "\n\n\nISS");
}

TEST_F(PassDetails, SayThatAFileCannotBeOpened)
{
    for (const std::string& name :
         {std::string("/no/such/directory/list.txt"), std::string("/"), std::string("/proc/list.txt")}) {
        assignField(indata->savename, name);
        EXPECT_FALSE(vsSavePassDt(passform::save)) << name;
        EXPECT_EQ(indata->newsave, 1) << "the next one that can be opened starts anew";
    }
    assignField(indata->savename, "/dev/full");
    EXPECT_TRUE(vsSavePassDt(passform::save)) << "write errors are not looked at";
}

TEST_F(PassDetails, ForAWindowComeInUnicode)
{
    indata->occflg = 3;
    indata->occra = 12.0;
    indata->occdec = 20.3;
    indata->ddmm = 1;
    double t = 0.0;
    QString text;
    EXPECT_EQ(vsGetPassDTxt(t, text, false), 1);
    EXPECT_TRUE(text.contains(QChar(0xb0)));
    EXPECT_EQ(vsGetPassDTxt(t, text, true), 0);
    EXPECT_TRUE(text.startsWith("\n\nApparent Pole"));
}

}  // namespace
