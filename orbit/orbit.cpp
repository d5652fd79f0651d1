#include "orbit/orbit.h"

#include "astro/calendar.h"
#include "astro/time_scales.h"

#include <algorithm>
#include <cmath>
#include <iterator>

Orbit orbitOf(const WinpData& in, int slot)
{
    Orbit orbit;
    std::copy(std::begin(in.fsname[slot]), std::end(in.fsname[slot]), orbit.name);
    orbit.norad = in.norad[slot];
    orbit.propagator = propagatorOf(in, slot);
    orbit.elements = elementsOf(in, slot);
    orbit.wgs84 = in.wgs != 0;
    orbit.deepSpace = in.sdp4;
    orbit.epochState = epochStateOf(in, slot);
    orbit.current = currentStateOf(in, slot);
    orbit.epochFollows = in.epu[slot];
    orbit.forces = forcesOf(in, slot);
    return orbit;
}

Propagator propagatorOf(const WinpData& in, int slot)
{
    if (in.numflg[slot] != 0)
        return Propagator::numeric;
    return in.aflg[slot] != 0 ? Propagator::analytic : Propagator::keplerian;
}

Elements elementsOf(const WinpData& in, int slot)
{
    Elements e;
    e.epoch = in.mjdep[slot];
    e.a = in.a[slot];
    e.ra = in.ra[slot];
    e.aper = in.aper[slot];
    e.inc = in.inc[slot];
    e.ecc = in.ecc[slot];
    e.m0 = in.m0[slot];
    e.n0 = in.n0[slot];
    e.adot = in.adot[slot];
    e.ndot = in.ndot[slot];
    e.n6dot = in.n6dot[slot];
    e.bstar = in.bstar[slot];
    return e;
}

StateVector epochStateOf(const WinpData& in, int slot)
{
    return {
        in.mjdep[slot], {in.epr0[slot], in.epr1[slot], in.epr2[slot]}, {in.epv0[slot], in.epv1[slot], in.epv2[slot]}};
}

StateVector currentStateOf(const WinpData& in, int slot)
{
    return {
        in.cstm[slot], {in.csr0[slot], in.csr1[slot], in.csr2[slot]}, {in.csv0[slot], in.csv1[slot], in.csv2[slot]}};
}

Forces forcesOf(const WinpData& in, int slot)
{
    Forces f;
    f.sun = in.sunf;
    f.moon = in.moonf;
    f.Cd = in.Cd[slot];
    f.Cr = in.Cr[slot];
    f.Am = in.Am[slot];
    f.lift = in.lift;
    f.F107 = in.F107[slot];
    f.FB107 = in.FB107[slot];
    f.Kp = in.Kp[slot];
    f.thrustOn = in.ionf[slot];
    f.thrustNeedsSun = in.suns[slot];
    f.thrust = in.deltv[slot];
    f.yaw = in.yaw[slot];
    f.pitch = in.pitch[slot];
    f.earth = earthOrientationOf(in);
    f.tolerance = in.RKFtol;
    f.maxIterations = in.mxit;
    f.corrections = in.models;
    return f;
}

EarthOrientation earthOrientationOf(const WinpData& in)
{
    return {in.IERSflg, in.Ut1Utc, in.UtcTai,
            in.IERSxp,  in.IERSyp, in.models.publishedLeapSeconds ? &leapSeconds() : nullptr};
}

double ttMinusUt(const EarthOrientation& earth, double mjd)
{
    if (earth.iers)
        return ttTaiSeconds - earth.utcTai;
    if (earth.leapSeconds && mjd >= firstUtcMjd)
        return ttTaiSeconds + taiMinusUtc(std::floor(mjd), *earth.leapSeconds);
    int day = 0, month = 0, year = 0;
    double hour = 0;
    caldat(mjd, day, month, year, hour);
    return DefTdUt(year);
}

void putCurrentState(const StateVector& state, WinpData& in, int slot)
{
    in.cstm[slot] = state.mjd;
    in.csr0[slot] = state.r[0];
    in.csr1[slot] = state.r[1];
    in.csr2[slot] = state.r[2];
    in.csv0[slot] = state.v[0];
    in.csv1[slot] = state.v[1];
    in.csv2[slot] = state.v[2];
}

void putEpochState(const StateVector& state, WinpData& in, int slot)
{
    in.mjdep[slot] = state.mjd;
    in.epr0[slot] = state.r[0];
    in.epr1[slot] = state.r[1];
    in.epr2[slot] = state.r[2];
    in.epv0[slot] = state.v[0];
    in.epv1[slot] = state.v[1];
    in.epv2[slot] = state.v[2];
}

void putElements(const Elements& elements, WinpData& in, int slot)
{
    in.mjdep[slot] = elements.epoch;
    in.a[slot] = elements.a;
    in.ra[slot] = elements.ra;
    in.aper[slot] = elements.aper;
    in.inc[slot] = elements.inc;
    in.ecc[slot] = elements.ecc;
    in.m0[slot] = elements.m0;
    in.n0[slot] = elements.n0;
    in.adot[slot] = elements.adot;
    in.ndot[slot] = elements.ndot;
    in.n6dot[slot] = elements.n6dot;
    in.bstar[slot] = elements.bstar;
}
