// Whether a satellite can be near a place in the sky. For searches.
#pragma once

#include "engine/pass_bounds.h"
#include "engine/position_stages.h"

/// Cones around directions of the observer's sky, which turn with the Earth.
class SkyBounds
{
public:
    /// Of no observer; nothing is settled.
    SkyBounds() = default;

    /// At the instant of a scene.
    explicit SkyBounds(const Scene& s);

    /// For how many days around an instant the satellite stays farther than an angle from azimuth and elevation, all
    /// radians; 0 where that is not settled.
    ///
    /// The distance of the guide orbit from a cone changes by no more than the way that it moves in the frame of the
    /// observer. What it has over the distance of the model from the guide, over the greatest speed, is the time.
    double staysOutside(double azimuth, double elevation, double angle, double t, PassBounds& bounds) const;

private:
    bool known = false;
    double anchor = 0, sidereal = 0;
    double cosLat = 1, sinLat = 0;
    double fromAxis = 0, fromEquator = 0;  // of the observer, km
};
