#include "engine/position.h"

#include <gtest/gtest.h>

#include <cmath>

#include "astro/angles.h"
#include "astro/frames.h"
#include "astro/time_scales.h"
#include "engine/position_stages.h"
#include "engine/record_helper.h"

namespace {

constexpr double daySeconds = 86400.0;

struct PlaceCase
{
    const char* what;
    const char* file;
    int norad;
    double mjd;
    Site site;
    bool earthParameters;  // UT1-UTC 0.2 s, UTC-TAI -37 s, pole 0.1, 0.4 arc seconds
    double az, el, range, rate, ra, dec, lat, lng, height;
    double sunAtSite, sunAtSatellite, moonAtSatellite, beta, sslat, sslng;
    double radius;
};

// SGP4 (python3-sgp4 2.15, WGS72) to the true equator and from there once more through the nutation, which is how the
// engine arrives at its frame; nutation, precession, sidereal time, ellipsoid, Sun and Moon by ERFA (nut80, pmat76,
// gmst82, gd2gc, gc2gd, epv00, moon98); right ascension and declination in the equator of 2000.
constexpr PlaceCase placeCases[] = {
    // clang-format off
    {"ISS, high in the sky", "visual_2018.txt", 25544, 58139.8632, {48.25, 16.5, 200}, false,
     87.629081, 71.355107, 428.75747, 2.067203, 115.310203, 45.745798, 48.284852, 18.234994, 407.83765,
     -49.62635, -30.88564, 12.53305, 31.60363, -19.88680, -127.90096, 6774.10},
    {"ISS, rising", "visual_2018.txt", 25544, 58139.8603, {48.25, 16.5, 200}, false,
     243.698464, 6.332424, 1712.03923, -6.883448, 21.428919, -12.270370, 40.394889, -0.649203, 405.72339,
     -49.03524, -20.27636, 27.68752, 31.61416, -19.88746, -126.85716, 6774.92},
    {"ISS, under the southern horizon", "visual_2018.txt", 25544, 58139.25, {-33.9, 151.2, 50}, false,
     227.140597, -36.554758, 8275.31726, -5.534484, 217.904960, -6.891743, -42.162628, 46.116142, 420.56531,
     36.78900, 64.99183, 22.22176, 31.69654, -20.02516, 92.80833, 6789.11},
    {"a polar orbit, near the zenith of Tromso", "visual_2018.txt", 733, 58138.15486, {69.6, 18.9, 10}, false,
     29.907911, 83.081621, 824.03988, 0.416091, 207.683962, 75.293720, 70.279946, 20.064715, 818.73294,
     -25.10892, 2.70041, -0.22837, -59.26967, -20.26642, 126.97945, 7177.94},
    {"an eccentric low orbit by day", "visual_2018.txt", 694, 58138.15139, {-33.9, 151.2, 50}, false,
     13.363854, 69.325346, 1364.28596, 0.654901, 329.751109, -13.779678, -30.381757, 152.163434, 1291.66094,
     65.43738, 99.79966, 102.44428, 8.71949, -20.26718, 128.22839, 7664.36},
    {"a Molniya orbit, high", "catalogue_2018.txt", 7276, 58138.4, {40, -105, 1600}, false,
     36.446064, 25.612938, 35369.52652, 0.520070, 262.793873, 56.474227, 60.579421, -15.348631, 32178.09265,
     -53.22216, 78.81805, 65.25398, -17.86302, -20.21307, 38.74712, 38540.02},
    {"ISS with Earth parameters", "visual_2018.txt", 25544, 58139.8632, {48.25, 16.5, 200}, true,
     87.628562, 71.363514, 428.73765, 2.066193, 115.296037, 45.748880, 48.284852, 18.234031, 407.83765,
     -49.62683, -30.88558, 12.53301, 31.60363, -19.88681, -127.90181, 6774.10},
    {"a Molniya orbit with Earth parameters", "catalogue_2018.txt", 7276, 58138.9, {40, -105, 1600}, true,
     301.191822, 39.235947, 32014.20665, -0.896282, 267.971220, 45.552065, 47.804930, -165.193923, 30006.27876,
     21.17209, 98.76987, 83.39147, -15.74374, -20.10309, -141.21744, 36372.69},
    // clang-format on
};

void setEarthParameters(WinpData& in)
{
    in.IERSflg = true;
    in.Ut1Utc = 0.2;
    in.UtcTai = -37;
    in.IERSxp = 0.1;
    in.IERSyp = 0.4;
}

double degrees(double packed)
{
    return DmsDegF(packed);
}

/// A two-body satellite in slot k, in a plane whose node is at the vernal equinox.
void setKeplerian(WinpData& in, int k, double a, double e, double inc, double n0)
{
    in.aflg[k] = 0;
    in.mjdep[k] = 58138.0;
    in.a[k] = a;
    in.ecc[k] = e;
    in.inc[k] = inc;
    in.n0[k] = n0;
    in.ra[k] = 0;
    in.aper[k] = 0;
    in.m0[k] = 0;
    in.adot[k] = 0;
    in.ndot[k] = 0;
    in.n6dot[k] = 0;
}

Vec3 stateKm(const WinpData& in, int k)
{
    return Vec3(in.csr0[k], in.csr1[k], in.csr2[k]) * 0.001;
}

Vec3 velocityKm(const WinpData& in, int k)
{
    return Vec3(in.csv0[k], in.csv1[k], in.csv2[k]) * 0.001;
}

TEST(Position, AgreesWithAnIndependentChain)
{
    for (const PlaceCase& c : placeCases) {
        SCOPED_TRACE(c.what);
        WinpData in = recordAt(c.site);
        ASSERT_TRUE(loadElements(in, 0, c.file, c.norad));
        in.satn = 1;
        in.yrepoch = 2000.0;
        in.moonflg = 1;
        if (c.earthParameters)
            setEarthParameters(in);
        SatPosData sp;
        GetSatPos(c.mjd, &in, &sp, 0, 0);

        // The short nutation is good to 0.3 arc seconds and enters twice; the long one is good to 0.01.
        const double turn = c.earthParameters ? 1.0e-7 : 3.0e-6;
        const double shiftKm = turn * c.radius + 2e-5;
        const double seenDeg = shiftKm / c.range * degPerRad + 1e-6;
        EXPECT_NEAR(sp.az[0], c.az, seenDeg / std::cos(c.el * radPerDeg));
        EXPECT_NEAR(sp.el[0], c.el, seenDeg);
        EXPECT_NEAR(sp.dst[0], c.range, shiftKm);
        // the observer's speed is that of a sphere: 0.00335 sin^2 of 0.465 km/s cos of the latitude too much
        EXPECT_NEAR(sp.rrate[0], c.rate, 6e-4 + 8.0 * shiftKm / c.range);
        EXPECT_NEAR(degrees(sp.ra[0]) * 15.0, c.ra, seenDeg / std::cos(c.dec * radPerDeg));
        EXPECT_NEAR(degrees(sp.dec[0]), c.dec, seenDeg);
        const double groundDeg = turn * degPerRad + 1e-6;
        EXPECT_NEAR(sp.lat[0], c.lat, groundDeg);
        EXPECT_NEAR(sp.lng[0], c.lng, groundDeg / std::cos(c.lat * radPerDeg));
        EXPECT_NEAR(sp.hgt[0], c.height, 1e-3);
        EXPECT_NEAR(abs(sp.rsat), c.radius, 0.006);  // two digits printed
        EXPECT_NEAR(sp.beta[0], c.beta, 0.0012);

        // the Sun series is good to 3 arc seconds, the Moon of the reference to 10 and ours to 5.5
        EXPECT_NEAR(sp.osunel, c.sunAtSite, 0.0012);
        EXPECT_NEAR(sp.sunel[0], c.sunAtSatellite, 0.0014);
        EXPECT_NEAR(sp.moonel[0], c.moonAtSatellite, 0.0045);
        EXPECT_NEAR(sp.sslat, c.sslat, 0.0012);
        EXPECT_NEAR(sp.sslng, c.sslng, 0.0012);
    }
}

TEST(Position, EpochZeroGivesPlacesOfDate)
{
    WinpData in = recordAt(vienna);
    ASSERT_TRUE(loadElements(in, 0, "visual_2018.txt", 25544));
    in.satn = 1;
    SatPosData ofDate;
    SatPosData of2000;
    GetSatPos(58139.8613, &in, &ofDate, 0, 0);
    in.yrepoch = 2000.0;
    GetSatPos(58139.8613, &in, &of2000, 0, 0);
    EXPECT_EQ(ofDate.az[0], of2000.az[0]);
    EXPECT_EQ(ofDate.el[0], of2000.el[0]);
    // general precession, 50.3 arc seconds a year over 18.05 years, less the nutation
    const Vec3 a = polcar(Vec3(1, degrees(ofDate.ra[0]) * 15 * radPerDeg, degrees(ofDate.dec[0]) * radPerDeg));
    const Vec3 b = polcar(Vec3(1, degrees(of2000.ra[0]) * 15 * radPerDeg, degrees(of2000.dec[0]) * radPerDeg));
    EXPECT_NEAR(std::asin(abs(a * b)) * degPerRad, 0.25, 0.03);

    // azimuth and elevation belong to the place of date
    double ra = 0;
    double dec = 0;
    double eqeq = 0;
    nutmat((58139.8613 - 51544.5) / 36525.0, eqeq, false);
    AppRADec(58139.8613, eqeq, in.lat * radPerDeg, in.lng * radPerDeg, ofDate.az[0] * radPerDeg,
             ofDate.el[0] * radPerDeg, ra, dec);
    EXPECT_NEAR(degrees(ofDate.ra[0]) * 15.0, ra * degPerRad, 1e-6);
    EXPECT_NEAR(degrees(ofDate.dec[0]), dec * degPerRad, 1e-6);
}

TEST(Position, TwoBodyEllipseKeepsPeriodNodeAndPerigee)
{
    WinpData in = recordAt(vienna);
    in.satn = 1;
    constexpr double a = 8000.0;
    constexpr double e = 0.1;
    constexpr double inc = 40.0;
    setKeplerian(in, 0, a, e, inc, 12.0);
    SatPosData sp;
    GetSatPos(58138.0, &in, &sp, 0, 0);
    EXPECT_NEAR(abs(stateKm(in, 0)), a * (1 - e), 1e-6);
    // vis viva with the day as the unit of time
    const double speed = std::sqrt(2.9755364003e15 / a * (1 + e) / (1 - e)) / daySeconds;
    EXPECT_NEAR(abs(velocityKm(in, 0)), speed, 1e-9);

    // Ten days and a whole number of revolutions later it is at perigee again. By the textbook rates of J2 the node
    // has moved by -1.5 n J2 (R/p)^2 cos i and the perigee by 1.5 n J2 (R/p)^2 (2 - 2.5 sin^2 i); this J2 is
    // 0.001082628.
    GetSatPos(58148.0, &in, &sp, 0, 0);
    EXPECT_NEAR(abs(stateKm(in, 0)), a * (1 - e), 1e-5);
    const double p = a * (1 - e * e);
    const double rate = 1.5 * 12.0 * 360.0 * 0.001082628 * (6378.137 / p) * (6378.137 / p);
    const double cosi = std::cos(inc * radPerDeg);
    const double node = -rate * cosi * 10.0;
    const double perigee = rate * (2.0 - 2.5 * (1 - cosi * cosi)) * 10.0;
    const Vec3 h = stateKm(in, 0) * velocityKm(in, 0);
    EXPECT_NEAR(std::atan2(h[0], -h[1]) * degPerRad, node, 1e-4 * std::abs(node));
    const Vec3 toNode = vnorm(Vec3(std::cos(node * radPerDeg), std::sin(node * radPerDeg), 0));
    const Vec3 toPerigee = vnorm(stateKm(in, 0));
    const double fromNode = std::atan2(dot(vnorm(h), toNode * toPerigee), dot(toNode, toPerigee)) * degPerRad;
    EXPECT_NEAR(fromNode, perigee, 1e-4 * perigee);
}

TEST(Position, MeanMotionGrowsByTheFieldWithoutAHalf)
{
    // Equatorial and nearly circular: a difference of position is one of mean anomaly. Chosen so that after 5 days it
    // is a quarter of a revolution: 0.01 * 25, and with the second derivative (0.01 + 0.001 * 5) * 25 = 0.375.
    struct DragCase
    {
        double ndot, n6dot, revolutions;
    };
    for (const DragCase& c : {DragCase{0.01, 0, 0.25}, DragCase{0.01, 0.001, 0.375}}) {
        WinpData in = recordAt(vienna);
        in.satn = 1;
        setKeplerian(in, 0, 7000.0, 0.0, 0.0, 14.0);
        SatPosData sp;
        GetSatPos(58143.0, &in, &sp, 0, 0);
        const Vec3 without = stateKm(in, 0);
        in.ndot[0] = c.ndot;
        in.n6dot[0] = c.n6dot;
        GetSatPos(58143.0, &in, &sp, 0, 0);
        const Vec3 with = stateKm(in, 0);
        const double angle = std::atan2((without * with)[2], dot(without, with)) / twoPi;
        EXPECT_NEAR(angle, c.revolutions, 1e-9);
    }
}

/// Two satellites over central Europe.
WinpData pair()
{
    WinpData in = recordAt(vienna);
    EXPECT_TRUE(loadElements(in, 0, "visual_2018.txt", 25544));
    EXPECT_TRUE(loadElements(in, 1, "visual_2018.txt", 733));
    in.satn = 2;
    in.prs = 0;
    in.rlm = 1;
    return in;
}

TEST(RelativeMode, SeesThePrimeFromTheSecondSatellite)
{
    constexpr double t = 58139.8613;
    WinpData in = pair();
    SatPosData second;
    GetSatPos(t, &in, &second, 1, 0);

    SatPosData sp;
    sp.lat[1] = 1.0;
    sp.lng[1] = 2.0;
    sp.hgt[1] = 3.0;
    GetSatPos(t, &in, &sp, 0, 0);
    EXPECT_EQ(sp.ra[0], second.lat[1]);
    EXPECT_EQ(sp.dec[0], second.lng[1]);
    EXPECT_EQ(sp.sunel[0], second.hgt[1]);
    EXPECT_EQ(sp.sunel2, second.sunel[1]);
    EXPECT_EQ(sp.lat[1], 1.0);
    EXPECT_EQ(sp.lng[1], 2.0);
    EXPECT_EQ(sp.hgt[1], 3.0);
    EXPECT_EQ(in.lat, vienna.lat);
    EXPECT_EQ(in.lng, vienna.lng);
    EXPECT_EQ(in.height, vienna.height);

    // an observer who stands where the second satellite is sees the same
    WinpData there = pair();
    there.rlm = 0;
    there.lat = second.lat[1];
    there.lng = second.lng[1];
    there.height = second.hgt[1] * 1000.0;
    SatPosData direct;
    GetSatPos(t, &there, &direct, 0, 0);
    EXPECT_EQ(sp.az[0], direct.az[0]);
    EXPECT_EQ(sp.el[0], direct.el[0]);
    EXPECT_EQ(sp.dst[0], direct.dst[0]);
    EXPECT_EQ(sp.sunel1, direct.sunel[0]);
}

TEST(RelativeMode, RangeRateIsThatOfTheTwoSatellites)
{
    constexpr double t = 58139.8613;
    const auto distance = [](double at) {
        WinpData in = pair();
        in.rlm = 0;
        SatPosData sp;
        GetSatPos(at, &in, &sp, 0, 0);
        const Vec3 first = sp.rsat;
        GetSatPos(at, &in, &sp, 1, 0);
        return abs(first - sp.rsat);
    };
    WinpData in = pair();
    SatPosData sp;
    GetSatPos(t, &in, &sp, 0, 0);
    // second differences over 2 s: the acceleration changes by 1e-5 km/s^2 in a second
    EXPECT_NEAR(sp.rrate[0], (distance(t + 1.0 / daySeconds) - distance(t - 1.0 / daySeconds)) / 2.0, 1e-4);
}

TEST(Refraction, AgreesWithTheAlmanacAndItsOwnLimits)
{
    WinpData in = recordAt(vienna);
    in.refrc = true;
    struct RefractionCase
    {
        double el, minutes;
    };
    // Meeus, Astronomical Algorithms, chapter 16, for apparent altitudes; whole tenths
    for (const RefractionCase& c :
         {RefractionCase{0, 34.5}, RefractionCase{1, 24.3}, RefractionCase{2, 18.2}, RefractionCase{5, 9.8},
          RefractionCase{10, 5.3}, RefractionCase{20, 2.6}, RefractionCase{45, 1.0}, RefractionCase{70, 0.4}})
        EXPECT_NEAR((ElvRefr(&in, c.el) - c.el) * 60.0, c.minutes, 0.5) << c.el;

    EXPECT_EQ(ElvRefr(&in, 85.0), 85.0);
    EXPECT_EQ(ElvRefr(&in, -2.0), -2.0);
    EXPECT_NEAR(ElvRefr(&in, -1.0), -1.0 + 0.84446937, 1e-12);
    EXPECT_GT(ElvRefr(&in, 84.999), 84.999);
    in.rlm = 1;
    EXPECT_EQ(ElvRefr(&in, 5.0), 5.0);
    in.rlm = 0;
    in.refrc = false;
    EXPECT_EQ(ElvRefr(&in, 5.0), 5.0);
}

}  // namespace
