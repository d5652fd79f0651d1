#include "design/delta_v.h"

#include <algorithm>
#include <cmath>

#include "astro/mat3.h"
#include "astro/two_body.h"
#include "engine/position.h"
#include "orbit/attitude.h"
#include "orbit/conversions.h"
#include "orbit/mean_elements.h"
#include "orbit/mean_motion.h"

namespace {

constexpr double gmKm3PerDay2 = 2.9755364003e15;
constexpr double speedOfLightMPerS = 299792458.0;
constexpr double millimetresPerMetre = 1000.0;
constexpr double strongestThrustMPerS2 = 1000.0;  // more than that is a slip of the keyboard

/// The prime satellite at the time of the maneuver.
struct Flight
{
    Vec3 r{0, 0, 0}, v{0, 0, 0};  // m, m/s
};

Flight currentFlight(const WinpData* in, int slot)
{
    return {{in->csr0[slot], in->csr1[slot], in->csr2[slot]}, {in->csv0[slot], in->csv1[slot], in->csv2[slot]}};
}

Vec3 velocityChange(const Flight& flight, double dv, double yaw, double pitch)
{
    if (yaw == 0.0 && pitch == 0.0)
        return dv * vnorm(flight.v);
    const Mat3 attitude = GetRVMat(flight.r, flight.v, yaw, pitch, 1);
    return mxvct(mxtrn(attitude), Vec3(dv, 0, 0));
}

/// The state after the maneuver is the current one and that of the epoch.
void putState(WinpData* in, int slot, double t, const Vec3& v)
{
    in->csv0[slot] = v[0];
    in->csv1[slot] = v[1];
    in->csv2[slot] = v[2];
    in->cstm[slot] = t;
    currentToEpochState(in, slot);
    in->mjdep[slot] = t;
}

/// @return  the time of perigee
double putOsculatingElements(WinpData* in, int slot, double t, const Flight& flight)
{
    const Vec3 r = flight.r / 1000.0;
    const Vec3 v = flight.v * 86400.0 / 1000.0;
    double perigeeTime = 0;
    oscelm(gmKm3PerDay2, t, r, v, perigeeTime, in->m0[slot], in->a[slot], in->ecc[slot], in->ra[slot], in->aper[slot],
           in->inc[slot]);
    return perigeeTime;
}

void putHyperbola(WinpData* in, int slot, double perigeeTime)
{
    in->aflg[slot] = 0;
    if (in->numflg[slot] == 0)
        in->mjdep[slot] = perigeeTime;
    // a parabola has its perigee distance in the field of the axis
    in->n0[slot] = in->ecc[slot] == 1.0 ? in->a[slot] : (1.0 - in->ecc[slot]) * in->a[slot];
}

void putEllipse(WinpData* in, int slot, double t, const Flight& flight)
{
    if (!hasMeanElements(flight.r, flight.v))
        in->aflg[slot] = 0;
    if (in->aflg[slot] == 0) {
        in->n0[slot] = getn0(in->a[slot], in->ecc[slot], in->inc[slot]);
        return;
    }
    Elements e = elementsOf(*in, slot);
    putMeanElements({t, flight.r, flight.v}, analyticModelOf(*in), e);
    putElements(e, *in, slot);
    in->a[slot] = getsax(1, in->n0[slot], in->ecc[slot], in->inc[slot]);
}

/// The thrust in m/s^2 that was entered; the one before where the user has left it as shown.
double thrustOf(double millimetresPerS2, double before)
{
    if (millimetresPerS2 == before * millimetresPerMetre)
        return before;
    const double thrust = millimetresPerS2 / millimetresPerMetre;
    return std::abs(thrust) > strongestThrustMPerS2 ? 0.0 : thrust;
}

/// ExDeltaV from the current state on, which is that at `mjd`.
int applyImpulse(WinpData* in, double dv, double yaw, double pitch)
{
    const int slot = in->prs;
    const double t = in->mjd;
    Flight flight = currentFlight(in, slot);
    flight.v += velocityChange(flight, std::clamp(dv, -speedOfLightMPerS, speedOfLightMPerS), yaw, pitch);
    putState(in, slot, t, flight.v);
    const double perigeeTime = putOsculatingElements(in, slot, t, flight);
    in->sgpsat = noSlot;
    if (in->ecc[slot] < 1.0) {
        putEllipse(in, slot, t, flight);
        return 0;
    }
    putHyperbola(in, slot, perigeeTime);
    return 1;
}

}  // namespace

int ExDeltaV(WinpData* in, double dv, double yaw, double pitch)
{
    GetSatPos(in->mjd, in, satpos, in->prs, 0);
    return applyImpulse(in, dv, yaw, pitch);
}

Maneuver lastManeuver(const WinpData& in)
{
    const int slot = in.prs;
    const bool thrust = in.ionf[slot] && in.numflg[slot] != 0;
    return {thrust ? in.deltv[slot] * millimetresPerMetre : in.deltv[slot],
            in.yaw[slot],
            in.pitch[slot],
            in.ionf[slot],
            in.suns[slot],
            in.epu[slot]};
}

int perform(const Maneuver& maneuver, WinpData* in)
{
    const int slot = in->prs;
    const bool numeric = in->numflg[slot] != 0;
    const bool thrustBefore = in->ionf[slot] && numeric;
    const double before = in->deltv[slot];
    in->deltv[slot] = maneuver.deltv;
    in->yaw[slot] = maneuver.yaw;
    in->pitch[slot] = maneuver.pitch;
    in->ionf[slot] = maneuver.ionf && numeric;
    in->suns[slot] = maneuver.suns;
    in->epu[slot] = maneuver.epu && in->ionf[slot];
    if (in->ionf[slot]) {
        in->deltv[slot] = thrustOf(maneuver.deltv, thrustBefore ? before : 0.0);
        return 0;
    }
    if (thrustBefore)
        return 0;  // it was switched off
    absolutePosition(in->mjd, in, satpos, slot);
    return applyImpulse(in, maneuver.deltv, maneuver.yaw, maneuver.pitch);
}
