#include "orbit/flight.h"

#include "astro/calendar.h"
#include "astro/frames.h"
#include "astro/two_body.h"
#include "orbit/integrator.h"
#include "orbit/mean_motion.h"
#include "record/progress.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr double earthRadiusM = 6378137.0;
constexpr double longestStepS = 1200.0;
constexpr double stayS = 1200.0;        // within it of the current state the epoch is not looked at
constexpr double refreshS = 600.0;      // jumps above it renew Sun and Moon at each step
constexpr double shortStepS = 0.1;      // a proposal below it is not followed
constexpr double vanishedStepS = 1e-6;  // the resolution of a Modified Julian Date
constexpr double closeEnoughS = 0.001;
constexpr int corrections = 4;
constexpr double finestTolerance = std::numeric_limits<double>::epsilon() / 2;
constexpr double longestJumpS = 36525.0 * 86400.0;  // a century: some minutes of computing for a low orbit

bool isFinite(const Vec3& v)
{
    return std::isfinite(v[0]) && std::isfinite(v[1]) && std::isfinite(v[2]);
}

bool isFinite(const StateVector& s)
{
    return isFinite(s.r) && isFinite(s.v);
}

/// The current state or that of the epoch. A current state whose time is no number is left for the epoch too.
const StateVector& nearest(const Orbit& orbit, double t)
{
    const double dt = std::abs((t - orbit.current.mjd) * 86400.0);
    const double de = std::abs((t - orbit.epochState.mjd) * 86400.0);
    return dt <= stayS || dt <= de ? orbit.current : orbit.epochState;
}

SunMoon toMeanEquator(double t, bool iers, const Vec3& sun, const Vec3& moon)
{
    double eqeq;
    const Mat3 toMean = mxtrn(nutmat(julcent(t), eqeq, iers));
    return {mxvct(toMean, earthRadiusM * sun), mxvct(toMean, earthRadiusM * moon)};
}

/// An integration on its way.
class Flight
{
public:
    Flight(const StateVector& from, const Forces& f, const SunMoon& b);

    bool nearMoon() const { return abs(place()) > moonDistance(); }
    double moonDistance() const { return abs(place() - bodies.moon); }
    void goTo(double seconds, bool refresh);
    StateVector state() const { return {start + s / 86400.0, place(), {y[3], y[4], y[5]}}; }

    SunMoon bodies;
    bool ended = false;  // by the listener, on the way

private:
    Vec3 place() const { return {y[0], y[1], y[2]}; }
    void step(double size, double& proposal);
    void keepFromVanishing();
    void testAgain();
    void approach(bool refresh);
    void correct();

    const Forces& forces;
    const double start;  // MJD
    double y[6];
    RKF45 integrator{6};
    double s = 0;              // seconds from the start
    double dt = 0;             // where s has to arrive
    double hmax = 0;           // longest step, with the sign of dt
    double h = 0;              // next step
    bool untested = false;     // steps are taken without an error test
    bool unreachable = false;  // without an iteration limit, a step has vanished
};

/// A state at the Earth's centre gets a harmless start.
Flight::Flight(const StateVector& from, const Forces& f, const SunMoon& b)
    : bodies(b), forces(f), start(from.mjd), y{from.r[0], from.r[1], from.r[2], from.v[0], from.v[1], from.v[2]}
{
    if (dot(from.r, from.r) < 100.0)
        y[0] = 100.0;
    integrator.SetTolerance(forces.tolerance, 1);
    integrator.SetMaxIter(forces.maxIterations);
}

void Flight::step(double size, double& proposal)
{
    const auto model = [this](double t, const double* at, double* dy) {
        derivatives(start + t / 86400.0, at, forces, bodies, dy);
    };
    integrator.RKF45Step(s, size, y, model, s, proposal, y);
}

/// A proposal that is too small is replaced, and the step taken without an error test. Every second time the test
/// comes back; until then the steps that follow go untested too, unless a correction brings it back at
/// the first of them that needs no such help.
void Flight::keepFromVanishing()
{
    const double least = 0.1 * std::abs(hmax);
    const double size = std::abs(h);
    const int limit = forces.maxIterations;
    const bool measurable = std::abs(forces.tolerance) >= finestTolerance;
    if (size >= shortStepS || size >= least) {
        if (untested && measurable && forces.corrections.iterationLimit)
            testAgain();
        return;
    }
    if (limit == 0 && size >= vanishedStepS)
        return;
    // Without an iteration limit the tolerance cannot be met at all here, and steps of a tenth of a second would last
    // for ever.
    unreachable = unreachable || limit == 0;
    h = std::copysign(limit == 0 ? least : std::min(shortStepS, least), dt);
    // A tolerance below the resolution of a double is never met: testing for it again would only cost time.
    untested = !untested || !measurable;
    integrator.SetMaxIter(untested ? 1 : limit);
}

/// The error test comes back.
void Flight::testAgain()
{
    untested = false;
    integrator.SetMaxIter(forces.maxIterations);
}

void Flight::approach(bool refresh)
{
    while (dt > 0 ? s < dt : s > dt) {
        if (refresh)
            bodies = sunMoonAt(start + s / 86400.0, forces.earth);
        double proposal;
        step(h, proposal);
        if (!isFinite(state()))
            return;
        ended = !tellProgress();
        if (ended)
            return;
        h = std::clamp(proposal, -std::abs(hmax), std::abs(hmax));
        keepFromVanishing();
    }
}

/// The last step may have gone too far.
void Flight::correct()
{
    if (unreachable)
        integrator.SetMaxIter(1);
    for (int pass = 0; pass < corrections; ++pass) {
        const double rest = dt - s;
        double proposal = 0;
        if (std::abs(rest) > closeEnoughS)
            step(rest, proposal);
    }
}

void Flight::goTo(double seconds, bool refresh)
{
    dt = seconds;
    hmax = std::copysign(std::min(std::abs(dt), longestStepS), dt);
    h = hmax;
    approach(refresh);
    if (!ended)
        correct();
}

}  // namespace

Arrival fly(const Orbit& orbit, double t, const Vec3& sun, const Vec3& moon)
{
    const StateVector& from = nearest(orbit, t);
    const double dt = (t - from.mjd) * 86400.0;
    Arrival end;
    end.bodies = toMeanEquator(t, orbit.forces.earth.iers, sun, moon);
    end.state = from;
    end.moved = dt != 0;
    if (!end.moved) {
        end.found = isFinite(from);
        return end;
    }
    if (!(std::abs(dt) <= longestJumpS))
        return end;
    Flight flight(from, orbit.forces, end.bodies);
    const bool nearMoon = flight.nearMoon();
    flight.goTo(dt, std::abs(dt) > refreshS || nearMoon);
    end.bodies = flight.bodies;
    end.state = flight.state();
    end.found = !flight.ended && isFinite(end.state);
    end.moonDistance = nearMoon ? flight.moonDistance() : 0.0;
    return end;
}

Elements elementsAt(const StateVector& state, const Elements& before)
{
    constexpr double gmKm3PerS2 = 398600.4415;
    Elements e = before;
    e.epoch = state.mjd;
    double t0;
    const Vec3 r(state.r[0] / 1000.0, state.r[1] / 1000.0, state.r[2] / 1000.0);
    const Vec3 v(state.v[0] / 1000.0, state.v[1] / 1000.0, state.v[2] / 1000.0);
    oscelm(gmKm3PerS2, state.mjd, r, v, t0, e.m0, e.a, e.ecc, e.ra, e.aper, e.inc);
    if (e.ecc < 1.0)
        e.n0 = getn0(e.a, e.ecc, e.inc);
    else
        e.n0 = e.ecc > 1.0 ? (1.0 - e.ecc) * e.a : e.a;
    return e;
}
