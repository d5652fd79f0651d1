#include "engine/event_geometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "astro/angles.h"
#include "astro/frames.h"
#include "astro/time_scales.h"
#include "engine/clamped_values.h"
#include "engine/position.h"
#include "engine/position_stages.h"
#include "orbit/attitude.h"

namespace {

/// What yaw steering adds to a frame in the local horizontal.
struct Steering
{
    Mat3 vertical = mxidn();  // to the vertical of the ellipsoid
    double yaw = 0;           // along the ground track, degrees
};

/// @param c  cosine of the geocentric latitude
/// @param n  revolutions per day
Steering steeringAt(const Vec3& ru, const Vec3& v, double c, double cosInc, double n)
{
    constexpr double flattening = 0.0033528106647474805;
    Steering steering;
    const double s = cosInc / c;
    const double A = std::asin(s);
    const double ca = std::cos(A);
    if (!(ca > 0.0))
        return steering;
    double azimuth = v[2] >= 0.0 ? A : std::numbers::pi - A;
    if (azimuth < 0.0)
        azimuth += twoPi;
    double q = flattening * std::abs(std::sin(2.0 * std::acos(c)));
    if (ru[2] < 0.0)
        q = -q;
    steering.vertical = zrot(azimuth);
    steering.vertical *= yrot(q);
    steering.vertical *= zrot(-azimuth);
    const double t = (s - c / n) / ca;
    if (t < std::numbers::pi / 2) {  // the ratio itself, not its angle
        const double difference = (std::atan(t) - A) * degPerRad;
        steering.yaw = v[2] < 0.0 ? -difference : difference;
    }
    return steering;
}

/// The ellipsoid of GetOccTrans is a unit sphere after z has been divided by this.
constexpr double polarScale = 0.996633;
constexpr double latitudeScale = 0.993305615;
constexpr double hourToRad = 0.261799387799;

struct GroundPoint
{
    bool found = false;
    double lat = 0, lng = 0;     // radians
    double sineOfElevation = 0;  // of the ray at the point
};

/// Direction of the ray in the space where the Earth is a sphere.
Vec3 rayDirection(RayTarget target, const Vec3& r, Vec3& d)
{
    if (target == RayTarget::direction)
        return vnorm(Vec3(-d[0], -d[1], -d[2] / polarScale));
    d[2] /= polarScale;
    return vnorm(r - d);
}

/// Where the ray meets the surface at a height above the ellipsoid; a hit leaves in `r` the way there.
GroundPoint meetSurface(RayTarget target, double ut1, double eqeq, double heightKm, Vec3& r, Vec3& d)
{
    if (heightKm > -1.0 && heightKm < 20.0) {
        const double scale = earthRadiusKm / (heightKm + earthRadiusKm);
        r *= scale;
        d *= scale;
    }
    r[2] /= polarScale;
    Vec3 direction = rayDirection(target, r, d);
    const double b = -dot(r, direction);
    const double D = b * b + 1.0 - dot(r, r);
    if (1.0 - D < 0.0 || std::sqrt(1.0 - D) >= 1.0)
        return {};
    const double t = b - std::sqrt(D);
    if (!(t >= 0.0))
        return {};

    Vec3 P = r + t * direction;
    r = P - r;
    r[2] *= polarScale;
    P[2] *= polarScale;
    direction[2] *= polarScale;
    GroundPoint point;
    point.found = true;
    point.lng = wrapPi(carpol(P)[1] - lsidtim(ut1, 0.0, eqeq) * hourToRad);
    point.lat = std::atan2(P[2], latitudeScale * std::sqrt(P[0] * P[0] + P[1] * P[1]));
    point.sineOfElevation = dot(vnorm(P * -1.0), vnorm(direction));
    return point;
}

/// How high above the ground a straight ray passes that refraction brings down to the ground, km.
double refractedHeight(double sineOfElevation)
{
    const double e = std::asin(std::min(std::abs(sineOfElevation), 1.0)) * degPerRad;
    return 8.40429926257 * std::pow(std::max(e, 1.4), -2.01365949653);
}

GroundPoint findGroundPoint(RayTarget target, double observerKm, double ut1, bool refraction, double eqeq, Vec3& r,
                            Vec3& d)
{
    constexpr double grazing = 0.26;
    const Vec3 rBefore = r;
    const Vec3 dBefore = d;
    const GroundPoint straight = meetSurface(target, ut1, eqeq, observerKm, r, d);
    if (!straight.found || !refraction || std::abs(straight.sineOfElevation) >= grazing)
        return straight;
    r = rBefore;
    d = dBefore;
    return meetSurface(target, ut1, eqeq, refractedHeight(straight.sineOfElevation) + observerKm, r, d);
}

/// Along the surface of a sphere, km.
double distanceFromObserver(const Site& site, const GroundPoint& point)
{
    const double lat = clamped(site.lat, limitDegrees) * radPerDeg;
    const double lng = clamped(site.lng, limitDegrees) * radPerDeg;
    const double k =
        std::sin(lat) * std::sin(point.lat) + std::cos(lat) * std::cos(point.lat) * std::cos(lng - point.lng);
    return std::abs(k) > 1.0 ? k : earthRadiusKm * std::acos(k);
}

}  // namespace

Mat3 GetYSMat(const WinpData* in, const Vec3& r, const Vec3& v, double yaw, double pitch)
{
    return yawSteering(in->n0[in->prs], in->inc[in->prs], r, v, yaw, pitch);
}

Mat3 yawSteering(double n, double incDeg, const Vec3& r, const Vec3& v, double yaw, double pitch)
{
    Mat3 M = GetRVMat(r, v, 0.0, 0.0, 2);
    if (!(n > 0.0))
        return M;
    const Vec3 ru = vnorm(r);
    const double cosineSquared = 1.0 - ru[2] * ru[2];
    const double c = cosineSquared < 0.0 ? 0.0 : std::sqrt(cosineSquared);
    const double cosInc = std::cos(incDeg * radPerDeg);
    if (c > 0.0 && c > std::abs(cosInc)) {
        const Steering steering = steeringAt(ru, v, c, cosInc, n);
        M *= steering.vertical;
        yaw += steering.yaw;
    }
    if (yaw != 0.0)
        M *= zrot(-yaw * radPerDeg);
    if (pitch != 0.0)
        M *= yrot(-pitch * radPerDeg);
    return M;
}

void GetSatVis(SatPosData* sp, double latc, int isat)
{
    constexpr double firstRad = 1e-7;
    constexpr double stepRad = 0.09817477042468103;
    const double R = earthRadiusKm + sp->hgt[isat];
    const double p = R > earthRadiusKm ? earthRadiusKm / R : 1.0;
    const double q = R > earthRadiusKm ? std::sin(std::acos(p)) : 0.0;
    const double centre = sp->lng[isat] * radPerDeg;
    sp->nvis = circlePoints;
    for (int k = 0; k < circlePoints; ++k) {
        const double t = firstRad + k * stepRad;
        double u = q * std::cos(latc) * std::cos(t) + p * std::sin(latc);
        if (std::abs(u) > 1.0)
            u = 0.0;
        const double lat = std::asin(u);
        const double b = std::cos(lat) * std::cos(latc);
        double offset = 0;
        if (std::abs(b) > 1e-50) {
            const double x = (p - u * std::sin(latc)) / b;
            offset = std::abs(x) > 1.0 ? 0.0 : std::acos(x);
        }
        if (t > std::numbers::pi)
            offset = -offset;
        double lng = centre + offset;
        if (lng > twoPi)
            lng -= twoPi;
        if (lng < -std::numbers::pi)
            lng += twoPi;
        sp->vlat[isat][k] = lat;
        sp->vlng[isat][k] = lng;
    }
}

void GetOccTrans(double ut1, WinpData* in, SatPosData* sp, int isat, double eqeq, Vec3& r, Vec3& d)
{
    const RayTarget target = in->occflg == 3 ? RayTarget::direction : RayTarget::body;
    findRayPoint(target, siteOf(*in), ut1, in->refrc, sp, isat, isat == in->prs, eqeq, r, d);
}

void findRayPoint(RayTarget target, const Site& site, double ut1, bool refraction, SatPosData* sp, int isat,
                  bool prime, double eqeq, Vec3& r, Vec3& d)
{
    const GroundPoint point = findGroundPoint(target, 0.001 * site.height, ut1, refraction, eqeq, r, d);
    if (!point.found) {
        sp->occlat[isat] = noGroundPoint;
        sp->occlng[isat] = 0;
        return;
    }
    sp->occlat[isat] = point.lat * degPerRad;
    sp->occlng[isat] = point.lng * degPerRad;
    if (prime)
        sp->mag = distanceFromObserver(site, point);
}

void ADisDir(double a1, double d1, double a2, double d2, double& cosd, double& pa)
{
    cosd = std::sin(d1) * std::sin(d2) + std::cos(d1) * std::cos(d2) * std::cos(a2 - a1);
    const double sineSquared = 1.0 - cosd * cosd;
    const double s = sineSquared > 0.0 ? std::sqrt(sineSquared) : 0.0;
    const double w = std::cos(d1) * s;
    pa = 0;
    if (std::abs(w) <= 1e-40)
        return;
    const double x = (std::sin(d2) - std::sin(d1) * cosd) / w;
    pa = x;
    if (std::abs(x) > 1.0)
        return;
    pa = std::acos(x) * degPerRad;
    if (std::sin(a2 - a1) < 0.0)
        pa = 360.0 - pa;
}

void convRDAE(const WinpData* in, double mjd, double eqeq, double& az, double& el)
{
    toHorizontal(matchCentre(*in), *in, mjd, eqeq, az, el);
}

SkyEntry matchCentre(const WinpData& in)
{
    return {in.az, in.el, in.rdf == 1};
}

void toHorizontal(const SkyEntry& entry, const WinpData& in, double mjd, double eqeq, double& az, double& el)
{
    const double first = clamped(entry.first, limitDegrees);
    const double second = clamped(entry.second, limitDegrees);
    if (!entry.equatorial) {
        az = first * radPerDeg;
        el = second * radPerDeg;
        return;
    }
    const double lat = clamped(in.lat, limitDegrees) * radPerDeg;
    const double lng = clamped(in.lng, limitDegrees) * radPerDeg;
    const Vec3 direction = polcar(Vec3(1.0, DmsDegF(first) * radPerHour, DmsDegF(second) * radPerDeg));
    double distance = 0;
    AppPos(clampedUt1(mjd, in), eqeq, lat, lng, in.height, 0, direction, az, el, distance);
}

void SkyAzim(WinpData* in, double mjd)
{
    GetSatPos(mjd, in, satpos, in->prs, 0);
    in->skaz = satpos->az[in->prs];
}
