#include "design/delta_v.h"

#include <cmath>

#include <gtest/gtest.h>

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/frames.h"
#include "design/orbit_helper.h"

namespace {

/// Two bodies: the speed at a distance from the centre on an orbit with this axis, m/s and km.
double speedAt(double r, double axis)
{
    return 1000.0 * std::sqrt(gmKm3PerS2 * (2.0 / r - 1.0 / axis));
}

TEST(DeltaV, HohmannTransferReachesTheHigherOrbit)
{
    WinpData* in = freshRecord();
    constexpr double low = equatorKm + 400.0, high = equatorKm + 800.0, axis = (low + high) / 2.0;
    addCircle(in, low, 51.6, 30.0, 0.0);
    EXPECT_EQ(ExDeltaV(in, speedAt(low, axis) - speedAt(low, low), 0.0, 0.0), 0);
    EXPECT_NEAR(in->a[0] * (1.0 - in->ecc[0]), low, 1.0);

    in->mjd += twoPi * std::sqrt(axis * axis * axis / gmKm3PerS2) / 2.0 / 86400.0;
    EXPECT_NEAR(abs(stateAt(in, 0, in->mjd).r), high, 1.0);
    EXPECT_EQ(ExDeltaV(in, speedAt(high, high) - speedAt(high, axis), 0.0, 0.0), 0);
    EXPECT_EQ(in->mjdep[0], in->mjd);
    EXPECT_NEAR(in->a[0], high, 5.0);  // the simple model turns faster than two bodies alone: 0.05 percent
    EXPECT_LT(in->ecc[0], 1e-3);
    EXPECT_NEAR(in->inc[0], 51.6, 1e-6);
}

// The direction of flight turned by delta at the latitude argument u:
// cos i' = cos i cos delta - sin i sin delta cos u, delta positive to the left.
TEST(DeltaV, PlaneChangeByYawFollowsSphericalTrigonometry)
{
    constexpr double inc = radPerDeg * 51.6;
    for (const double u : {0.0, 45.0, 90.0, 180.0, 300.0}) {
        for (const double right : {-5.0, 10.0}) {
            SCOPED_TRACE(testing::Message() << "at " << u << " by " << right);
            WinpData* in = freshRecord();
            addCircle(in, 7000.0, 51.6, 30.0, u);
            const double speed = abs(stateAt(in, 0, in->mjd).v);
            const double left = -radPerDeg * right;
            ExDeltaV(in, -2000.0 * speed * std::sin(left / 2.0), 90.0 + right / 2.0, 0.0);
            const double turned =
                std::cos(inc) * std::cos(left) - std::sin(inc) * std::sin(left) * std::cos(radPerDeg * u);
            EXPECT_NEAR(in->inc[0], degPerRad * std::acos(turned), 1e-5);
            EXPECT_NEAR(abs(stateAt(in, 0, in->mjd).v), speed, 1e-6);
        }
    }
}

// Upward by 30 degrees, so that the perigee lies elsewhere.
TEST(DeltaV, EscapeLeavesAHyperbola)
{
    for (const int numeric : {0, 1}) {
        SCOPED_TRACE(numeric);
        WinpData* in = freshRecord();
        addCircle(in, 7000.0, 28.5, 200.0, 10.0);
        in->aflg[0] = in->numflg[0] = numeric;
        in->mjd += 0.01;
        const State before = stateAt(in, 0, in->mjd);
        const Vec3 flight = vnorm(before.v);
        const Vec3 up = vnorm(before.r - dot(before.r, flight) * flight);
        const State after{before.r, before.v + 4.0 * (std::sqrt(0.75) * flight + 0.5 * up)};
        EXPECT_EQ(ExDeltaV(in, 4000.0, 0.0, 30.0), 1);
        EXPECT_NEAR(in->ecc[0], eccentricityOf(after), 1e-6);
        EXPECT_NEAR(in->n0[0], axisOf(after) * (1.0 - eccentricityOf(after)), 0.01);
        EXPECT_EQ(in->aflg[0], 0);
        EXPECT_EQ(in->sgpsat, noSlot);
        // the epoch is that of the maneuver or, of an analytic orbit, of the perigee
        EXPECT_NEAR(abs(stateAt(in, 0, in->mjdep[0]).r), numeric ? 7000.0 : in->n0[0], 10.0);
        EXPECT_NEAR(abs(stateAt(in, 0, in->mjd).r - after.r), 0.0, 0.01);
        EXPECT_NEAR(abs(stateAt(in, 0, in->mjd).v - after.v), 0.0, 1e-5);
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

TEST(DeltaV, EllipseWithoutSgp4ElementsStaysNumericOrKeplerian)
{
    WinpData* in = freshRecord();
    addCircle(in, 340000.0, 28.5, 200.0, 50.0);
    in->ecc[0] = 0.98;
    EpochState(in, 0, true);
    in->aflg[0] = in->numflg[0] = 1;
    EXPECT_EQ(ExDeltaV(in, 0.0, 0.0, 0.0), 0);
    EXPECT_EQ(in->aflg[0], 0);
    EXPECT_EQ(in->numflg[0], 1);
    EXPECT_NEAR(in->a[0], 340000.0, 1.0);
    EXPECT_EQ(in->n0[0], getn0(in->a[0], in->ecc[0], in->inc[0]));
}

TEST(Maneuver, IsAnImpulseUnlessThrustIsSwitched)
{
    const struct
    {
        const char* what;
        bool numeric, thrustBefore, asked, thrust, impulse;
    } cases[] = {
        {"impulse", false, false, false, false, true},
        {"thrust of an analytic satellite", false, false, true, false, true},
        {"thrust left over from a numeric flight", false, true, false, false, true},
        {"impulse of a numeric satellite", true, false, false, false, true},
        {"thrust on", true, false, true, true, false},
        {"thrust still on", true, true, true, true, false},
        {"thrust off", true, true, false, false, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        WinpData* in = freshRecord();
        addCircle(in, 7000.0, 51.6, 30.0, 0.0);
        in->numflg[0] = c.numeric;
        in->ionf[0] = c.thrustBefore;
        in->rlm = 1;
        in->mjd += 0.01;
        EXPECT_EQ(perform({5.0, 10.0, 20.0, c.asked, false, true}, in), 0);
        EXPECT_EQ(in->mjdep[0] == in->mjd, c.impulse);
        EXPECT_EQ(in->deltv[0], c.thrust ? 0.005 : 5.0);
        EXPECT_EQ(in->rlm, 1);
        const Maneuver last = lastManeuver(*in);
        EXPECT_EQ(last.ionf, c.thrust);
        EXPECT_EQ(last.epu, c.thrust);
        EXPECT_TRUE(last.deltv == 5.0 && last.yaw == 10.0 && last.pitch == 20.0 && !last.suns);
    }
}

// On a slow spiral the speed falls by the acceleration: a = GM / (v0 - f t)^2.
TEST(Maneuver, ThrustSpiralsOutwardAtTheAnalyticRate)
{
    constexpr double mmPerS2 = 0.1, days = 10.0;
    WinpData* in = freshRecord();
    in->sunf = in->moonf = false;
    addCircle(in, 42164.0, 0.001, 0.0, 0.0);
    in->Am[0] = 0.0;
    in->numflg[0] = 1;
    perform({mmPerS2, 0.0, 0.0, true, false, false}, in);
    const double before = axisOf(stateAt(in, 0, in->mjd));
    const double speed = std::sqrt(gmKm3PerS2 / before) - mmPerS2 * 1e-6 * days * 86400.0;
    const double gain = gmKm3PerS2 / (speed * speed) - before;
    for (double flown = 0.0; flown < days; flown += 0.5)  // as a plot does
        stateAt(in, 0, in->mjd + flown);
    EXPECT_NEAR(axisOf(stateAt(in, 0, in->mjd + days)) - before, gain, 0.01 * gain);
}

TEST(Maneuver, BadNumbersLeaveFiniteElements)
{
    for (const double bad : {0.0, -1.0, 1e300, -1e300, 1e20}) {
        for (const int choice : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11}) {  // field, model
            SCOPED_TRACE(testing::Message() << bad << ' ' << choice);
            WinpData* in = freshRecord();
            addCircle(in, 7000.0, 51.6, 30.0, 0.0);
            in->aflg[0] = choice / 3 % 2;
            in->numflg[0] = choice / 6;
            Maneuver maneuver{10.0, 20.0, 10.0, false, true, false};
            (choice % 3 == 0 ? maneuver.deltv : choice % 3 == 1 ? maneuver.yaw : maneuver.pitch) = bad;
            perform(maneuver, in);
            EXPECT_TRUE(elementsAreFinite(*in, 0));
            maneuver.ionf = maneuver.epu = true;
            perform(maneuver, in);
            for (const double later : {0.001, 0.3}) {
                GetSatPos(in->mjd + later, in, satpos, 0, 1);
                EXPECT_TRUE(std::isfinite(satpos->hgt[0]) && std::isfinite(satpos->lat[0]));
                EXPECT_TRUE(elementsAreFinite(*in, 0));
            }
        }
    }
}

}  // namespace
