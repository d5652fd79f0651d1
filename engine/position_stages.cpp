#include "engine/position_stages.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/frames.h"
#include "astro/sun_moon.h"
#include "astro/time_scales.h"
#include "engine/clamped_values.h"
#include "engine/event_geometry.h"

namespace {

constexpr double auInEarthRadii = 23454.79106062;
constexpr double lightSpeedKmPerS = 299792.458;
constexpr double siderealDayS = 86164.09054;

// Conversions between geocentric and geodetic latitude by the tangent. Close to the poles the two are taken as one.
constexpr double tangentLimit = 1.53589;
constexpr double radiiRatioSquared = 1.00674;

double geocentricOf(double lat)
{
    return std::abs(lat) < tangentLimit ? std::atan(std::tan(lat) / radiiRatioSquared) : lat;
}

double geodeticOf(double lat)
{
    return std::abs(lat) < tangentLimit ? std::atan(std::tan(lat) * radiiRatioSquared) : lat;
}

/// The horizon of a satellite lies below its horizontal plane by this angle, for a spherical Earth.
double horizonDip(const Vec3& r)
{
    const double R = abs(r);
    return R > earthRadiusKm ? std::numbers::pi / 2 - std::asin(earthRadiusKm / R) : 0.0;
}

/// Elevation (with the horizon dip) and azimuth of a body in Earth radii at the sub-satellite point, radians.
void seenFromSatellite(const Scene& s, const Vec3& body, double& az, double& el)
{
    const double height = std::max(s.sp->hgt[s.isat], 0.0) * 1000.0;
    double distance = 0;
    AppPos(s.ut1, s.eqeq, s.subLat, s.subLng, height, 1, body, az, el, distance);
    el += horizonDip(s.r);
}

/// Latitude and height above the ellipsoid of a position in the true equator of date; four rounds.
void geodeticPlace(const Vec3& r, double latGeocentric, double& lat, double& heightKm)
{
    constexpr double e2 = 0.0066943799901413165;
    const double p2 = r[0] * r[0] + r[1] * r[1];
    double dz = e2 * r[2];
    double N = 0;
    for (int round = 0; round < 4; ++round) {
        const double Z = r[2] + dz;
        const double s = std::sqrt(p2 + Z * Z);
        const double sine = s < 1e-5 ? std::sin(latGeocentric) : Z / s;
        N = earthRadiusKm / std::sqrt(1.0 - e2 * sine * sine);
        dz = e2 * N * sine;
    }
    const double Z = r[2] + dz;
    lat = atan20(Z, std::sqrt(p2));
    heightKm = std::sqrt(p2 + Z * Z) - N;
}

/// Apparent radius in degrees of the Moon at a distance in Earth radii.
double moonRadius(double distance)
{
    constexpr double moonRadiusEarthRadii = 0.272493;
    if (distance > 0.1) {
        const double ratio = moonRadiusEarthRadii / distance;
        return ratio > 1.0 ? 0.265 : std::asin(ratio) * degPerRad;
    }
    return std::asin(0.00452121) * degPerRad;
}

void findMoonAtObserver(Scene& s)
{
    double distance = 0;
    AppPos(s.site, s.ut1, s.eqeq, s.lng, 1, s.moon, s.sp->omoonaz, s.sp->omoonel, distance);
    s.sp->moonrad = moonRadius(distance);
    if (s.in->sunmplt)
        s.sp->moonph = dot(vnorm(s.moon - s.sun), vnorm(s.moon));
}

/// The direction that occultations look for, true equator of date.
Vec3 occultationTarget(const Scene& s)
{
    const double ra = DmsDegF(clamped(s.in->occra, limitDegrees)) * radPerHour;
    const double dec = DmsDegF(clamped(s.in->occdec, limitDegrees)) * radPerDeg;
    const Vec3 target = polcar(Vec3(1.0, ra, dec));
    return s.epochChosen ? mxvct(mxtrn(s.toEpoch), target) : target;
}

}  // namespace

double wrapPi(double x)
{
    while (x > std::numbers::pi)
        x -= twoPi;
    while (x < -std::numbers::pi)
        x += twoPi;
    return x;
}

void setTimes(Scene& s, double mjd)
{
    s.mjd = clamped(mjd, limitDays);
    s.ut1 = clampedUt1(mjd, s.models.earth.iers, s.models.earth.ut1Utc);
    if (const double day = std::floor(s.mjd); day != s.ttUtDay) {
        s.ttUtDay = day;
        s.ttUt = ttMinusUt(s.models.earth, s.mjd);
    }
    s.T = julcent(s.mjd + s.ttUt / 86400.0);
}

void setNutation(Scene& s)
{
    s.nutation = nutmat(s.T, s.eqeq, s.models.earth.iers);
}

void setGreenwich(Scene& s)
{
    s.greenwich = lsidtim(s.ut1, 0.0, s.eqeq) * radPerHour;
}

void setSatellite(Scene& s, WinpData* in, SatPosData* sp, int isat)
{
    s.in = in;
    s.sp = sp;
    s.isat = isat;
    s.model = propagatorOf(*in, isat);
    s.models = modelsOf(*in);
    s.transit = in->occflg;
}

void setView(Scene& s, const View& view)
{
    const Site& site = view.observer;
    s.view = view;
    s.models.equinox = view.equinox;
    s.prime = s.isat == view.prime;
    s.lngDeg = clamped(site.lng, limitDegrees);
    s.lat = clamped(site.lat, limitDegrees) * radPerDeg;
    s.lng = s.lngDeg * radPerDeg;
    s.height = clamped(site.height, limitHeightMetres);
    s.site = observerSite(s.lat, s.height);
}

void placeSun(Scene& s)
{
    Sun200 series;
    const Vec3 mean = eclequ(s.T, series.position(s.T));
    s.sun = aberrat(s.T, mxvct(s.nutation, mean)) * auInEarthRadii;
}

bool moonWanted(const Scene& s)
{
    return s.models.moonlight || s.transit == 2 || s.models.solarEclipses || s.model == Propagator::numeric;
}

void placeMoon(Scene& s)
{
    Moon200 series;
    s.moon = mxvct(s.nutation, eclequ(s.T, series.position(s.T)));
}

void setEpochMatrix(Scene& s)
{
    const double year = clamped(s.models.equinox, limitYears);
    s.epochChosen = year != 0.0;
    if (s.epochChosen)
        s.toEpoch = pmatequ(s.T, (year - 2000.0) / 100.0) * mxtrn(s.nutation);
}

void turnToTrueOfDate(Scene& s)
{
    s.r = mxvct(s.nutation, s.r);
    s.v = mxvct(s.nutation, s.v);
    if (!s.relative) {
        s.sp->rsat = s.r;
        s.sp->vsat = s.v;
    }
}

void placeObserver(Scene& s)
{
    const double xp = clamped(s.models.earth.xp, limitArcSeconds);
    const double yp = clamped(s.models.earth.yp, limitArcSeconds);
    s.observer = GeoPos(s.ut1, s.eqeq, s.lat, s.lng, s.height, xp, yp) * earthRadiusKm;
    s.sight = s.r - s.observer;
    s.toObserver = vnorm(s.sight) * -1.0;
}

void findObserverVelocity(Scene& s)
{
    const double R = std::max(0.001 * s.height + earthRadiusKm, 0.0);
    const double speed = twoPi * R * std::cos(geocentricOf(s.lat)) / siderealDayS;
    const double local = lsidtim(s.ut1, s.lngDeg, s.eqeq) * radPerHour;
    s.observerVelocity = mxvct(zrot(-local), Vec3(0.0, speed, 0.0));
}

void findApparentPlace(Scene& s)
{
    Vec3 apparent = s.sight;
    if (s.models.earth.iers)
        apparent -= s.v * (abs(s.sight) / lightSpeedKmPerS);
    if (s.epochChosen)
        apparent = mxvct(s.toEpoch, apparent);
    const Vec3 polar = carpol(apparent);
    s.sp->ra[s.isat] = DegFDms(polar[1] / radPerHour);
    s.sp->dec[s.isat] = DegFDms(polar[2] * degPerRad);
}

void findRangeRate(Scene& s)
{
    const Vec3 u = vnorm(s.sight);
    s.sp->rrate[s.isat] = dot(s.v, u) - dot(s.observerVelocity, u);
}

void findSubSolarPoint(const Scene& s)
{
    const Vec3 polar = carpol(s.sun);
    s.sp->sslng = wrapPi(polar[1] - s.greenwich) * degPerRad;
    s.sp->sslat = geodeticOf(polar[2]) * degPerRad;
}

void findAzimuthElevation(Scene& s)
{
    double az = 0;
    double el = 0;
    double dst = 0;
    AppPos(s.site, s.ut1, s.eqeq, s.lng, 1, s.r / earthRadiusKm, az, el, dst);
    if (az < 0.0)
        az += twoPi;
    s.sp->az[s.isat] = az * degPerRad;
    s.sp->el[s.isat] = el * degPerRad;
    s.sp->dst[s.isat] = dst * earthRadiusKm;
}

void findBeta(Scene& s)
{
    const Vec3 product = vnorm(s.r) * vnorm(s.v);
    const Vec3 n = s.models.corrections.betaOfPlane ? vnorm(product) : product;
    const double sine = std::clamp(dot(n, vnorm(s.sun)), -1.0, 1.0);
    s.sp->beta[s.isat] = std::asin(sine) * degPerRad;
}

void findSubSatellitePoint(Scene& s)
{
    Vec3 fixed = mxvct(zrot(s.greenwich), s.r);
    const double xp = clamped(s.models.earth.xp, limitArcSeconds);
    const double yp = clamped(s.models.earth.yp, limitArcSeconds);
    if (xp != 0.0 || yp != 0.0)
        fixed = mxvct(PoleMx(xp, yp), fixed);
    const Vec3 polar = carpol(fixed);
    s.subLng = wrapPi(polar[1]);
    s.subLatGeocentric = polar[2];
    s.subLat = polar[2];
    double heightKm = 0;
    if (abs(s.r) > 0.1)
        geodeticPlace(s.r, s.subLatGeocentric, s.subLat, heightKm);
    s.sp->lat[s.isat] = s.subLat * degPerRad;
    s.sp->lng[s.isat] = s.subLng * degPerRad;
    s.sp->hgt[s.isat] = heightKm;
}

void findSunAtObserver(Scene& s)
{
    double el = 0;
    double distance = 0;
    AppPos(s.site, s.ut1, s.eqeq, s.lng, 1, s.sun, s.sp->osunaz, el, distance);
    s.sp->osunel = el * degPerRad;
}

void findSunAtSatellite(Scene& s)
{
    seenFromSatellite(s, s.sun, s.sp->sunaz[s.isat], s.sunElevation);
    s.sp->sunel[s.isat] = s.sunElevation * degPerRad;
}

void findMoonAtSatellite(Scene& s)
{
    double az = 0;
    seenFromSatellite(s, s.moon, az, s.moonElevation);
    s.sp->moonel[s.isat] = s.moonElevation * degPerRad;
}

void findSolarEclipse(Scene& s)
{
    const SolarEclipse eclipse = solarEclipse(s.sun, s.moon, s.r / earthRadiusKm);
    s.in->ecltyp = eclipse.type;
    s.in->smang = eclipse.distanceDeg;
    s.in->eclmag = eclipse.magnitude;
    s.in->eclpow = eclipse.remaining;
    s.eclipseIncrement = eclipse.increment;
}

void findMagnitude(Scene& s)
{
    const bool moonlight = s.models.moonlight && s.sunElevation < 0.0 && s.moonElevation > 0.0;
    s.source = moonlight ? moonAsSource(s.sun, s.moon, s.r) : sunAsSource(s.sun);
    const double rangeKm = s.sp->dst[s.isat];
    const double el = s.sp->el[s.isat];
    const double length = std::clamp(s.models.sphereDiameter, 1e-30, 1e30);
    s.baseMagnitude = sphereMagnitude(s.source, s.observer, s.r, rangeKm, s.eclipseIncrement, length);
    if (s.models.extinction && rangeKm > 0.0 && el > 0.01 && el < 33.0)
        s.baseMagnitude += extinction(el);
    s.sp->mag = s.baseMagnitude;
}

Vec3 transitTarget(const Scene& s)
{
    if (s.transit == 3)
        return occultationTarget(s);
    return s.transit == 2 ? s.moon : s.sun;
}

void findTransitPoint(Scene& s)
{
    if (s.transit == 2)
        findMoonAtObserver(s);
    Vec3 target = transitTarget(s);
    Vec3 r = s.r / earthRadiusKm;
    const RayTarget kind = s.transit == 3 ? RayTarget::direction : RayTarget::body;
    findRayPoint(kind, s.view.observer, s.ut1, s.models.refraction, s.sp, s.isat, s.prime, s.eqeq, r, target);
}
