// How an observer sees: the frame of an observation at its instant, and directions into it and out of it.
#pragma once

#include "astro/mat3.h"
#include "engine/site.h"
#include "observing/observation.h"
#include "orbit/orbit.h"

/// An observation with the place it was made from.
struct SitedObservation
{
    Observation observation;
    Site site;
    bool used = true;  // false: it has a residual, but no weight
};

/// The Earth and an observer at an instant. Inside, vectors have the true equator and mean equinox of date, the frame of
/// SGP4.
class Sight
{
public:
    /// @param againstStars  right ascensions of a named equinox were measured against catalogue stars: the annual
    ///                      aberration is taken off, which the stars share and the satellite does not, since it moves
    ///                      with the Earth. Diurnal aberration is the same for both.
    Sight(const EarthOrientation& earth, const SitedObservation& sited, double mjd, bool againstStars);

    /// The same observer at another instant, within a day: precession and nutation stay.
    Sight at(double mjd) const;

    /// MJD, UTC.
    double instant() const { return when; }
    /// km.
    const Vec3& observer() const { return place; }
    /// The unit vector upward.
    const Vec3& zenith() const { return up; }

    /// The unit vector of a line from the observer, in the frame of the observation: equator and equinox of its year, the
    /// true ones of date, or the horizon (south, east, zenith).
    Vec3 shown(const Vec3& line) const;
    /// The reverse.
    Vec3 inward(const Vec3& direction) const;

private:
    double when;
    Vec3 place, up;
    bool turns = false;  // the frame of the observation, with the Earth
    Mat3 first, second;
    Vec3 aberration;  // between the two, in parts of the speed of light
};

/// The observed direction in the frame of the observation. What was refracted is so no more.
Vec3 observedAs(const Observation& observation);
