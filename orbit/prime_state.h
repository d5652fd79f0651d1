// orbit/prime_state.h: the epoch state and the force parameters of the prime satellite of `indata`, for its dialogs.
#pragma once

#include "orbit/conversions.h"

/// `putMeanElements` of the epoch state. Sets `sgpsat` to `noSlot`.
void cvSGP4(double& inc, double& ra, double& e, double& aper, double& m0, double& n0);

/// Osculating eccentricity of the epoch state, and its time of perigee (MJD).
void vsCkHyp(double& e, double& t0);

/// `changeFrame` for km and km/s with the IERS values of the record.
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
