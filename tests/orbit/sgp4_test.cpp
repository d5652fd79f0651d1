#include "orbit/sgp4.h"

#include <cmath>
#include <limits>
#include <memory>
#include <numbers>
#include <utility>

#include <gtest/gtest.h>

#include "astro/angles.h"
#include "orbit/turn.h"
#include "verification_helper.h"

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double inf = std::numeric_limits<double>::infinity();

/// A record without a loaded set.
std::unique_ptr<WinpData> emptyRecord()
{
    auto in = std::make_unique<WinpData>();
    in->sgpsat = noSlot;
    in->sdp4 = true;
    return in;
}

void putSet(WinpData& in, int k, const VerificationElements& set)
{
    in.mjdep[k] = set.epoch + 33281.0;
    in.bstar[k] = set.bstar;
    in.ecc[k] = set.ecco;
    in.aper[k] = set.argpo * degPerRad;
    in.inc[k] = set.inclo * degPerRad;
    in.m0[k] = set.mo * degPerRad;
    in.ra[k] = set.nodeo * degPerRad;
    in.n0[k] = set.no * 1440.0 / twoPi;
    in.sgpsat = noSlot;
}

std::unique_ptr<WinpData> recordOf(int norad)
{
    auto in = emptyRecord();
    putSet(*in, 0, verificationSet(norad));
    return in;
}

struct State
{
    Vec3 r, v;
};

State stateAt(WinpData& in, double minutes, int k = 0)
{
    State s;
    Sgp4(&in, minutes / 1440.0, k, s.r, s.v);
    return s;
}

bool isPlaceholder(const State& s)
{
    return s.r[0] == 100.0 && s.r[1] == 0.0 && s.r[2] == 0.0 && s.v[0] == 0.0 && s.v[1] == 10.0 && s.v[2] == 0.0;
}

// degrees are kept to the last digit, radians made of them to 1e-16 of a turn
void expectPosition(const State& s, const Vec3& km, double tolerance = 2e-8)
{
    for (unsigned k = 0; k < 3; ++k)
        EXPECT_NEAR(s.r[k], km[k], tolerance);
}

void expectSame(const State& a, const State& b)
{
    for (unsigned k = 0; k < 3; ++k) {
        EXPECT_EQ(a.r[k], b.r[k]);
        EXPECT_EQ(a.v[k], b.v[k]);
    }
}

TEST(Gstime, AgreesWithPublishedSiderealTimes)
{
    // Meeus, Astronomical Algorithms (2nd ed.), examples 12.a and 12.b; a Julian Date resolves 40 microseconds
    constexpr double radPerSecond = twoPi / 86400.0;
    EXPECT_NEAR(gstime(2446895.5) / radPerSecond, (13 * 60 + 10) * 60 + 46.3668, 1e-4);
    EXPECT_NEAR(gstime(2446896.30625) / radPerSecond, (8 * 60 + 34) * 60 + 57.0896, 1e-4);
}

TEST(Sgp4, StartsTheResonanceAtEpochInEachCall)
{
    for (const int norad : {8195, 24208}) {
        SCOPED_TRACE(norad);
        elsetrec sat;
        initVerification(verificationSet(norad), sat);
        double first[3], r[3], v[3];
        sgp4(wgs72, sat, 5000.0, first, v);
        for (const auto& [t, atime] :
             {std::pair{0.0, 0.0}, {719.9, 0.0}, {-720.0, -720.0}, {2160.5, 2160.0}, {-3599.0, -2880.0}}) {
            EXPECT_EQ(sgp4(wgs72, sat, t, r, v), 0);
            EXPECT_EQ(sat.atime, atime);
        }
        sgp4(wgs72, sat, 5000.0, r, v);
        for (int k = 0; k < 3; ++k)
            EXPECT_EQ(r[k], first[k]);
    }
}

/// The state of a set, with another one propagated before or not.
State stateOfSet(elsetrec sat, double t, bool another)
{
    State s;
    double r[3], v[3];
    if (another) {
        elsetrec other;
        initVerification(verificationSet(sat.irez == 1 ? 8195 : 24208), other);
        sgp4(wgs72, other, 2000.0, r, v);
    }
    sgp4(wgs72, sat, t, r, v);
    s.r.assign(r[0], r[1], r[2]);
    s.v.assign(v[0], v[1], v[2]);
    return s;
}

// What is kept of the last set saves time and changes nothing, nor where the owner of a record changes a field.
TEST(Sgp4, GivesTheSameAfterItselfAndAfterAnotherSet)
{
    for (const int norad : {5, 8195, 24208})
        for (const double t : {100.0, 1500.0, 5000.0, 3000.0, -800.0, -3000.0, 1440.0, 1439.0}) {
            elsetrec sat;
            initVerification(verificationSet(norad), sat);
            for (double elsetrec::*const field : {&elsetrec::t, &elsetrec::inclo, &elsetrec::no, &elsetrec::argpo,
                                                  &elsetrec::del2, &elsetrec::d2201, &elsetrec::xlamo}) {
                SCOPED_TRACE(norad);
                sat.*field *= 1.001;
                const State same = stateOfSet(sat, t, false);
                expectSame(same, stateOfSet(sat, t, true));
            }
        }
}

TEST(Turn, IsTheRemainderOfTheStandardFunction)
{
    for (int turns = 0; turns < 900000; turns += 1 + turns / 3)
        for (const double beyond : {-1.0, -1e-9, 0.0, 1e-12, 3.0}) {
            const double x = turns * twoPi + beyond;
            for (const double y : {x, -x, std::nextafter(x, 1e9), std::nextafter(x, -1e9), 1e6 * x}) {
                EXPECT_EQ(withinTurn(y), std::fmod(y, twoPi)) << y;
                EXPECT_EQ(std::signbit(withinTurn(y)), std::signbit(std::fmod(y, twoPi))) << y;
            }
        }
    EXPECT_TRUE(std::isnan(withinTurn(inf)) && std::isnan(withinTurn(nan)));
}

TEST(Sgp4, TellsWhatIsOutOfRange)
{
    double r[3], v[3];
    elsetrec sat;
    initVerification(verificationSet(5), sat);
    sat.no = 0.0;
    EXPECT_EQ(sgp4(wgs72, sat, 0.0, r, v), 2);
    sat.no = -0.01;
    EXPECT_EQ(sgp4(wgs72, sat, 0.0, r, v), 2);

    initVerification(verificationSet(8195), sat);
    sat.peo = 0.75;  // more than the eccentricity
    EXPECT_EQ(sgp4(wgs72, sat, 0.0, r, v), 3);

    // an axis of 0.94 Earth radii, the satellite at its apogee above the ground
    const double no = 0.07436691613317342 / std::pow(0.94, 1.5);
    EXPECT_EQ(sgp4init(wgs72, true, 20000.0, 0.0, 0.3, 0.0, 1.0, std::numbers::pi, no, 0.0, sat), 5);
    EXPECT_EQ(sgp4(wgs72, sat, 0.0, r, v), 1);
}

TEST(Sgp4, IsContinuousWhereTheNodePassesAFullTurn)
{
    // 23599 with less inclination stays in Lyddane's modification while its node goes through zero
    VerificationElements set = verificationSet(23599);
    set.inclo = 0.1;
    set.nodeo = 0.0;
    elsetrec sat;
    ASSERT_EQ(initVerification(set, sat), 0);
    double before[3], r[3], v[3];
    ASSERT_EQ(sgp4(wgs72, sat, -30.0, before, v), 0);
    for (double t = -29.99; t < 30.0; t += 0.01) {
        ASSERT_EQ(sgp4(wgs72, sat, t, r, v), 0);
        const Vec3 moved = Vec3(r[0], r[1], r[2]) - Vec3(before[0], before[1], before[2]);
        ASSERT_LT(abs(moved), 0.6 * 11.2) << t;  // 0.6 seconds at escape speed
        std::copy(r, r + 3, before);
    }
}

TEST(Sgp4Glue, FollowsTheChoiceOfConstantsAndEquations)
{
    // worked out with the Python edition of the procedures (sgp4 2.15, Brandon Rhodes)
    auto in = recordOf(5);
    in->wgs = 1;
    expectPosition(stateAt(*in, 720.0), {-7134.58527804, 6531.69640388, 3260.28168847});
    in = recordOf(8195);
    in->wgs = 1;
    expectPosition(stateAt(*in, 720.0), {2622.16217739, -15125.14715163, 474.57470623});
    in = recordOf(8195);
    in->sdp4 = false;
    expectPosition(stateAt(*in, 720.0), {2663.32309699, -15146.23952031, 528.74258326});
    in = recordOf(24208);
    in->sdp4 = false;
    expectPosition(stateAt(*in, 720.0), {-6886.33092433, -41528.38765431, -28.67458006});
}

TEST(Sgp4Glue, LoadsTheSetOfTheSlotOnlyWhenItChanges)
{
    auto in = recordOf(5);
    putSet(*in, 3, verificationSet(6251));
    const State first = stateAt(*in, 360.0, 0);
    in->ecc[0] = 0.5;  // not seen before the next load
    expectSame(stateAt(*in, 360.0, 0), first);
    expectPosition(stateAt(*in, 0.0, 3), {3988.31022699, 5498.96657235, 0.90055879});
    EXPECT_EQ(in->sgpsat, 3);
    EXPECT_NE(stateAt(*in, 360.0, 0).r[0], first.r[0]);
}

TEST(Sgp4Glue, ReplacesZeroEccentricityAndZeroMotion)
{
    auto in = recordOf(6251);
    in->ecc[0] = 0.0;
    auto floor = recordOf(6251);
    floor->ecc[0] = 1e-8;
    expectSame(stateAt(*in, 100.0), stateAt(*floor, 100.0));
    EXPECT_EQ(satrec.ecco, 1e-8);

    in->n0[0] = 0.0;
    in->sgpsat = noSlot;
    stateAt(*in, 0.0);
    elsetrec one;
    VerificationElements set = verificationSet(6251);
    set.ecco = 1e-8;
    set.no = 1.0;
    initVerification(set, one);
    EXPECT_EQ(satrec.no, one.no);
}

TEST(Sgp4Glue, GivesThePlaceholderForADecayedSatelliteAndKeepsTheSlot)
{
    auto in = recordOf(29141);
    EXPECT_FALSE(isPlaceholder(stateAt(*in, 420.0)));
    EXPECT_TRUE(isPlaceholder(stateAt(*in, 440.0)));
    EXPECT_EQ(in->sgpsat, 0);
    EXPECT_FALSE(isPlaceholder(stateAt(*in, 420.0)));
}

TEST(Sgp4Glue, TakesAnyElementsAndAnyTime)
{
    using Field = double(WinpData::*)[slots];
    const Field fields[] = {&WinpData::mjdep, &WinpData::bstar, &WinpData::ecc, &WinpData::aper,
                            &WinpData::inc,   &WinpData::m0,    &WinpData::ra,  &WinpData::n0};
    const double values[] = {nan, inf, -inf, 1e300, -1e300, 1e-300, -1.0, 1.0, 2.0, 1e5, 180.0};
    const double minutes[] = {0.0, 1440.0, -1e5, 1e9, 1e300, nan, inf, -inf};
    for (const int norad : {6251, 8195, 24208, 23177})
        for (const Field field : fields)
            for (const double value : values) {
                auto in = recordOf(norad);
                (in.get()->*field)[0] = value;
                for (const double t : minutes) {
                    const State s = stateAt(*in, t);
                    for (unsigned k = 0; k < 3; ++k) {
                        ASSERT_TRUE(std::isfinite(s.r[k]));
                        ASSERT_TRUE(std::isfinite(s.v[k]));
                    }
                }
            }
}

struct SenselessCase
{
    const char* what;
    double ecc, n0, minutes;
};

constexpr SenselessCase senselessCases[] = {
    {"parabola", 1.0, 2.0, 10.0},           {"hyperbola", 1.5, 2.0, 10.0},
    {"negative motion", 0.1, -2.0, 10.0},   {"no number as motion", 0.1, nan, 10.0},
    {"no number as shape", nan, 2.0, 10.0}, {"no number as time", 0.1, 2.0, nan},
    {"infinite time", 0.1, 15.0, inf},      {"no end of resonance", 0.7, 2.006, 1e15},
};

TEST(Sgp4Glue, GivesThePlaceholderWhereThereIsNoOrbit)
{
    for (const SenselessCase& c : senselessCases) {
        SCOPED_TRACE(c.what);
        auto in = recordOf(8195);
        in->ecc[0] = c.ecc;
        in->n0[0] = c.n0;
        EXPECT_TRUE(isPlaceholder(stateAt(*in, c.minutes)));
    }
}

}  // namespace
