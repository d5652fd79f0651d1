// The satellites that fit a sighting, as rows of a list.
#pragma once

#include "exports/lists.h"
#include "record/winp_data.h"

#include <optional>
#include <vector>

/// Where and when something was seen.
struct SeenPlace
{
    bool amongStars = false;  // the place is right ascension and declination of date
    double first = 0;         // azimuth in degrees, or right ascension packed as HH.MMSS
    double second = 0;        // elevation in degrees, or declination packed as DD.MMSS
    double time = 0;          // MJD UTC
};

/// What was seen, once or several times, and how a satellite may miss it.
struct SightingQuery
{
    std::vector<SeenPlace> places;
    double radius = 2;                // degrees
    std::optional<double> direction;  // of the motion, degrees from upward to the right
    double halfWidth = 0;             // days; how early or late a satellite may be, at all places by the same time
    bool asReported = false;          // as the search of the window: in its steps, in the first pass alone
};

/// A satellite that fits.
struct MatchFound
{
    double separation = 0;  // at its nearest, radians; of several places the greatest
    ListRow row;            // under `matchColumns`
};

/// Whether the satellite of slot 0 fits: visible by the conditions of the record and near enough at each place. The row
/// has the first of them. Uses `satpos`.
std::optional<MatchFound> matchOf(WinpData& in, const SightingQuery& sighting);
