// The lists that leave the program: their columns, and what a calendar makes of their rows.
#pragma once

#include "exports/calendar_form.h"
#include "exports/rows.h"

/// How a satellite is called in a list.
struct SatelliteName
{
    std::string name;  // UTF-8, without blanks at its end
    long long number = 0;
    std::string designator;  // "1998-067A", or empty
};

/// Where an observer stands: degrees, metres.
struct ListSite
{
    std::string name;
    double latitude = 0, longitude = 0, height = 0;
};

/// Three instants of a pass: start, maximum and end. Times are MJD UTC, angles degrees.
struct PassTimes
{
    double time[3], elevation[3], azimuth[3];
};

ListColumns passColumns();
ListRow passRow(const SatelliteName& satellite, const PassTimes& pass);

/// The same with the brightest moment of each pass.
ListColumns brightPassColumns();
/// When a pass is brightest, and how well that is known.
struct PassBrightness
{
    double time = 0, magnitude = 0, spread = 0;
    std::string from;  // "list", "length", "radar class" or the name of a family
};
ListRow brightPassRow(ListRow pass, const PassBrightness& brightness);

/// Events: transits, occultations and flares.
ListColumns eventColumns();
/// Times in which two satellites see each other.
ListColumns contactColumns();
/// Places in the sky.
ListColumns lookColumns();
/// Sub-satellite points.
ListColumns trackColumns();
/// Positions and velocities.
ListColumns stateColumns();
/// Satellites that fit a sighting.
ListColumns matchColumns();

/// The calendar's entry for a row of passes, events or contacts. Its identifier is made of kind, satellite, minute of
/// the maximum (or of the start) and place.
CalendarEvent calendarEventOf(ListColumns columns, const ListRow& row, const char* kind, const ListSite& site);
