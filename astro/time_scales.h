// astro/time_scales.h: TT minus UT, and the rotation of the Earth.

#pragma once

/// TT minus TAI, seconds.
constexpr double ttTaiSeconds = 32.184;

/// The default TT minus UT in seconds for a calendar year: always a whole number plus 0.184. It has steps at the
/// limits of its branches, and from 2000 on it follows the leap seconds.
double DefTdUt(int year);

/// Local sidereal time.
///
/// @param mjd        UT1 as a Modified Julian Date
/// @param longitude  degrees, east positive
/// @param eqeq       equation of the equinoxes in seconds of time (from `nutmat`); 0 gives mean time
/// @return           hours, not reduced to 0..24: negative for most dates before 2000
///
/// The IAU 1982 expression: Aoki et al., Astron. Astrophys. 105, 359 (1982).
double lsidtim(double mjd, double longitude, double eqeq);
