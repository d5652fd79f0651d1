// orbit/force_model.h: the right-hand side of the equations of motion of the numeric propagator.
//
// SI units. The state is in the mean equator and equinox of date, which is taken as inertial.
#pragma once

#include "astro/vec3.h"
#include "orbit/jacchia.h"
#include "orbit/orbit.h"

/// Sun and Moon as the force model has them: metres, mean equator of date.
struct SunMoon
{
    Vec3 sun;
    Vec3 moon;
};

/// Derivatives of a state.
///
/// @param mjd  UTC
/// @param y    place and velocity, m and m/s; dy receives m/s and m/s^2
///
/// Gravity of degree 20, 15, 10 or 6 by distance, Sun and Moon, radiation pressure with a cylindrical shadow, drag,
/// lift, thrust. Below the ground the satellite has landed: it turns with the Earth, the derivatives of z and of the
/// velocity are 0.
void derivatives(double mjd, const double* y, const Forces& forces, const SunMoon& bodies, double* dy);

/// Sun (with aberration) and Moon at an instant (UTC).
SunMoon sunMoonAt(double mjd, const EarthOrientation& earth);

/// The slot of this thread's last integration.
extern constinit thread_local int nmrksx;

/// Sun and Moon of this thread's last integration: metres, mean equator of date.
extern constinit thread_local Vec3 spos, mpos;

/// `derivatives` for slot `nmrksx` of `indata` with `spos` and `mpos`; t in seconds from `cstm` of that slot.
void RKFun(double t, const double* y, double* dy);

/// The same on another record.
void RKfun(double t, const double* y, double* dy, const WinpData* in);

/// Acceleration by the Earth's gravity field up to degree and order n (clamped to 0 to 20).
///
/// @param r  metres, Earth-fixed; within 3e-8 m of the centre r squared is taken as 1
/// @param a  receives m/s^2, Earth-fixed
///
/// Cunningham, Celest. Mech. 2, 207 (1970); Montenbruck and Gill, Satellite Orbits, 3.2.
void HarmAcc(const Vec3& r, int n, Vec3& a);

/// Acceleration by a body at s on a satellite at r, relative to the Earth.
Vec3 ThirdBody(double gm, const Vec3& r, const Vec3& s);

/// `sunMoonAt` t seconds after `cstm` of slot k.
void UpSunMoon(double t, const WinpData* in, int k, Vec3& sun, Vec3& moon);
