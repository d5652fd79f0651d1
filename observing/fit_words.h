// What a fit has found, in words for people.
#pragma once

#include "observing/fit.h"

struct ElementWords
{
    const char* name;
    const char* unit;
    int decimals;
};

// clang-format off
/// In the order of the fit.
inline constexpr std::array elementWords{
    ElementWords{"inclination", "deg", 5},
    ElementWords{"node", "deg", 5},
    ElementWords{"eccentricity", "", 8},
    ElementWords{"perigee", "deg", 4},
    ElementWords{"anomaly", "deg", 4},
    ElementWords{"motion", "rev/day", 8},
    ElementWords{"drag", "1/R", 8},
};
// clang-format on

/// The values that a fit can change, in its order.
std::array<double, fitted::count> fittedValues(const Elements& elements);

/// Rms, old and new values with their formal errors, correlations and warnings; a line each.
std::string fitSummary(const FitRequest& request, const FitResult& fit);
