// The numeric flight against the theory of perturbations and against the analytic model.
#include "flight_helper.h"
#include "verification_helper.h"

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/frames.h"
#include "astro/time_scales.h"
#include "astro/two_body.h"
#include "orbit/force_model.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

double axisOf(const State& s)
{
    return 1.0 / (2.0 / abs(s.r) - dot(s.v, s.v) / gmM3PerS2);
}

/// The Jacobi integral about a pole that stands still: that of the true equator at a given time.
double jacobi(const State& s, double t, double poleTime)
{
    constexpr double earthRotationRadPerS = 7.292115855e-5;
    double eqeq;
    const Vec3 pole = mxvct(mxtrn(nutmat(julcent(poleTime), eqeq, false)), Vec3(0, 0, 1));
    const Mat3 N = nutmat(julcent(t), eqeq, false);
    const Vec3 fixed = mxvct(zrot(lsidtim(t, 0, eqeq) * radPerHour) * N, s.r);
    const double potential = double(gravityPotential(fixed[0], fixed[1], fixed[2], 20));
    return 0.5 * dot(s.v, s.v) - potential - earthRotationRadPerS * dot(pole, s.r * s.v);
}

/// The state after a flight that is asked for at equal intervals, as a display that runs asks.
State flyAsked(WinpData* in, double from, double to, int askedTimes)
{
    for (int i = 1; i < askedTimes; ++i)
        flyTo(in, from + (to - from) * i / askedTimes);
    return flyTo(in, to);
}

/// Relative change of the integral on a low polar orbit.
double jacobiDrift(double tolerance, int days, int askedTimes)
{
    WinpData* in = gravityRecord();
    in->RKFtol = tolerance;
    const State start = stateOf(7150e3, 0.001, 90, 30, 40, 0);
    setState(in, epoch, start);
    const State end = flyAsked(in, epoch, epoch + days, askedTimes);
    const double middle = epoch + 0.5 * days;
    return jacobi(end, in->cstm[0], middle) / jacobi(start, epoch, middle) - 1.0;
}

constexpr int tenSecondsADay = 8640;

// On a polar orbit the slow motion of the true pole does no work. In one go the method loses energy in proportion to
// its tolerance, since the error of a step is of one sign: 2e-9 a day at 1e-10. So the integral holds to 1e-9 over ten
// days from 4e-12 on; asked every ten seconds, which keeps the steps short, it does so at 1e-10.
TEST(Flight, JacobiIntegralHoldsOverTenDays)
{
    EXPECT_LT(std::abs(jacobiDrift(4e-12, 10, 1)), 1e-9);
    EXPECT_LT(std::abs(jacobiDrift(1e-10, 10, 10 * tenSecondsADay)), 1e-9);
    const double fine = jacobiDrift(1e-10, 1, 1);
    EXPECT_NEAR(jacobiDrift(1e-9, 1, 1) / fine, 10.0, 1.0);
    EXPECT_LT(std::abs(fine), 0.1 * 1e-9 * 1e-10 / 4e-12);
}

// Three days there and back with Sun and Moon. Both ways lose the same energy to the method, so the way back does not
// cancel it: the distance is in proportion to the tolerance and to the number of revolutions.
TEST(Flight, ThereAndBackReturnsWithinAMetre)
{
    struct Way
    {
        double tolerance;
        int askedTimes;
    };
    for (const Way& way : {Way{1e-11, 1}, Way{1e-10, 3 * tenSecondsADay}}) {
        SCOPED_TRACE(way.tolerance);
        WinpData* in = gravityRecord();
        in->sunf = in->moonf = true;
        in->RKFtol = way.tolerance;
        const State start = stateOf(7078e3, 0.001, 60, 30, 40, 0);
        setState(in, epoch, start);
        EXPECT_GT(abs(flyAsked(in, epoch, epoch + 3, way.askedTimes).r - start.r), 1e5);
        in->mjdep[0] = 1e6;  // far off: the way back is flown, not fetched
        EXPECT_LT(abs(flyAsked(in, epoch + 3, epoch, way.askedTimes).r - start.r), 1.0);
    }
}

/// Slope of a line through points at equal distances.
double slope(const std::vector<double>& y)
{
    const double middle = 0.5 * double(y.size() - 1);
    double xy = 0, xx = 0;
    for (std::size_t i = 0; i < y.size(); ++i) {
        xy += (double(i) - middle) * y[i];
        xx += (double(i) - middle) * (double(i) - middle);
    }
    return xy / xx;
}

// Kozai's secular rates by J2; the other harmonics count for less than a hundredth of them at this eccentricity.
TEST(Flight, OblatenessTurnsNodeAndPerigee)
{
    constexpr double a = 9500e3, e = 0.2, J2 = 0.0010826266752;
    for (const double inc : {30.0, 50.0, 110.0}) {
        WinpData* in = gravityRecord();
        setState(in, epoch, stateOf(a, e, inc, 100, 60, 0));
        std::vector<double> nodes, perigees;
        constexpr int perDay = 96;
        for (int i = 0; i < 3 * perDay; ++i) {
            const State s = flyTo(in, epoch + double(i) / perDay);
            double t0, m0, axis, ecc, ran, aper, tilt;
            oscelm(gmM3PerS2, 0, s.r, s.v, t0, m0, axis, ecc, ran, aper, tilt);
            nodes.push_back(ran);
            perigees.push_back(aper);
        }
        const double p = a * (1 - e * e);
        const double n = std::sqrt(gmM3PerS2 / (a * a * a)) * 86400.0 * degPerRad;  // degrees per day
        const double factor = 1.5 * n * J2 * (earthRadiusM / p) * (earthRadiusM / p);
        const double c = std::cos(inc * radPerDeg);
        const double node = -factor * c, perigee = 0.5 * factor * (5 * c * c - 1);
        EXPECT_NEAR(slope(nodes) * perDay, node, 0.02 * std::abs(node)) << inc;
        EXPECT_NEAR(slope(perigees) * perDay, perigee, 0.02 * std::abs(perigee)) << inc;
    }
}

// The drag takes 0.5 Cd A/m rho w^3 out of the integral; on a circle that is da/dt = -Cd A/m rho w^3 a^2 / GM.
TEST(Flight, DragShrinksACircleAtTheAnalyticRate)
{
    constexpr double inc = 51.6, hours = 12.0;
    const State start = stateOf(earthRadiusM + 400e3, 0.0005, inc, 30, 40, 0);
    WinpData* in = gravityRecord();
    in->Cr[0] = 0;
    in->RKFtol = 1e-10;
    setState(in, epoch, start);
    double rho = 0, radius = 0;
    constexpr int samples = 480;
    for (int i = 1; i <= samples; ++i) {
        const State s = flyTo(in, epoch + hours / 24.0 * i / samples);
        double height;
        rho += Jacc71(in->cstm[0], s.r, spos, in->F107[0], in->FB107[0], in->Kp[0], height) / samples;
        radius += abs(s.r) / samples;
    }
    const double before = jacobi(currentState(*in), in->cstm[0], epoch);

    in->Am[0] = 0.01;
    setState(in, epoch, start);
    const State end = flyTo(in, epoch + hours / 24.0);
    const double lost = jacobi(end, in->cstm[0], epoch) - before;
    const double found = lost * 2.0 * radius * radius / gmM3PerS2;

    const double n = std::sqrt(gmM3PerS2 / (radius * radius * radius));
    const double w = n * radius * (1.0 - 7.292115e-5 / n * std::cos(inc * radPerDeg));
    const double rate = -in->Cd[0] * in->Am[0] * rho * w * w * w * radius * radius / gmM3PerS2;
    EXPECT_NEAR(found, rate * hours * 3600.0, 0.05 * std::abs(found));
    EXPECT_LT(found, -100.0);
}

// Gauss' equation for a thrust along the velocity, da/dt = 2 a^2 v f / GM; on a slow spiral v falls by f a second.
TEST(Flight, ThrustAlongTheVelocityRaisesTheAxis)
{
    constexpr double a = 42164e3, thrust = 1e-4, seconds = 43200.0;
    for (const double yaw : {0.0, 180.0}) {
        WinpData* in = gravityRecord();
        in->ionf[0] = true;
        in->deltv[0] = thrust;
        in->yaw[0] = yaw;
        setState(in, epoch, stateOf(a, 0, 5, 30, 0, 0));
        const State s = flyTo(in, epoch + seconds / 86400.0);
        const double v = std::sqrt(gmM3PerS2 / a) + (yaw == 0 ? -1 : 1) * thrust * seconds;
        const double expected = gmM3PerS2 / (v * v) - a;
        EXPECT_NEAR(axisOf(s) - a, expected, 0.02 * std::abs(expected)) << yaw;
    }
}

struct RealCase
{
    const char* what;
    int norad;
    double km;  // largest distance after one day
};

// Of 43 nearly circular orbits at 700 km in the catalogue 36 end within 10 km, half of them within 3.4; Terra shows
// what the missing tesseral terms of the analytic model do to the axis at a bad moment of the day. The default flux of
// 160 is twice that of those days: it drags at the lower ones.
constexpr RealCase realCases[] = {
    {"Aqua, 700 km", 27424, 10}, {"Terra, 700 km", 25994, 15},        {"HST, 540 km", 20580, 15},
    {"ISS, 400 km", 25544, 60},  {"28937, geostationary", 28937, 15},
};

/// SGP4 as the position engine takes it: mean equator of date, m.
State analytic(WinpData* in, double t)
{
    State s;
    Sgp4(in, t - in->mjdep[0], 0, s.r, s.v);
    double eqeq;
    nutmat(julcent(t + in->ttut / 86400.0), eqeq, in->IERSflg);
    const Mat3 turn = zrot(-eqeq / 13750.9870831);
    return {1000.0 * mxvct(turn, s.r), 1000.0 * mxvct(turn, s.v)};
}

TEST(Flight, RealSatellitesStayNearTheAnalyticModel)
{
    for (const RealCase& c : realCases) {
        SCOPED_TRACE(c.what);
        WinpData* in = freshRecord();
        putSet(in, setOf(catalogueElements(), c.norad));
        setState(in, in->mjdep[0], analytic(in, in->mjdep[0]));
        const State flown = flyTo(in, in->mjdep[0] + 1.0);
        const State expected = analytic(in, in->mjdep[0] + 1.0);
        EXPECT_LT(abs(flown.r - expected.r), 1000.0 * c.km);
    }
}

}  // namespace
