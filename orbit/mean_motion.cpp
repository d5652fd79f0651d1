#include "orbit/mean_motion.h"

#include <algorithm>
#include <cmath>

#include "astro/angles.h"

namespace {

constexpr double gmKm3PerDay2 = 2.9755364003e15;
constexpr double oblatenessKm2 = 66062.98622677659;  // 1.5 J2 R^2

/// First-order change of the mean motion by the oblateness, as a fraction of it; `a` in km.
double oblatenessRate(double a, double ecc, double inc)
{
    const double sini = std::sin(inc * radPerDeg);
    return oblatenessKm2 / (a * a) * std::pow(1.0 - ecc * ecc, -1.5) * (1.0 - 1.5 * sini * sini);
}

double keplerAxis(double n)
{
    return std::pow(gmKm3PerDay2 / (n * n), 1.0 / 3.0);
}

}  // namespace

double getsax(int sgp, double n0, double ecc, double inc)
{
    const double n = std::max(n0, 0.0001) * twoPi;
    const double a1 = keplerAxis(n);
    const double k = -oblatenessRate(a1, ecc, inc);
    const double a = sgp == 0 ? keplerAxis(n / (1.0 - k)) : (1.0 + k * (1.0 - k) / 3.0) * a1;
    constexpr double leastKm = 0.001;
    return std::isfinite(a) ? std::max(leastKm, a) : leastKm;
}

double getn0(double a, double ecc, double inc)
{
    const double q = a == 0.0 ? 1.0 : std::abs(a);
    const double n = std::sqrt(gmKm3PerDay2 / (q * q * q));
    if (!(1.0 - ecc * ecc > 0.0))
        return 0.15915494309189535;  // 1 / (2 pi)
    const double r = (1.0 + oblatenessRate(q, ecc, inc)) * n / twoPi;
    return std::min(1000.0, r);  // in this order a NaN gives the limit
}
