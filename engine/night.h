// The night at a place.
#pragma once

#include "engine/site.h"

#include <optional>

/// A night, MJD UTC.
struct Night
{
    double sunset, sunrise;
};

/// The night in which `t` lies, or else the next one, by the upper limb of the Sun at the horizon (-0.833 degrees), to a
/// second. Where the Sun stays down, the 24 hours from `t` on; nothing where it stays up that long.
std::optional<Night> nightAt(double t, const Site& site);

/// Where a body stands in the sky, degrees; the elevation is without refraction.
struct SkyPlace
{
    double azimuth = 0, elevation = 0;
};

/// The Sun's centre.
SkyPlace sunPlace(double mjd, const Site& site);

/// The Moon's centre, and its phase angle at the Earth: 0 full, 180 new.
struct MoonPlace : SkyPlace
{
    double phaseDeg = 0;
};

MoonPlace moonPlace(double mjd, const Site& site);
