// The figure of the Earth.
#pragma once

/// Equatorial radius of the Earth. Formulas that came with another value keep theirs beside them.
constexpr double earthRadiusKm = 6378.137;
