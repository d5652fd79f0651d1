// astro/two_body.h: Kepler's problem, in any consistent units.
//
// GM is the gravitational parameter. t0 is the time at which the mean anomaly is m0 for an ellipse, the time of
// perigee for all other orbits; t is the time wanted. Vectors in the orbit plane have x toward perigee and y 90
// degrees further in the direction of motion. Iterations stop at their limit without notice, with the last value.

#pragma once

#include "astro/vec3.h"

/// Eccentric anomaly, 0 to 2 pi, of a mean anomaly M in radians; at most 15 Newton steps.
double eccanom(double M, double e);

/// Hyperbolic anomaly of a hyperbolic mean anomaly; at most 15 Newton steps.
double hypanom(double Mh, double e);

/// The state in the plane of an ellipse; m0 in radians. The sign of `a` is of no account.
void ellip(double GM, double t0, double t, double a, double e, double m0, Vec3& r, Vec3& v);

/// The state in the plane of a hyperbola. The sign of `a` is of no account.
void hyperb(double GM, double t0, double t, double a, double e, Vec3& r, Vec3& v);

/// The state in the plane of an orbit near the parabola, exact for e = 1; q is the perigee distance.
///
/// Montenbruck and Pfleger, Astronomy on the Personal Computer, chapter 4. At most 16 passes: the further e is from 1
/// and the body from perigee, the more are wanted. A circle gives zero vectors.
void parab(double GM, double t0, double t, double q, double e, Vec3& r, Vec3& v);

/// The Stumpff functions c1, c2, c3 of E2, the square of the generalised anomaly. Values so large that the series
/// overflows (|E2| above some 5e5) give numbers that are not finite.
void stumpff(double E2, double& c1, double& c2, double& c3);

/// The state in the reference frame of the elements; m0, ran, aper and inc in degrees.
///
/// e below 1 is an ellipse, above 1 a hyperbola; e = 1, and any orbit with a negative m0, goes through `parab` with
/// `a` as the perigee distance.
void kepler(double GM, double t0, double t, double m0, double a, double e, double ran, double aper, double inc,
            Vec3& r, Vec3& v);

/// The osculating elements of a state at t, angles in degrees.
///
/// A negative GM asks for the parabolic form, whatever the orbit.
///
/// @param t0   time of perigee passage
/// @param m0   mean anomaly at t, 0 for a hyperbola, -1 for the parabolic form
/// @param a    semi-major axis, negative for a hyperbola; the perigee distance in the parabolic form
/// @param inc  inclination; below 0.01 degrees it loses digits, and so does t0 for an e within 1e-4 of 1
void oscelm(double GM, double t, const Vec3& r, const Vec3& v, double& t0, double& m0, double& a, double& e,
            double& ran, double& aper, double& inc);
