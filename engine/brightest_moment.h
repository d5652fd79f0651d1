// When a pass is brightest.
#pragma once

#include "engine/brightness.h"
#include "engine/pass.h"

#include <optional>

struct WinpData;
struct SatPosData;

/// An instant of a pass.
struct BrightMoment
{
    double mjd = 0;  // UTC
    double magnitude = 0;
    double azimuth = 0, elevation = 0;  // degrees
    double sunElevation = 0;            // at the observer
};

/// The brightest instant of a pass of slot `isat`, to a sixtieth of its length; nothing if the Sun never shines on it,
/// or if it stays fainter than `faintest`. Works on the position record; a numeric orbit flies on.
std::optional<BrightMoment> brightestMoment(WinpData* in, SatPosData* sp, int isat, const Pass& pass,
                                            const StandardMagnitude& standard, double faintest);

/// The magnitude of slot `isat` at one instant; nothing in the shadow.
std::optional<double> magnitudeAt(WinpData* in, SatPosData* sp, int isat, double mjd,
                                  const StandardMagnitude& standard);
