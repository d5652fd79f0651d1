#include "scan/matching.h"

#include "report_lines.h"
#include "scan/scan_helper.h"

#include "astro/angles.h"
#include "engine/position.h"
#include "record/text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <random>

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
    const auto rad = [](double degrees) { return radPerDeg * degrees; };
    for (const MatchCase& c : matchCases)
        EXPECT_EQ(mtchok(std::cos(rad(2.0)), rad(c.ta), rad(c.te), rad(c.a1), rad(c.e1), rad(c.dir), c.useDir,
                         rad(c.a2), rad(c.e2)),
                  c.result)
            << c.what;
}

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

/// Where the satellite in slot 0 moves, degrees from the upward direction to the right.
double directionOf(WinpData& in, double t)
{
    const Place now = placeOf(in, t), later = placeOf(in, t + secondDays);
    const double right = std::remainder(later.az - now.az, 360.0) * std::cos(radPerDeg * now.el);
    return degPerRad * std::atan2(right, later.el - now.el);
}

/// The first time in steps from `t` on at which the satellite in slot 0 stands well up, but not near the zenith; 0 for
/// none within two days.
double timeInView(WinpData& in, double t)
{
    for (double until = t + 2.0; t < until; t += 97.0 * secondDays) {
        const double el = placeOf(in, t).el;
        if (el > 20.0 && el < 75.0)
            return t;
    }
    return 0.0;
}

WinpData matchRecord(double time)
{
    WinpData in =
        scanRecord("catalogue_2018.txt", "visflg=0 sunel=91 satel=10 rdf=0 mxa=1 tm=0.2 yrepoch=0 az=1 el=-1");
    in.mjd = time;
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
    for (const std::string& line : report.lines)
        if (line.starts_with(" NORAD#:"))
            report.norads.push_back(std::stoi(line.substr(8)));
    return report;
}

/// Whether a search with nothing selected finds this satellite.
bool finds(WinpData& in, int norad)
{
    in.satn = 0;
    const std::vector<int> norads = search(in).norads;
    return std::find(norads.begin(), norads.end(), norad) != norads.end();
}

// Forty satellites of the catalogue, each seen half a degree beside its place.
TEST(Matching, FindsSatellitesFromBlurredSightings)
{
    std::mt19937 random(7);
    WinpData view = scanRecord("catalogue_2018.txt", "yrepoch=0");
    const std::vector<std::string> lines = linesOf(view.tlename);
    int seen = 0;
    for (std::size_t k = 0; 3 * k < lines.size() && seen < 40; k += 17) {
        const int norad = std::stoi(lines[3 * k + 1].substr(2, 5));
        selectSatellite(view, 0, norad);
        const double t = view.n0[0] < 2 ? 0 : timeInView(view, 58138.0 + 0.01 * static_cast<double>(k % 100));
        if (t == 0.0)
            continue;
        ++seen;
        const Place now = placeOf(view, t);
        const double direction = directionOf(view, t);
        const double side = 2.0 * 3.14159265 * static_cast<double>(random() % 1000) / 1000.0;
        WinpData in = matchRecord(t);
        in.az = now.az + 0.5 * std::sin(side) / std::cos(radPerDeg * now.el);
        in.el = now.el + 0.5 * std::cos(side);
        EXPECT_TRUE(finds(in, norad)) << norad;
        in.drf = 1;
        in.dra = direction;
        EXPECT_TRUE(finds(in, norad)) << norad << " with the direction";
        in.dra += 180.0;
        EXPECT_FALSE(finds(in, norad)) << norad << " with the opposite direction";
    }
    EXPECT_EQ(seen, 40);
}

constexpr double stationTime = 58138.0021;  // in the middle of a pass

/// The station, high in the sky over Vienna.
struct StationSeen : testing::Test
{
    StationSeen()
    {
        selectSatellite(view, 0, 25544);
        now = placeOf(view, stationTime);
        in.az = now.az;
        in.el = now.el;
        QFile::copy(QString::fromUtf8(in.tlename), "all.txt");
    }

    void giveRightAscension()
    {
        in.rdf = 1;
        in.az = now.ra;
        in.el = now.dec;
    }

    const ScratchDir here;
    WinpData view = matchRecord(0.0), in = matchRecord(stationTime);
    Place now{};
};

TEST_F(StationSeen, ReportHasItsElements)
{
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
    EXPECT_EQ(report.lines[5].size(), 64U);
    // 15.54 revolutions a day, eccentricity 0.0004
    EXPECT_NEAR(inclination, 51.64, 0.01);
    EXPECT_NEAR(perigee, 401.0, 6.0);
    EXPECT_NEAR(apogee - perigee, 5.0, 3.0);
}

TEST_F(StationSeen, JoinsTheSelectionWhileThereIsRoom)
{
    setFields(in, "satn=9 rlm=1 tm=0.25");
    for (int k = 0; k < 10; ++k)
        selectSatellite(in, k, k < 9 ? 694 : 27386);
    search(in);
    EXPECT_EQ(selectedNumbers(in), (std::vector<int>{694, 694, 694, 694, 694, 694, 694, 694, 694, 25544}));
    EXPECT_EQ(differences(in, "rlm=1 tm=0.25"), "");
    EXPECT_EQ(in.az, now.az);
    selectSatellite(in, 9, 27386);
    EXPECT_EQ(search(in).norads, std::vector<int>{25544});
    EXPECT_EQ(selectedNumbers(in).at(9), 27386);
    in.satn = 1;
    search(in);
    EXPECT_EQ(selectedNumbers(in), (std::vector<int>{694, 25544}));
}

TEST_F(StationSeen, IsFoundByRightAscension)
{
    giveRightAscension();
    EXPECT_TRUE(finds(in, 25544));
    EXPECT_EQ(in.az, now.ra);
    EXPECT_EQ(in.rdf, 1);
    // in two and a half minutes the sky turns by 0.6 degrees
    setFields(in, "mxa=0.3 tm=3");
    in.mjd -= 150.0 * secondDays;
    EXPECT_TRUE(finds(in, 25544)) << "the target moves with the sky";
}

TEST_F(StationSeen, IsFoundFromTwoSightingsInTheirOrder)
{
    const Place later = placeOf(view, stationTime + 60.0 * secondDays);
    in = matchRecord(stationTime);
    setFields(in, "odm=1 deltm=60");
    const auto see = [&](const Place& first, const Place& second) {
        in.az1 = first.az;
        in.el1 = first.el;
        in.az2 = second.az;
        in.el2 = second.el;
    };
    see(now, later);
    EXPECT_TRUE(finds(in, 25544));
    EXPECT_EQ(differences(in, "tm=0.2 az=1 el=-1"), "");
    see(later, now);
    EXPECT_FALSE(finds(in, 25544)) << "it flew the other way";
    see(now, {later.az + 90.0, later.el, 0, 0});
    EXPECT_FALSE(finds(in, 25544)) << "it never came there";
    see(now, later);
    const std::vector<std::string> lines = linesOf("all.txt");
    const auto name = std::find(lines.begin(), lines.end(), "ISS (ZARYA)             ");
    ASSERT_LT(name, lines.end() - 2);
    const std::string entry = name[0] + "\n" + name[1] + "\n" + name[2] + "\n";
    ScratchDir::write("twice.txt", entry + entry);
    assignField(in.tlename, "twice.txt");
    EXPECT_EQ(search(in).norads, (std::vector<int>{25544, 25544})) << "each begins with the first sighting";
}

TEST_F(StationSeen, NeedsAPassThatFulfilsTheConditions)
{
    assignField(in.tlename, "all.txt");
    in.sunel = -90.0;
    EXPECT_EQ(search(in).lines,
              (std::vector<std::string>{" ", " *** No matches found on TLE file ***", "all.txt", " ", " ", " ",
                                        " Number of satellites checked: 979", " Number of possible matches  : 0"}));
    EXPECT_EQ(in.satn, 0);
    assignField(in.tlename, "absent.txt");
    const Report report = search(in);
    EXPECT_EQ(report.result, 1);
    EXPECT_EQ(report.lines, (std::vector<std::string>{" ", " *** Unable to open TLE file ***", "absent.txt", " ",
                                                      " Select a valid TLE file first.", " "}));
}

TEST_F(StationSeen, IgnoresTheDirectionNearTheZenith)
{
    in.drf = 1;
    in.dra = 180.0 + directionOf(view, stationTime);
    EXPECT_FALSE(finds(in, 25544)) << "it moves the other way";
    in.mxa = 89.2 - now.el;
    EXPECT_TRUE(finds(in, 25544));
}

TEST(Matching, StopsAtFifty)
{
    WinpData in = matchRecord(58138.0);
    setFields(in, "satel=-90 mxa=180 tm=0.01");
    Report report = search(in);
    ASSERT_EQ(report.norads.size(), 50U);
    EXPECT_EQ(report.lines.back(), " *** Output buffer full. More matches possible ***");
    report.norads.resize(10);
    EXPECT_EQ(selectedNumbers(in), report.norads);
}

// Pieces of one orbit, by the letters of their designators; the last one is slow.
TEST(Matching, PassesOverSmallerPieces)
{
    const ScratchDir here;
    std::string file;
    int number = 101;
    for (const char* piece : {"A  ", "B  ", "C  ", "D  ", "E  ", "F  ", "AA ", "AB ", "A  "}) {
        char entry[256];
        std::snprintf(entry, sizeof entry,
                      "PIECE %d\n1 %05dU 98067%s  18020.00000000  .00000000  00000-0  00000-0 0    00\n"
                      "2 %05d  51.6000 100.0000 0001000   0.0000   0.0000 %s    00\n",
                      number, number, piece, number, number == 109 ? " 2.40000000" : "15.50000000");
        file += entry;
        ++number;
    }
    ScratchDir::write("pieces.txt", file);
    WinpData in = scanRecord("./pieces.txt", "visflg=0 sunel=91 satel=-90 mxa=180 tm=0.01 rdf=0");
    EXPECT_EQ(search(in).norads.size(), 9U);
    setFields(in, "satn=0 vis=1");
    EXPECT_EQ(search(in).norads, (std::vector<int>{101, 102, 104, 105}));
}

TEST(Matching, EndsOnAnyNumbers)
{
    for (const char* field : {"az", "el", "mxa", "dra", "mjd", "lat", "deltm"})
        for (const char* value : {"=1e300", "=-1e300", "=inf", "=-inf", "=nan"})
            for (const char* kind : {" rdf=0", " rdf=1"}) {
                WinpData in = scanRecord("visual_2018.txt", std::string("drf=1 tm=0.01 ") + field + value + kind);
                EXPECT_EQ(search(in).result, 0) << field << value;
            }
    // so far from now no step moves the search, which is why this is short
    WinpData in = matchRecord(1e300);
    setFields(in, "tm=inf");
    EXPECT_EQ(search(in).lines.back(), " *** Time interval held to 100000 days ***");
}

}  // namespace
