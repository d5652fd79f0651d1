#include "engine/scan/matching.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "app/record/text.h"
#include "app/record/winp_data.h"
#include "app/record/wout_data.h"
#include "astro/angles.h"
#include "engine/position.h"
#include "engine/scan/scratch_helper.h"
#include "report_lines.h"

namespace {

constexpr double secondDays = 1.0 / 86400.0;

struct MatchCase
{
    const char* what;
    double ta, te, a1, e1, dir;
    int useDir;
    double a2, e2;
    int result;
};

// Degrees; the limit is 2 degrees.
constexpr MatchCase matchCases[] = {
    {"near", 100, 30, 101, 30, 0, 0, 0, 0, 1},
    {"too far", 100, 30, 102.5, 30, 0, 0, 0, 0, 0},
    {"across north", 359.5, 30, 0.5, 30, 0, 0, 0, 0, 1},
    {"a degree of azimuth is little near the zenith", 0, 89, 90, 89, 0, 0, 0, 0, 1},
    {"to the right", 100, 30, 100, 30, 90, 1, 101, 30, 1},
    {"to the right, wanted left", 100, 30, 100, 30, -90, 1, 101, 30, 0},
    {"up", 100, 30, 100, 30, 0, 1, 100.2, 31, 1},
    {"up, wanted to the right", 100, 30, 100, 30, 90, 1, 100.2, 31, 0},
    {"down, given as minus 180", 100, 30, 100, 30, -180, 1, 100, 29, 1},
    {"up and right, 44 degrees off", 100, 0, 100, 0, 0, 1, 100.69, 0.72, 1},
    {"up and right, 46 degrees off", 100, 0, 100, 0, 0, 1, 100.72, 0.69, 0},
    {"at rest", 100, 30, 100, 30, 90, 1, 100, 30, 1},
};

TEST(MatchTest, ComparesPlaceAndDirection)
{
    for (const MatchCase& c : matchCases) {
        SCOPED_TRACE(c.what);
        const auto rad = [](double degrees) { return radPerDeg * degrees; };
        EXPECT_EQ(mtchok(std::cos(rad(2.0)), rad(c.ta), rad(c.te), rad(c.a1), rad(c.e1), rad(c.dir), c.useDir,
                         rad(c.a2), rad(c.e2)),
                  c.result);
    }
}

/// A satellite as an observer saw it.
struct Sighting
{
    int norad;
    double time, az, el, direction, ra, dec;  // degrees; the direction from the upward one to the right
};

struct Place
{
    double az, el, ra, dec;
};

Place placeOf(WinpData& in, double t)
{
    static const auto sp = std::make_unique<SatPosData>();
    GetSatPos(t, &in, sp.get(), 0, 0);
    return {sp->az[0], sp->el[0], sp->ra[0], sp->dec[0]};
}

/// The first time in steps from `t` on at which the satellite in slot 0 stands well up, but not near the zenith.
double timeInView(WinpData& in, double t)
{
    for (double until = t + 2.0; t < until; t += 97.0 * secondDays) {
        const double el = placeOf(in, t).el;
        if (el > 20.0 && el < 75.0)
            return t;
    }
    return 0.0;
}

/// Every 24th satellite of the catalogue that comes into view; 40 of these.
std::vector<Sighting> sightings()
{
    WinpData in = scanRecord("catalogue_2018.txt");
    in.yrepoch = 0.0;
    std::vector<int> numbers;
    for (const std::string& line : linesOf(in.tlename))
        if (line.size() > 60 && line[0] == '1')
            numbers.push_back(std::stoi(line.substr(2, 5)));
    std::vector<Sighting> seen;
    for (std::size_t k = 0; k < numbers.size() && seen.size() < 40; k += 17) {
        if (!selectSatellite(in, 0, numbers[k]) || in.n0[0] < 2.0)
            continue;
        const double t = timeInView(in, 58138.0 + 0.01 * static_cast<double>(k % 100));
        if (t == 0.0)
            continue;
        const Place now = placeOf(in, t);
        const Place later = placeOf(in, t + secondDays);
        const double right = std::remainder(later.az - now.az, 360.0) * std::cos(radPerDeg * now.el);
        seen.push_back(
            {numbers[k], t, now.az, now.el, degPerRad * std::atan2(right, later.el - now.el), now.ra, now.dec});
    }
    return seen;
}

WinpData matchRecord(double time)
{
    WinpData in = scanRecord("catalogue_2018.txt");
    in.mjd = time;
    in.visflg = 0;
    in.sunel = 91.0;
    in.satel = 10.0;
    in.rdf = 0;
    in.mxa = 1.0;
    in.tm = 0.2;
    in.yrepoch = 0.0;
    return in;
}

struct Report
{
    int result = 0;
    std::vector<std::string> lines;
    std::vector<int> norads;  // of the matches
};

Report search(WinpData& in)
{
    WoutData out;
    Report report;
    report.result = SatMatch(&in, &out);
    report.lines = reportLines(out);
    for (const std::string& line : report.lines) {
        int norad = 0;
        if (std::sscanf(line.c_str(), " NORAD#:%6d", &norad) == 1)
            report.norads.push_back(norad);
    }
    return report;
}

bool names(const Report& report, int norad)
{
    return std::find(report.norads.begin(), report.norads.end(), norad) != report.norads.end();
}

TEST(Matching, FindsSatellitesFromBlurredSightings)
{
    std::mt19937 random(7);
    const std::vector<Sighting> seen = sightings();
    ASSERT_EQ(seen.size(), 40u);
    for (const Sighting& s : seen) {
        SCOPED_TRACE(s.norad);
        const double side = 2.0 * 3.14159265 * static_cast<double>(random() % 1000) / 1000.0;
        WinpData in = matchRecord(s.time);
        in.az = s.az + 0.5 * std::sin(side) / std::cos(radPerDeg * s.el);
        in.el = s.el + 0.5 * std::cos(side);
        EXPECT_TRUE(names(search(in), s.norad));
        in.satn = 0;
        in.drf = 1;
        in.dra = s.direction;
        EXPECT_TRUE(names(search(in), s.norad)) << "with the direction";
        in.satn = 0;
        in.dra = s.direction + 180.0;
        EXPECT_FALSE(names(search(in), s.norad)) << "with the opposite direction";
    }
}

/// The station, high in the sky over Vienna.
struct StationSeen : testing::Test
{
    StationSeen()
    {
        WinpData view = matchRecord(0.0);
        EXPECT_TRUE(selectSatellite(view, 0, 25544));
        time = 58138.0021;  // in the middle of its pass
        now = placeOf(view, time);
        later = placeOf(view, time + 60.0 * secondDays);
        in = matchRecord(time);
        in.az = now.az;
        in.el = now.el;
    }

    double time = 0;
    Place now{}, later{};
    WinpData in;
};

TEST_F(StationSeen, ReportHasItsElements)
{
    const ScratchDirectory here;
    std::filesystem::copy_file(in.tlename, "all.txt");
    assignField(in.tlename, "all.txt");
    const Report report = search(in);
    ASSERT_EQ(report.norads, std::vector<int>{25544});
    EXPECT_EQ(report.lines, (std::vector<std::string>{" ", " Possible matches on TLE-file: all.txt", " ", " ",
                                                      " NORAD#: 25544  Int.Launch#: 98067A    ISS (ZARYA)         ",
                                                      report.lines[5], " ", " ", " Number of satellites checked: 979",
                                                      " Number of possible matches  : 1"}));
    double inclination, perigee, apogee;
    ASSERT_EQ(std::sscanf(report.lines[5].c_str(), " Incl.: %8lf   Perigee: %10lf km  Apogee: %10lf km", &inclination,
                          &perigee, &apogee),
              3);
    EXPECT_EQ(report.lines[5].size(), 64u);
    // 15.54 revolutions a day, eccentricity 0.0004
    EXPECT_NEAR(inclination, 51.64, 0.01);
    EXPECT_NEAR(perigee, 401.0, 6.0);
    EXPECT_NEAR(apogee - perigee, 5.0, 3.0);
}

TEST_F(StationSeen, JoinsTheSelection)
{
    ASSERT_TRUE(selectSatellite(in, 0, 694));
    in.satn = 1;
    in.rlm = 1;
    in.tm = 0.25;
    search(in);
    ASSERT_EQ(in.satn, 2);
    EXPECT_EQ(in.norad[0], 694);
    EXPECT_EQ(in.norad[1], 25544);
    EXPECT_EQ(in.rlm, 1);
    EXPECT_EQ(in.tm, 0.25);
    EXPECT_EQ(in.az, now.az);
}

TEST_F(StationSeen, FillsTheSelectionButLeavesAFullOne)
{
    for (int k = 0; k < 10; ++k)
        ASSERT_TRUE(selectSatellite(in, k, k < 9 ? 694 : 27386));
    in.satn = 9;
    search(in);
    EXPECT_EQ(in.satn, 10);
    EXPECT_EQ(in.norad[9], 25544);
    ASSERT_TRUE(selectSatellite(in, 9, 27386));
    in.satn = 10;
    EXPECT_TRUE(names(search(in), 25544));
    EXPECT_EQ(in.satn, 10);
    EXPECT_EQ(in.norad[9], 27386);
}

TEST_F(StationSeen, IsFoundByRightAscension)
{
    in.rdf = 1;
    in.az = now.ra;
    in.el = now.dec;
    EXPECT_TRUE(names(search(in), 25544));
    EXPECT_EQ(in.az, now.ra);
    EXPECT_EQ(in.rdf, 1);
}

// In two and a half minutes the sky turns by 0.6 degrees.
TEST_F(StationSeen, IsFoundByATargetThatMovesWithTheSky)
{
    in.rdf = 1;
    in.az = now.ra;
    in.el = now.dec;
    in.mxa = 0.3;
    in.mjd = time - 150.0 * secondDays;
    in.tm = 3.0;
    EXPECT_TRUE(names(search(in), 25544));
}

TEST_F(StationSeen, IsFoundFromTwoSightingsInTheirOrder)
{
    in.odm = true;
    in.az1 = now.az;
    in.el1 = now.el;
    in.az2 = later.az;
    in.el2 = later.el;
    in.deltm = 60.0;
    in.az = 1.0;
    in.el = -1.0;
    EXPECT_TRUE(names(search(in), 25544));
    EXPECT_EQ(in.tm, 0.2);
    EXPECT_EQ(in.az, 1.0);
    std::swap(in.az1, in.az2);
    std::swap(in.el1, in.el2);
    in.satn = 0;
    EXPECT_FALSE(names(search(in), 25544)) << "it flew the other way";
    std::swap(in.az1, in.az2);
    std::swap(in.el1, in.el2);
    in.az2 += 90.0;
    in.satn = 0;
    EXPECT_FALSE(names(search(in), 25544)) << "it never came there";
}

TEST_F(StationSeen, NeedsAPassThatFulfilsTheConditions)
{
    const ScratchDirectory here;
    std::filesystem::copy_file(in.tlename, "all.txt");
    assignField(in.tlename, "all.txt");
    in.sunel = -90.0;
    const Report report = search(in);
    EXPECT_EQ(in.satn, 0);
    EXPECT_EQ(report.lines,
              (std::vector<std::string>{" ", " *** No matches found on TLE file ***", "all.txt", " ", " ", " ",
                                        " Number of satellites checked: 979", " Number of possible matches  : 0"}));
}

TEST_F(StationSeen, IgnoresTheDirectionNearTheZenith)
{
    WinpData view = matchRecord(0.0);
    ASSERT_TRUE(selectSatellite(view, 0, 25544));
    const Place next = placeOf(view, time + secondDays);
    in.drf = 1;
    in.dra = 180.0 + degPerRad * std::atan2(std::remainder(next.az - now.az, 360.0) * std::cos(radPerDeg * now.el),
                                            next.el - now.el);
    EXPECT_FALSE(names(search(in), 25544)) << "it moves the other way";
    in.mxa = 89.2 - now.el;
    in.satn = 0;
    EXPECT_TRUE(names(search(in), 25544));
}

TEST(Matching, StopsAtFifty)
{
    WinpData in = matchRecord(58138.0);
    in.satel = -90.0;
    in.mxa = 180.0;
    in.tm = 0.01;
    const Report report = search(in);
    EXPECT_EQ(report.norads.size(), 50u);
    EXPECT_EQ(report.lines.back(), " *** Output buffer full. More matches possible ***");
    EXPECT_EQ(in.satn, 10);
    for (int k = 0; k < 10; ++k)
        EXPECT_EQ(in.norad[k], report.norads[static_cast<std::size_t>(k)]);
}

TEST(Matching, PassesOverSmallerPieces)
{
    const ScratchDirectory here;
    // ten pieces of one orbit, with the letters of their designators; the last one is slow
    std::string file;
    const char* const pieces[] = {"A  ", "B  ", "C  ", "D  ", "E  ", "F  ", "AA ", "AB ", "A  "};
    int number = 101;
    for (const char* piece : pieces) {
        char entry[256];
        const bool slow = number == 109;
        std::snprintf(entry, sizeof entry,
                      "PIECE %d\n1 %05dU 98067%s  18020.00000000  .00000000  00000-0  00000-0 0    00\n"
                      "2 %05d  51.6000 100.0000 0001000   0.0000 %3d.0000 %s    00\n",
                      number, number, piece, number, 0, slow ? " 2.40000000" : "15.50000000");
        file += entry;
        ++number;
    }
    writeFile("pieces.txt", file);
    WinpData in = matchRecord(58138.0);
    assignField(in.tlename, "pieces.txt");
    in.satel = -90.0;
    in.mxa = 180.0;
    in.tm = 0.01;
    EXPECT_EQ(search(in).norads.size(), 9u);
    in.satn = 0;
    in.vis = true;
    EXPECT_EQ(search(in).norads, (std::vector<int>{101, 102, 104, 105}));
}

TEST(Matching, EndsOnAnyNumbers)
{
    constexpr double inf = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    double WinpData::*const fields[] = {&WinpData::az,  &WinpData::el,  &WinpData::mxa,  &WinpData::dra,
                                        &WinpData::mjd, &WinpData::lat, &WinpData::deltm};
    for (double WinpData::*field : fields) {
        for (double value : {1e300, -1e300, inf, -inf, nan}) {
            for (int rightAscension : {0, 1}) {
                WinpData in = scanRecord("visual_2018.txt");
                in.drf = 1;
                in.rdf = rightAscension;
                in.tm = 0.01;
                in.*field = value;
                EXPECT_EQ(search(in).result, 0);
            }
        }
    }
}

// So far from now no step moves the search, which is why this test is short.
TEST(Matching, HoldsAnEndlessInterval)
{
    WinpData in = matchRecord(1e300);
    in.tm = std::numeric_limits<double>::infinity();
    EXPECT_EQ(search(in).lines.back(), " *** Time interval held to 100000 days ***");
}

TEST(Matching, SaysThatThereIsNoFile)
{
    WinpData in = matchRecord(58138.0);
    assignField(in.tlename, "no/such/file.txt");
    const Report report = search(in);
    EXPECT_EQ(report.result, 1);
    EXPECT_EQ(report.lines, (std::vector<std::string>{" ", " *** Unable to open TLE file ***", "no/such/file.txt",
                                                      " ", " Select a valid TLE file first.", " "}));
}

}  // namespace
