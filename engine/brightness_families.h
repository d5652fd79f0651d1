// Observed brightness of families of satellites, from papers and lists of observers.
#pragma once

#include "engine/brightness.h"

#include <array>

/// A family at 1000 km. Launches are year * 1000 + number within the year, of the international designator.
struct BrightnessFamily
{
    const char* nameStart;
    const char* namePart;  // somewhere in the name as well; empty for any
    int firstLaunch, lastLaunch;
    const char* family;
    double magnitude;
    double phaseDeg;  // that the magnitude belongs to; `meanPhase` for a mean over those observed
    double spread;    // scatter of single observations; `unknownSpread` where none is published
    const char* source;
};

constexpr double meanPhase = -1.0;
constexpr int anyLaunch = 9999999;

// The first row that fits counts. Magnitudes of objects at their working height in the zenith, the Sun 18 degrees below the
// horizon, are brought to 1000 km from 550 km: 5 log10(1000/550) = 1.30 magnitudes. Families whose magnitude at a known
// range is not published have no row: OneWeb, BlueWalker 3, Amazon Leo, Guowang, Iridium NEXT, Tiangong, ISS and Hubble.
// From the launch of 2020-08-07 on Starlink satellites carry visors; when those without came is not published, and
// their magnitude, 6.80 at 72 degrees, lies within the spread.
// clang-format off
inline constexpr std::array brightnessFamilies{
    BrightnessFamily{"STARLINK", "[DTC]", 2023026, anyLaunch, "Starlink Direct to Cell", 6.47, meanPhase, unknownSpread,
                     "arXiv 2502.03651"},
    BrightnessFamily{"STARLINK", "", 2019029, 2020054, "Starlink original", 6.00, 72.0, unknownSpread,
                     "arXiv 2210.17268"},
    BrightnessFamily{"STARLINK", "", 2020055, 2023025, "Starlink VisorSat", 6.84, meanPhase, 1.05,
                     "arXiv 2109.07345"},
    BrightnessFamily{"STARLINK", "", 2023026, anyLaunch, "Starlink Mini", 7.87, meanPhase, unknownSpread,
                     "arXiv 2306.06657"},
    BrightnessFamily{"QIANFAN", "", 2024001, anyLaunch, "Qianfan", 5.24, meanPhase, unknownSpread,
                     "arXiv 2505.07194"},
    BrightnessFamily{"BLUEBIRD", "", 2024001, 2024999, "BlueBird", 3.84, meanPhase, unknownSpread,
                     "arXiv 2505.05820"},
    BrightnessFamily{"SEASAT 1", "", 1978001, 1978999, "Seasat 1", 3.90, 90.0, unknownSpread,
                     "SeeSat-L, 2004-09-12, Molczan"},
};
// clang-format on
