// Times as people type them.
#pragma once

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
