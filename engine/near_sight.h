// Elevations at instants close to one another, from states of the model. For the search for the maximum of a pass.
#pragma once

#include "engine/position_stages.h"

/// The frame of an instant, taken for those near it: what changes in it but for the turn of the Earth is in the doubt.
class NearSight
{
public:
    /// At the instant of a scene with its position.
    explicit NearSight(const Scene& s);

    /// The sine of an elevation. The whole position gives one that is not farther away than the doubt.
    struct Sine
    {
        double value, doubt;
    };

    /// Of a state of the analytic model, km, at an instant within `goodDays`.
    Sine sineAt(double mjd, const Vec3& state) const;

    static constexpr double goodDays = 150.0 / 86400.0;

private:
    double anchor;
    Mat3 toTrue;  // from the frame of the model to the true equator of date
    double cosSidereal, sinSidereal;
    double cosLat, sinLat;
    double fromAxis, fromEquator;  // of the observer, km
};
