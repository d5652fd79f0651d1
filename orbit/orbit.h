// orbit/orbit.h: one satellite as a value: its orbit, its two states and the forces on it.
//
// Plain data that a thread may copy and compute with while the record goes on changing. Angles are degrees, times are
// MJD on the UTC scale.
#pragma once

#include "astro/vec3.h"
#include "record/leap_table.h"
#include "record/winp_data.h"

/// How a satellite is moved from its epoch to a wanted time.
enum class Propagator
{
    analytic,   // SGP4, or SDP4 for deep space: from `Orbit::elements`
    keplerian,  // two bodies with secular changes; from e = 1 on without: from `Orbit::elements`
    numeric     // integrated with `Orbit::forces`, from `Orbit::current` or `Orbit::epochState`
};

/// An element set of one epoch. SGP4 counts its angles from the true equator and mean equinox of date, the other two
/// from the mean equator and equinox of date.
struct Elements
{
    double epoch = 0;  // from e = 1 on the time of perigee
    double a = 0;      // semi-major axis, km
    double ra = 0;     // right ascension of the node
    double aper = 0;   // argument of perigee
    double inc = 0;    // inclination
    double ecc = 0;    // eccentricity
    double m0 = 0;     // mean anomaly at epoch
    double n0 = 0;     // mean motion, rev/day; from e = 1 on the perigee distance, km
    double adot = 0;   // change of a, km/day
    double ndot = 0;   // half the first derivative of the mean motion, rev/day^2, as element files have it
    double n6dot = 0;  // a sixth of its second derivative, rev/day^3, as element files have it
    double bstar = 0;  // drag term of SGP4, per Earth radius
};

/// Place and velocity at an instant, in the mean equator and equinox of date.
struct StateVector
{
    double mjd = 0;
    Vec3 r;  // metres
    Vec3 v;  // m/s
};

/// How the Earth stands in space. Without the IERS values all but the polar motion counts as 0, and TT minus UT is
/// the default of the year, or follows the leap seconds.
struct EarthOrientation
{
    bool iers = false;  // IERS values in force: they need the full nutation
    double ut1Utc = 0;  // UT1 minus UTC, seconds
    int utcTai = 0;     // UTC minus TAI, whole seconds (negative)
    double xp = 0;      // polar motion, arc seconds; in force with and without the others
    double yp = 0;
    const LeapSeconds* leapSeconds = nullptr;  // TT follows this table without the IERS values; lives on
};

/// What the numeric propagator needs beyond a state. Gravity of the Earth always acts.
struct Forces
{
    bool sun = false;             // attraction of the Sun; its radiation presses all the same
    bool moon = false;            // attraction of the Moon
    double Cd = 0;                // drag coefficient
    double Cr = 0;                // radiation pressure coefficient
    double Am = 0;                // area/mass ratio, m^2/kg
    double lift = 0;              // lift/drag ratio, below 90 km
    double F107 = 0;              // daily solar flux at 10.7 cm, 1e-22 W/m^2/Hz
    double FB107 = 0;             // its 90-day average
    double Kp = 0;                // geomagnetic index, 0 to 9
    bool thrustOn = false;        // continuous thrust
    bool thrustNeedsSun = false;  // it rests in the Earth's shadow
    double thrust = 0;            // m/s^2; without continuous thrust the last impulse, m/s
    double yaw = 0;               // of the thrust from the velocity, to the right
    double pitch = 0;             // upward
    EarthOrientation earth;       // of the gravity field and of TT
    double tolerance = 0;         // relative tolerance of a step
    int maxIterations = 0;        // most tries of a step; 0 = no limit
    Corrections corrections{};    // of the analytic model too
};

/// All that decides where a satellite is. Some 500 bytes that own nothing.
struct Orbit
{
    char name[21] = {};  // NUL terminated
    int norad = 0;       // catalogue number

    Propagator propagator = Propagator::keplerian;
    Elements elements;
    bool wgs84 = false;      // analytic: the constants of WGS84, otherwise WGS72
    bool deepSpace = false;  // analytic: SDP4 for periods of 225 minutes and more

    StateVector epochState;     // numeric: where the integration may start anew
    StateVector current;        // numeric: where it has got to
    bool epochFollows = false;  // numeric: epoch and elements go with the current state
    Forces forces;
};

/// The satellite of a slot (0 to slotCount - 1), with the settings of the record that hold for all of them.
Orbit orbitOf(const WinpData& in, int slot);

/// The model that moves the satellite of a slot: `numflg`, `aflg`, else two bodies.
Propagator propagatorOf(const WinpData& in, int slot);

/// The element fields of a slot.
Elements elementsOf(const WinpData& in, int slot);

/// `mjdep` and `epr0` to `epv2` of a slot.
StateVector epochStateOf(const WinpData& in, int slot);

/// `cstm` and `csr0` to `csv2` of a slot.
StateVector currentStateOf(const WinpData& in, int slot);

/// The force parameters of a slot with the integrator's settings.
Forces forcesOf(const WinpData& in, int slot);

/// The IERS values of the record, whether in force or not.
EarthOrientation earthOrientationOf(const WinpData& in);

/// TT minus UT in seconds at an instant (MJD UTC): by the IERS values if they are in force, else by the leap seconds if
/// there is a table and the instant is not before 1961, else the default of the calendar year. The same for a whole day.
double ttMinusUt(const EarthOrientation& earth, double mjd);

/// Makes a state the current one of a slot: `cstm`, `csr0` to `csv2`. Nothing else changes.
void putCurrentState(const StateVector& state, WinpData& in, int slot);

/// Makes a state the epoch state of a slot: `mjdep`, `epr0` to `epv2`. The elements stay.
void putEpochState(const StateVector& state, WinpData& in, int slot);

/// Stores the elements in a slot, `mjdep` among them. `sgpsat` is left to the caller.
void putElements(const Elements& elements, WinpData& in, int slot);
