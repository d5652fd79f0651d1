#include "engine/aos_list.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "engine/pass_search.h"
#include "engine/record_helper.h"
#include "record/text.h"
#include "record/wout_data.h"
#include "report_lines.h"
#include "scratch_dir.h"

namespace {

std::vector<std::string> listOf(WinpData& in, bool thorough = false)
{
    WoutData out;
    out.nlines = 3;  // of an earlier report
    aospass(&in, &out, {thorough});
    return reportLines(out);
}

std::vector<std::string> tableLines(const std::vector<std::string>& lines)
{
    std::vector<std::string> table;
    for (const std::string& line : lines)
        if (line[0] == '.')
            table.push_back(line);
    return table;
}

/// The station over Vienna, in a zone one hour East.
WinpData stationRecord()
{
    WinpData in = stationOverVienna().record;
    in.tzone = 1.0;
    in.hour = 1;
    assignField(in.geoname, "Vienna");
    assignField(in.fsname[0], "ISS (ZARYA)         ");
    return in;
}

/// A pass of eleven seconds between shadow and horizon, and one of a moment; see the README.
TEST(AosList, HoldsWhatStepsMissIfThorough)
{
    WinpData in = recordWith({23343}, {48.2, 16.37, 200.0});
    in.year = 2018;
    in.month = 1;
    in.day = 20;
    in.hour = 12;
    in.dur = 1.5;
    in.visflg = 1;
    in.satel = 10.0;
    in.sunel = -6.0;
    EXPECT_EQ(tableLines(listOf(in)).size(), 0);
    const std::vector<std::string> lines = tableLines(listOf(in, true));
    ASSERT_EQ(lines.size(), 2);
    EXPECT_EQ(lines[1], ".JAN 21  17:29:56 ( 15, 11)  17:29:56 ( 15, 11)  17:30:07 ( 13, 10)");
}

TEST(AosList, RefusesWithAText)
{
    WinpData none;
    EXPECT_EQ(listOf(none), (std::vector<std::string>{" ", " *** No satellite has been selected ***", " ",
                                                      " Use the Input / Select Satellite menu",
                                                      " (and don't forget to press the SELECT button)", " "}));

    WinpData in = stationRecord();
    in.maxdst = 0.0;
    in.iridflg = event::flare;
    const std::vector<std::string> refusal{" ", " *** Need distance > 0 for occultations or flares ***",
                                           " *** except for Sun or Moon Transits ***", " "};
    EXPECT_EQ(listOf(in), refusal);
    in.iridflg = event::transit;
    in.occflg = 3;
    EXPECT_EQ(listOf(in), refusal);
    EXPECT_EQ(in.maxdst, 0.0);
}

struct HeadingCase
{
    const char* what;
    int iridflg, occflg, flarmod, moonflg, rlm;
    const char* kind;        // its line
    const char* conditions;  // of the line behind the rule
    const char* columns;
};

constexpr const char* plainConditions = " min.Sat.Elev.: 89   max.Sun Elev.: -6   visible passes only";
constexpr const char* eventColumns = "     Event Time (Azim.,Elev.)   Distance";

constexpr HeadingCase headingCases[] = {
    {"Sun", 1, 1, 1, 0, 0, " >>> Sun Transit\n", " min.Sat.Elev.: 89   max.Sun Elev.: 90   visible passes only",
     eventColumns},
    {"Moon", 1, 2, 1, 1, 0, " >>> Moon Transit\n", " min.Sat.Elev.: 89   max.Sun Elev.: -6   Moonshine passes only",
     eventColumns},
    {"star", 1, 3, 1, 0, 0, " >>> Occultation  R.A.: 5.5  Decl.: -12.25\n", plainConditions, eventColumns},
    {"local surface", 2, 0, 1, 0, 0, " >>> Flares. Yaw: 5.5  Pitch: -12.25\n", plainConditions, eventColumns},
    {"inertial surface", 2, 0, 2, 0, 0, " >>> Flares. R.A.: 5.5  Decl.: -12.25\n", plainConditions, eventColumns},
    {"two satellites", 0, 0, 1, 0, 1, "", "    visible passes only",
     "       Start (Long.,Lat.)     End (Long.,Lat.)"},
};

TEST(AosList, HeadingNamesTheKind)
{
    for (const HeadingCase& c : headingCases) {
        SCOPED_TRACE(c.what);
        WinpData in = stationRecord();
        in.satn = 2;
        ShiftElm(&in, 1, 0);
        assignField(in.fsname[1], "OTHER");
        in.dur = 0.0;
        in.satel = 89.0;
        in.sunel = -6.0;
        in.visflg = 1;
        in.iridflg = c.iridflg;
        in.occflg = c.occflg;
        in.flarflg = c.iridflg == 2;
        in.flarmod = c.flarmod;
        in.moonflg = c.moonflg;
        in.rlm = c.rlm;
        in.occra = 5.5;
        in.occdec = -12.25;
        std::string heading;
        for (const std::string& line : listOf(in))
            heading += line + "\n";
        const std::string expected = std::string("\n \n") + c.kind + " Satellite: ISS (ZARYA)         \n" +
                                     (c.rlm ? " OTHER\n " : " ") + std::string(71, '=') + "\n" + c.conditions +
                                     "\n Year: 2018  +++ Timezone: 1 +++\n \n" + c.columns + "\n";
        EXPECT_EQ(heading.substr(heading.find("\n \n"), expected.size()), expected);
        EXPECT_EQ(in.sunel, -6.0);
        EXPECT_EQ(in.maxdst, 50.0);
    }
}

TEST(AosList, GoesToTheSaveFileByTheSaveRule)
{
    const ScratchDir folder;
    ScratchDir::write("list.txt", "old\n");
    WinpData in = stationRecord();
    in.dur = 0.2;
    in.tofile = 1;
    in.newsave = 1;
    assignField(in.savename, "list.txt");
    std::string once = "\n\n\n";
    for (const std::string& line : listOf(in))
        once += line + "\n";
    EXPECT_EQ(in.newsave, 0);
    listOf(in);
    EXPECT_EQ(ScratchDir::read("list.txt"), once + once);

    WinpData refused = in;
    refused.newsave = 1;
    refused.iridflg = event::flare;
    refused.maxdst = 0.0;
    EXPECT_EQ(listOf(refused).size(), 4u);
    EXPECT_EQ(ScratchDir::read("list.txt"), once + once) << "a refusal costs no old list";
    EXPECT_EQ(refused.newsave, 1);

    assignField(in.savename, "/no/such/directory/list.txt");
    EXPECT_GT(listOf(in).size(), 10u) << "the list is made all the same";
}

TEST(AosList, EndsWhereNoStepMovesThePassesOn)
{
    WinpData in = stationRecord();
    in.satel = -91.0;  // a pass without end
    in.sunel = 91.0;
    in.dur = 1.0;
    in.tzone = 1e300;
    EXPECT_EQ(tableLines(listOf(in)).size(), 1u);
}

/// The sites with reference transits, as records of ten days.
WinpData stationAt(const Section& section, double maxdst)
{
    WinpData in = recordWith({25544}, section.siteAt(1));
    in.year = 2018;
    in.month = 1;
    in.day = 20;
    in.dur = 10.0;
    in.satel = 20.0;
    in.visflg = 0;
    in.occflg = 1;
    in.maxdst = maxdst;
    chooseEventKind(&in);
    return in;
}

TEST(SunTransits, AreThoseOfABruteForceSearch)
{
    for (const Section& section : sectionsOf("transits_2018.txt")) {
        SCOPED_TRACE(section.head[1]);
        WinpData in = stationAt(section, 35.0);
        in.sunel = 90.0;
        auto transit = section.rows.begin();
        Pass pass;
        int result = 1;
        for (double t = 58138.0; t <= 58148.0 && result; t = timeAfterPass(in, 0, pass)) {
            result = nextpass(&in, 0, t, 58148.0, pass.tm, pass.a, pass.b);
            if (result != 1)
                continue;
            ASSERT_NE(transit, section.rows.end());
            EXPECT_NEAR(pass.tm[1], std::stod(transit->at(0)), secondDays);
            EXPECT_NEAR(pass.b[2], std::stod(transit->at(1)), 1.0);
            ++transit;
        }
        EXPECT_EQ(transit, section.rows.end());
    }
}

// The half width of the zone is about 2.5 km for the station half way up the sky: of the 20 transits within 35 km two
// reach the observer, one at each of the first two sites.
TEST(SunTransits, WithoutADistanceAreThoseThatReachTheObserver)
{
    const double nearest[] = {0.239, 2.121};
    const std::vector<Section> sections = sectionsOf("transits_2018.txt");
    for (std::size_t k = 0; k < 3; ++k) {
        WinpData in = stationAt(sections[k], 0.0);
        const std::vector<std::string> lines = listOf(in);
        const std::vector<std::string> table = tableLines(lines);
        EXPECT_EQ(table.size(), k < 2 ? 1u : 0u);
        if (k < 2)
            EXPECT_NEAR(std::stod(table.at(0).substr(27)), nearest[k], 1.0);
        else
            EXPECT_EQ(lines.rbegin()[1], " *** No suitable pass found within time interval ***");
        EXPECT_EQ(in.maxdst, 0.0);
    }
}

}  // namespace
