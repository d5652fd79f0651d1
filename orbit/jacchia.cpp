#include "orbit/jacchia.h"

#include "astro/angles.h"
#include "orbit/jacchia_table.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double topKm = 2500.0;
constexpr double bottomKm = 90.0;  // of the polynomials
constexpr double groundKgPerM3 = 1.29;

/// What the formulas share.
struct Air
{
    double z;            // height, km, at least 90
    double high;         // 1 well above 350 km, 0 well below: which form of the geomagnetic effect counts
    double Kp, expKp;    // geomagnetic index
    double temperature;  // exospheric, without the geomagnetic effect, K
    double declination;  // of the satellite, radians
    double phase;        // of the year
};

double geodeticHeightKm(const Vec3& r)
{
    constexpr double e2 = 0.0066943799901413165;
    constexpr double earthRadiusM = 6378137.0;
    const double rho2 = r[0] * r[0] + r[1] * r[1];
    double N = 0;
    double d = e2 * r[2];
    for (int pass = 0; pass < 3; ++pass) {
        const double zd = r[2] + d;
        const double s = zd / std::sqrt(rho2 + zd * zd);
        N = earthRadiusM / std::sqrt(1.0 - e2 * s * s);
        d = N * e2 * s;
    }
    const double zd = r[2] + d;
    return (std::sqrt(rho2 + zd * zd) - N) / 1000.0;
}

/// Temperature of the exosphere over the satellite: night-time minimum and diurnal bulge.
double exosphericTemperature(const Vec3& place, const Vec3& sunPlace, double F107, double FB107, bool reduced)
{
    const double Tc = 379.0 + 3.24 * FB107 + 1.3 * (F107 - FB107);
    const double H = place[1] - sunPlace[1];
    const double dec = place[2];
    const double ds = sunPlace[2];
    const double bulge = H - 0.645772 + 0.10472 * std::sin(H + 0.750492);
    const double tau = reduced ? std::remainder(bulge, twoPi) : bulge;  // the cube of its half's cosine has a sign
    const double c = std::cos(tau / 2.0);
    const double c3 = c * c * c;
    const double a1 = std::pow(0.5 * (1.0 - std::cos(dec + ds)), 1.1);
    const double a2 = std::pow((std::cos(dec - ds) + 1.0) / 2.0, 1.1);
    return Tc * (1.0 + 0.3 * (a1 + (a2 - a1) * c3));
}

double withGeomagneticEffect(const Air& air)
{
    return air.temperature + (28.0 * air.Kp + 0.03 * air.expKp) * air.high +
           (14.0 * air.Kp + 0.02 * air.expKp) * (1.0 - air.high);
}

/// The base ten logarithm of the density by the polynomials.
double polynomial(double z, double Tinf)
{
    const double tt = std::clamp(Tinf / 1000.0, 0.5, 1.9);
    const double hh = z / 1000.0;
    const int range = z > 1000.0 ? 3 : z > 500.0 ? 2 : z > 180.0 ? 1 : 0;
    const JacchiaBlock& block = jacchiaBlocks[range][tt > 0.85 ? 1 : 0];
    double sum = 0;
    double hi = 1.0;
    for (const auto& row : block) {
        double tj = 1.0;
        for (const double coefficient : row) {
            sum += coefficient * hi * tj;
            tj *= tt;
        }
        hi *= hh;
    }
    return sum;
}

/// The variation with the time of the year: g(t) of the report.
double semiAnnualPhase(const Air& air)
{
    const double tau2 = air.phase + 0.09544 * (std::pow(0.5 * std::sin(twoPi * air.phase + 6.035) + 0.5, 1.65) - 0.5);
    return (0.17829 * std::sin(twoPi * tau2 + 4.137) + 0.3817) * std::sin(2.0 * twoPi * tau2 + 4.259) + 0.02835;
}

/// As the report has it, at any height.
double publishedSemiAnnualTerm(const Air& air)
{
    const double f = (5.876e-7 * std::pow(air.z, 2.331) + 0.06328) * std::exp(-0.002868 * air.z);
    return f * semiAnnualPhase(air);
}

double semiAnnualTerm(const Air& air)
{
    const double zc = std::min(air.z, 300.0);
    const double f = 5.876e-7 * std::pow(zc, 2.331) + 0.06328 * std::exp(-0.002868 * zc);
    const double term = f * semiAnnualPhase(air);
    return air.z > 300.1 ? term * (400.0 - air.z) / 100.0 : term;
}

double seasonalLatitudinalTerm(const Air& air)
{
    const double sl = std::sin(air.declination);
    const double sq = sl < 0 ? -(sl * sl) : sl * sl;
    const double dz = air.z - 90.0;
    return 0.014 * dz * std::exp(-0.0013 * (dz * dz)) * sq * std::sin(twoPi * air.phase + 1.72);
}

double logDensity(const Air& air, bool published)
{
    double L = polynomial(air.z, withGeomagneticEffect(air));
    if (air.z < 350.0)
        L += (0.012 * air.Kp + 1.2e-5 * air.expKp) * (1.0 - air.high);
    if (published)
        L += publishedSemiAnnualTerm(air);
    else if (air.z < 400.0)
        L += semiAnnualTerm(air);
    return L + seasonalLatitudinalTerm(air);
}

}  // namespace

double Jacc71(double mjd, const Vec3& r, const Vec3& sun, double F107, double FB107, double Kp, double& height,
              const Corrections& corrections)
{
    const double R = abs(r);
    height = topKm;
    if (R > 8.87e6 || R < 1.0)
        return 0;
    const double h = geodeticHeightKm(r);
    height = h;
    if (h < 0 || h > topKm)
        return 0;

    Air air;
    air.z = std::max(h, bottomKm);
    air.high = (std::tanh(0.04 * (air.z - 350.0)) + 1.0) / 2.0;
    air.Kp = Kp;
    air.expKp = std::exp(Kp);
    const Vec3 place = carpol(r);
    air.temperature = exosphericTemperature(place, carpol(sun), F107, FB107, corrections.airHourAngle);
    air.declination = place[2];
    air.phase = (mjd - 36204.0) / 365.2422;

    const double rho = std::pow(10.0, logDensity(air, corrections.airSemiAnnual));
    if (h < bottomKm && rho > 0)
        return rho * std::exp((bottomKm - h) * std::log(groundKgPerM3 / rho) / bottomKm);
    return rho;
}
