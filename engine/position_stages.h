// The stages of GetSatPos: what they hand on, and each quantity's one piece of code. For the engine alone.
#pragma once

#include "astro/earth.h"
#include "astro/frames.h"
#include "astro/mat3.h"
#include "astro/vec3.h"
#include "engine/magnitude.h"
#include "engine/satpos_data.h"
#include "engine/site.h"
#include "record/winp_data.h"

class Sgp4Ahead;

/// What the stages hand on. A stage reads what stages named before it have filled for the same instant; observer and
/// TT minus UT are kept from one instant to the next.
struct Scene
{
    WinpData* in = nullptr;
    SatPosData* sp = nullptr;
    int isat = 0;
    bool prime = false;     // the slot is that of the prime satellite
    bool relative = false;  // the observer stands at the second satellite

    double mjd = 0;            // UTC
    double ut1 = 0;            // MJD
    double ttUt = 0;           // TT minus UT, seconds
    double ttUtDay = -1e300;   // the day of `mjd` for which it stands
    double T = 0;              // Julian centuries of TT from J2000
    Mat3 nutation = mxidn();   // mean to true equator of date
    double eqeq = 0;           // equation of the equinoxes, seconds of time
    double greenwich = 0;      // apparent sidereal time, radians
    bool epochChosen = false;  // coordinates on show are those of a fixed equinox
    Mat3 toEpoch = mxidn();    // true of date to the equator of that epoch
    Vec3 sun;                  // true equator of date, Earth radii
    Vec3 moon;                 // the same; zero unless a stage needs it

    const Sgp4Ahead* ahead = nullptr;  // what is known of the states to come
    Vec3 r;                            // satellite, km: mean equator of date, then true of date
    Vec3 v;                            // km/s

    Site place;             // observer
    double lat = 0;         // the same clamped, radians
    double lng = 0;         // radians
    double lngDeg = 0;      // degrees
    double height = 0;      // metres
    ObserverSite site;      // the same place
    Vec3 observer;          // true equator of date, km
    Vec3 observerVelocity;  // km/s
    Vec3 sight;             // from the observer to the satellite, km
    Vec3 toObserver;        // unit vector from the satellite

    double subLat = 0;            // sub-satellite point, radians
    double subLng = 0;            // radians
    double subLatGeocentric = 0;  // radians
    double sunElevation = 0;      // at the satellite, horizon dip included, radians
    double moonElevation = 0;     // the same; with moonflg

    double eclipseIncrement = 0;     // magnitudes
    double baseMagnitude = noFlare;  // of the magnitude stage
    LightSource source;              // of the magnitude stage
};

/// An angle in radians, brought to -pi to pi.
double wrapPi(double x);

// Time, Sun, Moon and frames.
void setTimes(Scene& s, double mjd);
void setNutation(Scene& s);
void setGreenwich(Scene& s);
void setObserver(Scene& s, const Site& site);
void placeSun(Scene& s);
void placeMoon(Scene& s);
bool moonWanted(const Scene& s);
void setEpochMatrix(Scene& s);

// The satellite.
void propagate(Scene& s);
void turnToTrueOfDate(Scene& s);

// The view from the observer.
void placeObserver(Scene& s);
void findObserverVelocity(Scene& s);
void findApparentPlace(Scene& s);
void findRangeRate(Scene& s);
void findSubSolarPoint(const Scene& s);
void findAzimuthElevation(Scene& s);
void findBeta(Scene& s);

// The satellite's own place and light.
void findSubSatellitePoint(Scene& s);
void findSunAtObserver(Scene& s);
void findSunAtSatellite(Scene& s);
void findMoonAtSatellite(Scene& s);
void findSolarEclipse(Scene& s);
void findMagnitude(Scene& s);

// Events.
void findTransitPoint(Scene& s);
void findFlare(Scene& s);
