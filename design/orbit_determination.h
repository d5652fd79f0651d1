// A circular orbit from two sightings of one satellite.
#pragma once

#include "astro/vec3.h"
#include "record/winp_data.h"

/// Adds the satellite that was seen in the two directions `az1`, `el1` at `mjd` and `az2`, `el2` `deltm` seconds later;
/// with ten satellites it replaces the last one. It becomes the prime satellite.
///
/// The radius is sought from 100 km above the equator to 300000 km. The name is "New", also where no radius fits and the
/// search ends at its upper end; it is "No Convergence" where the search comes to no end, or the sightings to no
/// finite numbers. `ra` and `aper` may be negative. Sightings in right ascension and declination refer to `yrepoch`,
/// with 0 to the true equator of date.
void OrbitDet(WinpData* in);

/// Whether a circular orbit of radius R (km) is flown faster than two lines of sight require.
///
/// @param p, d   an observer's place (km) and the unit vector of his line of sight, both in the same frame
/// @param b, c   of that line: -(d . p), and b squared minus p squared
/// @param dt     days between the two
/// @param r1, r2 receive the points at distance R on the lines; that nearest to the Earth where a line stays outside
/// @return       +1 if the satellite flies further in dt than the angle between r1 and r2, otherwise -1
int PhiDiff(double c1, double c2, double b1, double b2, double dt, Vec3& r1, Vec3& r2, Vec3& p1, Vec3& p2, Vec3& d1,
            Vec3& d2, double R);
