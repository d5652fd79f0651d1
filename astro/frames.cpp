#include "astro/frames.h"

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/nutation_terms.h"
#include "astro/time_scales.h"

namespace {

// Each formula has the rounded factor it was published with.
constexpr double radPerArcsec = 4.8481368111e-6;  // precession, nutation
constexpr double poleRadPerArcsec = 4.84813681109536e-6;
constexpr double obliquityRadPerDeg = 0.0174532925199;
constexpr double timeSecondsPerRad = 13750.9870831;

constexpr double earthRadiusM = 6378137.0;
constexpr double eccentricitySquared = 0.00669438499959;  // not quite the 0.00669437999 of WGS84
constexpr double oneMinusEccentricitySquared = 0.99330561500041;

/// Mean obliquity of the ecliptic, radians.
double meanObliquity(double T)
{
    return (23.43929111 - ((0.00059 - 0.001813 * T) * T + 46.815) * T / 3600.0) * obliquityRadPerDeg;
}

/// Nutation in longitude and in obliquity, radians.
struct Nutation
{
    double dpsi = 0, deps = 0;
};

Nutation shortNutation(double T)
{
    const double ls = twoPi * frac(0.993133 + 99.997306 * T);
    const double D = twoPi * frac(0.827362 + 1236.853087 * T);
    const double F = twoPi * frac(0.259089 + 1342.227826 * T);
    const double N = twoPi * frac(0.347346 - 5.372447 * T);
    const double sun = 2.0 * (F - D + N);
    const double moon = 2.0 * (F + N);
    return {(-17.2 * std::sin(N) - 1.319 * std::sin(sun) - 0.227 * std::sin(moon) + 0.206 * std::sin(2.0 * N) +
             0.143 * std::sin(ls)) *
                radPerArcsec,
            (9.203 * std::cos(N) + 0.574 * std::cos(sun) + 0.098 * std::cos(moon) - 0.09 * std::cos(2.0 * N)) *
                radPerArcsec};
}

/// The fundamental arguments of Sun and Moon, radians, reduced with their sign.
struct Arguments
{
    double l, lp, f, d, om;
};

Arguments fundamentalArguments(double T)
{
    return {
        std::fmod(2.355548393544 + (8328.691422883903 + (0.000151795164 + 3.10281e-7 * T) * T) * T, twoPi),
        std::fmod(6.240035939326 + (628.301956024185 + (-2.797375e-6 - 5.8178e-8 * T) * T) * T, twoPi),
        std::fmod(1.627901933972 + (8433.466158318464 + (-6.427175e-5 + 5.333e-8 * T) * T) * T, twoPi),
        std::fmod(5.19846951358 + (7771.37714617065 + (-3.3408511e-5 + 9.2115e-8 * T) * T) * T, twoPi),
        std::fmod(2.182438624361 + (-33.757045933754 + (3.614286e-5 + 3.8785e-8 * T) * T) * T, twoPi),
    };
}

template <class Term>
double argumentOf(const Term& term, const Arguments& a)
{
    return term.l * a.l + term.lp * a.lp + term.f * a.f + term.d * a.d + term.om * a.om;
}

Nutation fullNutation(double T)
{
    const Arguments args = fundamentalArguments(T);
    Nutation sum;
    for (const NutationTerm& term : nutationTerms) {
        const double arg = argumentOf(term, args);
        sum.dpsi += (term.dpsi + term.dpsiT * T) * std::sin(arg);
        sum.deps += (term.deps + term.depsT * T) * std::cos(arg);
    }
    for (const SteadyNutationTerm& term : steadyNutationTerms) {
        const double arg = argumentOf(term, args);
        sum.dpsi += term.dpsi * std::sin(arg);
        sum.deps += term.deps * std::cos(arg);
    }
    return {sum.dpsi * 0.0001 * radPerArcsec, sum.deps * 0.0001 * radPerArcsec};
}

/// A place on the ellipsoid, in equatorial Earth radii: distance from the axis, and height above the equator.
struct Meridian
{
    double rho, z;
};

Meridian meridianOf(double lat, double h)
{
    const double sinLat = std::sin(lat);
    const double N = 1.0 / std::sqrt(1.0 - eccentricitySquared * sinLat * sinLat);
    const double H = h / earthRadiusM;
    return {(N + H) * std::cos(lat), (oneMinusEccentricitySquared * N + H) * sinLat};
}

/// Local apparent sidereal time, radians.
double siderealAngle(double mjd, double eqeq, double lon)
{
    return lsidtim(mjd, lon * degPerRad, eqeq) * radPerHour;
}

Mat3 tiltAt(double lat)
{
    return yrot(std::numbers::pi / 2.0 - lat);
}

}  // namespace

Vec3 eclequ(double T, const Vec3& r)
{
    return mxvct(xrot(-meanObliquity(T)), r);
}

Mat3 pmatequ(double T1, double T2)
{
    const double dT = T2 - T1;
    const double zeta =
        ((1.39656 - 0.000139 * T1) * T1 + 2306.2181 + (0.30188 - 0.000345 * T1 + 0.017998 * dT) * dT) * dT;
    const double z = zeta + (0.000411 * T1 + 0.7928 + 0.000205 * dT) * dT * dT;
    const double theta =
        (2004.3109 - (0.8533 + 0.000217 * T1) * T1 - (0.000217 * T1 + 0.42665 + 0.041833 * dT) * dT) * dT;
    return zrot(-z * radPerArcsec) * yrot(theta * radPerArcsec) * zrot(-zeta * radPerArcsec);
}

Mat3 nutmat(double T, double& eqeq, bool full)
{
    const auto [dpsi, deps] = full ? fullNutation(T) : shortNutation(T);
    const double eps0 = meanObliquity(T);
    const double eps = eps0 + deps;
    eqeq = std::cos(eps) * dpsi * timeSecondsPerRad;
    return xrot(-eps) * zrot(-dpsi) * xrot(eps0);
}

Mat3 PoleMx(double xp, double yp)
{
    const double x = xp * poleRadPerArcsec;
    const double y = yp * poleRadPerArcsec;
    return {1, 0, x, 0, 1, -y, -x, y, 1};
}

Vec3 aberrat(double T, const Vec3& r)
{
    const double L = twoPi * frac(100.00214 * T + 0.27908);
    const double R = abs(r);
    return r + Vec3(-9.934e-5 * R * std::sin(L), 9.125e-5 * R * std::cos(L), 3.927e-5 * R * std::cos(L));
}

Vec3 GeoPos(double mjd, double eqeq, double lat, double lon, double h)
{
    const auto [rho, z] = meridianOf(lat, h);
    const double S = siderealAngle(mjd, eqeq, lon);
    return {rho * std::cos(S), rho * std::sin(S), z};
}

Vec3 GeoPos(double mjd, double eqeq, double lat, double lon, double h, double xp, double yp)
{
    const auto [rho, z] = meridianOf(lat, h);
    Vec3 earthFixed(rho * std::cos(lon), rho * std::sin(lon), z);
    if (xp != 0 || yp != 0)
        earthFixed = mxvct(mxtrn(PoleMx(xp, yp)), earthFixed);
    return mxvct(zrot(-siderealAngle(mjd, eqeq, 0)), earthFixed);
}

Vec3 EquHor(double mjd, double eqeq, double lat, double lon, const Vec3& r)
{
    return mxvct(tiltAt(lat), mxvct(zrot(siderealAngle(mjd, eqeq, lon)), r));
}

Vec3 HorEqu(double mjd, double eqeq, double lat, double lon, const Vec3& r)
{
    return mxvct(zrot(-siderealAngle(mjd, eqeq, lon)), mxvct(yrot(lat - std::numbers::pi / 2.0), r));
}

ObserverSite observerSite(double lat, double h)
{
    const auto [rho, z] = meridianOf(lat, h);
    return {rho, z, tiltAt(lat)};
}

void AppPos(const ObserverSite& site, double mjd, double eqeq, double lon, int mode, const Vec3& r, double& az,
            double& el, double& dist)
{
    const Mat3 turn = zrot(siderealAngle(mjd, eqeq, lon));
    const Vec3 observer(site.rho * turn.m[0][0], site.rho * turn.m[0][1], site.z);
    const Vec3 polar = carpol(mxvct(site.tilt, mxvct(turn, mode != 0 ? r - observer : r)));
    dist = polar[0];
    az = std::numbers::pi - polar[1];
    el = polar[2];
}

void AppPos(double mjd, double eqeq, double lat, double lon, double h, int mode, const Vec3& r, double& az,
            double& el, double& dist)
{
    AppPos(observerSite(lat, h), mjd, eqeq, lon, mode, r, az, el, dist);
}

void AppRADec(double mjd, double eqeq, double lat, double lon, double az, double el, double& ra, double& dec)
{
    const Vec3 horizon = polcar(Vec3(1.0, std::numbers::pi - az, el));
    const Vec3 polar = carpol(HorEqu(mjd, eqeq, lat, lon, horizon));
    ra = polar[1];
    dec = polar[2];
}
