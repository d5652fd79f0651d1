// astro/frames.h: ecliptic, equator, Earth-fixed and horizon frames, and apparent places.
//
// T stands for Julian centuries of TT from J2000 (`julcent`), mjd for UT1 as a Modified Julian Date, eqeq for the
// equation of the equinoxes in seconds of time. Latitudes are geodetic and come before longitudes; longitudes count
// to the east, both in radians. The horizon frame has x toward south, y toward east, z toward the zenith.

#pragma once

#include "astro/mat3.h"

/// From the ecliptic of date, Cartesian, to the mean equator of date.
Vec3 eclequ(double T, const Vec3& r);

/// Precession from the mean equator of T1 to that of T2.
///
/// The angles of Lieske et al., Astron. Astrophys. 58, 1 (1977).
Mat3 pmatequ(double T1, double T2);

/// Nutation: from the mean to the true equator of date.
///
/// @param eqeq  receives the equation of the equinoxes, seconds of time
/// @param full  50 terms of the IAU 1980 series, within 0.01 arc seconds of the whole of it; otherwise the five
///              largest terms, good to some 0.3 arc seconds
Mat3 nutmat(double T, double& eqeq, bool full);

/// Polar motion, in arc seconds: from the true Earth frame to the Earth-fixed frame. Small angles only: the matrix is
/// of first order.
Mat3 PoleMx(double xp, double yp);

/// r displaced by the annual aberration; the frame is the equator of date, true or mean.
Vec3 aberrat(double T, const Vec3& r);

/// The observer's place in the true equator of date, in equatorial Earth radii; h in metres.
Vec3 GeoPos(double mjd, double eqeq, double lat, double lon, double h);

/// The same with polar motion xp, yp in arc seconds.
Vec3 GeoPos(double mjd, double eqeq, double lat, double lon, double h, double xp, double yp);

/// From the true equator of date to the horizon frame.
Vec3 EquHor(double mjd, double eqeq, double lat, double lon, const Vec3& r);

/// From the horizon frame to the true equator of date.
Vec3 HorEqu(double mjd, double eqeq, double lat, double lon, const Vec3& r);

/// A place on the ellipsoid, whatever the time.
struct ObserverSite
{
    double rho = 0, z = 0;  // equatorial Earth radii: distance from the axis, and height above the equator
    Mat3 tilt = mxidn();    // from the meridian and the equator to the horizon frame
};

/// @param lat  geodetic, radians
/// @param h    metres
ObserverSite observerSite(double lat, double h);

/// `AppPos` for a site.
void AppPos(const ObserverSite& site, double mjd, double eqeq, double lon, int mode, const Vec3& r, double& az,
            double& el, double& dist);

/// Where the observer sees r.
///
/// @param mode  0: r is a direction, or topocentric already; otherwise a geocentric position in equatorial Earth
///              radii, from which the observer's is taken off
/// @param az    radians from north through east, above -pi up to +pi
/// @param el    radians
/// @param dist  the length of the topocentric vector, in the unit of r
void AppPos(double mjd, double eqeq, double lat, double lon, double h, int mode, const Vec3& r, double& az,
            double& el, double& dist);

/// The reverse for a direction: right ascension, 0 to 2 pi, and declination of azimuth and elevation, all radians.
void AppRADec(double mjd, double eqeq, double lat, double lon, double az, double el, double& ra, double& dec);
