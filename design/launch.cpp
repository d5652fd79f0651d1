#include "design/launch.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/earth.h"
#include "astro/time_scales.h"
#include "astro/vec3.h"
#include "engine/epoch_state.h"
#include "orbit/conversions.h"
#include "orbit/mean_elements.h"
#include "orbit/mean_motion.h"
#include "orbit/orbit.h"

namespace {

constexpr double polarLatitudeRad = 1.396;  // from 80 degrees on the latitude stays geodetic
constexpr double axesSquared = 1.00674;     // ratio of the squared axes of the Earth
constexpr double smallestDivisor = 1e-5;
constexpr double longestAscentMinutes = 12.0;
constexpr double ascentShare = 0.45;  // of the ascent until the plane is fixed in space
constexpr double minutesPerDay = 1440.0;
constexpr double nodeRateFactor = 0.001623942;  // 1.5 J2
constexpr double earthTurnRadPerDay = 6.3003888;
constexpr double parabolaGuard = 0.00019998999999992773;  // 1 - e squared of e = 0.9999
constexpr double largestEccentricity = 0.9999;
constexpr double longestShiftDays = 36525.0;  // what is beyond comes from no orbit

double finite(double x)
{
    return std::isfinite(x) ? x : 0.0;
}

double divisor(double x)
{
    return x == 0.0 ? smallestDivisor : x;
}

double limited(double x)
{
    return std::clamp(x, -1.0, 1.0);
}

/// One turn more or less; 360 itself becomes 0.
double withinTurn(double degrees)
{
    if (degrees < 0.0)
        return degrees + 360.0;
    return degrees >= 360.0 ? degrees - 360.0 : degrees;
}

double geocentric(double latitude)
{
    return std::abs(latitude) < polarLatitudeRad ? std::atan(std::tan(latitude) / axesSquared) : latitude;
}

double clampedShift(double days)
{
    return std::clamp(finite(days), -longestShiftDays, longestShiftDays);
}

/// The part of the ascent after which the plane is fixed, in days.
double ascentDays(const WinpData& in)
{
    return clampedShift(ascentShare * std::min(in.tmeco, longestAscentMinutes) / minutesPerDay);
}

/// The launch seen from the centre of the Earth.
struct Geometry
{
    double u = 0;              // argument of latitude at the site, radians
    double nodeLongitude = 0;  // degrees
    double azimuth = 0;        // degrees
};

Geometry geometryOf(const WinpData& in, double inclination)
{
    const double f = geocentric(radPerDeg * in.lslat);
    const double sinI = divisor(std::sin(inclination));
    const double cosF = divisor(std::cos(f));
    Geometry g;
    g.u = std::asin(limited(std::sin(f) / sinI));
    if (in.lsouth)
        g.u = std::numbers::pi - g.u;
    const double east = std::cos(inclination) / cosF;
    const double q = limited(std::cos(g.u) / cosF);
    g.azimuth = degPerRad * atan20(east, std::sin(inclination) * q);
    const double w = std::acos(q);
    g.nodeLongitude = in.lslng - degPerRad * (east * in.lslat < 0.0 ? -w : w);
    return g;
}

double nodeAt(double liftoff, const WinpData& in, const Geometry& g)
{
    return finite(withinTurn(15.0 * lsidtim(liftoff + ascentDays(in), g.nodeLongitude, 0.0)));
}

/// The mean motion until cutoff as perigee and mean anomaly: the perigee is where the ascent ends.
void putAnomalies(WinpData* in, int i, double u)
{
    const double m = -360.0 * in->n0[i] * in->tmeco / minutesPerDay;
    const double mean =
        in->tmeco > longestAscentMinutes ? -360.0 * in->n0[i] * longestAscentMinutes / minutesPerDay : m;
    const double e = in->ecc[i];
    const double x = -ascentShare * m * radPerDeg;
    const double v = x + (2.0 - e * e / 4.0) * e * std::sin(x) + 1.25 * e * e * std::sin(2.0 * x) +
                     1.08333 * e * e * e * std::sin(3.0 * x);
    in->m0[i] = finite(withinTurn(mean));
    in->aper[i] = finite(withinTurn(degPerRad * (v + u)));
}

/// Drift of a node, radians a day. `size` is the Earth's radius over the axis, `shape` 1 - e squared.
double nodeRate(double size, double shape, double n0, double inc)
{
    const double ratio = size / shape;
    return -nodeRateFactor * ratio * ratio * (twoPi * n0) * std::cos(radPerDeg * inc);
}

double targetNodeRate(const WinpData& in, int j)
{
    const double e = in.ecc[j] >= 1.0 ? largestEccentricity : in.ecc[j];
    const double a = in.a[j] < 1.0 ? 1.0 : in.a[j];
    return nodeRate(earthRadiusKm / a, 1.0 - e * e, in.n0[j], in.inc[j]);
}

double chaserNodeRate(const WinpData& in, int i)
{
    const double size = in.a[i] < 1.0 ? earthRadiusKm : earthRadiusKm / in.a[i];
    const double shape = in.ecc[i] >= 1.0 ? parabolaGuard : 1.0 - in.ecc[i] * in.ecc[i];
    return nodeRate(size, shape, in.n0[i], in.inc[i]);
}

/// How many days the launch is too late for the plane of the target.
double launchDelay(const WinpData& in, int i)
{
    const int j = in.rzsat;
    const double targetRate = targetNodeRate(in, j);
    const double apart = radPerDeg * (in.ra[i] - in.ra[j]) - (in.mjdep[i] - in.mjdep[j]) * targetRate;
    double delay = atan20(std::sin(apart), std::cos(apart)) / earthTurnRadPerDay;
    if (in.rztime == 0.0)
        return clampedShift(delay);
    const double drift = (chaserNodeRate(in, i) - targetRate) * in.rztime / earthTurnRadPerDay;
    // The planes meet after the drift if it is added; the node has the ascent in it already.
    delay = in.models.rendezvousDrift ? delay + drift : delay - drift - ascentDays(in);
    return clampedShift(delay);
}

void moveIntoPlane(WinpData* in, int i, const Geometry& g)
{
    in->mjdep[i] -= launchDelay(*in, i);
    in->ra[i] = nodeAt(in->mjdep[i], *in, g);
    in->mjd = in->mjdep[i];
}

/// The orbit so far is that of the simple model; SGP4 gets mean elements of its state, if it has such.
void convertToSgp4(WinpData* in, int i)
{
    epochStateBy(Propagator::keplerian, in, i);
    const StateVector state = currentStateOf(*in, i);
    if (!hasMeanElements(state.r, state.v)) {
        in->aflg[i] = 0;
        return;
    }
    Elements e = elementsOf(*in, i);
    putMeanElements(state, analyticModelOf(*in), e);
    putElements(e, *in, i);
    in->a[i] = getsax(1, in->n0[i], in->ecc[i], in->inc[i]);
}

}  // namespace

void LaunchOrb(WinpData* in)
{
    const int i = in->prs;
    const bool rendezvous = in->lsat >= 0;
    in->mjdep[i] = in->mjd;
    const Geometry g = geometryOf(*in, radPerDeg * in->inc[i]);
    in->lazim = g.azimuth;
    in->ra[i] = nodeAt(in->mjdep[i], *in, g);
    putAnomalies(in, i, g.u);
    if (rendezvous)
        moveIntoPlane(in, i, g);
    if (in->ecc[i] < 1.0 && in->aflg[i] != 0)
        convertToSgp4(in, i);
    in->sgpsat = noSlot;
    epochStateBy(in->aflg[i] ? Propagator::analytic : Propagator::keplerian, in, i);
    if (rendezvous)
        resetForces(in, i);
}

void chasePrime(WinpData* in)
{
    in->rzsat = in->prs;
    in->lsat = in->prs + 1;
    if (in->lsat >= maxSatellites)
        in->lsat = in->prs - 1;
    else if (in->lsat >= in->satn)
        ++in->satn;
    in->prs = in->lsat;
    ShiftElm(in, in->lsat, in->rzsat);
}

void setStartDate(WinpData* in, double mjd)
{
    double hours = 0;
    double seconds = 0;
    caldat(mjd + in->tzone / 24.0, in->day, in->month, in->year, hours);
    dms(hours, in->hour, in->minute, seconds);
    in->second = truncToInt(seconds);
}
