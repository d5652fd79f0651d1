#include "orbit/force_model.h"

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/frames.h"
#include "astro/sun_moon.h"
#include "astro/time_scales.h"
#include "orbit/attitude.h"
#include "orbit/gravity_data.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double gravityFactor = 9.798285471812783;  // GM / R^2, m/s^2
constexpr double earthRadiusM = 6378137.0;
constexpr double gmSunM3PerS2 = 1.32712440018e20;
constexpr double gmMoonM3PerS2 = 4902801000000.0;
constexpr double auM = 149597870691.0;
constexpr double sunPressureNPerM2 = 4.56e-6;  // at one astronomical unit
constexpr double airRotationRadPerS = 7.292115e-5;

constexpr int maxDegree = 20;

/// Two numbers that are worked on together.
using Pair [[gnu::vector_size(16)]] = double;

constexpr Pair both(double x)
{
    return Pair{x, x};
}

/// The integers from 0 on.
constexpr std::array<Pair, 2 * maxDegree + 2> makeNumbers()
{
    std::array<Pair, 2 * maxDegree + 2> made{};
    for (std::size_t i = 0; i < made.size(); ++i)
        made[i] = both(double(i));
    return made;
}

constexpr std::array numbers = makeNumbers();

/// Cunningham's functions V and W of a place, rows by degree, up to one more than the field has.
using Harmonics = Pair[maxDegree + 2][maxDegree + 2];

void fillHarmonics(Harmonics& f, const Vec3& r, double rr, int top)
{
    const double x0 = earthRadiusM * r[0] / rr;
    const double y0 = earthRadiusM * r[1] / rr;
    const double z0 = earthRadiusM * r[2] / rr;
    const double rho = earthRadiusM * earthRadiusM / rr;
    f[0][0] = Pair{earthRadiusM / std::sqrt(rr), 0};
    for (int i = 1; i <= top; ++i) {
        const double zFactor = (2 * i - 1) * z0;
        for (int m = 0; m <= i - 2; ++m)
            f[i][m] = (both(zFactor) * f[i - 1][m] - numbers[std::size_t(i + m - 1)] * both(rho) * f[i - 2][m]) /
                      numbers[std::size_t(i - m)];
        const Pair diagonal = f[i - 1][i - 1];
        f[i][i - 1] = both(zFactor) * diagonal;
        f[i][i] = both(2 * i - 1) * Pair{x0 * diagonal[0] - y0 * diagonal[1], x0 * diagonal[1] + y0 * diagonal[0]};
    }
}

/// The sums of the acceleration, x and y together.
struct HarmonicSum
{
    Pair xy{0, 0};
    double z = 0;
};

void addZonal(const Harmonics& f, int n, double C, HarmonicSum& a)
{
    a.xy -= both(C) * f[n + 1][1];
    a.z -= (n + 1) * C * f[n + 1][0][0];
}

/// What a term of the field brings along: its coefficients and the factors of its degree and order.
struct TermFactors
{
    double C, S, half, rise;  // half (n - m + 1) (n - m + 2), n - m + 1
};

constexpr std::array<TermFactors, gravityTerms.size()> makeFactors()
{
    std::array<TermFactors, gravityTerms.size()> made{};
    for (int n = 2; n <= maxDegree; ++n)
        for (int m = 0; m <= n; ++m) {
            const std::size_t i = std::size_t(n * (n + 1) / 2 + m - 3);
            const double f = (n - m + 1) * (n - m + 2);
            made[i] = {gravityTerms[i].C, gravityTerms[i].S, 0.5 * f, double(n - m + 1)};
        }
    return made;
}

constexpr std::array factors = makeFactors();

void addTesseral(const Pair* VW, const TermFactors& t, HarmonicSum& a)
{
    const Pair up{VW[1][1], VW[1][0]}, down{VW[-1][1], VW[-1][0]};
    const Pair C = both(t.C), S = both(t.S);
    a.xy += both(0.5) * (Pair{-t.S, t.S} * up - C * VW[1]) + both(t.half) * (Pair{t.C, -t.C} * VW[-1] + S * down);
    a.z += t.rise * (-t.C * VW[0][0] - t.S * VW[0][1]);
}

int fieldDegree(double R)
{
    if (R < 7378137.0)
        return 20;
    if (R < 1e7)
        return 15;
    if (R < 16378137.0)
        return 10;
    return 6;
}

/// What the forces of one evaluation share. Positions and velocities in the mean equator of date unless a line says
/// otherwise.
struct Evaluation
{
    double M = 0;  // MJD, UTC
    SunMoon bodies;
    Vec3 r, v;  // satellite
    Mat3 N, E;  // mean to true equator of date; mean equator to Earth-fixed
    bool sunlit = false;
    Vec3 rt, w;           // true equator: place, velocity relative to the air
    double q = 0, h = 0;  // drag per velocity, 1/s; geodetic height, km
    Vec3 a;
};

void rotateEarth(Evaluation& s, const EarthOrientation& earth)
{
    const double ut1 = earth.iers ? s.M + earth.ut1Utc / 86400.0 : s.M;
    double eqeq;
    s.N = nutmat(julcent(s.M), eqeq, earth.iers);
    s.E = zrot(lsidtim(ut1, 0.0, eqeq) * radPerHour) * s.N;
    if (earth.xp != 0 || earth.yp != 0)
        s.E = PoleMx(earth.xp, earth.yp) * s.E;
}

void addGravity(Evaluation& s, const Forces& f)
{
    Vec3 fixed;
    HarmAcc(mxvct(s.E, s.r), fieldDegree(abs(s.r)), fixed);
    s.a = mxvct(mxtrn(s.E), fixed);
    if (f.sun)
        s.a += ThirdBody(gmSunM3PerS2, s.r, s.bodies.sun);
    if (f.moon)
        s.a += ThirdBody(gmMoonM3PerS2, s.r, s.bodies.moon);
}

/// The shadow is a cylinder of the Earth's radius, without a penumbra.
bool inSunlight(const Vec3& r, const Vec3& sun)
{
    const Vec3 u = vnorm(sun);
    const double p = dot(u, r);
    return !(p < 0 && abs(r - p * u) < earthRadiusM);
}

void addRadiationPressure(Evaluation& s, const Forces& f)
{
    s.sunlit = inSunlight(s.r, s.bodies.sun);
    if (!s.sunlit)
        return;
    const Vec3 d = s.r - s.bodies.sun;
    const double D = abs(d);
    s.a += f.Cr * f.Am * (auM * auM) * sunPressureNPerM2 / (D * D * D) * d;
}

void addDrag(Evaluation& s, const Forces& f)
{
    s.rt = mxvct(s.N, s.r);
    s.w = mxvct(s.N, s.v) - Vec3(0, 0, airRotationRadPerS) * s.rt;
    const double rho = Jacc71(s.M, s.rt, s.bodies.sun, f.F107, f.FB107, f.Kp, s.h, f.corrections);
    s.q = -0.5 * f.Cd * f.Am * rho * abs(s.w);
    s.a += mxvct(mxtrn(s.N), s.q * s.w);
}

void addLift(Evaluation& s, const Forces& f)
{
    if (!(s.h < 90.0))
        return;
    const Vec3 wm = mxvct(mxtrn(s.N), s.w);
    const Mat3 G = GetRVMat(s.r, wm, 0, 90, 1);
    s.a += mxvct(mxtrn(G), Vec3(abs(s.w) * std::abs(s.q) * f.lift, 0, 0));
}

void addThrust(Evaluation& s, const Forces& f)
{
    if (!f.thrustOn || (f.thrustNeedsSun && !s.sunlit))
        return;
    if (f.yaw == 0 && f.pitch == 0) {
        s.a += f.thrust * vnorm(s.v);
        return;
    }
    const Mat3 G = GetRVMat(s.r, s.v, f.yaw, f.pitch, 1);
    s.a += mxvct(mxtrn(G), Vec3(f.thrust, 0, 0));
}

/// On the ground the satellite turns with the Earth.
void standStill(const Evaluation& s, double* dy)
{
    const Vec3 turning = mxvct(mxtrn(s.N), Vec3(0, 0, airRotationRadPerS)) * s.r;
    dy[0] = turning[0];
    dy[1] = turning[1];
    std::fill(dy + 2, dy + 6, 0.0);
}

}  // namespace

void derivatives(double mjd, const double* y, const Forces& forces, const SunMoon& bodies, double* dy)
{
    Evaluation s;
    s.M = mjd;
    s.bodies = bodies;
    s.r.assign(y[0], y[1], y[2]);
    s.v.assign(y[3], y[4], y[5]);
    rotateEarth(s, forces.earth);
    addGravity(s, forces);
    addRadiationPressure(s, forces);
    addDrag(s, forces);
    if (s.h < 0) {
        standStill(s, dy);
        return;
    }
    addLift(s, forces);
    addThrust(s, forces);
    for (unsigned i = 0; i < 3; ++i) {
        dy[i] = s.v[i];
        dy[i + 3] = s.a[i];
    }
}

SunMoon sunMoonAt(double mjd, const EarthOrientation& earth)
{
    const double T = julcent(mjd + ttMinusUt(earth, mjd) / 86400.0);
    Sun200 sun;
    Moon200 moon;
    return {aberrat(T, eclequ(T, sun.position(T))) * auM, eclequ(T, moon.position(T)) * earthRadiusM};
}

constinit thread_local int nmrksx = 0;
constinit thread_local Vec3 spos(0, 0, 0), mpos(0, 0, 0);

void RKFun(double t, const double* y, double* dy)
{
    RKfun(t, y, dy, indata);
}

void RKfun(double t, const double* y, double* dy, const WinpData* in)
{
    derivatives(in->cstm[nmrksx] + t / 86400.0, y, forcesOf(*in, nmrksx), {spos, mpos}, dy);
}

void HarmAcc(const Vec3& r, int n, Vec3& a)
{
    const int degree = std::clamp(n, 0, maxDegree);
    double rr = dot(r, r);
    if (rr < 1e-15)
        rr = 1.0;
    Harmonics f;
    fillHarmonics(f, r, rr, degree + 1);
    HarmonicSum sum;
    addZonal(f, 0, 1.0, sum);
    // nothing of degree 1: the origin is the centre of mass
    for (int i = 2; i <= degree; ++i) {
        const TermFactors* row = &factors[std::size_t(i * (i + 1) / 2 - 3)];
        addZonal(f, i, row[0].C, sum);
        for (int m = 1; m <= i; ++m)
            addTesseral(f[i + 1] + m, row[m], sum);
    }
    a.assign(sum.xy[0], sum.xy[1], sum.z);
    a *= gravityFactor;
}

Vec3 ThirdBody(double gm, const Vec3& r, const Vec3& s)
{
    const Vec3 D = s - r;
    const double distance = abs(D);
    const double cube = distance < 0.001 ? 1.0 : distance * distance * distance;
    const double S = abs(s);
    return gm * (D / cube - s / (S * S * S));
}

void UpSunMoon(double t, const WinpData* in, int k, Vec3& sun, Vec3& moon)
{
    const SunMoon bodies = sunMoonAt(in->cstm[k] + t / 86400.0, earthOrientationOf(*in));
    sun = bodies.sun;
    moon = bodies.moon;
}
