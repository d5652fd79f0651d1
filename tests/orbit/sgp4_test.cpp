#include "orbit/sgp4.h"

#include <cmath>
#include <limits>
#include <memory>
#include <numbers>
#include <utility>

#include "astro/near_helper.h"
#include "flight_helper.h"
#include "orbit/turn.h"
#include "verification_helper.h"

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double inf = std::numeric_limits<double>::infinity();
const State placeholder{{100, 0, 0}, {0, 10, 0}};

/// A record with a verification set in slot 0.
std::unique_ptr<WinpData> recordOf(int norad)
{
    auto in = std::make_unique<WinpData>();
    putSet(in.get(), setOf(verificationElements(), norad));
    return in;
}

State stateAt(WinpData& in, double minutes, int k = 0)
{
    State s;
    Sgp4(&in, minutes / 1440.0, k, s.r, s.v);
    return s;
}

State stateOf(elsetrec& sat, double minutes)
{
    double r[3] = {}, v[3] = {};
    sgp4(wgs72, sat, minutes, r, v);
    return {{r[0], r[1], r[2]}, {v[0], v[1], v[2]}};
}

void expectSame(const State& a, const State& b)
{
    expectNear(a.r, b.r, 0);
    expectNear(a.v, b.v, 0);
}

bool isPlaceholder(const State& s)
{
    return abs(s.r - placeholder.r) == 0 && abs(s.v - placeholder.v) == 0;
}

TEST(Sgp4, StartsTheResonanceAtEpochInEachCall)
{
    for (const int norad : {8195, 24208}) {
        elsetrec sat = loadedSet(norad);
        const State first = stateOf(sat, 5000.0);
        for (const auto& [t, atime] :
             {std::pair{0.0, 0.0}, {719.9, 0.0}, {-720.0, -720.0}, {2160.5, 2160.0}, {-3599.0, -2880.0}}) {
            stateOf(sat, t);
            EXPECT_EQ(sat.error, 0);
            EXPECT_EQ(sat.atime, atime);
        }
        expectSame(stateOf(sat, 5000.0), first);
    }
}

// What is kept of the last set saves time and changes nothing, nor where the owner of a record changes a field.
TEST(Sgp4, GivesTheSameAfterItselfAndAfterAnotherSet)
{
    for (const int norad : {5, 8195, 24208})
        for (const double t : {100.0, 1500.0, 5000.0, 3000.0, -800.0, -3000.0, 1440.0, 1439.0}) {
            elsetrec sat = loadedSet(norad), other = loadedSet(norad == 24208 ? 8195 : 24208);
            for (double elsetrec::*const field : {&elsetrec::t, &elsetrec::inclo, &elsetrec::no, &elsetrec::argpo,
                                                  &elsetrec::del2, &elsetrec::d2201, &elsetrec::xlamo}) {
                sat.*field *= 1.001;
                elsetrec copy = sat;
                const State same = stateOf(copy, t);
                stateOf(other, 2000.0);
                copy = sat;
                expectSame(stateOf(copy, t), same);
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
    elsetrec sat = loadedSet(5);
    for (const double no : {0.0, -0.01}) {
        sat.no = no;
        stateOf(sat, 0.0);
        EXPECT_EQ(sat.error, 2);
    }
    sat = loadedSet(8195);
    sat.peo = 0.75;  // more than the eccentricity
    stateOf(sat, 0.0);
    EXPECT_EQ(sat.error, 3);
    // an axis of 0.94 Earth radii, the satellite at its apogee above the ground
    const double no = 0.07436691613317342 / std::pow(0.94, 1.5);
    EXPECT_EQ(sgp4init(wgs72, true, 20000.0, 0.0, 0.3, 0.0, 1.0, std::numbers::pi, no, 0.0, sat), 5);
    stateOf(sat, 0.0);
    EXPECT_EQ(sat.error, 1);
}

TEST(Sgp4, IsContinuousWhereTheNodePassesAFullTurn)
{
    // 23599 with less inclination stays in Lyddane's modification while its node goes through zero
    VerificationElements set = setOf(verificationElements(), 23599);
    set.inclo = 0.1;
    set.nodeo = 0.0;
    elsetrec sat;
    ASSERT_EQ(initVerification(set, sat), 0);
    Vec3 before = stateOf(sat, -30.0).r;
    for (double t = -29.99; t < 30.0; t += 0.01) {
        const Vec3 r = stateOf(sat, t).r;
        ASSERT_EQ(sat.error, 0);
        ASSERT_LT(abs(r - before), 0.6 * 11.2) << t;  // 0.6 seconds at escape speed
        before = r;
    }
}

TEST(Sgp4, TakesTheOtherFormulaJustBeyondItsLimits)
{
    struct Row
    {
        const char* limit;
        double inclination, node, ecc, perigee, anomaly, motion, bstar, minutes;
        Vec3 km;  // of python-sgp4
    };
    const Row rows[] = {
        {"a perigee of 95 km, below 98",
         51.6,
         120,
         0.019,
         40,
         30,
         16.2,
         1e-5,
         600,
         {-1682.145692542203, 6085.120874614751, -1689.0945321244476}},
        {"half a day, an eccentricity above 0.5",
         63.4,
         200,
         0.51,
         270,
         10,
         2.0061,
         0,
         14400,
         {-18112.292900912, -5822.501843682, -1074.286576037}},
        {"an inclination of 2.7 degrees, below 3",
         2.7,
         80,
         0.0005,
         100,
         50,
         1.0027,
         0,
         14400,
         {-21209.617545090, -36424.696140272, 692.758464494}},
    };
    for (const Row& row : rows) {
        const VerificationElements set{99999,
                                       24857.0,
                                       row.bstar,
                                       row.ecc,
                                       row.perigee * radPerDeg,
                                       row.inclination * radPerDeg,
                                       row.anomaly * radPerDeg,
                                       row.motion * twoPi / 1440.0,
                                       row.node * radPerDeg};
        elsetrec sat;
        ASSERT_EQ(initVerification(set, sat), 0);
        EXPECT_LT(abs(stateOf(sat, row.minutes).r - row.km), 1e-6) << row.limit;
    }
}

struct ChoiceCase
{
    int norad, wgs;
    bool sdp4;
    Vec3 km;
};

TEST(Sgp4Glue, FollowsTheChoiceOfConstantsAndEquations)
{
    // worked out with the Python edition of the procedures (sgp4 2.15, Brandon Rhodes), 720 minutes from epoch
    const ChoiceCase cases[] = {
        {5, 1, true, {-7134.58527804, 6531.69640388, 3260.28168847}},
        {8195, 1, true, {2622.16217739, -15125.14715163, 474.57470623}},
        {8195, 0, false, {2663.32309699, -15146.23952031, 528.74258326}},
        {24208, 0, false, {-6886.33092433, -41528.38765431, -28.67458006}},
    };
    for (const ChoiceCase& c : cases) {
        const auto in = recordOf(c.norad);
        in->wgs = c.wgs;
        in->sdp4 = c.sdp4;
        expectNear(stateAt(*in, 720.0).r, c.km, 2e-8);  // degrees have their last digit, radians 1e-16 of a turn
    }
}

TEST(Sgp4Glue, LoadsTheSetOfTheSlotOnlyWhenItChanges)
{
    const auto in = recordOf(6251);
    ShiftElm(in.get(), 3, 0);
    ShiftElm(in.get(), 0, 0);
    const State first = stateAt(*in, 0.0);
    expectNear(first.r, {3988.31022699, 5498.96657235, 0.90055879}, 2e-8);
    in->ecc[0] = 0.5;  // not seen before the next load
    expectSame(stateAt(*in, 0.0), first);
    expectSame(stateAt(*in, 0.0, 3), first);
    EXPECT_EQ(in->sgpsat, 3);
    EXPECT_NE(stateAt(*in, 0.0).r[0], first.r[0]);
}

TEST(Sgp4Glue, ReplacesZeroEccentricityAndZeroMotion)
{
    const auto in = recordOf(6251), floor = recordOf(6251);
    in->ecc[0] = 0.0;
    floor->ecc[0] = 1e-8;
    expectSame(stateAt(*in, 100.0), stateAt(*floor, 100.0));
    EXPECT_EQ(satrec.ecco, 1e-8);

    in->n0[0] = 0.0;
    in->sgpsat = noSlot;
    stateAt(*in, 0.0);
    elsetrec one;
    VerificationElements set = setOf(verificationElements(), 6251);
    set.ecco = 1e-8;
    set.no = 1.0;
    initVerification(set, one);
    EXPECT_EQ(satrec.no, one.no);
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
        const auto in = recordOf(8195);
        in->ecc[0] = c.ecc;
        in->n0[0] = c.n0;
        EXPECT_TRUE(isPlaceholder(stateAt(*in, c.minutes))) << c.what;
    }
    const auto decaying = recordOf(29141);
    for (const double minutes : {420.0, 440.0, 420.0})
        EXPECT_EQ(isPlaceholder(stateAt(*decaying, minutes)), minutes > 430);
    EXPECT_EQ(decaying->sgpsat, 0);
}

TEST(Sgp4Glue, TakesAnyElementsAndAnyTime)
{
    using Field = double(WinpData::*)[slotCount];
    const Field fields[] = {&WinpData::mjdep, &WinpData::bstar, &WinpData::ecc, &WinpData::aper,
                            &WinpData::inc,   &WinpData::m0,    &WinpData::ra,  &WinpData::n0};
    for (const int norad : {6251, 8195, 24208, 23177})
        for (const Field field : fields)
            for (const double value : {nan, inf, -inf, 1e300, -1e300, 1e-300, -1.0, 1.0, 2.0, 1e5, 180.0}) {
                const auto in = recordOf(norad);
                (in.get()->*field)[0] = value;
                for (const double t : {0.0, 1440.0, -1e5, 1e9, 1e300, nan, inf, -inf}) {
                    const State s = stateAt(*in, t);
                    ASSERT_TRUE(std::isfinite(abs(s.r)) && std::isfinite(abs(s.v)));
                }
            }
}

}  // namespace
