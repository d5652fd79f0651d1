#include <cmath>

#include "astro/angles.h"
#include "astro/mat3.h"
#include "astro/two_body.h"
#include "engine/position_stages.h"
#include "orbit/num_prop.h"
#include "orbit/sgp4.h"

namespace {

constexpr double gmKm3PerDay2 = 2.9755364003e15;  // that of the two-body models here; others stand beside their users
constexpr double secondsPerDay = 86400.0;

// Squares and cubes of a state inside these limits are finite.
constexpr double farthestKm = 1e15;
constexpr double fastestKmPerS = 1e12;

bool within(const Vec3& a, double limit)
{
    return std::abs(a[0]) <= limit && std::abs(a[1]) <= limit && std::abs(a[2]) <= limit;  // false for NaN
}

/// Puts the far-off state of a failed analytic model in the place of a state that no later stage could stand.
void replaceSenselessState(Vec3& r, Vec3& v)
{
    if (within(r, farthestKm) && within(v, fastestKmPerS))
        return;
    r.assign(100.0, 0.0, 0.0);
    v.assign(0.0, 10.0, 0.0);
}

/// SGP4 counts right ascension from the mean equinox on the true equator. What comes out is taken for a state in the
/// mean equator, and nutation applied to it once more, unless a correction brings it there.
void analyticState(Scene& s)
{
    const double days = s.mjd - s.in->mjdep[s.isat];
    if (!s.ahead || !s.ahead->find(days, s.r, s.v))
        Sgp4(s.in, days, s.isat, s.r, s.v);
    const Mat3 turn = analyticTurn(s.nutation, s.eqeq, s.models.corrections);
    s.r = mxvct(turn, s.r);
    s.v = mxvct(turn, s.v);
}

/// An ellipse with the secular motion of node and perigee by J2.
void keplerianState(Scene& s)
{
    constexpr double threeHalfJ2 = 0.001623942;
    const WinpData& in = *s.in;
    const int k = s.isat;
    const double dt = s.mjd - in.mjdep[k];
    const double e = in.ecc[k];
    const double a0 = std::fmax(in.a[k], 1.0);
    const double inc = in.inc[k] * radPerDeg;
    const double motion = twoPi * in.n0[k];
    const double scale = earthRadiusKm / (a0 * (1.0 - e * e));
    const double rate = threeHalfJ2 * (scale * scale) * motion;
    const double sini = std::sin(inc);
    const double node = in.ra[k] * radPerDeg - rate * std::cos(inc) * dt;
    const double perigee = in.aper[k] * radPerDeg + rate * (2.0 - 2.5 * (sini * sini)) * dt;
    // no factor of one half: the field of the file holds it already
    const double ndot = in.n6dot[k] != 0.0 ? in.ndot[k] + in.n6dot[k] * dt : in.ndot[k];
    const double M = in.m0[k] * radPerDeg + (motion + twoPi * ndot * dt) * dt;
    const double a = std::fmax(a0 + in.adot[k] * dt, 1.0);

    const double E = eccanom(M, e);
    const double fac = std::sqrt(1.0 - e * e);
    const double w = std::sqrt(gmKm3PerDay2 / a);
    const double rho = 1.0 - e * std::cos(E);
    const Vec3 plane(a * (std::cos(E) - e), a * fac * std::sin(E), 0.0);
    const Vec3 speed = Vec3(-w * std::sin(E), w * fac * std::cos(E), 0.0) * (1.0 / rho);
    const Mat3 turn = zrot(-node) * xrot(-inc) * zrot(-perigee);
    s.r = mxvct(turn, plane);
    s.v = mxvct(turn, speed) * (1.0 / secondsPerDay);
}

/// Parabolas and hyperbolas: the field n0 holds the perigee distance, mjdep the time of perigee.
void openOrbitState(Scene& s)
{
    const WinpData& in = *s.in;
    const int k = s.isat;
    const double e = in.ecc[k];
    const double a = e > 1.0 ? in.n0[k] / (1.0 - e) : in.n0[k];
    kepler(gmKm3PerDay2, in.mjdep[k], s.mjd, 0.0, a, e, in.ra[k], in.aper[k], in.inc[k], s.r, s.v);
    s.v *= 1.0 / secondsPerDay;
}

/// Numeric propagation can be switched on at any moment and goes on from here.
void storeCurrentState(const Scene& s)
{
    WinpData& in = *s.in;
    const int k = s.isat;
    in.cstm[k] = s.mjd;
    in.csr0[k] = s.r[0] * 1000.0;
    in.csr1[k] = s.r[1] * 1000.0;
    in.csr2[k] = s.r[2] * 1000.0;
    in.csv0[k] = s.v[0] * 1000.0;
    in.csv1[k] = s.v[1] * 1000.0;
    in.csv2[k] = s.v[2] * 1000.0;
    in.moondst = 0;
}

}  // namespace

void findState(Scene& s)
{
    if (s.model == Propagator::numeric) {
        NumProp(s.mjd, s.in, s.isat, s.sun, s.moon, s.r, s.v);
        replaceSenselessState(s.r, s.v);
        return;
    }
    if (s.model == Propagator::analytic)
        analyticState(s);
    else if (s.in->ecc[s.isat] < 1.0)
        keplerianState(s);
    else
        openOrbitState(s);
    replaceSenselessState(s.r, s.v);
    storeCurrentState(s);
}
