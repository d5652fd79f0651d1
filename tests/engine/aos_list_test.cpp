#include "engine/aos_list.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "app/record/text.h"
#include "app/record/winp_data.h"
#include "app/record/wout_data.h"
#include "engine/pass_list_helper.h"
#include "engine/pass_search.h"
#include "engine/record_helper.h"
#include "report_lines.h"

namespace {

constexpr double secondDays = 1.0 / 86400.0;

std::vector<std::string> listOf(WinpData& in)
{
    WoutData out;
    aospass(&in, &out);
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
WinpData stationOverVienna()
{
    WinpData in = recordOf(referenceLists()[1]);
    EXPECT_EQ(in.visflg, 0);
    in.tzone = 1.0;
    in.hour = 1;
    assignField(in.geoname, "Vienna");
    assignField(in.fsname[0], "ISS (ZARYA)         ");
    return in;
}

TEST(AosList, RefusesWithAText)
{
    WinpData none;
    EXPECT_EQ(listOf(none), (std::vector<std::string>{" ", " *** No satellite has been selected ***", " ",
                                                      " Use the Input / Select Satellite menu",
                                                      " (and don't forget to press the SELECT button)", " "}));

    WinpData in = stationOverVienna();
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
    const char* kind;        // null: no line
    const char* conditions;  // of the line behind the rule
    const char* columns;
};

constexpr const char* plainConditions = " min.Sat.Elev.: 89   max.Sun Elev.: -6   visible passes only";
constexpr const char* eventColumns = "     Event Time (Azim.,Elev.)   Distance";

constexpr HeadingCase headingCases[] = {
    {"Sun", 1, 1, 1, 0, 0, " >>> Sun Transit", " min.Sat.Elev.: 89   max.Sun Elev.: 90   visible passes only",
     eventColumns},
    {"Moon", 1, 2, 1, 1, 0, " >>> Moon Transit", " min.Sat.Elev.: 89   max.Sun Elev.: -6   Moonshine passes only",
     eventColumns},
    {"star", 1, 3, 1, 0, 0, " >>> Occultation  R.A.: 5.5  Decl.: -12.25", plainConditions, eventColumns},
    {"local surface", 2, 0, 1, 0, 0, " >>> Flares. Yaw: 5.5  Pitch: -12.25", plainConditions, eventColumns},
    {"inertial surface", 2, 0, 2, 0, 0, " >>> Flares. R.A.: 5.5  Decl.: -12.25", plainConditions, eventColumns},
    {"two satellites", 0, 0, 1, 0, 1, nullptr, "    visible passes only",
     "       Start (Long.,Lat.)     End (Long.,Lat.)"},
};

TEST(AosList, HeadingNamesTheKind)
{
    for (const HeadingCase& c : headingCases) {
        SCOPED_TRACE(c.what);
        WinpData in = stationOverVienna();
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
        std::vector<std::string> expected;
        if (c.kind)
            expected.emplace_back(c.kind);
        expected.emplace_back(" Satellite: ISS (ZARYA)         ");
        if (c.rlm)
            expected.emplace_back(" OTHER");
        expected.insert(expected.end(), {" " + std::string(71, '='), c.conditions, " Year: 2018  +++ Timezone: 1 +++",
                                         " ", c.columns});
        const std::vector<std::string> lines = listOf(in);
        ASSERT_GE(lines.size(), expected.size() + 3);
        EXPECT_EQ(std::vector<std::string>(lines.begin() + 3, lines.begin() + 3 + expected.size()), expected);
        EXPECT_EQ(in.sunel, -6.0);
        EXPECT_EQ(in.maxdst, 50.0);
    }
}

TEST(AosList, GoesToTheSaveFileByTheSaveRule)
{
    const std::filesystem::path name = std::filesystem::path(testing::TempDir()) / "vorlix_aos_list_test.txt";
    std::ofstream(name) << "old\n";
    WinpData in = stationOverVienna();
    in.dur = 0.2;
    in.tofile = 1;
    in.newsave = 1;
    assignField(in.savename, name.string());
    std::string once = "\n\n\n";
    for (const std::string& line : listOf(in))
        once += line + "\n";
    EXPECT_EQ(in.newsave, 0);
    listOf(in);
    std::ostringstream content;
    content << std::ifstream(name).rdbuf();
    EXPECT_EQ(content.str(), once + once);

    WinpData refused = in;
    refused.newsave = 1;
    refused.iridflg = event::flare;
    refused.maxdst = 0.0;
    EXPECT_EQ(listOf(refused).size(), 4u);
    EXPECT_EQ(std::filesystem::file_size(name), content.str().size()) << "a refusal costs no old list";
    EXPECT_EQ(refused.newsave, 1);
    std::filesystem::remove(name);

    assignField(in.savename, "/no/such/directory/list.txt");
    EXPECT_GT(listOf(in).size(), 10u) << "the list is made all the same";
}

TEST(AosList, EndsWhereNoStepMovesThePassesOn)
{
    WinpData in = stationOverVienna();
    in.satel = -91.0;  // a pass without end
    in.sunel = 91.0;
    in.dur = 1.0;
    in.tzone = 1e300;
    EXPECT_EQ(tableLines(listOf(in)).size(), 1u);
}

struct Transit
{
    double time, km;
};

struct TransitSite
{
    Site site;
    std::vector<Transit> transits;
};

std::vector<TransitSite> referenceTransits()
{
    std::vector<TransitSite> sites;
    std::ifstream file(TEST_DATA "/passes/transits_2018.txt");
    for (std::string line; std::getline(file, line);) {
        std::istringstream fields(line);
        if (line.rfind("site ", 0) == 0) {
            fields.ignore(5);
            sites.emplace_back();
            Site& site = sites.back().site;
            fields >> site.lat >> site.lng >> site.height;
        } else if (line[0] != '#') {
            Transit transit{};
            fields >> transit.time >> transit.km;
            sites.back().transits.push_back(transit);
        }
    }
    return sites;
}

WinpData stationAt(const Site& site)
{
    WinpData in = recordAt(site);
    loadElements(in, 0, "visual_2018.txt", 25544);
    in.satn = 1;
    in.year = 2018;
    in.month = 1;
    in.day = 20;
    in.dur = 10.0;
    in.satel = 20.0;
    in.visflg = 0;
    in.occflg = 1;
    chooseEventKind(&in);
    return in;
}

TEST(SunTransits, AreThoseOfABruteForceSearch)
{
    for (const TransitSite& reference : referenceTransits()) {
        SCOPED_TRACE(reference.site.lng);
        WinpData in = stationAt(reference.site);
        in.maxdst = 35.0;
        in.sunel = 90.0;
        std::size_t found = 0;
        Pass pass;
        for (double t = 58138.0; t <= 58148.0; t = timeAfterPass(in, 0, pass)) {
            const int result = nextpass(&in, 0, t, 58148.0, pass.tm, pass.a, pass.b);
            if (result == 0)
                break;
            if (result == 2)
                continue;
            ASSERT_LT(found, reference.transits.size());
            EXPECT_NEAR(pass.tm[1], reference.transits[found].time, secondDays);
            EXPECT_NEAR(pass.b[2], reference.transits[found].km, 1.0);
            ++found;
        }
        EXPECT_EQ(found, reference.transits.size());
    }
}

// The half width of the zone is about 2.5 km for the station half way up the sky: of the 20 transits within 35 km two
// reach the observer, one at each of the first two sites.
TEST(SunTransits, WithoutADistanceAreThoseThatReachTheObserver)
{
    const double nearest[] = {0.239, 2.121};
    const std::vector<TransitSite> sites = referenceTransits();
    for (int k = 0; k < 2; ++k) {
        WinpData in = stationAt(sites[k].site);
        in.maxdst = 0.0;
        const std::vector<std::string> lines = tableLines(listOf(in));
        ASSERT_EQ(lines.size(), 1u);
        EXPECT_NEAR(std::stod(lines[0].substr(27)), nearest[k], 1.0);
        EXPECT_EQ(in.maxdst, 0.0);
    }
    WinpData in = stationAt(sites[2].site);
    in.maxdst = 0.0;
    EXPECT_EQ(listOf(in).rbegin()[1], " *** No suitable pass found within time interval ***");
}

}  // namespace
