// orbit/jacchia.h: density of the upper atmosphere.
#pragma once

#include "astro/vec3.h"
#include "record/corrections.h"

/// Density in kilograms per cubic metre: Jacchia 1971 by polynomials in height and exospheric temperature.
///
/// @param mjd     any scale that is right to a minute
/// @param r, sun  metres, the same equator of date; of the Sun only the direction counts
/// @param F107    daily flux, FB107 its 90-day average
/// @param height  receives the geodetic height, km; 2500 beyond 8870 km from the Earth's centre or within 1 m of it
/// @return        0 below the ground and above 2500 km; below 90 km an exponential rise to 1.29 at the ground
///
/// Jacchia, SAO Special Report 332 (1971); the polynomials from Gill, DLR-GSOC IB 96-1 (1996). The hour angle of the
/// Sun is not reduced; the exponential in the height factor of the semi-annual term damps its second part alone, and the
/// term fades out between 300 and 400 km: unless `corrections` put that right. The size of the steps at 180, 500 and
/// 1000 km is that of the fits.
double Jacc71(double mjd, const Vec3& r, const Vec3& sun, double F107, double FB107, double Kp, double& height,
              const Corrections& corrections = {});
