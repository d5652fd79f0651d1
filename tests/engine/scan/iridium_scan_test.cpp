#include "engine/scan/iridium_scan.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "app/record/text.h"
#include "app/record/winp_data.h"
#include "app/record/wout_data.h"
#include "engine/scan/all_satellites.h"
#include "engine/scan/scratch_helper.h"
#include "report_lines.h"

namespace {

constexpr double secondDays = 1.0 / 86400.0;

std::vector<std::string> tableOf(WinpData& in)
{
    WoutData out;
    Iriddspy(&in, &out);
    return reportLines(out);
}

std::string flareLine(const std::string& stamp, const std::string& name)
{
    return stamp + " (123, 45)  Iridium Flare  Front  ->S  mag  -5.5   " + name + "\n";
}

std::string shownLine(const std::string& stamp, const std::string& name)
{
    return stamp + " (123, 45)    Front  ->S  mag  -5.5   " + name;
}

// The second line of the same second, headings, passes of another kind and short lines are no flares of the table.
TEST(FlareTable, TakesTheFlaresOfTheSaveFile)
{
    const ScratchDirectory here;
    WinpData in = scanRecord("iridium_2018.txt");
    in.tzone = 1.0;
    writeFile("list.txt", "Geographic Location: Vienna\n Year: 2018\nmin.\n====\n\n" +
                              flareLine("JAN 20  17:00:00", "IRIDIUM 7 [-]       ") +
                              flareLine("JAN 20  17:00:00", "IRIDIUM 5 [-]       ") + "JAN 20  17:00:01\n" +
                              "JAN 20  17:00:02 (123, 45)  Sun Transit  dist:    1.0 km   ISS (ZARYA)\n" +
                              flareLine("JAN 20  17:00:03", "IRIDIUM 5 [-]       ") +
                              flareLine("JAN 20  17:00:04", "NO SUCH NAME        ") +
                              flareLine("JAN 20  17:00:05", "IRIDIUM 6 [-]       ") +
                              flareLine("JAN 20  17:00:06", "IRIDIUM 7 [-]       ") +
                              flareLine("JAN 20  17:00:07", "IRIDIUM 4 [-]       "));
    ASSERT_TRUE(selectSatellite(in, 0, 25263));
    in.satn = 1;
    in.srcmd = 1;
    EXPECT_EQ(tableOf(in),
              (std::vector<std::string>{" ", " *** Iridium Flares *** ", " ", " Year: 2018  +++ Timezone: 1 +++", " ",
                                        shownLine("JAN 20  17:00:00", "IRIDIUM 7 [-]       "),
                                        shownLine("JAN 20  17:00:03", "IRIDIUM 5 [-]       "),
                                        shownLine("JAN 20  17:00:04", "NO SUCH NAME        "),
                                        shownLine("JAN 20  17:00:05", "IRIDIUM 6 [-]       "),
                                        shownLine("JAN 20  17:00:06", "IRIDIUM 7 [-]       "), " ",
                                        shownLine("JAN 20  17:00:07", "IRIDIUM 4 [-]       ")}));
    EXPECT_EQ(in.newsave, 0);
    EXPECT_EQ(in.srcmd, 1);
    ASSERT_EQ(in.satn, 6);
    for (int k = 1; k < 6; ++k) {
        constexpr const char* names[] = {"", "IRIDIUM 7 ", "IRIDIUM 5 ", "IRIDIUM 6 ", "IRIDIUM 7 ", "IRIDIUM 4 "};
        EXPECT_EQ(fieldText(in.fsname[k]).substr(0, 10), names[k]);
    }
}

TEST(FlareTable, SaysWhereItIsWritten)
{
    const ScratchDirectory here;
    WinpData in = scanRecord("no/such/file.txt");
    in.irdrun = true;
    in.moonflg = 1;
    EXPECT_EQ(tableOf(in), std::vector<std::string>{}) << "there is no save file";
    writeFile("list.txt", flareLine("JAN 20  17:00:00", "IRIDIUM 7 [-]       "));
    const std::vector<std::string> lines = tableOf(in);
    ASSERT_EQ(lines.size(), 6u);
    EXPECT_EQ(lines[1], " *** Iridium Flares ***  written to list.txt");
    EXPECT_EQ(lines[3], " Year: 2018  +++ Timezone: 0 +++   Moonshine Flares");
    EXPECT_EQ(in.satn, 0);
}

TEST(FlareTable, SelectsNoMoreThanTen)
{
    const ScratchDirectory here;
    WinpData in = scanRecord("iridium_2018.txt");
    std::string content;
    for (int second = 10; second < 25; ++second)
        content += flareLine("JAN 20  17:00:" + std::to_string(second), "IRIDIUM 7 [-]       ");
    writeFile("list.txt", content);
    tableOf(in);
    EXPECT_EQ(in.satn, 10);
}

TEST(FlareSearchSettings, ComeBack)
{
    WinpData in;
    in.iridflg = 1;
    in.flarflg = 0;
    in.flarmod = -2;
    in.flaryst = 1;
    in.occflg = 2;
    in.occra = 12.5;
    in.occdec = 7.0;
    in.chlen = 3.0;
    in.moonflg = 1;
    {
        IridiumSearch search(&in);
        EXPECT_EQ(in.iridflg, event::iridium);
        EXPECT_EQ(in.flarflg, 1);
        EXPECT_EQ(in.flarmod, 1);
        EXPECT_EQ(in.flaryst, 0);
        EXPECT_EQ(in.occflg, 0);
        EXPECT_EQ(in.occra, 0.0);
        EXPECT_EQ(in.occdec, -40.0);
        EXPECT_EQ(in.chlen, 3.0);
        search.accept(-1.5, true, true);
        EXPECT_EQ(in.chlen, 1.0);
        in.occra = 120.0;
    }
    EXPECT_EQ(in.iridflg, 1);
    EXPECT_EQ(in.flarflg, 0);
    EXPECT_EQ(in.flarmod, -2);
    EXPECT_EQ(in.flaryst, 1);
    EXPECT_EQ(in.occflg, 2);
    EXPECT_EQ(in.occra, 12.5);
    EXPECT_EQ(in.occdec, 7.0);
    EXPECT_EQ(in.chlen, 3.0);
    EXPECT_EQ(in.irmag, -1.5);
    EXPECT_EQ(in.ops, 1);
    EXPECT_TRUE(in.irsol);
}

TEST(FlareSearchSettings, NameTheFilesBesideTheElements)
{
    WinpData& in = *indata;
    assignField(in.tlename, "/data/tle/visual.txt");
    assignField(in.savename, "*satsave.txt");
    in.newsave = 0;
    {
        const IridiumFiles files(&in);
        EXPECT_EQ(fieldText(in.tlename), "/data/tle/iridium.txt");
        EXPECT_EQ(fieldText(in.savename), "/data/tle/iridiumf.doc");
        EXPECT_EQ(in.newsave, 1);
        EXPECT_TRUE(in.irdrun);
        in.newsave = 0;
    }
    EXPECT_EQ(fieldText(in.tlename), "/data/tle/visual.txt");
    EXPECT_EQ(fieldText(in.savename), "*satsave.txt");
    EXPECT_EQ(in.newsave, 0);
    EXPECT_FALSE(in.irdrun);
}

TEST(FlareSearchSettings, LeaveNoScratchFile)
{
    const ScratchDirectory here;
    WinpData in;
    assignField(in.savename, "own.txt");
    {
        const ScratchSaveFile scratch(&in);
        EXPECT_EQ(fieldText(in.savename), "./satird.tmp");
        EXPECT_EQ(in.newsave, 1);
        writeFile("satird.tmp", "x");
        in.newsave = 0;
    }
    EXPECT_EQ(here.files(), 0u);
    EXPECT_EQ(fieldText(in.savename), "own.txt");
    EXPECT_EQ(in.newsave, 0);
}

struct Flare
{
    double time = 0;  // MJD
    std::string satellite;
    std::string surface;
    double magnitude = 0;
};

struct FlareSite
{
    double lat = 0, lng = 0, height = 0;
    std::vector<Flare> flares;
};

/// The names of a file of elements by catalogue number, as the lists show them.
std::string nameOf(WinpData& in, int norad)
{
    EXPECT_TRUE(selectSatellite(in, 9, norad));
    return std::string(fieldText(in.fsname[9]));
}

std::vector<FlareSite> referenceFlares()
{
    WinpData names = scanRecord("iridium_2018.txt");
    std::vector<FlareSite> sites;
    std::ifstream file(TEST_DATA "/passes/flares_2018.txt");
    for (std::string line; std::getline(file, line);) {
        std::istringstream fields(line);
        if (line.rfind("site ", 0) == 0) {
            std::string word;
            sites.emplace_back();
            fields >> word >> word >> sites.back().lat >> sites.back().lng >> sites.back().height;
        } else if (line[0] != '#') {
            Flare flare;
            int norad = 0;
            fields >> flare.time >> norad >> flare.surface >> flare.magnitude;
            flare.satellite = nameOf(names, norad);
            sites.back().flares.push_back(flare);
        }
    }
    return sites;
}

std::vector<Flare> listedFlares(const std::string& file)
{
    std::vector<Flare> flares;
    for (const std::string& line : linesOf(file)) {
        int day, hour, minute, second;
        if (std::sscanf(line.c_str(), "JAN %2d %2d:%2d:%2d", &day, &hour, &minute, &second) != 4)
            continue;
        Flare flare;
        flare.time = 58118.0 + day + hour / 24.0 + minute / 1440.0 + second / 86400.0;
        flare.surface = line.substr(43, 5);
        flare.magnitude = std::stod(line.substr(59, 5));
        flare.satellite = line.substr(67);
        flares.push_back(flare);
    }
    return flares;
}

constexpr double faintestListed = -0.8;     // the figures reach 0.3 magnitudes further
constexpr double magnitudeTolerance = 0.3;  // steps of 0.1 s near the centre of a flare, and the frames

/// All flares at a site, day and night, in the way of the Iridium Flares command.
std::vector<Flare> searchedFlares(const FlareSite& site)
{
    const ScratchDirectory here;
    WinpData in = scanRecord("iridium_2018.txt");
    in.lat = site.lat;
    in.lng = site.lng;
    in.height = site.height;
    in.dur = 2.0;
    in.sunel = 91.0;
    IridiumSearch search(&in);
    search.accept(faintestListed, false, true);
    EXPECT_EQ(AllSatAos(&in), 0);
    return listedFlares("list.txt");
}

bool samePass(const Flare& one, const Flare& other)
{
    return one.satellite == other.satellite && std::abs(one.time - other.time) < 1200.0 * secondDays;
}

bool isPanel(const Flare& flare)
{
    return flare.surface == "Solar";
}

/// Of the three mirrors of a pass only the brightest one is listed.
bool outshone(const Flare& flare, const std::vector<Flare>& flares)
{
    for (const Flare& other : flares)
        if (samePass(flare, other) && isPanel(flare) == isPanel(other) && other.magnitude < flare.magnitude)
            return true;
    return false;
}

const Flare* partnerOf(const Flare& flare, const std::vector<Flare>& flares)
{
    for (const Flare& other : flares)
        if (samePass(flare, other) && flare.surface == other.surface)
            return &other;
    return nullptr;
}

TEST(FlareScan, FindsTheFlaresOfABruteForceSearchAndNoOthers)
{
    int mirrors = 0;
    int panels = 0;
    for (const FlareSite& site : referenceFlares()) {
        const std::vector<Flare> listed = searchedFlares(site);
        for (const Flare& flare : listed) {
            SCOPED_TRACE(flare.satellite);
            const Flare* reference = partnerOf(flare, site.flares);
            ASSERT_TRUE(reference) << flare.surface << " " << flare.time;
            EXPECT_NEAR(flare.time, reference->time, 2.0 * secondDays);
            EXPECT_NEAR(flare.magnitude, reference->magnitude, magnitudeTolerance);
            ++(isPanel(flare) ? panels : mirrors);
        }
        for (const Flare& flare : site.flares) {
            const bool wanted = flare.magnitude < faintestListed - magnitudeTolerance;
            EXPECT_TRUE(!wanted || outshone(flare, site.flares) || partnerOf(flare, listed))
                << flare.satellite << flare.surface << flare.time;
        }
    }
    EXPECT_GT(mirrors, 45);
    EXPECT_EQ(panels, 2);
}

}  // namespace
