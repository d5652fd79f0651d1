#include "orbit/force_model.h"

#include "app/record/clock.h"
#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/frames.h"
#include "astro/sun_moon.h"
#include "astro/time_scales.h"
#include "orbit/attitude.h"
#include "orbit/gravity_data.h"

#include <algorithm>
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

/// Cunningham's functions of a place, rows by degree, up to one more than the field has.
struct Harmonics
{
    double V[maxDegree + 2][maxDegree + 2];
    double W[maxDegree + 2][maxDegree + 2];
};

void fillHarmonics(Harmonics& f, const Vec3& r, double rr, int top)
{
    const double x0 = earthRadiusM * r[0] / rr;
    const double y0 = earthRadiusM * r[1] / rr;
    const double z0 = earthRadiusM * r[2] / rr;
    const double rho = earthRadiusM * earthRadiusM / rr;
    f.V[0][0] = earthRadiusM / std::sqrt(rr);
    f.W[0][0] = 0;
    for (int i = 1; i <= top; ++i) {
        for (int m = 0; m <= i - 2; ++m) {
            f.V[i][m] = ((2 * i - 1) * z0 * f.V[i - 1][m] - (i + m - 1) * rho * f.V[i - 2][m]) / (i - m);
            f.W[i][m] = ((2 * i - 1) * z0 * f.W[i - 1][m] - (i + m - 1) * rho * f.W[i - 2][m]) / (i - m);
        }
        f.V[i][i - 1] = (2 * i - 1) * z0 * f.V[i - 1][i - 1];
        f.W[i][i - 1] = (2 * i - 1) * z0 * f.W[i - 1][i - 1];
        f.V[i][i] = (2 * i - 1) * (x0 * f.V[i - 1][i - 1] - y0 * f.W[i - 1][i - 1]);
        f.W[i][i] = (2 * i - 1) * (x0 * f.W[i - 1][i - 1] + y0 * f.V[i - 1][i - 1]);
    }
}

void addZonal(const Harmonics& f, int n, double C, Vec3& a)
{
    a[0] -= C * f.V[n + 1][1];
    a[1] -= C * f.W[n + 1][1];
    a[2] -= (n + 1) * C * f.V[n + 1][0];
}

void addTesseral(const Harmonics& h, int n, int m, double C, double S, Vec3& a)
{
    const double f = (n - m + 1) * (n - m + 2);
    const double* V = h.V[n + 1];
    const double* W = h.W[n + 1];
    a[0] += 0.5 * (-C * V[m + 1] - S * W[m + 1]) + 0.5 * f * (C * V[m - 1] + S * W[m - 1]);
    a[1] += 0.5 * (-C * W[m + 1] + S * V[m + 1]) + 0.5 * f * (-C * W[m - 1] + S * V[m - 1]);
    a[2] += (n - m + 1) * (-C * V[m] - S * W[m]);
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
struct Scene
{
    double M;   // MJD, UTC
    int k;      // slot
    Vec3 r, v;  // satellite
    Mat3 N, E;  // mean to true equator of date; mean equator to Earth-fixed
    bool sunlit;
    Vec3 rt, w;   // true equator: place, velocity against the air
    double q, h;  // drag per velocity, 1/s; geodetic height, km
    Vec3 a;
};

void rotateEarth(Scene& s, const WinpData& in)
{
    const double ut1 = in.IERSflg ? s.M + in.Ut1Utc / 86400.0 : s.M;
    double eqeq;
    s.N = nutmat(julcent(s.M), eqeq, in.IERSflg);
    s.E = zrot(lsidtim(ut1, 0.0, eqeq) * radPerHour) * s.N;
    if (in.IERSxp != 0 || in.IERSyp != 0)
        s.E = PoleMx(in.IERSxp, in.IERSyp) * s.E;
}

void addGravity(Scene& s, const WinpData& in)
{
    Vec3 fixed;
    HarmAcc(mxvct(s.E, s.r), fieldDegree(abs(s.r)), fixed);
    s.a = mxvct(mxtrn(s.E), fixed);
    if (in.sunf)
        s.a += ThirdBody(gmSunM3PerS2, s.r, spos);
    if (in.moonf)
        s.a += ThirdBody(gmMoonM3PerS2, s.r, mpos);
}

/// The shadow is a cylinder of the Earth's radius, without a penumbra.
bool inSunlight(const Vec3& r)
{
    const Vec3 u = vnorm(spos);
    const double p = dot(u, r);
    return !(p < 0 && abs(r - p * u) < earthRadiusM);
}

void addRadiationPressure(Scene& s, const WinpData& in)
{
    s.sunlit = inSunlight(s.r);
    if (!s.sunlit)
        return;
    const Vec3 d = s.r - spos;
    const double D = abs(d);
    s.a += in.Cr[s.k] * in.Am[s.k] * (auM * auM) * sunPressureNPerM2 / (D * D * D) * d;
}

void addDrag(Scene& s, const WinpData& in)
{
    s.rt = mxvct(s.N, s.r);
    s.w = mxvct(s.N, s.v) - Vec3(0, 0, airRotationRadPerS) * s.rt;
    const double rho = Jacc71(s.M, s.rt, spos, in.F107[s.k], in.FB107[s.k], in.Kp[s.k], s.h);
    s.q = -0.5 * in.Cd[s.k] * in.Am[s.k] * rho * abs(s.w);
    s.a += mxvct(mxtrn(s.N), s.q * s.w);
}

void addLift(Scene& s, const WinpData& in)
{
    if (!(s.h < 90.0))
        return;
    const Vec3 wm = mxvct(mxtrn(s.N), s.w);
    const Mat3 G = GetRVMat(s.r, wm, 0, 90, 1);
    s.a += mxvct(mxtrn(G), Vec3(abs(s.w) * std::abs(s.q) * in.lift, 0, 0));
}

void addThrust(Scene& s, const WinpData& in)
{
    if (!in.ionf[s.k] || (in.suns[s.k] && !s.sunlit))
        return;
    if (in.yaw[s.k] == 0 && in.pitch[s.k] == 0) {
        s.a += in.deltv[s.k] * vnorm(s.v);
        return;
    }
    const Mat3 G = GetRVMat(s.r, s.v, in.yaw[s.k], in.pitch[s.k], 1);
    s.a += mxvct(mxtrn(G), Vec3(in.deltv[s.k], 0, 0));
}

/// On the ground the satellite turns with the Earth.
void standStill(const Scene& s, double* dy)
{
    const Vec3 turning = mxvct(mxtrn(s.N), Vec3(0, 0, airRotationRadPerS)) * s.r;
    dy[0] = turning[0];
    dy[1] = turning[1];
    std::fill(dy + 2, dy + 6, 0.0);
}

}  // namespace

int nmrksx = 0;
Vec3 spos(0, 0, 0), mpos(0, 0, 0);

void RKFun(double t, const double* y, double* dy)
{
    RKfun(t, y, dy, indata);
}

void RKfun(double t, const double* y, double* dy, const WinpData* in)
{
    Scene s;
    s.k = nmrksx;
    s.M = in->cstm[s.k] + t / 86400.0;
    s.r.assign(y[0], y[1], y[2]);
    s.v.assign(y[3], y[4], y[5]);
    rotateEarth(s, *in);
    addGravity(s, *in);
    addRadiationPressure(s, *in);
    addDrag(s, *in);
    if (s.h < 0) {
        standStill(s, dy);
        return;
    }
    addLift(s, *in);
    addThrust(s, *in);
    for (unsigned i = 0; i < 3; ++i) {
        dy[i] = s.v[i];
        dy[i + 3] = s.a[i];
    }
}

void HarmAcc(const Vec3& r, int n, Vec3& a)
{
    const int degree = std::clamp(n, 0, maxDegree);
    double rr = dot(r, r);
    if (rr < 1e-15)
        rr = 1.0;
    Harmonics f;
    fillHarmonics(f, r, rr, degree + 1);
    a.assign(0, 0, 0);
    addZonal(f, 0, 1.0, a);
    // nothing of degree 1: the origin is the centre of mass
    for (int i = 2; i <= degree; ++i) {
        const GravityTerm* row = &gravityTerms[std::size_t(i * (i + 1) / 2 - 3)];
        addZonal(f, i, row[0].C, a);
        for (int m = 1; m <= i; ++m)
            addTesseral(f, i, m, row[m].C, row[m].S, a);
    }
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
    const double M = in->cstm[k] + t / 86400.0;
    int day, month, year;
    double hour;
    caldat(M, day, month, year, hour);
    const double T = julcent(M + SetTtUt(in, year) / 86400.0);
    Sun200 sunSeries;
    Moon200 moonSeries;
    sun = aberrat(T, eclequ(T, sunSeries.position(T))) * auM;
    moon = eclequ(T, moonSeries.position(T)) * earthRadiusM;
}
