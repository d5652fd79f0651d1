// orbit/flight.h: the numeric propagator on values: integrates a state to a wanted time.
#pragma once

#include "orbit/force_model.h"
#include "orbit/orbit.h"

#include <optional>

/// Where a flight ended.
struct Arrival
{
    bool found = false;                  // a state came out; otherwise `state` is senseless
    bool moved = false;                  // false: the state of the wanted time was there, nothing was integrated
    StateVector state;                   // at most a millisecond from the wanted time, if the tolerance can be met
    SunMoon bodies;                      // of the last step
    std::optional<double> moonDistance;  // from its centre, metres; 0 for a start nearer to the Earth, empty unmoved
};

/// The state of an orbit at t.
///
/// @param t          MJD, UTC
/// @param sun, moon  Earth radii, true equator of date, at t
///
/// Starts from the current state, or from the epoch state where that is nearer and the jump above 20 minutes, and goes
/// forward or backward. No state comes out of numbers that are not finite, of a jump of more than 100 years, or
/// after the listener of a `LongCalculation` has ended it.
Arrival fly(const Orbit& orbit, double t, const Vec3& sun, const Vec3& moon);

/// The elements of an orbit after the epoch has moved to a state: the osculating ones, with the perigee distance as
/// `n0` from e = 1 on. What a state does not tell (drag and rates) stays.
Elements elementsAt(const StateVector& state, const Elements& before);
