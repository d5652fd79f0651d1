#include "design/orbit_determination.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/earth.h"
#include "astro/frames.h"
#include "engine/clamped_values.h"
#include "engine/epoch_state.h"
#include "orbit/mean_motion.h"
#include "record/text.h"

namespace {

constexpr double lowestRadiusKm = 6478.14;
constexpr double highestRadiusKm = 300000.0;
constexpr double bracketKm = 100.0;
constexpr double closeEnoughKm = 0.001;
constexpr int mostHalvings = 300;

/// One look from the observer's place, in the true equator of date.
struct Sight
{
    Vec3 place{0, 0, 0};      // km
    Vec3 direction{0, 0, 0};  // unit vector
    double b = 0, c = 0;      // of the distance along the line at which a radius is met
};

/// An angle pair of the record, in the form its flag tells.
struct Pointing
{
    double first = 0, second = 0;  // azimuth and elevation in degrees, or packed HH.MMSS and DD.MMSS
    bool celestial = false;
};

/// The frame of the two sightings.
struct Frame
{
    Mat3 nutation = mxidn();   // mean to true equator of date
    Mat3 fromEpoch = mxidn();  // equator of `yrepoch` to the true one of date
};

Frame frameOf(const WinpData& in)
{
    const double T = julcent(clamped(in.mjd, limitDays));
    double eqeq = 0;
    Frame frame;
    frame.nutation = nutmat(T, eqeq, in.IERSflg);
    const double year = clamped(in.yrepoch, limitYears);
    if (year != 0.0)
        frame.fromEpoch = frame.nutation * pmatequ((year - 2000.0) / 100.0, T);
    return frame;
}

/// Where the observer looks. @param t  UT1
Vec3 directionOf(const WinpData& in, const Pointing& at, double t, const Frame& frame)
{
    if (at.celestial)
        return mxvct(frame.fromEpoch,
                     polcar({1.0, radPerDeg * 15.0 * DmsDegF(at.first), radPerDeg * DmsDegF(at.second)}));
    double ra = 0;
    double dec = 0;
    AppRADec(t, 0.0, radPerDeg * in.lat, radPerDeg * in.lng, radPerDeg * at.first, radPerDeg * at.second, ra, dec);
    return polcar({1.0, ra, dec});
}

Sight sightOf(const WinpData& in, const Pointing& at, double t, const Frame& frame)
{
    Sight sight;
    sight.direction = directionOf(in, at, t, frame);
    sight.place = earthRadiusKm * GeoPos(t, 0.0, radPerDeg * in.lat, radPerDeg * in.lng, in.height);
    sight.b = -dot(sight.direction, sight.place);
    sight.c = sight.b * sight.b - dot(sight.place, sight.place);
    return sight;
}

/// The point at distance R from the centre on a line of sight; that nearest to the Earth on a line that stays outside.
Vec3 pointAt(double c, double b, const Vec3& place, const Vec3& direction, double R)
{
    const double square = c + R * R;
    const double distance = square > 0.0 ? b + std::sqrt(square) : b;
    return place + distance * direction;
}

/// The two sightings, and the positions of the last radius tried.
struct Fit
{
    Sight one, two;
    double days = 0;
    Vec3 r1{0, 0, 0}, r2{0, 0, 0};  // km
    double radius = 0;              // km
    bool converged = false;

    int sign(double R)
    {
        return PhiDiff(one.c, two.c, one.b, two.b, days, r1, r2, one.place, two.place, one.direction, two.direction,
                       R);
    }
};

Fit fitOf(const WinpData& in, const Frame& frame)
{
    const double t = clamped(in.mjd, limitDays);
    const double t1 = in.IERSflg ? t + clamped(in.Ut1Utc, limitSeconds) / 86400.0 : t;
    Fit fit;
    fit.days = in.deltm / 86400.0;
    fit.one = sightOf(in, {in.az1, in.el1, in.az1flg != 0}, t1, frame);
    fit.two = sightOf(in, {in.az2, in.el2, in.az2flg != 0}, t1 + fit.days, frame);
    return fit;
}

void bisect(Fit& fit, double low, double high, int lowSign)
{
    for (int round = 0; round < mostHalvings; ++round) {
        if (std::abs(high - low) < closeEnoughKm) {
            fit.converged = true;
            return;
        }
        fit.radius = (high + low) / 2.0;
        (fit.sign(fit.radius) != lowSign ? high : low) = fit.radius;
    }
}

/// The radius at which the satellite flies just the angle between the two positions.
void solve(Fit& fit)
{
    double R = lowestRadiusKm;
    const int lowSign = fit.sign(R);
    int sign = lowSign;
    while (sign == lowSign && R < highestRadiusKm) {
        R += bracketKm;
        sign = fit.sign(R);
    }
    bisect(fit, R - bracketKm, R, lowSign);
}

int newSlot(WinpData* in)
{
    if (in->satn < maxSatellites)
        ++in->satn;
    in->prs = in->satn - 1;
    return in->prs;
}

/// Orientation of a circular orbit at its first point, degrees.
struct Plane
{
    double inc = 0, ra = 0, aper = 0;

    bool isFinite() const { return std::isfinite(inc) && std::isfinite(ra) && std::isfinite(aper); }
};

Plane planeOf(const Vec3& r1, const Vec3& r2)
{
    const Vec3 h = vnorm(r1 * r2);
    const Vec3 u = vnorm(r1);
    const bool inclined = std::abs(h[2]) <= 1.0;
    const double i = inclined ? std::acos(h[2]) : 0.0;
    const double s = inclined ? std::sin(i) : 0.0;
    const double W = atan20(h[0], -h[1]);
    const double q = s == 0.0 ? 0.0 : u[2] / s;
    const double argument = atan20(q, std::cos(W) * u[0] + std::sin(W) * u[1]);
    return {degPerRad * i, degPerRad * W, degPerRad * argument};
}

void putCircle(WinpData* in, int slot, double radius, const Plane& plane)
{
    in->a[slot] = radius;
    in->m0[slot] = in->ecc[slot] = 0;
    in->ndot[slot] = in->adot[slot] = in->n6dot[slot] = in->bstar[slot] = 0;
    in->aflg[slot] = 0;
    in->inc[slot] = plane.inc;
    in->n0[slot] = getn0(radius, 0.0, plane.inc);
    in->ra[slot] = plane.ra;
    in->aper[slot] = plane.aper;
}

/// Name of an unknown satellite; the number of one that stood in the slot before would be a false one.
void putName(WinpData* in, int slot, std::string_view name)
{
    assignField(in->fsname[slot], name);
    assignField(in->ldsn[slot], "          ");
    in->norad[slot] = 0;
}

}  // namespace

void OrbitDet(WinpData* in)
{
    const Frame frame = frameOf(*in);
    const int slot = newSlot(in);
    in->mjdep[slot] = in->mjd;
    in->numflg[slot] = 0;
    Fit fit = fitOf(*in, frame);
    solve(fit);
    const Mat3 toMean = mxtrn(frame.nutation);
    const Plane plane = planeOf(mxvct(toMean, fit.r1), mxvct(toMean, fit.r2));
    const bool found = fit.converged && plane.isFinite();
    putCircle(in, slot, fit.radius, plane.isFinite() ? plane : Plane{});
    putName(in, slot, found ? "New" : "No Convergence");
    in->sgpsat = noSlot;
    EpochState(in, slot, true);
}

int PhiDiff(double c1, double c2, double b1, double b2, double dt, Vec3& r1, Vec3& r2, Vec3& p1, Vec3& p2, Vec3& d1,
            Vec3& d2, double R)
{
    r1 = pointAt(c1, b1, p1, d1, R);
    r2 = pointAt(c2, b2, p2, d2, R);
    const double z = vnorm(r1 * r2)[2];
    const double i = std::acos(std::abs(z) > 1.0 ? 0.0 : z);
    const double phi = std::acos(std::clamp(dot(r1, r2) / (R * R), -1.0, 1.0));
    const double flown = twoPi * getn0(R, 0.0, degPerRad * i) * dt;
    return flown > phi ? 1 : -1;
}
