// The numeric flight against the theory of perturbations and against the analytic model.
#include "flight_helper.h"

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/frames.h"
#include "astro/time_scales.h"
#include "astro/two_body.h"
#include "orbit/force_model.h"
#include "orbit/sgp4.h"

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

constexpr double epoch = 58138.0;  // 2018 January 20

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

/// Relative change of the integral on a low polar orbit.
double jacobiDrift(double tolerance, int days)
{
    WinpData* in = gravityRecord();
    in->RKFtol = tolerance;
    const State start = stateOf(7150e3, 0.001, 90, 30, 40, 0);
    setState(in, epoch, start);
    const State end = flyTo(in, epoch + days);
    const double middle = epoch + 0.5 * days;
    return jacobi(end, in->cstm[0], middle) / jacobi(start, epoch, middle) - 1.0;
}

// On a polar orbit the slow motion of the true pole does no work. The method loses energy in proportion to its
// tolerance, since the error of a step is of one sign: 2e-9 a day at 1e-10. So the integral holds to 1e-9 over ten
// days from 4e-12 on.
TEST(Flight, JacobiIntegralHoldsOverTenDays)
{
    EXPECT_LT(std::abs(jacobiDrift(4e-12, 10)), 1e-9);
    const double fine = jacobiDrift(1e-10, 1);
    EXPECT_NEAR(jacobiDrift(1e-9, 1) / fine, 10.0, 1.0);
    EXPECT_LT(std::abs(fine), 0.1 * 1e-9 * 1e-10 / 4e-12);
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
    double day;  // of 2018
    double inc, ra, ecc, aper, m0, n0, bstar;
    double km;  // largest distance after one day
};

// Element sets of January 2018. Of 43 nearly circular orbits at 700 km in the catalogue of that month 36 end within
// 10 km, half of them within 3.4; Terra shows what the missing tesseral terms of the analytic model do to the axis at
// a bad moment of the day. The default flux of 160 is twice that of those days: it drags at the lower ones.
constexpr RealCase realCases[] = {
    {"Aqua, 700 km", 20.92068319, 98.2284, 324.1987, 0.0001957, 119.3785, 313.4834, 14.57098040, 3.8943e-5, 10},
    {"Terra, 700 km", 18.68987256, 98.2102, 95.6663, 0.0001032, 76.0653, 284.0667, 14.57113885, 3.8103e-5, 15},
    {"HST, 540 km", 20.43993022, 28.4708, 11.7463, 0.0002625, 356.7372, 136.7243, 15.08965836, 1.9169e-5, 15},
    {"ISS, 400 km", 20.89808844, 51.6424, 32.9776, 0.0003646, 28.7227, 39.5332, 15.54190080, 3.8550e-5, 60},
    {"28937, geostationary", 20.92077934, 0.0605, 276.1992, 0.0003854, 33.9539, 286.5739, 1.00273930, 0, 15},
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
        in->sdp4 = true;
        in->sgpsat = noSlot;
        in->aflg[0] = 1;
        in->mjdep[0] = mjd(0, 1, 2018, 0) + c.day;
        in->inc[0] = c.inc;
        in->ra[0] = c.ra;
        in->ecc[0] = c.ecc;
        in->aper[0] = c.aper;
        in->m0[0] = c.m0;
        in->n0[0] = c.n0;
        in->bstar[0] = c.bstar;
        setState(in, in->mjdep[0], analytic(in, in->mjdep[0]));
        const State flown = flyTo(in, in->mjdep[0] + 1.0);
        const State expected = analytic(in, in->mjdep[0] + 1.0);
        EXPECT_LT(abs(flown.r - expected.r), 1000.0 * c.km);
    }
}

}  // namespace
