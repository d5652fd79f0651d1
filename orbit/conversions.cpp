#include "orbit/conversions.h"

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/frames.h"
#include "astro/time_scales.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace {

// The constants of the analytic model, WGS72. Lengths are Earth radii, times are minutes.
constexpr double ae = 6378135.0;  // metres
constexpr double xke = 0.07436691613317341;
constexpr double xkeSquared = 0.005530438215158447;
constexpr double ck2 = 0.0005413079;
constexpr double floorValue = 1e-20;
constexpr double converged = 1e-13;
constexpr int passes = 40;

double floored(double x)
{
    return x >= floorValue ? x : floorValue;
}

double flooredInSize(double x)
{
    return std::abs(x) >= floorValue ? x : floorValue;
}

double clippedAcos(double x)
{
    return std::acos(std::abs(x) > 1.0 ? 1.0 : x);
}

/// A state that holds numbers that are not finite has no elements.
double finiteOrZero(double x)
{
    return std::isfinite(x) ? x : 0.0;
}

double reduced(double angle)
{
    const double rest = std::fmod(angle, twoPi);
    return rest < 0 ? rest + twoPi : rest;
}

/// What the state tells without the model.
struct Geometry
{
    double rm, rdot, rfdot;  // distance, its rate, distance times angular rate
    double pl;               // semi-latus rectum
    double u, i, node, w;    // argument of latitude, inclination, node, argument of perigee
    double e;                // osculating eccentricity
    double a, xn;            // semi-major axis, mean motion
};

/// The state without the short-period terms.
struct Mean
{
    double p, a, xn;
    double rk, uk, ik, nodek, rdotk, rfdotk;
    double ci, si, x3;
};

/// The state without the long-period terms.
struct Secular
{
    double om, m0;  // argument of perigee, mean anomaly
    double b2;      // 1 - e^2
};

Geometry geometryOf(const Vec3& r, const Vec3& v)
{
    Geometry g;
    const Vec3 rr = r / ae;
    const Vec3 vv = 60.0 * v / ae;
    const Vec3 vk = vv / xke;
    const Vec3 h = rr * vk;
    g.pl = floored(dot(h, h));
    g.rm = floored(abs(rr));
    g.rdot = dot(rr, vv) / g.rm;
    g.rfdot = xke * abs(h) / g.rm;
    const Vec3 rh = vnorm(rr);
    const Vec3 nh = vnorm(Vec3(0, 0, 1) * h);
    g.u = clippedAcos(dot(rh, nh));
    if (rh[2] < 0)
        g.u = twoPi - g.u;
    const Vec3 ev = vk * h - rh;
    g.e = abs(ev);
    g.i = clippedAcos(h[2] / floored(abs(h)));
    g.node = clippedAcos(nh[0] / floored(abs(nh)));
    if (nh[1] < 0)
        g.node = reduced(twoPi - g.node);
    const Vec3 eh = vnorm(ev);
    g.w = clippedAcos(dot(eh, nh));
    if (eh[2] < 0)
        g.w = reduced(twoPi - g.w);
    g.a = g.pl / floored(1.0 - g.e * g.e);
    g.xn = xke * std::pow(g.a, -1.5);
    return g;
}

/// One pass of the short-period iteration; tells how far p moved.
double removeShortPeriod(const Geometry& g, Mean& m)
{
    const double beta = std::sqrt(m.p / m.a);
    const double t1 = ck2 / m.p;
    const double t2 = t1 / m.p;
    m.ci = std::cos(m.ik);
    m.si = std::sin(m.ik);
    const double c2 = std::cos(2.0 * m.uk);
    const double s2 = std::sin(2.0 * m.uk);
    m.x3 = 3.0 * m.ci * m.ci - 1.0;
    const double x1 = 1.0 - m.ci * m.ci;
    const double d = flooredInSize(1.0 - 1.5 * t2 * beta * m.x3);
    m.rk = flooredInSize((g.rm - 0.5 * t1 * x1 * c2) / d);
    const double t3 = t1 * m.xn;
    m.uk = g.u + 0.25 * t2 * (7.0 * m.ci * m.ci - 1.0) * s2;
    m.ik = g.i - 1.5 * t2 * m.ci * m.si * c2;
    m.nodek = g.node - 1.5 * t2 * m.ci * s2;
    m.rdotk = g.rdot + t3 * x1 * s2;
    m.rfdotk = g.rfdot - (x1 * c2 + 1.5 * m.x3) * t3;
    const double root = m.rk * m.rfdotk / xke;
    const double before = m.p;
    m.p = floored(root * root);
    m.a = 1.0 / floored(2.0 / m.rk - (m.rdotk * m.rdotk + m.rfdotk * m.rfdotk) / xkeSquared);
    m.xn = xke * std::pow(m.a, -1.5);
    return std::abs(m.p - before);
}

Mean meanOf(const Geometry& g)
{
    Mean m{};
    m.p = g.pl;
    m.a = g.a;
    m.xn = g.xn;
    m.ik = g.i;
    m.uk = g.u;
    for (int pass = 0; pass < passes; ++pass)
        if (removeShortPeriod(g, m) < converged)
            break;
    return m;
}

Secular secularOf(const Mean& m, double w)
{
    const double ecose = 1.0 - m.rk / m.a;
    const double esine = m.rdotk * m.rk / (xke * std::sqrt(m.a));
    const double e2 = std::max(1.0 - m.p / m.a, 0.0);
    const double b = 1.0 - e2 < 0 ? 1.0 : 1.0 + std::sqrt(1.0 - e2);
    const double q = esine / b;
    const double cu = m.rk * std::cos(m.uk) / m.a;
    const double su = m.rk * std::sin(m.uk) / m.a;
    const double ay0 = 0.0011725350766172082 * m.si;
    const double xl0 = 0.0005862675383086041 * m.si * (5.0 * m.ci + 3.0) / flooredInSize(1.0 + m.ci);

    Secular result{};
    double e = std::sqrt(e2);
    double axn = e * std::cos(w);
    double ipl = 0, c = 0, s = 0;
    result.om = w;
    for (int pass = 0; pass < passes; ++pass) {
        result.b2 = floored(1.0 - e * e);
        ipl = 1.0 / (m.a * result.b2);
        const double ay = ay0 * ipl;
        const double ayn = e * std::sin(result.om) + ay;
        c = cu + axn - q * ayn;
        s = su + ayn + q * axn;
        axn = ecose * c + esine * s;
        result.om = reduced(std::atan2(ecose * s - esine * c - ay, axn));
        const double before = e;
        e = axn / flooredInSize(std::cos(result.om));
        if (std::abs(e - before) < converged)
            break;
    }
    result.m0 = reduced(std::atan2(s, c) - esine - ipl * xl0 * axn - result.om);
    return result;
}

/// Semi-major axis that belongs to Kozai's mean motion.
struct KozaiAxis
{
    double a0 = 0;
    bool settled = false;
};

KozaiAxis kozaiAxis(double a, double x3, double b2)
{
    constexpr double settledShare = 1e-9;  // far above the rounding of large axes
    const double k = 0.00081196185 * x3 / floored(b2 * std::sqrt(b2));
    double a1 = a;
    double a0 = a;
    double divisor = 1, change = 0;
    for (int pass = 0; pass < passes; ++pass) {
        a1 = floored((1.0 - k / (a1 * a1)) * a);
        const double d = k / (a0 * a0);
        const double before = a0;
        divisor = 1.0 - d / 3.0 - d * d - 134.0 * d * d * d / 81.0;
        a0 = floored(a1 / divisor);
        change = std::abs(a0 - before);
        if (change < converged)
            break;
    }
    return {a0, divisor > 0 && std::min(a0, a1) > floorValue && change <= settledShare * a0};
}

double revsPerDay(double a0)
{
    const double A = a0 * ae / 1000.0;
    return std::sqrt(398600.8 / (A * A * A)) * 86400.0 / twoPi;
}

/// The frames of an instant, all from the true equator of date.
struct Frames
{
    Mat3 toMean;   // mean equator of date
    Mat3 toJ2000;  // mean equator of J2000
    Mat3 turn;     // turned by the sidereal time
    Mat3 pole;     // polar motion, after `turn`
    Mat3 rate;     // velocity of the Earth-fixed axes from a place
};

Frames framesAt(double mjd, const EarthOrientation& earth)
{
    constexpr double earthRotationRadPerS = 7.2921158553e-5;
    const double ut1 = earth.iers ? mjd + earth.ut1Utc / 86400.0 : mjd;
    const double T = julcent(mjd);
    double eqeq;
    Frames f;
    f.toMean = mxtrn(nutmat(T, eqeq, earth.iers));
    f.toJ2000 = mxtrn(pmatequ(0.0, T));
    f.turn = zrot(std::numbers::pi * lsidtim(ut1, 0.0, eqeq) / 12.0);
    Mat3 spin = mxcon(0.0);
    spin.PutMij(earthRotationRadPerS, 1, 2);
    spin.PutMij(-earthRotationRadPerS, 2, 1);
    f.rate = spin * f.turn;
    f.pole = mxidn();
    if (earth.xp != 0 || earth.yp != 0) {
        f.pole = PoleMx(earth.xp, earth.yp);
        f.rate = f.pole * f.rate;
    }
    return f;
}

void turnBoth(const Mat3& m, Vec3& r, Vec3& v)
{
    r = mxvct(m, r);
    v = mxvct(m, v);
}

void toTrueOfDate(int from, const Frames& f, Vec3& r, Vec3& v)
{
    if (from == frame::earthFixed) {
        const Vec3 w = mxvct(mxtrn(f.rate), r);
        turnBoth(mxtrn(f.pole), r, v);
        turnBoth(mxtrn(f.turn), r, v);
        v += w;
        return;
    }
    if (from == frame::j2000)
        turnBoth(mxtrn(f.toJ2000), r, v);
    if (from == frame::j2000 || from == frame::meanOfDate)
        turnBoth(mxtrn(f.toMean), r, v);
}

void fromTrueOfDate(int to, const Frames& f, Vec3& r, Vec3& v)
{
    if (to == frame::earthFixed) {
        const Vec3 w = mxvct(f.rate, r);
        turnBoth(f.turn, r, v);
        turnBoth(f.pole, r, v);
        v += w;
        return;
    }
    if (to == frame::j2000 || to == frame::meanOfDate)
        turnBoth(f.toMean, r, v);
    if (to == frame::j2000)
        turnBoth(f.toJ2000, r, v);
}

}  // namespace

bool hasMeanElements(const Vec3& r, const Vec3& v)
{
    const Geometry g = geometryOf(r, v);
    const Mean m = meanOf(g);
    return g.e < 1.0 && kozaiAxis(m.a, m.x3, secularOf(m, g.w).b2).settled;
}

void rv2el(const Vec3& r, const Vec3& v, double& inc, double& ra, double& e, double& aper, double& m0, double& n0)
{
    const Geometry g = geometryOf(r, v);
    const Mean m = meanOf(g);
    const Secular s = secularOf(m, g.w);
    n0 = finiteOrZero(revsPerDay(kozaiAxis(m.a, m.x3, s.b2).a0));
    inc = finiteOrZero(m.ik * degPerRad);
    ra = finiteOrZero(m.nodek * degPerRad);
    aper = finiteOrZero(s.om * degPerRad);
    m0 = finiteOrZero(s.m0 * degPerRad);
    e = finiteOrZero(g.e);
}

void changeFrame(int from, int to, double mjd, const EarthOrientation& earth, Vec3& r, Vec3& v)
{
    const Frames f = framesAt(mjd, earth);
    toTrueOfDate(from, f, r, v);
    fromTrueOfDate(to, f, r, v);
}
