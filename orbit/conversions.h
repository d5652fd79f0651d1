// orbit/conversions.h: between state vectors and element sets, and between the frames of the state vector dialog.
//
// The functions `vs...` and `cvSGP4` work on the prime satellite of `indata`.
#pragma once

#include "astro/vec3.h"

/// Frames of `vsRefState`, values of WinpData::stref.
namespace frame {
enum Code
{
    trueOfDate = 0,
    meanOfDate = 1,
    j2000 = 2,
    earthFixed = 3
};
}

/// Mean SGP4 elements of a state, by inversion of the model's short- and long-period terms.
///
/// @param r, v            metres, metres per second
/// @param inc, ra         degrees, not reduced
/// @param e               the osculating eccentricity, not that of the inversion
/// @param aper, m0        degrees, 0 to 360
/// @param n0              revolutions per day (Kozai's)
///
/// The iterations have limits of 40 passes. An eccentricity of 1 and more and a state without SGP4 elements
/// (`hasMeanElements`) give a set without meaning, but a finite one; a state with numbers that are not finite gives
/// zeros.
void rv2el(const Vec3& r, const Vec3& v, double& inc, double& ra, double& e, double& aper, double& m0, double& n0);

/// Whether SGP4 has elements for a state (metres, metres per second): an ellipse for which the iteration of the mean
/// motion settles. It does not for long ellipses with a low perigee, where the oblateness grows beyond the series.
[[nodiscard]] bool hasMeanElements(const Vec3& r, const Vec3& v);

/// `rv2el` of the epoch state. Sets `sgpsat` to `noSlot`.
void cvSGP4(double& inc, double& ra, double& e, double& aper, double& m0, double& n0);

/// Osculating eccentricity of the epoch state, and its time of perigee (MJD).
void vsCkHyp(double& e, double& t0);

/// Takes a state (km, km/s) at `mjd` from one frame to another. Codes outside 0 to 3 stand for true of date.
void vsRefState(int from, int to, double mjd, double& x, double& y, double& z, double& vx, double& vy, double& vz);

/// Force parameters and `stref`; with `all` also the epoch state (km, km/s, mean of date) and the epoch (MJD), which
/// otherwise stay untouched.
void vsGetState(bool all, double& F107, double& FB107, double& Kp, int& stref, double& Cr, double& Cd, double& Am,
                double& x, double& y, double& z, double& vx, double& vy, double& vz, double& epoch);

/// Stores `stref`, the epoch (day 1.0 is the start of January 1) and the epoch state (km, km/s, mean of date).
///
/// @param params  also the six force parameters
/// @param reset   also the current numeric state and its time
void vsPutState(bool params, int year, double day, double F107, double FB107, double Kp, int stref, double Cr,
                double Cd, double Am, double x, double y, double z, double vx, double vy, double vz, bool reset);
