// The position record: what GetSatPos found for each satellite slot.
#pragma once

#include "astro/vec3.h"
#include "record/winp_data.h"

/// Points of a visibility circle.
constexpr int circlePoints = 64;

/// Marks of SatPosData::occlat. A point exists below `anglesOnly`.
constexpr double anglesOnly = 99.0;  // the flare stage found angles, not a point
constexpr double noGroundPoint = 100.0;

/// Value of SatPosData::mag without a flare.
constexpr double noFlare = 99.0;

/// Filled by GetSatPos. The arrays have an entry for each slot of the input record, the work and the parked slot
/// included; the scalars belong to the last call for the prime satellite or, where a line says so, to the last call of
/// any slot. In relative mode `ra`, `dec` and `sunel` of the prime slot hold latitude and longitude in degrees and the
/// height in km of the second satellite instead.
struct SatPosData
{
    double lat[slotCount] = {};     // geodetic latitude of the sub-satellite point, degrees
    double lng[slotCount] = {};     // east longitude of the sub-satellite point, degrees, -180 to 180
    double hgt[slotCount] = {};     // height above the ellipsoid, km
    double ra[slotCount] = {};      // apparent right ascension in the frame of yrepoch, HH.MMSS
    double dec[slotCount] = {};     // apparent declination, DD.MMSS
    double az[slotCount] = {};      // azimuth from north through east, degrees, 0 to 360
    double el[slotCount] = {};      // elevation without refraction, degrees
    double dst[slotCount] = {};     // range from the observer, km
    double sunel[slotCount] = {};   // Sun above the satellite's own horizon, dip included, degrees; above 0 is sunlit
    double moonel[slotCount] = {};  // the same for the Moon; with moonflg only
    double rrate[slotCount] = {};   // range rate, km/s, positive when receding
    double occlat[slotCount] = {};  // latitude of the ground point of an event, degrees, or a mark
    double occlng[slotCount] = {};  // longitude of that point, degrees
    double beta[slotCount] = {};    // angle between orbit plane and Sun, degrees
    double sunaz[slotCount] = {};   // azimuth of the Sun at the sub-satellite point, radians
    double osunel = 0;              // Sun elevation at the observer, degrees; last call
    double osunaz = 0;              // Sun azimuth at the observer, radians; last call
    double omoonel = 0;             // Moon elevation at the observer, radians; with occflg 2
    double omoonaz = 0;             // Moon azimuth at the observer, radians; with occflg 2
    double moonrad = 0;             // apparent radius of the Moon, degrees; with occflg 2
    double moonph = 0;              // cosine between Sun to Moon and Earth to Moon; with occflg 2 and sunmplt
    double sslat = 0;               // geodetic latitude of the sub-solar point, degrees; last call
    double sslng = 0;               // longitude of the sub-solar point, degrees; last call
    double sunel1 = 0;              // relative mode: sunel of the prime satellite
    double sunel2 = 0;              // relative mode: sunel of the second satellite
    double mag = 0;                 // magnitude, or the distance of a ground point from the observer, km; prime only
    double vlat[slotCount][circlePoints] = {};  // points of the visibility circle, radians
    double vlng[slotCount][circlePoints] = {};
    int nvis = 0;        // points of a circle
    Vec3 rsat{0, 0, 0};  // true of date state outside the prime's relative mode call, km
    Vec3 vsat{0, 0, 0};  // km/s
};

/// Positions of the last plot. Made before main, never freed.
extern SatPosData* satps;

/// Positions of the last report step: a report leaves what is on the map untouched. Made before main, never freed. A
/// thread that helps in a search points it at a record of its own first.
extern constinit thread_local SatPosData* satpos;
