// orbit/mean_motion.h: semi-major axis and mean motion through each other.
#pragma once

/// Semi-major axis of an orbit with the given mean motion, under the Earth's oblateness to the first order.
///
/// @param sgp  0: n0 is the plain mean motion of the simple Keplerian model; otherwise that of an SGP4 element set
/// @param n0   revolutions per day, raised to 0.0001 if below
/// @param ecc  eccentricity, below 1
/// @param inc  inclination, degrees
/// @return     km, never below 0.001, which also stands for no finite number (an eccentricity above 1, n0 of 1e300)
double getsax(int sgp, double n0, double ecc, double inc);

/// Mean motion of an orbit with the given semi-major axis, under the Earth's oblateness to the first order.
///
/// @param a    semi-major axis, km; its sign does not matter, and 0 stands for 1
/// @param ecc  eccentricity; where 1 - ecc * ecc is not above 0 the result is 1 / (2 pi)
/// @param inc  inclination, degrees
/// @return     revolutions per day, at most 1000
double getn0(double a, double ecc, double inc);
