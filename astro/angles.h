// astro/angles.h: factors between degrees, hours and radians, and packed sexagesimal numbers.

#pragma once

#include <numbers>

constexpr double twoPi = 2.0 * std::numbers::pi;
constexpr double radPerDeg = 0.017453292519943295;
constexpr double degPerRad = 57.29577951308232;
constexpr double radPerHour = std::numbers::pi / 12.0;

/// Degrees (or hours) to the packed form D + M/100 + S/10000: 48 degrees 28 minutes 45 seconds are 48.2845.
///
/// Seconds stay fractional in the lower digits, but 59.5 and more carry into the minute. NaN if x is not finite.
double DegFDms(double x);

/// The packed form to degrees (or hours). A packed figure keeps its minute, though the double nearest to it may lie
/// below the digit boundary.
double DmsDegF(double x);
