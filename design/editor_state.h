// What the element editor makes of a state vector, of a longitude above the equator, and the way back.
#pragma once

#include "astro/vec3.h"
#include "orbit/mean_elements.h"
#include "orbit/orbit.h"

namespace editor {

/// Place and velocity in the mean equator and equinox of date.
struct State
{
    Vec3 r{0, 0, 0};  // km
    Vec3 v{0, 0, 0};  // km/s
};

/// The state of two bodies at the epoch of the elements. A hyperbola stands at its perigee; a value of `a` that no
/// hyperbola has counts as -1000 km.
State stateOf(const Elements& elements);

/// Whether the analytic model has elements for a state.
[[nodiscard]] bool hasSgp4Elements(const State& state);

/// The elements of a state at `epoch`.
///
/// Without `sgp4` they are osculating, and `n0` is 0: it follows from the axis. With it an ellipse for which the
/// analytic model has elements gets those, except for its axis. From an eccentricity of 1 on the epoch is the time of perigee. The rates
/// and the drag term are 0.
///
/// @param model  what the analytic elements shall return the state by, if the inversion is to be exact
Elements elementsOf(const State& state, double epoch, bool sgp4, const AnalyticModel& model = {});

/// The elements of a satellite that stands above this longitude (degrees, east positive) at the epoch (UT1, MJD).
Elements geostationary(double longitude, double epoch);

}  // namespace editor
