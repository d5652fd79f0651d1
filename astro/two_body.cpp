#include "astro/two_body.h"

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/mat3.h"

#include <algorithm>

namespace {

constexpr double anomalyTolerance = 1e-11;
constexpr int anomalySteps = 15;
constexpr double stumpffTolerance = 1e-12;
constexpr double parabTolerance = 1e-9;
constexpr int parabPasses = 16;

/// The root, or 0 of a negative number.
double rootOr0(double x)
{
    return x < 0 ? 0.0 : std::sqrt(x);
}

double wrapOnce(double angle)
{
    return angle < 0 ? angle + twoPi : angle;
}

/// The size of an orbit and the speed that belongs to it, sqrt(GM / a).
struct Scale
{
    double a, k;
};

Scale scaleOf(double GM, double a)
{
    const double size = std::max(std::abs(a), 1e-60);
    return {size, rootOr0(GM / size)};
}

/// One pass of the iteration for u = B - 1/B, the tangent of half the true anomaly for e = 1.
double parabolicU(double fac, double w)
{
    double B = 0.41421356237309515;
    if (fac >= 0) {
        const double A = std::sqrt(fac) * w;
        B = std::sqrt(A * A + 1.0) + A;
    }
    if (B > 0)
        B = std::exp(std::log(B) / 3.0);
    return B == 0 ? 0.0 : B - 1.0 / B;
}

/// What `oscelm` works with. Angles in radians.
struct Osculating
{
    double a = 0, q = 0, e = 0;
    double u = 0;     // argument of latitude
    double nu = 0;    // true anomaly
    double mean = 0;  // mean anomaly, that of the hyperbola for e above 1
};

void setAnomaliesOfEllipse(Osculating& o, double s, double R)
{
    const double c = std::abs(o.a) > 1e-60 ? 1.0 - R / o.a : 0.0;
    const double E = atan20(s, c);
    o.nu = atan20(std::sqrt(1.0 - o.e * o.e) * std::sin(E), std::cos(E) - o.e);
    o.mean = E - o.e * std::sin(E);
}

void setAnomaliesOfHyperbola(Osculating& o, double s)
{
    const double S = s / o.e;
    const double Hy = std::log(std::sqrt(S * S + 1.0) + S);
    o.nu = 2.0 * std::atan(std::sqrt((1.0 + o.e) / (o.e - 1.0)) * std::tanh(Hy / 2.0));
    o.mean = o.e * S - Hy;
}

void setShape(Osculating& o, double GM, double H, double R, const Vec3& v)
{
    const double speed = abs(v);
    const double w = 2.0 / R - speed * speed / GM;
    if (std::abs(w) < 1e-30) {
        o.e = 1.0;
        o.q = H * H / (2.0 * GM);
        o.a = 2.0 * o.q;
        return;
    }
    o.a = 1.0 / w;
    const double p = H * H / GM;
    o.e = rootOr0(1.0 - p / o.a);
    o.q = p / (1.0 + o.e);
}

double argumentOfLatitude(const Vec3& r, double ran, double inc)
{
    const double sinInc = std::sin(inc);
    return atan20(sinInc == 0 ? 0.0 : r[2] / sinInc, r[0] * std::cos(ran) + r[1] * std::sin(ran));
}

}  // namespace

double eccanom(double M, double e)
{
    const double mean = wrapOnce(frac(M / twoPi) * twoPi);
    double E = e < 0.8 ? mean : std::numbers::pi;
    double f = E - e * std::sin(E) - mean;
    for (int i = 0; std::abs(f) > anomalyTolerance && i < anomalySteps; ++i) {
        E = E - f / (1.0 - e * std::cos(E));
        f = E - e * std::sin(E) - mean;
    }
    return E;
}

double hypanom(double Mh, double e)
{
    double H = std::log(2.0 * std::abs(Mh) / e + 1.8);
    if (Mh < 0)
        H = -H;
    double f = e * std::sinh(H) - H - Mh;
    for (int i = 0; std::abs(f) > anomalyTolerance * (1.0 + std::abs(H + Mh)) && i < anomalySteps; ++i) {
        H = H - f / (e * std::cosh(H) - 1.0);
        f = e * std::sinh(H) - H - Mh;
    }
    return H;
}

void ellip(double GM, double t0, double t, double a, double e, double m0, Vec3& r, Vec3& v)
{
    const auto [size, k] = scaleOf(GM, a);
    const double E = eccanom((t - t0) * k / size + m0, e);
    const double cosE = std::cos(E);
    const double sinE = std::sin(E);
    const double fac = std::sqrt(1.0 - e * e);
    const double rho = 1.0 - e * cosE;
    r.assign(size * (cosE - e), size * fac * sinE, 0.0);
    v.assign(-k * sinE / rho, k * fac * cosE / rho, 0.0);
}

void hyperb(double GM, double t0, double t, double a, double e, Vec3& r, Vec3& v)
{
    const auto [size, k] = scaleOf(GM, a);
    const double H = hypanom((t - t0) * k / size, e);
    const double coshH = std::cosh(H);
    const double sinhH = std::sinh(H);
    const double fac = std::sqrt(e * e - 1.0);
    const double rho = e * coshH - 1.0;
    r.assign(size * (e - coshH), size * fac * sinhH, 0.0);
    v.assign(-k * sinhH / rho, k * fac * coshH / rho, 0.0);
}

void stumpff(double E2, double& c1, double& c2, double& c3)
{
    c1 = c2 = c3 = 0;
    double add = 1.0;
    double n = 1.0;
    do {
        c1 += add;
        add /= 2.0 * n;
        c2 += add;
        add /= 2.0 * n + 1.0;
        c3 += add;
        add *= -E2;
        n += 1.0;
    } while (std::abs(add) > stumpffTolerance && std::isfinite(add));  // an infinite term would never end
}

void parab(double GM, double t0, double t, double q, double e, Vec3& r, Vec3& v)
{
    e = std::abs(e);
    q = std::max(std::abs(q), 1e-40);
    const double k = rootOr0(GM / (q * (1.0 + e)));
    const double w = 1.5 * rootOr0(GM / (q * q * q)) * (t - t0);

    double fac = 0.5 * e;
    double E2 = 0, before = 0;
    double u = 0, c1 = 0, c2 = 0, c3 = 0;
    int pass = 0;
    do {
        u = parabolicU(fac, w);
        before = E2;
        E2 = fac == 0 ? 1.0 : (1.0 - e) * u * u / fac;
        stumpff(E2, c1, c2, c3);
        fac = 3.0 * e * c3;
        ++pass;
    } while (!(std::abs(E2 - before) < parabTolerance) && pass < parabPasses);

    if (fac == 0) {
        r = v = Vec3();
        return;
    }
    const double R = q * (1.0 + e * u * u * c2 / fac);
    const double x = q * (1.0 - u * u * c2 / fac);
    const double y = q * rootOr0((1.0 + e) / fac) * u * c1;
    r.assign(x, y, 0.0);
    v.assign(-k * y / R, k * (x / R + e), 0.0);
}

void kepler(double GM, double t0, double t, double m0, double a, double e, double ran, double aper, double inc,
            Vec3& r, Vec3& v)
{
    if (m0 >= 0 && e < 1)
        ellip(GM, t0, t, a, e, m0 * radPerDeg, r, v);
    else if (m0 >= 0 && e > 1)
        hyperb(GM, t0, t, a, e, r, v);
    else
        parab(GM, t0, t, a, e, r, v);
    const Mat3 toReference = zrot(-ran * radPerDeg) * xrot(-inc * radPerDeg) * zrot(-aper * radPerDeg);
    r = mxvct(toReference, r);
    v = mxvct(toReference, v);
}

void oscelm(double GM, double t, const Vec3& r, const Vec3& v, double& t0, double& m0, double& a, double& e,
            double& ran, double& aper, double& inc)
{
    bool parabolic = GM < 0;
    GM = std::max(std::abs(GM), 1e-60);

    const Vec3 h = r * v;
    const double H = std::max(abs(h), 1e-40);
    const double R = std::max(abs(r), 1e-40);
    const double node = atan20(h[0], -h[1]);
    const double cosInc = h[2] / H;
    const double tilt = std::abs(cosInc) > 1 ? 0.0 : std::acos(cosInc);

    Osculating o;
    o.u = argumentOfLatitude(r, node, tilt);
    setShape(o, GM, H, R, v);
    const double s = dot(r, v) / std::sqrt(std::abs(o.a) * GM);
    if (o.e == 1) {
        o.nu = 2.0 * std::atan(s);
        t0 = t - (s * s * s / 3.0 + s) * std::sqrt(2.0 * o.q * o.q * o.q / GM);
        parabolic = true;
    } else {
        if (o.e < 1)
            setAnomaliesOfEllipse(o, s, R);
        else
            setAnomaliesOfHyperbola(o, s);
        t0 = t - std::abs(o.a) * std::sqrt(std::abs(o.a) / GM) * o.mean;
    }

    m0 = o.e > 1 ? 0.0 : wrapOnce(o.mean) * degPerRad;
    ran = wrapOnce(node) * degPerRad;
    aper = wrapOnce(o.u - o.nu) * degPerRad;
    inc = tilt * degPerRad;
    e = o.e;
    a = o.a;
    if (parabolic) {
        a = o.q;
        m0 = -1.0;
    }
}
