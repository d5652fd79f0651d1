// The measuring of star pictures: plate constants from three stars, and from pixels to coordinates and back.
//
// The stars, their pixels and the plate constants stand in the record. Standard coordinates (X, Y) are those of the
// gnomonic projection whose tangent point is the first star; its pixel is the origin of the plate.
#pragma once

#include <array>
#include <cstddef>

#include "record/winp_data.h"

namespace astrometry {

/// Where a measurement stands, values of `picstep`: what the next click means.
enum Step
{
    noPicture = 0,
    firstStar = 1,
    lastStar = 3,
    firstTrailEnd = 4,
    furtherTrailPoint = 6  // both ends of the trail are marked
};

/// A star with its pixel.
struct Star
{
    int x = 0, y = 0;
    double ra = 0, dec = 0;  // radians
};

/// A place in the sky, packed: right ascension as HH.MMSS, declination as DD.MMSS.
struct Place
{
    double ra = 0, dec = 0;
};

/// A pixel of the picture; y grows downward.
struct Pixel
{
    int x = 0, y = 0;
};

/// A measured picture. X = a0 dx + a1 dy + a2, Y the same with b, of a pixel (dx, dy) from the origin.
struct Plate
{
    Star origin;
    std::array<double, 3> a{}, b{};
};

/// The plate of three stars, the first of which is the tangent point.
Plate plateOf(const std::array<Star, lastStar>& stars);

/// The place of a pixel; its right ascension lies from 0 to 24 hours.
Place placeOf(const Plate& plate, int x, int y);

/// The inverse of `placeOf`. Never more than 100000 pixels from the first star, whatever the plate constants.
Pixel pixelOf(const Plate& plate, const Place& place);

/// The star k of the record, counted from 0.
Star starOf(const WinpData& in, std::size_t k);

/// The plate of the record, as `measure` has left it there.
Plate plateOf(const WinpData& in);

/// The plate constants `pla` and `plb` of the record from its three stars.
void measure(WinpData* in);

/// The two points of the trail that were marked last, of the record.
std::array<Place, 2> trailEnds(const WinpData& in);

}  // namespace astrometry

/// Standard coordinates of (ra, dec) for the tangent point (ra0, dec0), all in radians. y grows to the North, x to the
/// West. A point 90 degrees away, which has no place in the plane, gives finite numbers without a meaning.
void equplt(double ra0, double dec0, double ra, double dec, double& x, double& y);

/// Solves three equations r0 out[0] + r1 out[1] + out[2] = -r3 exactly.
///
/// @param rows  three rows (r0, r1, 1, r3); the first is the origin with r0 = r1 = 0, and its r3 is 0
/// @param out   3 values. Rows on one line through the origin have no solution: then large but finite numbers
void lsqfit(double* rows, double* out);

// The same for the record of the program: `trailEnds`, `measure`, `placeOf` and `pixelOf`.

/// Packed right ascension and declination of the two trail ends.
void vsGetPict(double& r1, double& d1, double& r2, double& d2);

/// Writes `pla` and `plb`.
void getPlateConst();

/// The packed coordinates of a pixel.
void getRaDec(int x, int y, double& ra, double& dec);

/// The pixel of packed coordinates.
void getPixel(double ra, double dec, int& x, int& y);
