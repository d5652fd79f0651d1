// Maneuvers of the prime satellite: a velocity change at an instant, or the thrust of a numerically flown satellite.
#pragma once

#include "record/winp_data.h"

/// Changes the velocity of the prime satellite at `mjd`; from then on its elements are those of the new orbit, with
/// `mjd` as epoch (for an analytic hyperbola the time of perigee).
///
/// @param dv          m/s, clamped to the speed of light either way
/// @param yaw, pitch  degrees: the direction is that of flight, turned first to the right, then upward
/// @return            1 if the new orbit is no ellipse, else 0
///
/// With `aflg` the elements are mean SGP4 elements of an ellipse; a hyperbola clears `aflg` and has its perigee distance
/// (km) in `n0`, and an ellipse without SGP4 elements clears it too. Also dv = 0 renews elements and epoch. ndot, adot, n6dot and bstar stay. Sets `sgpsat` to `noSlot`.
int ExDeltaV(WinpData* in, double dv, double yaw, double pitch);

/// What the user says about a maneuver.
struct Maneuver
{
    double deltv = 0;  // m/s; mm/s^2 for continuous thrust
    double yaw = 0;    // degrees
    double pitch = 0;  // degrees
    bool ionf = false;
    bool suns = false;
    bool epu = false;
};

/// The last maneuver of the prime satellite.
Maneuver lastManeuver(const WinpData& in);

/// Stores a maneuver of the prime satellite. For a numeric one it switches the thrust on or off; everything else is an
/// impulse, which takes place at once and leaves `ionf` off. A thrust beyond 1000 m/s^2 counts as 0.
///
/// @return  1 if an impulse led to an orbit that is no ellipse, else 0
int perform(const Maneuver& maneuver, WinpData* in);
