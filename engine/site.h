// Where an observer stands.
#pragma once

struct WinpData;

/// An observer on the ellipsoid. Any number does: angles are not reduced, senseless ones are clamped.
struct Site
{
    double lat = 0;     // degrees, north positive
    double lng = 0;     // degrees, east positive
    double height = 0;  // metres
};

/// The observer of a record.
Site siteOf(const WinpData& in);

/// How the satellites are looked at.
struct View
{
    Site observer;
    double equinox = 0;  // year of the equinox of right ascension and declination; 0: true equator of date
    int prime = 0;       // slot of the satellite for which magnitude, angles and distances of events are found
    int events = 0;      // the kind of events that a search looks for, as `iridflg`
};

/// The view of a record: `lat`, `lng`, `height`, `yrepoch`, `prs` and `iridflg`.
View viewOf(const WinpData& in);
