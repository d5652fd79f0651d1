// The measuring of star pictures: plate constants from three stars, and from pixels to coordinates and back.
//
// The stars, their pixels and the plate constants stand in the record. Standard coordinates (X, Y) are those of the
// gnomonic projection whose tangent point is the first star; its pixel is the origin of the plate.
#pragma once

/// Where a measurement stands, values of `picstep`: what the next click means.
namespace astrometry {
enum Step
{
    noPicture = 0,
    firstStar = 1,
    lastStar = 3,
    firstTrailEnd = 4,
    furtherTrailPoint = 6  // both ends of the trail are marked
};
}

/// The two trail ends marked last on the picture, right ascension as HH.MMSS and declination as DD.MMSS.
void vsGetPict(double& r1, double& d1, double& r2, double& d2);

/// Standard coordinates of (ra, dec) for the tangent point (ra0, dec0), all in radians. y grows to the North, x to the
/// West. A point 90 degrees away, which has no place in the plane, gives finite numbers without a meaning.
void equplt(double ra0, double dec0, double ra, double dec, double& x, double& y);

/// Solves three equations r0 out[0] + r1 out[1] + out[2] = -r3 exactly.
///
/// @param rows  three rows (r0, r1, 1, r3); the first is the origin with r0 = r1 = 0, and its r3 is 0
/// @param out   3 values. Rows on one line through the origin have no solution: then large but finite numbers
void lsqfit(double* rows, double* out);

/// The plate constants `pla` and `plb` from the three stars.
void getPlateConst();

/// The coordinates of a pixel, right ascension as HH.MMSS and declination as DD.MMSS. Right ascensions are counted on
/// from that of the first star and may pass 24 hours.
void getRaDec(int x, int y, double& ra, double& dec);

/// The pixel of the coordinates HH.MMSS, DD.MMSS: the inverse of `getRaDec`. Never more than 100000 pixels from the
/// first star, whatever the plate constants.
void getPixel(double ra, double dec, int& x, int& y);
