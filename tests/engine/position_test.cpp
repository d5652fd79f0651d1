#include "engine/position.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "astro/angles.h"
#include "astro/frames.h"
#include "engine/epoch_state.h"
#include "engine/record_helper.h"

namespace {

/// A two-body satellite in a plane whose node is at the vernal equinox.
WinpData keplerian(double a, double e, double inc, double n0)
{
    WinpData in = recordAt(vienna);
    in.satn = 1;
    in.aflg[0] = 0;
    in.mjdep[0] = 58138.0;
    in.a[0] = a;
    in.ecc[0] = e;
    in.inc[0] = inc;
    in.n0[0] = n0;
    in.aper[0] = 30.0;
    return in;
}

/// The state that a call leaves in the slot, km and km/s.
struct StateAt
{
    StateAt(double t, WinpData& in)
    {
        positionAt(t, in);
        r = Vec3(in.csr0[0], in.csr1[0], in.csr2[0]) * 0.001;
        v = Vec3(in.csv0[0], in.csv1[0], in.csv2[0]) * 0.001;
    }
    Vec3 r, v;
};

TEST(Position, AgreesWithAnIndependentChain)
{
    const Section figures = sectionsOf("positions_2018.txt").at(0);
    for (const std::vector<std::string>& row : figures.rows) {
        SCOPED_TRACE(row[1] + " at " + row[2]);
        const auto c = [&](const char* column) {
            const auto at = std::find(figures.head.begin() + 1, figures.head.end(), column);
            return std::stod(row.at(static_cast<std::size_t>(at - figures.head.begin() - 1)));
        };
        const bool precise = c("EarthParameters") != 0;
        WinpData in = recordWith({std::stoi(row[1])}, {c("siteLat"), c("siteLng"), c("siteHeight")}, row[0].c_str());
        in.yrepoch = 2000.0;
        in.moonflg = 1;
        in.Ut1Utc = 0.2;
        if (precise) {
            in.IERSflg = true;
            in.UtcTai = -37;
            in.IERSxp = 0.1;
            in.IERSyp = 0.4;
        }
        const SatPosData sp = positionAt(c("MJD"), in);

        // The short nutation is good to 0.3 arc seconds and enters twice; the long one is good to 0.01.
        const double turn = precise ? 1.0e-7 : 3.0e-6;
        const double shiftKm = turn * c("radius") + 2e-5;
        const double seenDeg = shiftKm / c("range") * degPerRad + 1e-6;
        EXPECT_NEAR(sp.az[0], c("az"), seenDeg / std::cos(c("el") * radPerDeg));
        EXPECT_NEAR(sp.el[0], c("el"), seenDeg);
        EXPECT_NEAR(sp.dst[0], c("range"), shiftKm);
        // the observer's speed is that of a sphere: 0.00335 sin^2 of 0.465 km/s cos of the latitude too much
        EXPECT_NEAR(sp.rrate[0], c("rate"), 6e-4 + 8.0 * shiftKm / c("range"));
        EXPECT_NEAR(DmsDegF(sp.ra[0]) * 15.0, c("ra"), seenDeg / std::cos(c("dec") * radPerDeg));
        EXPECT_NEAR(DmsDegF(sp.dec[0]), c("dec"), seenDeg);
        const double groundDeg = turn * degPerRad + 1e-6;
        EXPECT_NEAR(sp.lat[0], c("lat"), groundDeg);
        EXPECT_NEAR(sp.lng[0], c("lng"), groundDeg / std::cos(c("lat") * radPerDeg));
        EXPECT_NEAR(sp.hgt[0], c("height"), 1e-3);
        EXPECT_NEAR(abs(sp.rsat), c("radius"), 0.006);  // two digits printed
        EXPECT_NEAR(sp.beta[0], c("beta"), 0.0012);

        // the Sun series is good to 3 arc seconds, the Moon of the reference to 10 and ours to 5.5
        EXPECT_NEAR(sp.osunel, c("sunAtSite"), 0.0012);
        EXPECT_NEAR(sp.sunel[0], c("sunAtSatellite"), 0.0014);
        EXPECT_NEAR(sp.moonel[0], c("moonAtSatellite"), 0.0045);
        EXPECT_NEAR(sp.sslat, c("sslat"), 0.0012);
        EXPECT_NEAR(sp.sslng, c("sslng"), 0.0012);
    }
}

TEST(Position, RangeRateIsTheChangeOfTheRange)
{
    // a hyperbola has no secular changes, which the velocity leaves out; on the equator the Earth is as round as the
    // observer's speed takes it
    WinpData in = keplerian(0.0, 1.2, 5.0, 42000.0);
    in.lat = in.height = 0.0;
    constexpr double t = 58138.01;
    constexpr double s = 10.0 * secondDays;
    for (const double lng : {0.0, 90.0, 200.0}) {
        in.lng = lng;
        const double change = positionAt(t + s, in).dst[0] - positionAt(t - s, in).dst[0];
        EXPECT_NEAR(positionAt(t, in).rrate[0], change / 20.0, 2e-5) << lng;
    }
}

TEST(Position, EpochOfCoordinatesIsClamped)
{
    WinpData in = recordWith({25544});
    const auto rightAscension = [&](double year) {
        in.yrepoch = year;
        return positionAt(58139.0, in).ra[0];
    };
    EXPECT_EQ(rightAscension(1e5), rightAscension(2e5));
    EXPECT_NE(rightAscension(99999.0), rightAscension(1e5));
}

TEST(Position, EpochZeroGivesPlacesOfDate)
{
    constexpr double t = 58139.8613;
    WinpData in = recordWith({25544});
    const SatPosData sp = positionAt(t, in);
    double ra = 0;
    double dec = 0;
    double eqeq = 0;
    nutmat((t - 51544.5) / 36525.0, eqeq, false);
    AppRADec(t, eqeq, in.lat * radPerDeg, in.lng * radPerDeg, sp.az[0] * radPerDeg, sp.el[0] * radPerDeg, ra, dec);
    EXPECT_NEAR(DmsDegF(sp.ra[0]) * 15.0, ra * degPerRad, 1e-6);
    EXPECT_NEAR(DmsDegF(sp.dec[0]), dec * degPerRad, 1e-6);
}

TEST(TwoBody, EllipseKeepsPeriodNodeAndPerigee)
{
    constexpr double a = 8000.0;
    constexpr double e = 0.1;
    constexpr double inc = 40.0;
    WinpData in = keplerian(a, e, inc, 12.0);
    const StateAt start(58138.0, in);
    EXPECT_NEAR(abs(start.r), a * (1 - e), 1e-6);
    // vis viva with the day as the unit of time
    const double speed = std::sqrt(2.9755364003e15 / a * (1 + e) / (1 - e)) / 86400.0;
    EXPECT_NEAR(abs(start.v), speed, 1e-9);

    // Ten days and a whole number of revolutions later it is at perigee again. By the textbook rates of J2 the node
    // has moved by -1.5 n J2 (R/p)^2 cos i and the perigee by 1.5 n J2 (R/p)^2 (2 - 2.5 sin^2 i); this J2 is
    // 0.001082628.
    const StateAt later(58148.0, in);
    EXPECT_NEAR(abs(later.r), a * (1 - e), 1e-5);
    WinpData growing = in;
    growing.adot[0] = 5.0;
    EXPECT_NEAR(abs(StateAt(58148.0, growing).r), (a + 50.0) * (1 - e), 1e-5);
    const double p = a * (1 - e * e);
    const double rate = 1.5 * 12.0 * 360.0 * 0.001082628 * (6378.137 / p) * (6378.137 / p);
    const double cosi = std::cos(inc * radPerDeg);
    const double node = -rate * cosi * 10.0;
    const double perigee = 30.0 + rate * (2.0 - 2.5 * (1 - cosi * cosi)) * 10.0;
    const Vec3 h = later.r * later.v;
    EXPECT_NEAR(std::atan2(h[0], -h[1]) * degPerRad, node, 1e-4 * std::abs(node));
    const Vec3 toNode = direction(node, 0);
    EXPECT_NEAR(std::atan2(dot(vnorm(h), toNode * vnorm(later.r)), dot(toNode, vnorm(later.r))) * degPerRad, perigee,
                1e-4 * perigee);
}

TEST(TwoBody, OpenOrbitsHaveThePerigeeDistanceInThePlaceOfTheMeanMotion)
{
    for (const double e : {1.0, 1.3}) {
        WinpData in = keplerian(0.0, e, 40.0, 7000.0);
        const StateAt perigee(58138.0, in);
        EXPECT_NEAR(abs(perigee.r), 7000.0, 1e-6);
        EXPECT_NEAR(abs(perigee.v), std::sqrt(2.9755364003e15 / 7000.0 * (1 + e)) / 86400.0, 1e-9);
    }
}

TEST(TwoBody, MeanMotionGrowsByTheFieldWithoutAHalf)
{
    // Equatorial and nearly circular: a difference of position is one of mean anomaly. Chosen so that after 5 days it
    // is a quarter of a revolution: 0.01 * 25, and with the second derivative (0.01 + 0.001 * 5) * 25 = 0.375.
    WinpData in = keplerian(7000.0, 0.0, 0.0, 14.0);
    const StateAt without(58143.0, in);
    in.ndot[0] = 0.01;
    for (const double n6dot : {0.0, 0.001}) {
        in.n6dot[0] = n6dot;
        const StateAt with(58143.0, in);
        const double angle = std::atan2((without.r * with.r)[2], dot(without.r, with.r)) / twoPi;
        EXPECT_NEAR(angle, n6dot > 0 ? 0.375 : 0.25, 1e-9);
    }
}

TEST(RelativeMode, SeesThePrimeFromTheSecondSatellite)
{
    constexpr double t = 58139.8613;
    WinpData in = recordWith({25544, 733});
    const SatPosData first = positionAt(t, in);
    const SatPosData second = positionAt(t, in, 1);
    // an observer who stands where the second satellite is sees the same
    WinpData there = in;
    there.lat = second.lat[1];
    there.lng = second.lng[1];
    there.height = second.hgt[1] * 1000.0;
    const SatPosData direct = positionAt(t, there);

    in.rlm = 1;
    in.sgpsat = noSlot;
    SatPosData sp;
    sp.lat[1] = 1.0;
    sp.lng[1] = 2.0;
    sp.hgt[1] = 3.0;
    GetSatPos(t, &in, &sp, 0, 0);
    EXPECT_EQ(std::vector({sp.ra[0], sp.dec[0], sp.sunel[0], sp.sunel2}),
              std::vector({second.lat[1], second.lng[1], second.hgt[1], second.sunel[1]}));
    EXPECT_EQ(std::vector({sp.lat[1], sp.lng[1], sp.hgt[1]}), std::vector({1.0, 2.0, 3.0}));
    EXPECT_EQ(std::vector({in.lat, in.lng, in.height}), std::vector({vienna.lat, vienna.lng, vienna.height}));
    EXPECT_EQ(std::vector({sp.az[0], sp.el[0], sp.dst[0], sp.sunel1}),
              std::vector({direct.az[0], direct.el[0], direct.dst[0], direct.sunel[0]}));
    // the second one's place goes by way of latitude and height, which are good to some centimetres
    EXPECT_NEAR(sp.dst[0], abs(first.rsat - second.rsat), 1e-4);
    EXPECT_NEAR(sp.rrate[0], dot(first.vsat - second.vsat, vnorm(first.rsat - second.rsat)), 1e-9);
}

TEST(Refraction, AgreesWithTheAlmanacAndItsOwnLimits)
{
    WinpData in = recordAt(vienna);
    in.refrc = true;
    // Meeus, Astronomical Algorithms, chapter 16, for apparent altitudes; whole tenths
    constexpr double almanac[][2] = {{0, 34.5}, {1, 24.3}, {2, 18.2}, {5, 9.8},
                                     {10, 5.3}, {20, 2.6}, {45, 1.0}, {70, 0.4}};
    for (const auto& [el, minutes] : almanac)
        EXPECT_NEAR((ElvRefr(&in, el) - el) * 60.0, minutes, 0.5) << el;

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

TEST(EpochState, IsThatOfTheAnalyticModelInTheMeanEquator)
{
    WinpData in = recordWith({25544});
    ShiftElm(&in, workSlot, 0);
    in.sgpsat = 3;
    EpochState(&in, workSlot, true);
    // python3-sgp4 2.15, WGS72, tsince 0, in metres: the true equator and mean equinox. The state of the record is
    // turned about the pole by the equation of the equinoxes, -0.665 seconds of time (ERFA nut80, obl80).
    const Vec3 expected(-20314.287, 4643403.562, 4932521.421);
    const Vec3 found(in.epr0[workSlot], in.epr1[workSlot], in.epr2[workSlot]);
    EXPECT_NEAR(found[2], expected[2], 0.01);
    EXPECT_NEAR(abs(found), abs(expected), 0.01);
    const double turn = std::atan2(found[1], found[0]) - std::atan2(expected[1], expected[0]);
    // the short nutation is good to 0.3 arc seconds, 0.02 seconds of time
    EXPECT_NEAR(turn * degPerRad * 240.0, -0.665, 0.02);
    EXPECT_EQ(in.cstm[workSlot], in.mjdep[workSlot]);
    EXPECT_EQ(in.csr0[workSlot], in.epr0[workSlot]);
    EXPECT_EQ(in.csv2[workSlot], in.epv2[workSlot]);
    EXPECT_EQ(in.sgpsat, workSlot);
}

TEST(EpochState, RunsThePrimeOutOfRelativeMode)
{
    WinpData in = recordWith({25544, 733});
    in.rlm = 1;
    EpochState(&in, 0, false);
    EXPECT_EQ(in.rlm, 1);
    // right ascension, not the latitude of the other satellite: the observer is the one on the ground
    in.rlm = 0;
    EXPECT_EQ(satpos->ra[0], positionAt(in.mjdep[0], in).ra[0]);
}

TEST(NumericSatellite, StaysNearItsAnalyticOrbitForAnHour)
{
    WinpData in = recordWith({25544});
    const double t = in.mjdep[0] + 1.0 / 24;
    const Vec3 analytic = positionAt(t, in).rsat;
    in.dF107 = 200.0;
    in.moondst = 5.0;
    EpochState(&in, 0, true);  // the current state is that of the epoch again
    EXPECT_EQ(in.moondst, 0.0);
    EXPECT_EQ(in.F107[0], 200.0);
    EXPECT_EQ(in.FB107[0], 155.0);
    in.numflg[0] = 1;
    const Vec3 numeric = positionAt(t, in).rsat;
    // a theory of mean elements is some km off in an osculating orbit of 400 km
    EXPECT_LT(abs(numeric - analytic), 5.0);
    EXPECT_GT(abs(numeric - analytic), 1e-4);
    EXPECT_NEAR(in.cstm[0], t, 1e-8);
}

TEST(NumericSatellite, FliesWithTheForcesOfItsOwnRecord)
{
    WinpData light = recordWith({25544});
    EpochState(&light, 0, true);
    light.numflg[0] = 1;
    const double t = light.mjdep[0] + 1.0 / 24;
    WinpData heavy = light;
    heavy.Am[0] = 0.2;
    *indata = heavy;
    const Vec3 expected = positionAt(t, *indata).rsat;
    *indata = light;
    EXPECT_EQ(abs(positionAt(t, heavy).rsat - expected), 0);
    EXPECT_GT(abs(positionAt(t, light).rsat - expected), 0.1);
}

}  // namespace
