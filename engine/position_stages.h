// The stages of GetSatPos: what they hand on, and each quantity's one piece of code. For the engine alone.
#pragma once

#include "astro/earth.h"
#include "astro/frames.h"
#include "astro/mat3.h"
#include "astro/vec3.h"
#include "engine/magnitude.h"
#include "engine/models.h"
#include "engine/satpos_data.h"
#include "engine/site.h"
#include "orbit/orbit.h"
#include "record/winp_data.h"

class Sgp4Ahead;

/// What the stages hand on. A stage reads what stages named before it have filled for the same instant; observer and
/// TT minus UT are kept from one instant to the next.
struct Scene
{
    WinpData* in = nullptr;  // elements and surfaces; takes the current state and what events leave
    SatPosData* sp = nullptr;
    int isat = 0;
    Propagator model = Propagator::keplerian;
    Models models;
    int transit = 0;        // what occultations look for, as `occflg`
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

    View view;
    double lat = 0;         // observer, clamped, radians
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
/// Fills mjd, ut1, ttUt and T from a UTC date, which is clamped.
void setTimes(Scene& s, double mjd);

/// Fills nutation and eqeq: the full series with IERS values, else the short one.
void setNutation(Scene& s);

/// Fills greenwich, which needs eqeq.
void setGreenwich(Scene& s);

/// Fills in, sp, isat, model, models and transit from the record.
void setSatellite(Scene& s, WinpData* in, SatPosData* sp, int isat);

/// Fills view, prime, the equinox of models and the observer, clamped, and what of it does not change with time.
void setView(Scene& s, const View& view);

/// Fills sun, with aberration.
void placeSun(Scene& s);

/// Fills moon, without aberration.
void placeMoon(Scene& s);

/// Whether a later stage reads moon.
bool moonWanted(const Scene& s);

/// Fills epochChosen and toEpoch by the equinox of the view.
void setEpochMatrix(Scene& s);

// The satellite.
/// Fills r and v by the model of the slot, mean equator of date; an analytic state becomes the current one of the slot.
void findState(Scene& s);

/// Turns r and v to the true equator of date, and stores them as rsat and vsat unless relative.
void turnToTrueOfDate(Scene& s);

// The view from the observer.
/// Fills observer, sight and toObserver.
void placeObserver(Scene& s);

/// Fills observerVelocity: that of a point on a sphere, turning once in a sidereal day.
void findObserverVelocity(Scene& s);

/// Gives ra and dec, with light time if IERS values are in force.
void findApparentPlace(Scene& s);

/// Gives rrate.
void findRangeRate(Scene& s);

/// Gives sslat and sslng.
void findSubSolarPoint(const Scene& s);

/// Gives az, el and dst.
void findAzimuthElevation(Scene& s);

/// Gives beta.
void findBeta(Scene& s);

// The satellite's own place and light.
/// Gives lat, lng and hgt, and the same as subLat and subLng; polar motion is applied.
void findSubSatellitePoint(Scene& s);

/// Gives osunel and osunaz.
void findSunAtObserver(Scene& s);

/// Gives sunel and sunaz, and sunElevation.
void findSunAtSatellite(Scene& s);

/// Gives moonel, and moonElevation.
void findMoonAtSatellite(Scene& s);

/// Gives ecltyp, smang, eclmag and eclpow of the input record, and eclipseIncrement.
void findSolarEclipse(Scene& s);

/// Gives mag by Sun or Moon, and source and baseMagnitude.
void findMagnitude(Scene& s);

// Events.
/// What a transit or an occultation is of, by occflg: Sun or Moon, Earth radii, or a direction; true equator of date.
Vec3 transitTarget(const Scene& s);

/// Gives the ground point of the line from Sun, Moon or direction through the satellite, by occflg.
void findTransitPoint(Scene& s);

/// Gives the ground point, angle and magnitude of a reflection, or the surface that would send one to the observer.
void findFlare(Scene& s);
