// The satellites that fit a sighting, as rows of a list.
#pragma once

#include "exports/lists.h"
#include "record/winp_data.h"

#include <optional>

/// What was seen: where, when and which way it went.
struct SightingQuery
{
    bool amongStars = false;          // the place is right ascension and declination in the frame of the record
    double first = 0;                 // azimuth in degrees, or right ascension packed as HH.MMSS
    double second = 0;                // elevation in degrees, or declination packed as DD.MMSS
    double radius = 2;                // degrees
    std::optional<double> direction;  // of the motion, degrees from upward to the right
    double time = 0;                  // MJD UTC
    double from = 0, until = 0;       // within which a satellite may have been there
};

/// A satellite that fits.
struct MatchFound
{
    double separation = 0;  // at its nearest, radians
    ListRow row;            // under `matchColumns`
};

/// Whether the satellite of slot 0 fits, by the conditions of the record. Uses `satpos`.
std::optional<MatchFound> matchOf(WinpData& in, const SightingQuery& sighting);
