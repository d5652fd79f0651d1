// Instants as texts of ISO 8601, whatever the locale.
#pragma once

#include <string>

/// UTC with milliseconds: "2018-01-20T17:04:59.123Z". The instant is a Modified Julian Date, rounded to the
/// millisecond; dates are Gregorian throughout, and one outside the years 1 to 9999 is clamped to them.
std::string isoTime(double mjd);

/// The same with microseconds and without the Z, as ephemeris files have it.
std::string isoMicroseconds(double mjd);

/// Whole seconds of a civil time: "2018-01-20T18:04:59+01:00", with Z for a zone of 0.
///
/// @param zoneHours  east positive, shown in whole minutes
std::string isoCivil(double mjd, double zoneHours);

/// UTC in the basic form with whole seconds: "20180120T170459Z".
std::string isoBasic(double mjd);
