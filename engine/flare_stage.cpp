#include <algorithm>
#include <cmath>

#include "astro/angles.h"
#include "engine/clamped_values.h"
#include "engine/event_geometry.h"
#include "engine/flares.h"
#include "engine/position_stages.h"
#include "orbit/attitude.h"

namespace {

const Vec3 bodyX(1.0, 0.0, 0.0);

/// Which law gives the brightness away from the centre line.
enum class Surface
{
    mirror,
    solarPanel
};

/// A reflected ray and how the light falls on the surface.
struct Reflection
{
    bool found = false;  // the surface faces the source
    double cosIncidence = 0;
    Vec3 ray;  // unit vector
};

/// The normal of a surface.
struct Normal
{
    bool found = false;  // false for a panel that can send no flare
    Vec3 direction;
};

Vec3 normalOf(const Mat3& attitude)
{
    return mxvct(mxtrn(attitude), bodyX);
}

double angleDeg(const Vec3& a, const Vec3& b)
{
    return std::acos(std::clamp(dot(a, b), -1.0, 1.0)) * degPerRad;
}

/// A direction from packed right ascension and declination.
Vec3 packedDirection(double ra, double dec)
{
    return polcar(
        Vec3(1.0, DmsDegF(clamped(ra, limitDegrees)) * radPerHour, DmsDegF(clamped(dec, limitDegrees)) * radPerDeg));
}

/// From the satellite to the light source, Earth radii.
Vec3 towardSource(const Scene& s)
{
    return (s.models.moonlight ? s.moon : s.sun) - s.r / earthRadiusKm;
}

/// The mirror image of the unit vector to the source in the unit normal.
Reflection reflect(const Vec3& toSource, const Vec3& normal)
{
    Reflection reflection;
    const double c = dot(toSource, normal);
    if (!(c >= 0.0))
        return reflection;
    reflection.found = true;
    reflection.cosIncidence = c;
    const double incidence = std::acos(std::min(c, 1.0));
    const Mat3 plane = GetRVMat(toSource, normal, 0.0, 0.0, 0);
    reflection.ray = mxvct(mxtrn(plane), mxvct(zrot(-incidence), bodyX));
    return reflection;
}

/// Solar panels turn toward the Sun about one axis. Where the Sun stands too near to the orbit plane or to its pole
/// they send no light down.
Normal solarPanel(const Scene& s)
{
    const double beta = std::abs(s.sp->beta[s.isat]);
    if (!(beta >= 40.0 && beta <= 65.0))
        return {};
    Mat3 M = GetRVMat(s.r, s.v, 90.0, -90.0, 1);
    const Vec3 sun = carpol(mxvct(M, vnorm(s.sun)));
    const double pitch = sun[2] > 0.0 ? mirrorPitchDeg : -mirrorPitchDeg;
    M *= zrot(-(twoPi - sun[1]));
    M *= yrot(pitch * radPerDeg);
    return {true, normalOf(M)};
}

/// Yaw and pitch of a normal in a body frame, degrees.
void surfaceAngles(const Mat3& frame, const Vec3& normal, double& yaw, double& pitch)
{
    const Vec3 polar = carpol(mxvct(frame, normal));
    yaw = 360.0 - polar[1] * degPerRad;
    pitch = polar[2] * degPerRad;
}

/// The ground point of a reflected ray.
///
/// @return  with a ground point the way from the satellite to it
///
/// Flares and occultations exclude each other: `occflg` is off afterwards.
Vec3 findFlarePoint(const Scene& s, const Vec3& ray)
{
    Vec3 r = s.r / earthRadiusKm;
    Vec3 d = ray * -1.0;
    findRayPoint(RayTarget::direction, s.view.observer, s.ut1, s.models.refraction, s.sp, s.isat, s.prime, s.eqeq, r,
                 d);
    s.in->occflg = 0;
    return r;
}

/// How much fainter than a flare at its centre; the angle is that between observer and centre at the satellite.
double offsetLaw(Surface surface, double angle)
{
    if (surface == Surface::mirror)
        return std::max(-0.2, 3.2437 * std::log(angle) + 5.71785) - 8.7;
    return (angle < 3.5 ? 0.993 * angle - 3.867 : 1.5 * angle - 5.6415) - 0.7;
}

/// The angle at the satellite between the observer and the centre of the flare, degrees.
double offsetAngle(const Scene& s, const Vec3& toCentre)
{
    double cosine = dot(vnorm(toCentre), s.toObserver);
    if (cosine <= 0.0)
        cosine = 0.0001;
    if (cosine >= 1.0)
        cosine = 0.9999999999;
    return std::acos(cosine) * degPerRad;
}

double mirrorMagnitude(const Scene& s, double cosIncidence, const Vec3& toCentre, Surface surface)
{
    const double el = s.sp->el[s.isat];
    if (!(el > 1e-5))
        return noFlare;
    double m = 5.0 * std::log10(s.sp->dst[s.isat]) - 14.4;
    if (el < 33.0 && s.models.extinction)
        m += extinction(el);
    m -= 2.5 * std::log10(cosIncidence <= 0.0 ? 0.0001 : cosIncidence);
    const double magnitude = m + offsetLaw(surface, offsetAngle(s, toCentre));
    if (!s.models.moonlight)
        return magnitude;
    return s.source.moonlight ? s.source.magnitude + 26.74 + magnitude : noFlare;
}

/// A known surface has a maximum of its own, and never dims the satellite.
double withOwnMaximum(const Scene& s, double magnitude)
{
    if (!s.in->flrmgf || s.view.events >= event::iridium)
        return magnitude;
    if (magnitude < noFlare)
        magnitude += 8.7 + clamped(s.in->flrmgx, limitMagnitudes);
    return magnitude > s.baseMagnitude ? s.baseMagnitude : magnitude;
}

double flareMagnitude(const Scene& s, double cosIncidence, const Vec3& toCentre, Surface surface)
{
    return withOwnMaximum(s, mirrorMagnitude(s, cosIncidence, toCentre, surface));
}

bool magnitudeWanted(const Scene& s)
{
    return s.prime && (s.view.events == event::iridium || s.in->flrmgf);
}

Surface lawOfRound(const Scene& s, int k)
{
    return k == 3 || s.in->irsolp ? Surface::solarPanel : Surface::mirror;
}

/// Angles in degrees.
Mat3 steeredFrame(const Scene& s, double yaw, double pitch)
{
    const WinpData& in = *s.in;
    return yawSteering(in.n0[s.view.prime], in.inc[s.view.prime], s.r, s.v, yaw, pitch);
}

/// The normal of the surface that the user described.
Normal knownNormal(const Scene& s)
{
    const WinpData& in = *s.in;
    const double first = clamped(in.occra, limitDegrees);
    const double second = clamped(in.occdec, limitDegrees);
    if (in.flarmod != 1) {
        const Vec3 direction = packedDirection(first, second);
        return {true, s.epochChosen ? mxvct(mxtrn(s.toEpoch), direction) : direction};
    }
    if (in.flaryst)
        return {true, normalOf(steeredFrame(s, first, second))};
    if (in.irsolp)
        return solarPanel(s);
    return {true, normalOf(GetRVMat(s.r, s.v, first, second, 1))};
}

void knownSurface(const Scene& s)
{
    const Normal normal = knownNormal(s);
    if (!normal.found)
        return;
    const Reflection reflection = reflect(vnorm(towardSource(s)), vnorm(normal.direction));
    if (!reflection.found)
        return;
    if (s.prime)
        s.in->flrang = angleDeg(reflection.ray, s.toObserver);
    const Vec3 toCentre = findFlarePoint(s, reflection.ray);
    if (magnitudeWanted(s))
        s.sp->mag = flareMagnitude(s, reflection.cosIncidence, toCentre, lawOfRound(s, 0));
}

/// The normal that would send the light to the observer: the bisector.
Vec3 idealNormal(const Scene& s)
{
    const Vec3 D = vnorm(towardSource(s));
    const Vec3 O = vnorm(s.observer - s.r);
    const double cosine = dot(D, O);
    const double half = std::abs(cosine) > 1.0 ? 0.0 : std::acos(cosine) / 2.0;
    const Mat3 plane = GetRVMat(D, O, 0.0, 0.0, 0);
    return mxvct(mxtrn(plane), mxvct(zrot(half), bodyX));
}

/// The ideal normal into occra and occdec, in the form that the mode asks for.
void storeIdealNormal(Scene& s, const Vec3& N)
{
    WinpData& in = *s.in;
    if (std::abs(in.flarmod) == 1) {
        const Mat3 frame = in.flaryst ? steeredFrame(s, 0.0, 0.0) : GetRVMat(s.r, s.v, 0.0, 0.0, 1);
        surfaceAngles(frame, N, in.occra, in.occdec);
    } else if (in.solflar) {
        const double cosine = dot(N, vnorm(s.sun));
        in.occdec = DegFDms(std::acos(std::abs(cosine) > 1.0 ? 1.0 : cosine) * degPerRad);
    } else {
        const Vec3 polar = carpol(N);
        in.occra = DegFDms(polar[1] / radPerHour);
        in.occdec = DegFDms(polar[2] * degPerRad);
    }
}

/// The angle between the surface found and the axis of a cylinder, degrees.
double cylinderAngle(const WinpData& in)
{
    const bool packed = in.flarmod == -2;
    const auto first = [&](double x) { return packed ? DmsDegF(x) * radPerHour : x * radPerDeg; };
    const auto second = [&](double x) { return packed ? DmsDegF(x) * radPerDeg : x * radPerDeg; };
    const double d1 = second(clamped(in.occdec, limitDegrees));
    const double d2 = second(clamped(in.cyldec, limitDegrees));
    const double da = first(clamped(in.occra, limitDegrees)) - first(clamped(in.cylra, limitDegrees));
    const double cosine = std::sin(d1) * std::sin(d2) + std::cos(d1) * std::cos(d2) * std::cos(da);
    return std::acos(std::clamp(cosine, -1.0, 1.0)) * degPerRad;
}

void unknownSurface(Scene& s)
{
    s.sp->occlat[s.isat] = anglesOnly;
    storeIdealNormal(s, idealNormal(s));
    if (s.in->cylflg)
        s.in->flrang = cylinderAngle(*s.in);
}

/// What the rounds of the mirror loop keep.
struct BestMirror
{
    double angle = 360.1;  // between reflected ray and observer, degrees
    double mag = 0;
};

/// Mirrors 0 to 2 by their angles, the panels by the Sun.
Normal normalOfRound(Scene& s, int k)
{
    if (k < 3 && !s.in->irsolp)
        return {true, normalOf(GetRVMat(s.r, s.v, mirrors[k].yaw, mirrors[k].pitch, 1))};
    const Normal panel = solarPanel(s);
    if (panel.found && k == 3)
        surfaceAngles(GetRVMat(s.r, s.v, 0.0, 0.0, 1), panel.direction, s.in->occra, s.in->occdec);
    return panel;
}

void tryMirror(Scene& s, int k, const Vec3& toSource, BestMirror& best)
{
    const Normal normal = normalOfRound(s, k);
    if (!normal.found)
        return;
    const Reflection reflection = reflect(toSource, vnorm(normal.direction));
    if (!reflection.found)
        return;
    best.angle = std::min(best.angle, angleDeg(reflection.ray, s.toObserver));
    s.in->flrang = best.angle;
    const Vec3 toCentre = findFlarePoint(s, reflection.ray);
    best.mag = std::min(best.mag, flareMagnitude(s, reflection.cosIncidence, toCentre, lawOfRound(s, k)));
}

/// The mirrors of an Iridium satellite, all of them at once. The ground point is that of the last mirror that had the
/// light, angle and magnitude are those of the best.
void mirrorLoop(Scene& s)
{
    double& occlat = s.sp->occlat[s.isat];
    const int last = s.in->irsol ? 3 : 2;
    const Vec3 toSource = vnorm(towardSource(s));
    BestMirror best;
    best.mag = s.sp->mag;
    for (int k = 0; k <= last; ++k)
        tryMirror(s, k, toSource, best);
    s.sp->mag = best.mag;
    if (occlat >= noGroundPoint && s.models.sphereDiameter == 0.0 && best.angle < 90.0)
        occlat = anglesOnly;
    if (s.sp->el[s.isat] < 0.0)
        occlat = noGroundPoint;
}

}  // namespace

void findFlare(Scene& s)
{
    s.sp->occlat[s.isat] = noGroundPoint;
    const double source = s.models.moonlight ? s.sp->moonel[s.isat] : s.sp->sunel[s.isat];
    if (!(source > 0.0))
        return;
    if (s.view.events == event::iridium && s.prime && !s.in->flarflg)
        mirrorLoop(s);
    else if (s.in->flarmod > 0)
        knownSurface(s);
    else if (s.prime)
        unknownSurface(s);
}
