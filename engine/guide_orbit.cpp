#include "engine/guide_orbit.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "astro/angles.h"
#include "orbit/deep_space.h"

namespace {

constexpr double secondOrder = 1.1;
constexpr double spareKm = 1.0;
constexpr double framesRad = 3e-4;
constexpr double keplerTolerance = 2e-5;   // radians
constexpr double shortStep = 0.02;         // radians; the cube of it, by 6, is an error in semi-major axes
constexpr double perigeeTolerance = 1e-5;  // radians times eccentricity

constexpr double lowestPerigee = 1.005;  // Earth radii: below 1 the model has an error
constexpr double highestEccentricity = 0.95;
constexpr double leastNearEccentricity = -0.0008;  // the model has an error below -0.001, and cuts at 0
constexpr double cutEccentricity = 1e-6;
constexpr double steepestRad = 0.2;  // from here to the pole the terms with 1 / sin i and 1 / (1 + cos i) grow
constexpr double mostAxisChange = 0.05;
constexpr double mostAnglesOff = 0.1;  // radians; the square of it is within `secondOrder`

constexpr double resonanceStepMin = 720.0;

double swing(double p2, double p3, double p4 = 0.0)
{
    return 0.25 * std::sqrt(p2 * p2 + p3 * p3) + std::abs(p4);
}

/// The greatest change of the mean motion by the resonance, and of that change per radian of the longitude.
struct ResonancePull
{
    double pull, pullRate;
};

ResonancePull resonancePull(const elsetrec& sat)
{
    if (sat.irez == 1)
        return {std::abs(sat.del1) + std::abs(sat.del2) + std::abs(sat.del3),
                std::abs(sat.del1) + 2.0 * std::abs(sat.del2) + 3.0 * std::abs(sat.del3)};
    const double once = std::abs(sat.d2201) + std::abs(sat.d2211) + std::abs(sat.d3210) + std::abs(sat.d3222) +
                        std::abs(sat.d5220) + std::abs(sat.d5232);
    const double twice = std::abs(sat.d4410) + std::abs(sat.d4422) + std::abs(sat.d5421) + std::abs(sat.d5433);
    return {once + twice, once + 2.0 * twice};
}

/// How far a point of the ellipse moves, in semi-major axes, per unit of the mean anomaly and of the eccentricity.
double byAnomaly(double e)
{
    return std::sqrt((1.0 + e) / (1.0 - e));
}

double byEccentricity(double e)
{
    return 4.0 + e / std::sqrt(1.0 - e * e);
}

}  // namespace

GuideOrbit::GuideOrbit(const WinpData& in, const elsetrec& sat, double from, double to) : deep(sat.method == 'd')
{
    double tumin = 0, xke = 0, j3 = 0, j4 = 0, j3oj2 = 0;
    getgravconst(in.wgs == 0 ? wgs72 : wgs84, tumin, earthRadius, xke, j2, j3, j4, j3oj2);
    axis = std::pow(xke / sat.no, 2.0 / 3.0);
    setSecular(sat);
    eccOff = in.models.deepSpacePublished ? cutEccentricity : 0.0;  // the published form has none below
    if (deep)
        setDeep(sat);
    if (deep && sat.irez != 0 && !setResonance(sat, from, to))
        return;
    good = withinTheory(sat, from, to);
    if (good)
        setBounds(sat);
}

void GuideOrbit::setSecular(const elsetrec& sat)
{
    anomaly = {sat.mo, sat.mdot};
    perigee = {sat.argpo, sat.argpdot};
    nodeLine = {sat.nodeo, sat.nodedot};
    nodeSquared = sat.nodecf;
    ecc = {sat.ecco, -sat.bstar * sat.cc4};
    d1 = sat.cc1;
    l2 = sat.no * sat.t2cof;
    xlcof = sat.xlcof;
    aycof = sat.aycof;
    con41 = sat.con41;
    x1mth2 = sat.x1mth2;
    x7thm1 = sat.x7thm1;
    cosi = std::cos(sat.inclo);
    sini = std::sin(sat.inclo);
    if (sat.isimp == 1)
        return;
    d2 = sat.d2;
    d3 = sat.d3;
    d4 = sat.d4;
    l3 = sat.no * sat.t3cof;
    l4 = sat.no * sat.t4cof;
    l5 = sat.no * sat.t5cof;
}

void GuideOrbit::setDeep(const elsetrec& sat)
{
    anomaly.rate += sat.dmdt;
    perigee.rate += sat.domdt;
    nodeLine.rate += sat.dnodt;
    ecc.rate += sat.dedt;
}

/// A straight line for the mean anomaly that the resonance integration gives between the two times.
bool GuideOrbit::setResonance(elsetrec sat, double from, double to)
{
    const double t1 = std::min(from, to);
    const double t2 = std::max(from, to);
    if (!(std::max(std::abs(t1), std::abs(t2)) < 0.5 * resonanceLimitMin) || !(t2 > t1))
        return false;
    const auto at = [&](double t) {
        Sgp4Elements mean{.e = 0,
                          .i = 1,
                          .argp = sat.argpo + sat.argpdot * t,
                          .node = sat.nodeo + sat.nodedot * t + sat.nodecf * t * t,
                          .m = 0,
                          .n = sat.no};
        sat.t = t;
        dspace(sat, mean);
        return mean;
    };
    const Sgp4Elements first = at(t1);
    const Sgp4Elements last = at(t2);
    const double span = t2 - t1;
    const auto [pull, pullRate] = resonancePull(sat);
    const double longest = std::max(std::abs(t1), std::abs(t2));
    const double drift = std::abs(sat.xfact + sat.no) + pull * longest;
    const double jump = pullRate * drift * resonanceStepMin * resonanceStepMin;  // twice: the jumps add to the drift
    // which turn the end is in: the resonance must move it by less than half a turn from where the rates bring it
    if (!((pull * longest + jump * longest / resonanceStepMin) * span < 2.0))
        return false;
    const double expected = anomaly.rate * span;
    anomaly.rate = (expected + std::remainder(last.m - first.m - expected, twoPi)) / span;
    anomaly.start = first.m - anomaly.rate * t1;
    const double jumps = std::floor(span / resonanceStepMin) + 1.0;
    longitudeOff += pull * span * span / 8.0 + jump * jumps * span / 4.0;
    const double n = 0.5 * (first.n + last.n);
    if (!(n > 0.5 * sat.no && n < 2.0 * sat.no))
        return false;
    axis *= std::pow(sat.no / n, 2.0 / 3.0);
    // a change of the mean motion by dn moves a point by 2/3 dn / n of r, as a turn does
    turnOff += (2.0 / 3.0) * (0.5 * std::abs(first.n - last.n) + pull * span + jump) / n;
    return std::isfinite(longitudeOff) && std::isfinite(turnOff);
}

/// The periodic terms of the drag.
void GuideOrbit::addDrag(const elsetrec& sat, double T)
{
    if (sat.isimp == 1)
        return;
    eccOff += std::abs(sat.bstar * sat.cc5) * (1.0 + std::abs(sat.sinmao));
    const double range = std::pow(1.0 + std::abs(sat.eta), 3.0) - std::pow(1.0 - std::abs(sat.eta), 3.0);
    anomalyOff = std::abs(sat.omgcof) * T + std::abs(sat.xmcof) * range;
}

/// The periodic terms of Moon and Sun, and their secular change of the inclination.
void GuideOrbit::addMoonAndSun(const elsetrec& sat, double T)
{
    if (!deep)
        return;
    eccOff += swing(sat.se2, sat.se3) + swing(sat.ee2, sat.e3);
    const double inclinationOff = swing(sat.si2, sat.si3) + swing(sat.xi2, sat.xi3);
    const double h = swing(sat.sh2, sat.sh3) + swing(sat.xh2, sat.xh3);
    const double gh = swing(sat.sgh2, sat.sgh3, sat.sgh4) + swing(sat.xgh2, sat.xgh3, sat.xgh4);
    longitudeOff += swing(sat.sl2, sat.sl3, sat.sl4) + swing(sat.xl2, sat.xl3, sat.xl4);
    turnOff += gh + 3.0 * h + 6.0 * inclinationOff + 3.0 * std::abs(sat.didt) * T;
}

bool GuideOrbit::withinTheory(const elsetrec& sat, double from, double to)
{
    const double T = std::max(std::abs(from), std::abs(to));
    reach.minutes = T;
    const double change = std::abs(d1) * T + std::abs(d2) * T * T + (std::abs(d3) * T + std::abs(d4) * T * T) * T * T;
    addDrag(sat, T);
    addMoonAndSun(sat, T);
    const double eccChange = std::abs(ecc.rate) * T + eccOff;
    reach.eccLow = sat.ecco - eccChange;
    reach.eccHigh = std::max(sat.ecco + eccChange, cutEccentricity);
    reach.axisLow = axis * (1.0 - change) * (1.0 - change);
    reach.axisHigh = axis * (1.0 + change) * (1.0 + change);
    const double room = deep ? cutEccentricity : leastNearEccentricity;
    return sat.inclo >= 0.0 && sat.inclo < std::numbers::pi - steepestRad && change < mostAxisChange &&
           anomalyOff + longitudeOff + turnOff < mostAnglesOff && reach.eccLow > room &&
           reach.eccHigh < highestEccentricity && lowestPerigeeOf() > lowestPerigee;
}

/// The long-period term of the eccentricity included.
double GuideOrbit::lowestPerigeeOf() const
{
    return reach.axisLow * (1.0 - reach.eccHigh) - std::abs(aycof) / (1.0 - reach.eccHigh);
}

/// What holds at every place of the guide.
void GuideOrbit::setBounds(const elsetrec& sat)
{
    const double e = reach.eccHigh;
    const double T = reach.minutes;
    const double a = reach.axisHigh * earthRadius;
    farthest = 1.01 * a * (1.0 + e);
    nearest = (1.0 - 1.5 * j2) * lowestPerigeeOf() * earthRadius;
    farthestOff = offAt(farthest, e, a, reach.axisLow * (1.0 - e * e));
    const double byDrag =
        (2.0 * std::abs(l2) + (3.0 * std::abs(l3) + (4.0 * std::abs(l4) + 5.0 * std::abs(l5) * T) * T) * T) * T;
    const double along = std::abs(anomaly.rate) + byDrag;
    const double turning = std::abs(perigee.rate) + std::abs(nodeLine.rate) + 2.0 * std::abs(nodeSquared) * T;
    const double shrinking =
        2.2 * (std::abs(d1) + (2.0 * std::abs(d2) + (3.0 * std::abs(d3) + 4.0 * std::abs(d4) * T) * T) * T);
    fastest = secondOrder * (a * byAnomaly(e) * along + farthest * (turning + shrinking) +
                             a * byEccentricity(e) * std::abs(ecc.rate));
    // the long-period terms move with the perigee and the eccentricity
    fastest += a * byAnomaly(e) * (std::abs(xlcof) + std::abs(aycof)) * (turning + std::abs(ecc.rate));
    good = std::isfinite(fastest) && std::isfinite(farthestOff) && sat.no > 0.0;
}

double GuideOrbit::axisFactor(double t) const
{
    return 1.0 - (d1 + (d2 + (d3 + d4 * t) * t) * t) * t;
}

double GuideOrbit::longitudeByDrag(double t) const
{
    return (l2 + (l3 + (l4 + l5 * t) * t) * t) * t * t;
}

/// The amplitudes of the short-period terms.
///
/// @param r  km
/// @param p  Earth radii
double GuideOrbit::shortPeriodKm(double r, double p) const
{
    const double temp1 = 0.5 * j2 / p;
    const double temp2 = temp1 / p;
    return r * temp2 * (0.25 * std::abs(x7thm1) + 1.5 * std::abs(cosi) * (1.0 + sini)) +
           0.5 * earthRadius * temp1 * x1mth2;
}

/// Everything that the guide leaves out.
///
/// @param r, a  km
/// @param p     Earth radii
double GuideOrbit::offAt(double r, double e, double a, double p) const
{
    const double alongOff =
        anomalyOff + longitudeOff + keplerTolerance + std::abs(xlcof) / p * (eccOff + e * (anomalyOff + turnOff));
    return spareKm +
           secondOrder * (shortPeriodKm(r, p) + a * byAnomaly(e) * alongOff + a * byEccentricity(e) * eccOff +
                          r * (anomalyOff + turnOff + framesRad) + 3.0 * a * perigeeTolerance);
}

bool GuideOrbit::place(double t, Place& to)
{
    const double shrunk = axisFactor(t);
    const double a = axis * shrunk * shrunk;
    const double e = std::max(ecc.at(t), cutEccentricity);
    const double p = a * (1.0 - e * e);
    const double argp = perigee.at(t);
    if (!(std::abs(argp - cachedPerigee) * e < perigeeTolerance)) {
        cachedPerigee = argp;
        sinPerigee = std::sin(argp);
        cosPerigee = std::cos(argp);
    }
    const double axnl = e * cosPerigee;
    const double aynl = e * sinPerigee + aycof / p;
    const double u = anomaly.at(t) + longitudeByDrag(t) + argp + xlcof / p * axnl;

    // Kepler's equation u = F + aynl cos F - axnl sin F, from where the last solution has moved to
    constexpr int rounds = 8;
    double F = lastF + (u - lastAnomaly);
    double s = 0, c = 0;
    for (int round = 0;; ++round) {
        if (round == rounds)
            return false;
        s = std::sin(F);
        c = std::cos(F);
        const double rest = u - aynl * c + axnl * s - F;
        const double step = rest / (1.0 - c * axnl - s * aynl);
        // what a step leaves of the rest, an error of the mean anomaly, is e step^2 / 2
        if (std::abs(step) < shortStep && 2.0 * e * step * step < keplerTolerance) {
            F += step;
            const double sBefore = s;
            s += (c - 0.5 * s * step) * step;
            c -= (sBefore + 0.5 * c * step) * step;
            break;
        }
        F += std::clamp(step, -0.95, 0.95);
    }
    lastF = F;
    lastAnomaly = u;

    const double el2 = axnl * axnl + aynl * aynl;
    const double beta = std::sqrt(1.0 - el2);
    const double temp = (axnl * s - aynl * c) / (1.0 + beta);
    const double rl = a * (1.0 - axnl * c - aynl * s);
    const double mean = (1.0 - 0.75 * j2 / (p * p) * beta * con41) * earthRadius;
    to.r = rl * mean;
    to.x = a * (c - axnl + aynl * temp) * mean;
    to.y = a * (s - aynl - axnl * temp) * mean;
    to.node = nodeLine.at(t) + nodeSquared * t * t;
    to.offKm = offAt(to.r, reach.eccHigh, a * earthRadius, p);
    return true;
}
