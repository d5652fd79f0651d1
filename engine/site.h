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
