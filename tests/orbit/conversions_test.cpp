#include "orbit/conversions.h"

#include "astro/angles.h"
#include "astro/two_body.h"
#include "flight_helper.h"
#include "verification_helper.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

constexpr double epoch = 58138.0;  // 2018 January 20

struct Elements
{
    double inc, ra, e, aper, m0, n0;
};

Elements meanElements(const Vec3& r, const Vec3& v)
{
    Elements x{};
    rv2el(r, v, x.inc, x.ra, x.e, x.aper, x.m0, x.n0);
    return x;
}

double turnDifference(double a, double b)
{
    return std::remainder(a - b, 360.0);
}

// The state that SGP4 gives at epoch goes back to its elements. Without drag at epoch the inversion is exact but for
// the eccentricity, which is the osculating one.
TEST(MeanElements, InvertTheAnalyticModel)
{
    int tried = 0;
    for (const VerificationElements& set : verificationElements()) {
        elsetrec sat;
        if (set.no * 1440.0 / twoPi < 6.4 || set.ecco > 0.2 || initVerification(set, sat) != 0)
            continue;
        SCOPED_TRACE(set.norad);
        double r[3], v[3];
        ASSERT_EQ(sgp4(wgs72, sat, 0.0, r, v), 0);
        const Vec3 place = 1000.0 * Vec3(r[0], r[1], r[2]), velocity = 1000.0 * Vec3(v[0], v[1], v[2]);
        const Elements x = meanElements(place, velocity);
        EXPECT_NEAR(x.inc, set.inclo * degPerRad, 1e-5);
        EXPECT_NEAR(turnDifference(x.ra, set.nodeo * degPerRad), 0, 1e-5);
        EXPECT_NEAR(x.n0, set.no * 1440.0 / twoPi, 1e-8);  // the digits of an element set
        EXPECT_NEAR(turnDifference(x.aper + x.m0, (set.argpo + set.mo) * degPerRad), 0, 1e-4);
        double t0, m0, a, e, ran, aper, inc;
        oscelm(gmM3PerS2, 0, place, velocity, t0, m0, a, e, ran, aper, inc);
        EXPECT_NEAR(x.e, e, 1e-5);
        ++tried;
    }
    EXPECT_GE(tried, 8);
}

TEST(MeanElements, AreFiniteForEveryState)
{
    constexpr double inf = std::numeric_limits<double>::infinity();
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    const State cases[] = {
        {Vec3(0, 0, 0), Vec3(0, 0, 0)},         {Vec3(7e6, 0, 0), Vec3(0, 0, 0)},
        {Vec3(0, 0, 0), Vec3(0, 7e3, 0)},       {Vec3(7e6, 0, 0), Vec3(7e3, 0, 0)},
        {Vec3(7e6, 0, 0), Vec3(0, 12e3, 0)},    {Vec3(7e6, 0, 0), Vec3(0, 5e3, 1e5)},
        {Vec3(1e300, 0, 0), Vec3(0, 7e3, 0)},   {Vec3(1, 2, 3), Vec3(-7e3, 1, 1)},
        {Vec3(nan, 0, 0), Vec3(0, 7e3, 0)},     {Vec3(7e6, 0, 0), Vec3(0, inf, 0)},
        {Vec3(0, 0, 7e6), Vec3(0, 0, -1e-300)}, {Vec3(-7e6, 0, -1), Vec3(0, -7546.05, 0)},
    };
    for (const State& s : cases) {
        SCOPED_TRACE(&s - cases);
        const Elements x = meanElements(s.r, s.v);
        for (const double value : {x.inc, x.ra, x.e, x.aper, x.m0, x.n0})
            EXPECT_TRUE(std::isfinite(value)) << value;
    }
}

class StateDialog : public testing::Test
{
protected:
    void SetUp() override { in = freshRecord(); }

    WinpData* in = nullptr;
};

TEST_F(StateDialog, MeanElementsComeFromTheEpochStateOfThePrime)
{
    const State s = stateOf(7200e3, 0.01, 60, 30, 40, 50);
    setState(in, epoch, s);
    ShiftElm(in, 3, 0);
    setState(in, epoch, stateOf(8000e3, 0.1, 10, 20, 30, 40));
    in->prs = 3;
    in->sgpsat = 3;
    Elements x{};
    cvSGP4(x.inc, x.ra, x.e, x.aper, x.m0, x.n0);
    const Elements expected = meanElements(s.r, s.v);
    EXPECT_EQ(x.n0, expected.n0);
    EXPECT_EQ(x.inc, expected.inc);
    EXPECT_EQ(x.m0, expected.m0);
    EXPECT_EQ(in->sgpsat, noSlot);
}

TEST_F(StateDialog, HyperbolaTellsItsPerigee)
{
    constexpr double perigee = 7000e3, e = 1.3;
    const double gm = 2975536351779840.0 * 1e9;  // m^3 / day^2
    Vec3 r, v;
    kepler(gm, epoch - 0.01, epoch, 0, perigee / (e - 1), e, 30, 40, 50, r, v);
    setState(in, epoch, {r, v / 86400.0});
    double found, t0;
    vsCkHyp(found, t0);
    EXPECT_NEAR(found, e, 1e-9);
    EXPECT_NEAR(t0, epoch - 0.01, 1e-9);
}

struct KmState
{
    double x, y, z, vx, vy, vz;

    void convert(int from, int to, double mjd) { vsRefState(from, to, mjd, x, y, z, vx, vy, vz); }
    double metresFrom(const KmState& b) const { return 1000.0 * abs(Vec3(x - b.x, y - b.y, z - b.z)); }
    double speedFrom(const KmState& b) const { return 1000.0 * abs(Vec3(vx - b.vx, vy - b.vy, vz - b.vz)); }
};

constexpr KmState example{6000, -3000, 2500, 2.1, 6.2, 3.3};

TEST_F(StateDialog, FramesGoThereAndBack)
{
    for (const bool poleMoves : {false, true}) {
        in->IERSflg = poleMoves;
        in->IERSxp = poleMoves ? 0.2 : 0;
        in->IERSyp = poleMoves ? 0.35 : 0;
        in->Ut1Utc = 0.3;
        for (int from = 0; from < 4; ++from)
            for (int to = 0; to < 4; ++to) {
                KmState s = example;
                s.convert(from, to, epoch);
                if (from != to) {
                    EXPECT_GT(s.metresFrom(example), 100.0) << from << to;
                }
                s.convert(to, from, epoch);
                // the matrix of polar motion is of first order: it leaves the square of 2e-6
                const double room = poleMoves && (from == 3 || to == 3) ? 1e-4 : 1e-6;
                EXPECT_LT(s.metresFrom(example), room) << from << to;
                EXPECT_LT(s.speedFrom(example), 1e-3 * room) << from << to;
            }
    }
}

struct PrecessionCase
{
    double mjd, x, y, z;  // km
};

// J2000 to the mean equator of date, for the place of the example, by ERFA 2.0.0: bp06 (IAU 2006) for 2018, pmat76
// (IAU 1976) for 1950 and 2050, where the two are apart by 0.12 arc seconds.
constexpr PrecessionCase precessionCases[] = {
    {58138.0, 6007.667087663, -2975.764105064, 2510.530652038},
    {33282.0, 5978.165036289, -3066.953783636, 2470.898073158},
    {69807.0, 6020.956010834, -2932.786681472, 2529.199675112},
};

TEST_F(StateDialog, MeanOfDateAgreesWithIndependentPrecession)
{
    for (const PrecessionCase& c : precessionCases) {
        KmState s = example;
        s.convert(frame::j2000, frame::meanOfDate, c.mjd);
        const Vec3 found(s.x, s.y, s.z), expected(c.x, c.y, c.z);
        EXPECT_NEAR(abs(found), abs(expected), 1e-6);
        const double arcsec = abs(found * expected) / dot(expected, expected) * degPerRad * 3600.0;
        EXPECT_LT(arcsec, 0.1) << c.mjd;
    }
}

}  // namespace
