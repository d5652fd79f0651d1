#include "scan/iridium_scan.h"

#include "report_lines.h"
#include "scan/scan_helper.h"

#include "record/text.h"
#include "scan/all_satellites.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <sstream>

namespace {

constexpr double secondDays = 1.0 / 86400.0;

std::vector<std::string> tableOf(WinpData& in)
{
    WoutData out;
    Iriddspy(&in, &out);
    return reportLines(out);
}

// The second line of the same second, headings, passes of another kind and short lines are no flares of the table.
TEST(FlareTable, TakesTheFlaresOfTheSaveFile)
{
    const ScratchDir here;
    WinpData in = scanRecord("iridium_2018.txt", "tzone=1 satn=1 srcmd=1");
    selectSatellite(in, 0, 25263);
    QFile::copy(TEST_DATA "/scan/flare_list.txt", "list.txt");
    EXPECT_EQ(tableOf(in), linesOf(TEST_DATA "/scan/flare_table.txt"));
    EXPECT_EQ(differences(in, "newsave=0 srcmd=1 satn=6"), "");
    std::string selected;
    for (int k = 1; k < in.satn; ++k)
        selected += fieldText(in.fsname[k]).substr(8, 1);
    EXPECT_EQ(selected, "75674");
}

TEST(FlareTable, SaysWhereItIsWrittenAndSelectsNoMoreThanTen)
{
    const ScratchDir here;
    WinpData in = scanRecord("no/such/file.txt", "irdrun=1 moonflg=1");
    EXPECT_EQ(tableOf(in), std::vector<std::string>{}) << "there is no save file";
    std::string list;
    for (int second = 10; second < 25; ++second)
        list += "JAN 20  17:00:" + std::to_string(second) +
                " (123, 45)  Iridium Flare  Front  ->S  mag  -5.5   IRIDIUM 7 [-]\n";
    ScratchDir::write("list.txt", list);
    const std::vector<std::string> lines = tableOf(in);
    ASSERT_EQ(lines.size(), 4U + 15 + 3);
    EXPECT_EQ(lines[1], " *** Iridium Flares ***  written to list.txt");
    EXPECT_EQ(lines[3], " Year: 2018  +++ Timezone: 0 +++   Moonshine Flares");
    EXPECT_EQ(in.satn, 0);
    WinpData found = scanRecord("iridium_2018.txt");
    tableOf(found);
    EXPECT_EQ(found.satn, 10);
}

TEST(FlareSearchSettings, ComeBack)
{
    const char* before = "iridflg=1 flarflg=0 flarmod=-2 flaryst=1 occflg=2 occra=12.5 occdec=7 chlen=3";
    WinpData in = scanRecord("iridium_2018.txt", before + std::string(" moonflg=1"));
    {
        IridiumSearch search(&in);
        EXPECT_EQ(differences(in, "iridflg=3 flarflg=1 flarmod=1 flaryst=0 occflg=0 occra=0 occdec=-40 chlen=3"), "");
        search.accept(-1.5, true, true);
        EXPECT_EQ(in.chlen, 1.0);
        in.occra = 120.0;
    }
    EXPECT_EQ(differences(in, before), "");
    EXPECT_EQ(differences(in, "irmag=-1.5 ops=1 irsol=1"), "");
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
        EXPECT_EQ(differences(in, "newsave=1 irdrun=1"), "");
        in.newsave = 0;
    }
    EXPECT_EQ(fieldText(in.tlename), "/data/tle/visual.txt");
    EXPECT_EQ(fieldText(in.savename), "*satsave.txt");
    EXPECT_EQ(differences(in, "newsave=0 irdrun=0"), "");
    const ScratchDir here;
    {
        const ScratchSaveFile scratch(&in);
        EXPECT_EQ(fieldText(in.savename), "./satird.tmp");
        EXPECT_EQ(in.newsave, 1);
        ScratchDir::write("satird.tmp", "x");
        in.newsave = 0;
    }
    EXPECT_EQ(filesHere(), 0);
    EXPECT_EQ(fieldText(in.savename), "*satsave.txt");
    EXPECT_EQ(in.newsave, 0);
}

struct Flare
{
    double time = 0;  // MJD
    std::string satellite;
    std::string surface;
    double magnitude = 0;

    bool isPanel() const { return surface == "Solar"; }
    bool isInPassOf(const Flare& other) const
    {
        return satellite == other.satellite && std::abs(time - other.time) < 1200.0 * secondDays;
    }
};

struct FlareSite
{
    std::string place;
    std::vector<Flare> flares;
};

std::vector<FlareSite> referenceFlares()
{
    WinpData names = scanRecord("iridium_2018.txt");
    std::vector<FlareSite> sites;
    std::ifstream file(TEST_DATA "/passes/flares_2018.txt");
    for (std::string line; std::getline(file, line);) {
        std::istringstream fields(line);
        if (line.starts_with("site ")) {
            std::string word, lat, lng, height;
            fields >> word >> word >> lat >> lng >> height;
            sites.push_back({"lat=" + lat + " lng=" + lng + " height=" + height, {}});
        } else if (line[0] != '#') {
            Flare flare;
            int norad = 0;
            fields >> flare.time >> norad >> flare.surface >> flare.magnitude;
            selectSatellite(names, 0, norad);
            flare.satellite = fieldText(names.fsname[0]);
            sites.back().flares.push_back(flare);
        }
    }
    return sites;
}

constexpr double faintestListed = -0.8;     // the figures reach 0.3 magnitudes further
constexpr double magnitudeTolerance = 0.3;  // steps of 0.1 s near the centre of a flare, and the frames

/// All flares at a site, day and night, in the way of the Iridium Flares command.
std::vector<Flare> searchedFlares(const std::string& place)
{
    const ScratchDir here;
    WinpData in = scanRecord("iridium_2018.txt", place + " dur=2 sunel=91");
    IridiumSearch search(&in);
    search.accept(faintestListed, false, true);
    EXPECT_EQ(AllSatAos(&in), 0);
    std::vector<Flare> flares;
    for (const std::string& line : linesOf("list.txt")) {
        int day, hour, minute, second;
        if (std::sscanf(line.c_str(), "JAN %2d %2d:%2d:%2d", &day, &hour, &minute, &second) == 4)
            flares.push_back({58118.0 + day + hour / 24.0 + minute / 1440.0 + second * secondDays, line.substr(67),
                              line.substr(43, 5), std::stod(line.substr(59, 5))});
    }
    return flares;
}

TEST(FlareScan, FindsTheFlaresOfABruteForceSearchAndNoOthers)
{
    int mirrors = 0, panels = 0;
    for (const FlareSite& site : referenceFlares()) {
        const std::vector<Flare> listed = searchedFlares(site.place);
        for (const Flare& flare : listed) {
            const auto reference = std::find_if(site.flares.begin(), site.flares.end(), [&](const Flare& other) {
                return flare.isInPassOf(other) && flare.surface == other.surface;
            });
            ASSERT_NE(reference, site.flares.end()) << flare.satellite << flare.surface << flare.time;
            EXPECT_NEAR(flare.time, reference->time, 2.0 * secondDays) << flare.satellite;
            EXPECT_NEAR(flare.magnitude, reference->magnitude, magnitudeTolerance) << flare.satellite;
            ++(flare.isPanel() ? panels : mirrors);
        }
        for (const Flare& flare : site.flares) {
            if (flare.magnitude >= faintestListed - magnitudeTolerance)
                continue;
            // of the three mirrors of a pass only the brightest one is listed
            const auto outshines = [&](const Flare& other) {
                return flare.isInPassOf(other) && flare.isPanel() == other.isPanel() &&
                       other.magnitude < flare.magnitude;
            };
            const auto isThis = [&](const Flare& other) {
                return flare.isInPassOf(other) && flare.surface == other.surface;
            };
            EXPECT_TRUE(std::any_of(site.flares.begin(), site.flares.end(), outshines) ||
                        std::any_of(listed.begin(), listed.end(), isThis))
                << flare.satellite << flare.surface << flare.time;
        }
    }
    EXPECT_GT(mirrors, 45);
    EXPECT_EQ(panels, 2);
}

}  // namespace
