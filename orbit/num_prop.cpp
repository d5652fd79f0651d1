#include "orbit/num_prop.h"

#include "astro/calendar.h"
#include "astro/frames.h"
#include "astro/two_body.h"
#include "orbit/force_model.h"
#include "orbit/integrator.h"
#include "orbit/mean_motion.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

double smy[6] = {};

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

/// A numeric integration on its way.
struct Flight
{
    double s = 0;              // seconds from cstm
    double dt = 0;             // where s has to arrive
    double hmax = 0;           // longest step, with the sign of dt
    double h = 0;              // next step
    bool held = false;         // steps go untested
    bool unreachable = false;  // without an iteration limit, a step has vanished
};

bool allFinite(const double (&y)[6])
{
    return std::all_of(std::begin(y), std::end(y), [](double x) { return std::isfinite(x); });
}

void storeState(WinpData* in, int k, const double (&y)[6])
{
    in->csr0[k] = y[0];
    in->csr1[k] = y[1];
    in->csr2[k] = y[2];
    in->csv0[k] = y[3];
    in->csv1[k] = y[4];
    in->csv2[k] = y[5];
}

/// A copy of the current state of a slot.
struct CurrentState
{
    CurrentState(const WinpData& in, int k)
        : time(in.cstm[k]), y{in.csr0[k], in.csr1[k], in.csr2[k], in.csv0[k], in.csv1[k], in.csv2[k]}
    {}

    void putBack(WinpData* in, int k) const
    {
        in->cstm[k] = time;
        storeState(in, k, y);
    }

    double time;
    double y[6];
};

void startFromEpoch(WinpData* in, int k)
{
    storeState(in, k, {in->epr0[k], in->epr1[k], in->epr2[k], in->epv0[k], in->epv1[k], in->epv2[k]});
    in->cstm[k] = in->mjdep[k];
}

/// Seconds from the current state to t, after a jump to the epoch where that is nearer. A current state whose time is
/// no number is left for the epoch too.
double startNearest(double t, WinpData* in, int k)
{
    const double dt = (t - in->cstm[k]) * 86400.0;
    if (std::abs(dt) <= stayS)
        return dt;
    const double de = (t - in->mjdep[k]) * 86400.0;
    if (std::abs(dt) <= std::abs(de))
        return dt;
    startFromEpoch(in, k);
    return de;
}

/// A state at the Earth's centre gets a harmless start.
void loadState(const WinpData& in, int k)
{
    const CurrentState state(in, k);
    std::copy(std::begin(state.y), std::end(state.y), smy);
    if (smy[0] * smy[0] + smy[1] * smy[1] + smy[2] * smy[2] < 100.0)
        smy[0] = 100.0;
}

void placeSunMoon(double t, const WinpData& in, const Vec3& sun, const Vec3& moon)
{
    double eqeq;
    const Mat3 toMean = mxtrn(nutmat(julcent(t), eqeq, in.IERSflg));
    spos = mxvct(toMean, earthRadiusM * sun);
    mpos = mxvct(toMean, earthRadiusM * moon);
}

/// Keeps the steps from vanishing: a proposal that is too small is replaced, and taken without an error test. Every
/// second time the test comes back; until then the steps that follow go untested too.
void holdStep(Flight& f, const WinpData& in)
{
    const double least = 0.1 * std::abs(f.hmax);
    const double size = std::abs(f.h);
    if (size >= shortStepS || size >= least)
        return;
    if (in.mxit == 0 && size >= vanishedStepS)
        return;
    // Without an iteration limit the tolerance cannot be met at all here, and steps of a tenth of a second would last
    // for ever.
    f.unreachable = f.unreachable || in.mxit == 0;
    f.h = std::copysign(in.mxit == 0 ? least : std::min(shortStepS, least), f.dt);
    // A tolerance below the resolution of a double is never met: testing for it again would only cost time.
    const bool testAgain = f.held && std::abs(in.RKFtol) >= finestTolerance;
    f.held = !testAgain;
    rkf.SetMaxIter(testAgain ? in.mxit : 1);
}

void fly(Flight& f, const WinpData* in, int k, bool refresh)
{
    while (f.dt > 0 ? f.s < f.dt : f.s > f.dt) {
        if (refresh)
            UpSunMoon(f.s, in, k, spos, mpos);
        double hnew;
        rkf.RKF45Step(f.s, f.h, smy, RKFun, f.s, hnew, smy);
        if (!allFinite(smy))
            return;
        f.h = std::clamp(hnew, -std::abs(f.hmax), std::abs(f.hmax));
        holdStep(f, *in);
    }
}

/// The main loop may have flown up to one step too far.
void correct(Flight& f)
{
    if (f.unreachable)
        rkf.SetMaxIter(1);
    for (int pass = 0; pass < corrections; ++pass) {
        const double rem = f.dt - f.s;
        if (!(std::abs(rem) > closeEnoughS))
            continue;
        double hnew = 0;
        rkf.RKF45Step(f.s, rem, smy, RKFun, f.s, hnew, smy);
    }
}

void epochFollows(WinpData* in, int k, const Vec3& r, const Vec3& v)
{
    constexpr double gmKm3PerS2 = 398600.4415;
    in->mjdep[k] = in->cstm[k];
    currentToEpochState(in, k);
    double t0;
    oscelm(gmKm3PerS2, in->cstm[k], r, v, t0, in->m0[k], in->a[k], in->ecc[k], in->ra[k], in->aper[k], in->inc[k]);
    const double a = in->a[k];
    const double e = in->ecc[k];
    if (e < 1.0)
        in->n0[k] = getn0(a, e, in->inc[k]);
    else
        in->n0[k] = e > 1.0 ? (1.0 - e) * a : a;
}

/// A state in km and km/s; a placeholder and false where it holds numbers that are not finite.
bool stateInKm(const double (&y)[6], Vec3& r, Vec3& v)
{
    if (!allFinite(y)) {
        r.assign(100, 0, 0);
        v.assign(0, 10, 0);
        return false;
    }
    r.assign(y[0] / 1000.0, y[1] / 1000.0, y[2] / 1000.0);
    v.assign(y[3] / 1000.0, y[4] / 1000.0, y[5] / 1000.0);
    return true;
}

/// The whole way to dt; afterwards `smy` is not finite if there was none.
void integrate(Flight& f, const WinpData* in, int k, bool nearMoon)
{
    if (!(std::abs(f.dt) <= longestJumpS)) {
        smy[0] = std::numeric_limits<double>::quiet_NaN();
        return;
    }
    f.hmax = std::copysign(std::min(std::abs(f.dt), longestStepS), f.dt);
    f.h = f.hmax;
    fly(f, in, k, std::abs(f.dt) > refreshS || nearMoon);
    correct(f);
}

}  // namespace

void NumProp(double t, WinpData* in, int k, const Vec3& sun, const Vec3& moon, Vec3& r, Vec3& v)
{
    nmrksx = k;
    const CurrentState before(*in, k);
    Flight f;
    f.dt = startNearest(t, in, k);
    loadState(*in, k);
    placeSunMoon(t, *in, sun, moon);
    const Vec3 start(smy[0], smy[1], smy[2]);
    const bool nearMoon = abs(start) > abs(start - mpos);
    rkf.SetTolerance(in->RKFtol, 1);
    rkf.SetMaxIter(in->mxit);
    if (f.dt == 0) {
        stateInKm(CurrentState(*in, k).y, r, v);
        return;
    }
    integrate(f, in, k, nearMoon);
    if (!stateInKm(smy, r, v)) {
        before.putBack(in, k);
        return;
    }
    in->cstm[k] += f.s / 86400.0;
    storeState(in, k, smy);
    in->moondst = nearMoon ? abs(Vec3(smy[0], smy[1], smy[2]) - mpos) : 0.0;
    if (in->epu[k])
        epochFollows(in, k, r, v);
}
