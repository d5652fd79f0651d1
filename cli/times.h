// Times as people type them, and the night at a place.
#pragma once

#include "exports/lists.h"

#include <optional>
#include <string>

/// Hours of a zone, east positive: "Z", "utc", "local", "+01:00", "1", "-3.5" or a name as "Europe/Vienna", whose
/// offset is that of `mjd` (UTC). Nothing for any other text.
std::optional<double> zoneHoursOf(const std::string& text, double mjd);

/// The instant that a text names, MJD UTC, within the years 1900 to 2199: "now", or ISO 8601 as 2018-01-20,
/// 2018-01-20T17:04, 2018-01-20T17:04:59.5Z, 2018-01-20T18:04:59+01:00. Without a zone of its own it is civil time of
/// `zoneHours`.
std::optional<double> instantOf(const std::string& text, double zoneHours, double now);

/// The clock of the system, MJD UTC.
double systemMjd();

/// A night, MJD UTC.
struct Night
{
    double sunset, sunrise;
};

/// The night in which `t` lies, or else the next one, by the upper limb of the Sun at the horizon (-0.833 degrees), to a
/// second. Where the Sun stays down, the 24 hours from `t` on; nothing where it stays up that long.
std::optional<Night> nightAt(double t, const ListSite& site);

/// Elevation of the Sun's centre, degrees, without refraction.
double sunElevation(double mjd, const ListSite& site);
