// Attitude frames, visibility circles, ground points of events and directions in the sky.
#pragma once

#include "astro/mat3.h"
#include "astro/vec3.h"
#include "engine/satpos_data.h"
#include "engine/site.h"
#include "record/winp_data.h"

/// The attitude frame of yaw steering: as GetRVMat, mode 2, but following the ground track of the prime satellite.
///
/// @param yaw, pitch  degrees; without effect if the mean motion of the prime satellite is not positive
///
/// A satellite at a latitude beyond its inclination gets no steering.
Mat3 GetYSMat(const WinpData* in, const Vec3& r, const Vec3& v, double yaw, double pitch);

/// GetYSMat for a satellite with this mean motion (revolutions per day) and inclination (degrees).
Mat3 yawSteering(double revPerDay, double incDeg, const Vec3& r, const Vec3& v, double yaw, double pitch);

/// The circle that bounds the area from which the satellite of a slot is above the horizon: fills vlat, vlng and nvis
/// from lat, lng and hgt.
///
/// @param latc  geocentric latitude of the satellite, radians
///
/// Below the sphere of 6378.137 km the circle is its centre. Longitudes are not reduced further than by one turn.
void GetSatVis(SatPosData* sp, double latc, int isat);

/// The point of the Earth that a ray through or from the satellite meets: fills occlat (100: none), occlng and, for the
/// prime satellite, mag with the distance from the observer in km.
///
/// @param ut1   MJD
/// @param eqeq  equation of the equinoxes, seconds of time
/// @param r     satellite, true equator of date, Earth radii; with a ground point on return the vector from the
///              satellite to that point
/// @param d     target of the ray; a direction if occflg is 3. Changed.
///
/// The ground is the ellipsoid at the observer's height, if that lies between -1 and 20 km; a grazing ray is bent by
/// refraction if refrc is on.
void GetOccTrans(double ut1, WinpData* in, SatPosData* sp, int isat, double eqeq, Vec3& r, Vec3& d);

/// What the target of a ray is: a body beyond the satellite, or a direction.
enum class RayTarget
{
    body,
    direction
};

/// GetOccTrans with values in place of the input record.
///
/// @param prime  the distance from the observer is wanted
void findRayPoint(RayTarget target, const Site& site, double ut1, bool refraction, SatPosData* sp, int isat,
                  bool prime, double eqeq, Vec3& r, Vec3& d);

/// Distance and direction of point 2 from point 1 on the sphere, arguments in radians.
///
/// @param cosd  cosine of the distance
/// @param pa    position angle, degrees, 0 to 360; 0 where it is not defined
void ADisDir(double a1, double d1, double a2, double d2, double& cosd, double& pa);

/// The centre of the satellite match (fields az and el of the record, R.A. and declination with rdf 1) as azimuth and
/// elevation in radians. A right ascension is taken as of date.
void convRDAE(const WinpData* in, double mjd, double eqeq, double& az, double& el);

/// A place in the sky as a person enters it.
struct SkyEntry
{
    double first = 0,
           second = 0;        // azimuth and elevation, degrees; or packed R.A. (HH.MMSS) and declination (DD.MMSS)
    bool equatorial = false;  // R.A. and declination
};

/// The centre of the satellite match: fields `az`, `el` and `rdf`.
SkyEntry matchCentre(const WinpData& in);

/// convRDAE for an entry.
void toHorizontal(const SkyEntry& entry, const WinpData& in, double mjd, double eqeq, double& az, double& el);

/// Points the azimuth projection of the sky map (skaz) to the prime satellite. Uses the record `satpos`.
void SkyAzim(WinpData* in, double mjd);
