#include "orbit/prime_state.h"

#include "astro/calendar.h"
#include "astro/two_body.h"
#include "orbit/mean_elements.h"

#include <utility>

namespace {

void meanElements(WinpData& in, double& inc, double& ra, double& e, double& aper, double& m0, double& n0)
{
    const StateVector s = epochStateOf(in, in.prs);
    Elements found = elementsOf(in, in.prs);
    putMeanElements(s, analyticModelOf(in), found);
    inc = found.inc;
    ra = found.ra;
    e = found.ecc;
    aper = found.aper;
    m0 = found.m0;
    n0 = found.n0;
    in.sgpsat = noSlot;
}

void findPerigee(const StateVector& s, double& e, double& t0)
{
    constexpr double gmKm3PerDay2 = 2975536351779840.0;
    const Vec3 r = s.r / 1000.0;
    const Vec3 v = s.v / 1000.0 * 86400.0;
    double m0, a, ran, aper, inc;
    oscelm(gmKm3PerDay2, s.mjd, r, v, t0, m0, a, e, ran, aper, inc);
}

/// m and m/s to km and km/s.
void giveKm(const Vec3& r, const Vec3& v, double& x, double& y, double& z, double& vx, double& vy, double& vz)
{
    x = r[0] / 1000.0;
    y = r[1] / 1000.0;
    z = r[2] / 1000.0;
    vx = v[0] / 1000.0;
    vy = v[1] / 1000.0;
    vz = v[2] / 1000.0;
}

StateVector inMetres(double mjd, double x, double y, double z, double vx, double vy, double vz)
{
    return {mjd, {x * 1000.0, y * 1000.0, z * 1000.0}, {vx * 1000.0, vy * 1000.0, vz * 1000.0}};
}

/// What the state dialog shows and takes beside the state.
struct Parameters
{
    double F107, FB107, Kp, Cr, Cd, Am;
    int stref;
};

Parameters parametersOf(const WinpData& in)
{
    const int k = in.prs;
    return {in.F107[k], in.FB107[k], in.Kp[k], in.Cr[k], in.Cd[k], in.Am[k], in.stref};
}

StateVector primeEpochState(const WinpData& in)
{
    return epochStateOf(in, in.prs);
}

std::pair<Parameters, StateVector> shownOf(const WinpData& in)
{
    return {parametersOf(in), primeEpochState(in)};
}

void putPrimeState(const StateVector& state, bool reset, WinpData& in)
{
    putEpochState(state, in, in.prs);
    if (reset)
        putCurrentState(state, in, in.prs);
}

/// What the state dialog gives back.
struct Entered
{
    Parameters parameters;
    bool withForces;
    StateVector state;
    bool reset;  // the current state too
};

void storeParameters(const Parameters& p, bool forces, WinpData& in)
{
    const int k = in.prs;
    in.stref = p.stref;
    if (!forces)
        return;
    in.F107[k] = p.F107;
    in.FB107[k] = p.FB107;
    in.Kp[k] = p.Kp;
    in.Cr[k] = p.Cr;
    in.Cd[k] = p.Cd;
    in.Am[k] = p.Am;
}

void store(const Entered& entered, WinpData& in)
{
    storeParameters(entered.parameters, entered.withForces, in);
    putPrimeState(entered.state, entered.reset, in);
}

}  // namespace

void cvSGP4(double& inc, double& ra, double& e, double& aper, double& m0, double& n0)
{
    meanElements(*indata, inc, ra, e, aper, m0, n0);
}

void vsCkHyp(double& e, double& t0)
{
    findPerigee(primeEpochState(*indata), e, t0);
}

void vsRefState(int from, int to, double mjd, double& x, double& y, double& z, double& vx, double& vy, double& vz)
{
    StateVector s = inMetres(mjd, x, y, z, vx, vy, vz);
    changeFrame(from, to, mjd, earthOrientationOf(*indata), s.r, s.v);
    giveKm(s.r, s.v, x, y, z, vx, vy, vz);
}

void vsGetState(bool all, double& F107, double& FB107, double& Kp, int& stref, double& Cr, double& Cd, double& Am,
                double& x, double& y, double& z, double& vx, double& vy, double& vz, double& epoch)
{
    const auto [p, s] = shownOf(*indata);
    F107 = p.F107;
    FB107 = p.FB107;
    Kp = p.Kp;
    stref = p.stref;
    Cr = p.Cr;
    Cd = p.Cd;
    Am = p.Am;
    if (!all)
        return;
    giveKm(s.r, s.v, x, y, z, vx, vy, vz);
    epoch = s.mjd;
}

void vsPutState(bool params, int year, double day, double F107, double FB107, double Kp, int stref, double Cr,
                double Cd, double Am, double x, double y, double z, double vx, double vy, double vz, bool reset)
{
    const StateVector state = inMetres(mjd(0, 1, year, 0.0) + day, x, y, z, vx, vy, vz);
    store({{F107, FB107, Kp, Cr, Cd, Am, stref}, params, state, reset}, *indata);
}
