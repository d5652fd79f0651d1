// The pass details: forms of the listing, and the rule of the save file.

#include "reports/pass_details.h"

#include "astro/angles.h"
#include "engine/pass_search.h"
#include "engine/position.h"
#include "reports/report_helper.h"

#include <QString>
#include <algorithm>
#include <string>
#include <vector>

namespace {

/// The steps of a listing as the dialog gets them, the first one with its heading.
std::vector<std::string> listing(int most = 20000)
{
    std::vector<std::string> steps;
    QString text;
    double t = 0.0;
    while (static_cast<int>(steps.size()) < most && vsGetPassDTxt(t, text, false) == 1)
        steps.push_back(text.toLatin1().toStdString());
    return steps;
}

/// The line of the step begins behind this.
std::size_t endOfHeading(const std::string& step)
{
    return step.rfind('\n') + 1;
}

class PassDetails : public ReportTest
{};

/// A setting of the record, and the heading and the first line of the listing with it. The figures are those of
/// pass_details.txt and pass_events.txt in tests/data/reports, with the digits of the form.
struct FormCase
{
    const char* what;
    void (*set)(WinpData&);
    const char *heading, *line;
};

constexpr const char* plainColumns =
    "                                      Azim.  Elev.                 R.A.   Decl\n";
constexpr const char* eventColumns = "                              Ctr.Line  long.    lat.\n";

const FormCase formCases[] = {
    {"four digits", [](WinpData& in) { in.ra4d = 1; }, plainColumns,
     "JAN 20   2:38     288.051    13.623        4.2435    22.0317"},
    {"packed degrees with a degree sign", [](WinpData& in) { in.occdec = 20.3, in.ddmm = 1; }, eventColumns,
     "JAN 20   2:38        -3\xb0"
     "35    52\xb0"
     "12"},
    {"no ground point", [](WinpData& in) { in.occra = 0.0, in.occdec = -60.0; }, eventColumns,
     "JAN 20   2:38   No Intersection"},
    {"a zone of half an hour", [](WinpData& in) { in.tzone = -3.5; }, plainColumns,
     "JAN 19  22:08      288.05    13.62           4.24    22.03"},
};

TEST_F(PassDetails, HaveAFormForEachUse)
{
    for (const FormCase& c : formCases) {
        SCOPED_TRACE(c.what);
        startAnew();
        if (c.heading == eventColumns)
            occultStar();
        c.set(*indata);
        const std::vector<std::string> steps = listing();
        ASSERT_EQ(steps.size(), 7u);
        const std::size_t end = endOfHeading(steps[0]);
        EXPECT_EQ(steps[0].substr(0, end), "ISS (ZARYA)         \n" + std::string(54, '_') +
                                               "\nYear: 2018  +++> Timezone " +
                                               (indata->tzone == 1.0 ? "1" : "-3.5") + " <+++\n\n" + c.heading);
        EXPECT_EQ(steps[0].substr(end), c.line);
        EXPECT_EQ(endOfHeading(steps[1]), 1u);
    }
}

struct StepCase
{
    const char* what;
    double start;                // minutes behind 1:00 in the zone
    double step;                 // days
    const char *first, *second;  // times
};

constexpr StepCase stepCases[] = {
    {"a minute: from the next full one", 98.0 - 20.3 / 60, oneMinuteDays, " 2:38 ", " 2:39 "},
    {"a minute: a full one stays", 360.0, oneMinuteDays, " 7:00 ", " 7:01 "},
    {"ten seconds: from the next full one", 98.0 - 20.3 / 60, 10.0 * secondDays, " 2:37:40", " 2:37:50"},
    {"one second", 98.0 - 2.6 / 60, secondDays, " 2:37:58", " 2:37:59"},
    {"half a second: from the start itself", 98.0 + 5.25 / 60, 0.5 * secondDays, " 2:38: 5.2", " 2:38: 5.7"},
    {"tenths that would read 60", 98.0 - 0.13 / 60, 0.1 * secondDays, " 2:37:59.9", " 2:38: 0.0"},
    {"the same at the full hour", 120.0 - 0.13 / 60, 0.1 * secondDays, " 2:59:59.9", " 3:00: 0.0"},
    {"two minutes: seconds are told", 98.0 - 20.3 / 60, 2.0 * oneMinuteDays, " 2:37:40", " 2:39:40"},
};

TEST_F(PassDetails, StartAsTheTimeStepAsks)
{
    indata->satel = -90.0;
    for (const StepCase& c : stepCases) {
        SCOPED_TRACE(c.what);
        indata->aostm[0] = 58138.0 + c.start * minuteDays;
        indata->tmstep = c.step;
        const std::vector<std::string> steps = listing(2);
        ASSERT_EQ(steps.size(), 2u);
        const std::string first = std::string("\nJAN 20  ") + c.first;
        EXPECT_EQ(steps[0].substr(endOfHeading(steps[0]) - 1, first.size()), first);
        const std::string second = std::string("\nJAN 20  ") + c.second;
        EXPECT_EQ(steps[1].substr(0, second.size()), second);
    }
}

TEST_F(PassDetails, ThePoleIsTheOneAboveTheHorizon)
{
    for (const double start : {58138.0007, secondPass, 58138.1356, 58138.8306, 58138.8972}) {
        indata->aostm[0] = start;
        ASSERT_GT(listing().size(), 2u);
        QString text;
        EXPECT_EQ(vsGetPassDTxt(indata->mjd, text, true), 0);
        double az = 0, el = 0, ra = 0, dec = 0;
        ASSERT_EQ(std::sscanf(text.toStdString().c_str() + 52, "%lf%lf%lf%lf", &az, &el, &ra, &dec), 4);
        EXPECT_GE(el, 0.0);
        EXPECT_GE(az, 0.0);
        EXPECT_LT(az, 360.0);
        // a right angle from the satellite, but for the bent track of half a minute
        GetSatPos(indata->tmaxel, indata, satpos, 0, 0);
        const Vec3 satellite = polcar(Vec3(1.0, satpos->az[0] * radPerDeg, satpos->el[0] * radPerDeg));
        EXPECT_NEAR(dot(polcar(Vec3(1.0, az * radPerDeg, el * radPerDeg)), satellite), 0.0, 0.01) << start;
    }
}

TEST_F(PassDetails, AnEmptyListingHasNoPole)
{
    indata->satel = 89.99;
    indata->aostm[0] = 58138.0007;
    double t = 0;
    QString text;
    EXPECT_EQ(vsGetPassDTxt(t, text, false), 0);
    vsGetPassDTxt(t, text, true);
    EXPECT_EQ(text.trimmed(), QString());
}

TEST_F(PassDetails, WithTinyStepsEndAtTheirLimit)
{
    indata->satel = -90.0;  // the whole day is one pass
    indata->aostm[0] = 58138.0;
    indata->tmstep = 0.1 * secondDays;
    ASSERT_TRUE(vsSavePassDt(passform::groundTrack));
    const std::string file = saved();
    EXPECT_EQ(std::count(file.begin(), file.end(), '\n'), 3 + 3 + 16250 - 1);
    for (const double step : {0.0, -secondDays}) {
        indata->tmstep = step;
        EXPECT_TRUE(vsSavePassDt(passform::save));
    }
}

}  // namespace
