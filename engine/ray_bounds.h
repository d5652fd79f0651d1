// Whether a transit or an occultation can come near the observer. For the engine alone.
#pragma once

#include "engine/pass_bounds.h"
#include "engine/position_stages.h"

/// The line from the observer to Sun, Moon or a place among the stars. A satellite far from it has its ground point far
/// from the observer. The proof stands in ray_bounds.md.
class RayBounds
{
public:
    /// At the instant of a scene, of which `transitTarget` has what it needs.
    explicit RayBounds(const Scene& s);

    /// Whether no ground point can be within a distance of the observer, km, from the instant of the scene on until
    /// another one. False: nothing is known.
    bool staysFar(double until, double distanceKm, PassBounds& bounds) const;

private:
    /// How far from the line the satellite is.
    PassBounds::Estimate fromLine(double t, PassBounds& bounds) const;
    /// No ground point within a distance of the observer lets the satellite be farther than this from the line, km.
    double reachKm(double distanceKm) const;

    double anchor;
    double sidereal;
    double fromAxis, fromEquator;  // of the observer, km
    double heightKm;
    bool direction;        // the target is one, not a body
    Vec3 target;           // km, or a unit vector
    double turnRadPerDay;  // of the target at most
};
