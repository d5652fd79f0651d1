// A first orbit from directions alone.
#pragma once

#include "observing/fit.h"

#include <span>
#include <string>

struct InitialOrbit
{
    Orbit orbit;            // mean elements without drag, the epoch among the observations
    std::string complaint;  // why there is none
};

/// An orbit through three or more observations of any number of passes; only the used ones count.
///
/// Gauss' method on three directions of a short arc, and circles through two, give candidates; each is fitted to its arc
/// and then to more and more observations around it. That with the smallest residuals wins. Of three observations
/// several orbits may remain; it is then the one nearest to a circle.
///
/// @param request  earth, constants and frame; its start and free elements do not count
///
/// A long calculation: its listener may end it, with a complaint as the result.
InitialOrbit initialOrbit(const FitRequest& request, std::span<const SitedObservation> observations);

/// What `initialOrbit` begins with: places (km) and unit vectors in one inertial frame, and times in seconds.
struct DirectionTriple
{
    Vec3 observer[3], direction[3];
    double seconds[3] = {};
};

/// A state in km and km/s.
struct PlaceAndVelocity
{
    Vec3 r, v;
};

/// States at the middle time after Gauss: one for each real root of his equation outside of the Earth.
std::vector<PlaceAndVelocity> gaussStates(const DirectionTriple& triple);

/// States at the middle time on circles through the first and the last direction.
std::vector<PlaceAndVelocity> circleStates(const DirectionTriple& triple);
