// Satellites that cross a field of the sky during an exposure.
#pragma once

#include "engine/brightness.h"
#include "observing/sight.h"
#include "record/winp_data.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

/// A circle or a frame in the sky.
struct SkyField
{
    SkyAngles angles = SkyAngles::equatorial;  // of the centre: among the stars, or fixed above the ground
    double first = 0, second = 0;              // degrees
    double equinox = 2000;                     // year; 0: of date
    double radius = 1;                         // degrees; of a frame without meaning
    double width = 0, height = 0;              // degrees, of a frame; 0: a circle
    double angle = 0;  // of its upper side from north (or from the zenith) through east, degrees
};

/// Where a direction stands in a field: degrees to the east and north of the centre, or to greater azimuths and upward,
/// in the plane that touches the sky there.
struct FieldPlace
{
    double x = 0, y = 0;
};

struct FieldQuery
{
    SkyField field;
    double from = 0, to = 0;  // MJD UTC, at most a day apart
    Site site;
    EarthOrientation earth;
    bool sunlitOnly = false;
};

/// One satellite on its way through a field.
struct FieldCrossing
{
    std::string name, designator;
    int norad = 0;
    double entry = 0, exit = 0;  // MJD UTC, to a millisecond; the ends of the exposure cut them
    FieldPlace entryPlace, exitPlace;
    double angle = 0;      // of the motion from north (or from the zenith) through east, degrees
    double rate = 0;       // degrees per second
    double nearest = 0;    // least distance from the centre, degrees
    double elevation = 0;  // degrees, in the middle
    double range = 0;      // km
    bool sunlit = false;   // in the middle
    std::optional<double> magnitude;
};

/// The crossings of the satellite of a slot, above the horizon; the settings of the record tell refraction apart from
/// which it counts. Most satellites are settled by one or two positions: within the time that the fastest way to the
/// field takes nothing is asked.
std::vector<FieldCrossing> crossingsOf(WinpData* in, int slot, const FieldQuery& query, const BrightnessBook& book);

/// Those of every entry of `tlename`, by time of entry. The record stays as it is but for `sgpsat`.
///
/// @return  nothing if the element file cannot be opened
std::optional<std::vector<FieldCrossing>> fieldCrossings(WinpData* in, const FieldQuery& query,
                                                         const BrightnessBook& book);

struct FreeInterval
{
    double from = 0, to = 0;
};

/// The intervals of the exposure in which no sunlit satellite is in the field, from a second on.
std::vector<FreeInterval> freeIntervals(const FieldQuery& query, std::span<const FieldCrossing> crossings);
