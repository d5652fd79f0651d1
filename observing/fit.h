// Mean elements from observations: a differential correction through SGP4 by weighted least squares.
#pragma once

#include "observing/sight.h"

#include <array>
#include <span>
#include <string>
#include <vector>

/// The elements that can be corrected, in this order: degrees, the eccentricity plain, rev/day, per Earth radius.
namespace fitted {
enum Element
{
    inclination,
    node,
    eccentricity,
    perigee,
    anomaly,
    meanMotion,
    drag,
    count
};
}

struct FitRequest
{
    Orbit start;  // its elements are where the search begins; the epoch stays
    std::array<bool, fitted::count> free{true, true, true, true, true, true, true};
    EarthOrientation earth;
    bool againstStars = true;  // right ascensions of a named equinox were measured against catalogue stars
};

/// Observed minus computed, of one observation.
struct FitResidual
{
    double along = 0;                        // degrees on the sky, in the direction of the motion
    double across = 0;                       // degrees, to the left of it
    double seconds = 0;                      // along, as time: positive if the satellite was ahead
    double sigmaAlong = 0, sigmaAcross = 0;  // degrees, as weighted
};

struct FitResult
{
    bool converged = false;
    std::string complaint;  // why nothing could be fitted
    Orbit orbit;
    std::vector<FitResidual> residuals;         // one for each observation
    double rms = 0;                             // of the used residuals over their standard errors
    std::array<double, fitted::count> sigma{};  // formal errors; 0 for elements that were held
    std::array<std::array<double, fitted::count>, fitted::count>
        correlation{};                  // of the errors; 0 where one was held
    std::vector<std::string> warnings;  // elements that the observations do not determine
};

/// The direction in which the start of the request shows a satellite, in the frame of `Sight::shown`, with light time.
bool observedDirection(const FitRequest& request, const SitedObservation& sited, double mjd, Vec3& direction);

/// A long calculation: its listener may end it, with a complaint as the result.
FitResult fitElements(const FitRequest& request, std::span<const SitedObservation> observations);
