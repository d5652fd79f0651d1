// orbit/conversions.h: from a state vector to mean elements, and from one frame to another.
#pragma once

#include "astro/vec3.h"
#include "orbit/orbit.h"

/// Frames of `changeFrame`, values of WinpData::stref.
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

/// Takes a state (metres, metres per second) at `mjd` from one frame to another. Codes outside 0 to 3 stand for true of
/// date.
void changeFrame(int from, int to, double mjd, const EarthOrientation& earth, Vec3& r, Vec3& v);
