#include "design/delta_v.h"

#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/frames.h"
#include "design/orbit_helper.h"
#include "engine/position.h"

namespace {

constexpr double secondDays = 1.0 / 86400.0;

double period(double a)
{
    return twoPi * std::sqrt(a * a * a / gmKm3PerS2);
}

// Speeds by the vis-viva equation.
TEST(DeltaV, HohmannTransferReachesTheHigherOrbit)
{
    WinpData* in = freshRecord();
    const double low = equatorKm + 400.0;
    const double high = equatorKm + 800.0;
    const double axis = (low + high) / 2.0;
    addCircle(in, low, 51.6, 30.0, 0.0);
    const double first = std::sqrt(gmKm3PerS2 * (2.0 / low - 1.0 / axis)) - std::sqrt(gmKm3PerS2 / low);
    EXPECT_EQ(ExDeltaV(in, 1000.0 * first, 0.0, 0.0), 0);
    EXPECT_NEAR(in->a[0] * (1.0 - in->ecc[0]), low, 1.0);

    in->mjd += period(axis) / 2.0 * secondDays;
    EXPECT_NEAR(abs(stateAt(in, 0, in->mjd).r), high, 1.0);
    const double second = std::sqrt(gmKm3PerS2 / high) - std::sqrt(gmKm3PerS2 * (2.0 / high - 1.0 / axis));
    EXPECT_EQ(ExDeltaV(in, 1000.0 * second, 0.0, 0.0), 0);
    EXPECT_EQ(in->mjdep[0], in->mjd);
    EXPECT_NEAR(in->a[0], high, 5.0);  // the simple model turns faster than two bodies alone: 0.05 percent
    EXPECT_LT(in->ecc[0], 1e-3);
    EXPECT_NEAR(in->inc[0], 51.6, 1e-6);
}

// The direction of flight turned by delta at the latitude argument u:
// cos i' = cos i cos delta - sin i sin delta cos u, delta positive to the left.
TEST(DeltaV, PlaneChangeByYawFollowsSphericalTrigonometry)
{
    constexpr double inc = 51.6;
    for (const double u : {0.0, 45.0, 90.0, 180.0, 300.0}) {
        for (const double right : {-5.0, 0.5, 10.0}) {
            SCOPED_TRACE(testing::Message() << "at " << u << " by " << right);
            WinpData* in = freshRecord();
            addCircle(in, 7000.0, inc, 30.0, u);
            const double speed = abs(stateAt(in, 0, in->mjd).v);
            const double half = radPerDeg * right / 2.0;
            ExDeltaV(in, 2000.0 * speed * std::sin(half), 90.0 + right / 2.0, 0.0);
            const double left = -radPerDeg * right;
            const double cosInc = std::cos(radPerDeg * inc) * std::cos(left) -
                                  std::sin(radPerDeg * inc) * std::sin(left) * std::cos(radPerDeg * u);
            EXPECT_NEAR(in->inc[0], degPerRad * std::acos(cosInc), 1e-5);
            EXPECT_NEAR(abs(stateAt(in, 0, in->mjd).v), speed, 1e-6);
        }
    }
}

TEST(DeltaV, EscapeLeavesAHyperbola)
{
    for (const int numeric : {0, 1}) {
        SCOPED_TRACE(numeric);
        WinpData* in = freshRecord();
        addCircle(in, 7000.0, 28.5, 200.0, 10.0);
        in->aflg[0] = 1;
        in->numflg[0] = numeric;
        in->mjd += 0.01;
        if (!numeric)
            in->aflg[0] = 0;
        const State before = stateAt(in, 0, in->mjd);
        const double speed = abs(before.v) + 4.0;
        EXPECT_EQ(ExDeltaV(in, 4000.0, 0.0, 0.0), 1);
        // from angular momentum and energy
        const Vec3 v = vnorm(before.v) * speed;
        const double a = axisOf({before.r, v});
        const double e = eccentricityOf({before.r, v});
        EXPECT_GT(in->ecc[0], 1.0);
        EXPECT_NEAR(in->ecc[0], e, 1e-6);
        EXPECT_NEAR(in->n0[0], a * (1.0 - e), 0.01);
        EXPECT_NEAR(in->n0[0], 7000.0, 10.0);  // it is a burn at perigee
        EXPECT_EQ(in->aflg[0], 0);
        EXPECT_EQ(in->sgpsat, noSlot);
        if (numeric)
            EXPECT_EQ(in->mjdep[0], in->mjd);
        else
            EXPECT_NEAR(in->mjdep[0], in->mjd, 0.01);
        const State after = stateAt(in, 0, in->mjd);
        EXPECT_NEAR(abs(after.r - before.r), 0.0, 0.01);
        EXPECT_NEAR(abs(after.v - v), 0.0, 1e-5);
    }
}

// Without a change of speed the mean elements of the model come back, with two exceptions that are meant: the
// eccentricity is the osculating one, and the node moves by the equation of the equinoxes, by which the position engine
// turns the state of the model.
TEST(DeltaV, NothingRenewsTheElementsOfTheModel)
{
    for (const int norad : {25544, 20580, 27386, 27424, 25994}) {
        SCOPED_TRACE(norad);
        WinpData* in = freshRecord();
        addSatellite(in, "visual_2018.txt", norad);
        ASSERT_EQ(in->satn, 1);
        const WinpData before = *in;
        in->mjd = in->mjdep[0];
        const State state = stateAt(in, 0, in->mjd);
        EXPECT_EQ(ExDeltaV(in, 0.0, 0.0, 0.0), 0);
        double eqeq = 0;
        nutmat(julcent(in->mjd), eqeq, false);
        EXPECT_EQ(in->aflg[0], 1);
        EXPECT_NEAR(in->inc[0], before.inc[0], 0.003);
        EXPECT_NEAR(in->ra[0], before.ra[0] + eqeq * 15.0 / 3600.0, 0.003);
        EXPECT_NEAR(in->n0[0], before.n0[0], 2e-4);
        EXPECT_NEAR(in->ecc[0], eccentricityOf(state), 1e-4);
        EXPECT_EQ(in->bstar[0], before.bstar[0]);
        EXPECT_EQ(in->ndot[0], before.ndot[0]);
    }
}

/// A numerically flown circle at the equator under the Earth's gravity alone, on the day of an equinox.
WinpData* spacecraft(double a)
{
    WinpData* in = freshRecord();
    in->mjd = 58197.5;
    in->sunf = in->moonf = false;
    addCircle(in, a, 0.001, 0.0, 0.0);
    in->Am[0] = 0.0;
    in->numflg[0] = 1;
    return in;
}

/// Flies hour by hour, as a plot does.
State fly(WinpData* in, double days)
{
    const double start = in->mjd;
    for (int hour = 1; hour <= std::lround(24.0 * days); ++hour)
        stateAt(in, 0, start + hour / 24.0);
    in->mjd = start + days;
    return stateAt(in, 0, in->mjd);
}

// On a slow spiral the speed falls by the acceleration: a = GM / (v0 - f t)^2.
TEST(Thrust, SpiralsOutwardAtTheAnalyticRate)
{
    constexpr double a = 42164.0, mmPerS2 = 0.1, days = 10.0;
    WinpData* in = spacecraft(a);
    perform({mmPerS2, 0.0, 0.0, true, false, false}, in);
    const double before = axisOf(stateAt(in, 0, in->mjd));
    const double speed = std::sqrt(gmKm3PerS2 / before) - mmPerS2 * 1e-6 * days * 86400.0;
    const double gain = gmKm3PerS2 / (speed * speed) - before;
    EXPECT_NEAR(axisOf(fly(in, days)) - before, gain, 0.01 * gain);
}

// At an equinox the shadow of an equatorial orbit is asin(R / a) on both sides.
TEST(Thrust, RestsInTheShadow)
{
    constexpr double a = 7500.0, days = 1.0;
    double gain[2] = {};
    for (const bool sunOnly : {false, true}) {
        WinpData* in = spacecraft(a);
        perform({0.2, 0.0, 0.0, true, sunOnly, false}, in);
        const double before = axisOf(stateAt(in, 0, in->mjd));
        gain[sunOnly] = axisOf(fly(in, days)) - before;
    }
    EXPECT_GT(gain[0], 0.0);
    // a day is no whole number of revolutions: up to half a shadow of 13.4
    EXPECT_NEAR(gain[1] / gain[0], 1.0 - std::asin(equatorKm / a) / std::numbers::pi, 0.02);
}

TEST(DeltaV, BadNumbersLeaveFiniteElements)
{
    for (const int sgp4 : {0, 1}) {
        for (const int numeric : {0, 1}) {
            for (const double bad : badNumbers) {
                for (const int field : {0, 1, 2}) {
                    SCOPED_TRACE(testing::Message() << sgp4 << numeric << ' ' << bad << " in " << field);
                    WinpData* in = freshRecord();
                    addCircle(in, 7000.0, 51.6, 30.0, 0.0);
                    in->aflg[0] = sgp4;
                    in->numflg[0] = numeric;
                    const double yaw = field == 1 ? bad : 20.0;
                    const double pitch = field == 2 ? bad : 10.0;
                    perform({field == 0 ? bad : 10.0, yaw, pitch, false, true, false}, in);
                    EXPECT_TRUE(elementsAreFinite(*in, 0));
                    perform({field == 0 ? bad : 10.0, yaw, pitch, true, false, true}, in);
                    for (const double later : {0.001, 0.3}) {
                        GetSatPos(in->mjd + later, in, satpos, 0, 1);
                        EXPECT_TRUE(std::isfinite(satpos->hgt[0]) && std::isfinite(satpos->lat[0]));
                        EXPECT_TRUE(elementsAreFinite(*in, 0));
                    }
                }
            }
        }
    }
}

}  // namespace
