// Between degrees on the Earth and pixels of a world map: points, coast lines, grid and night.
//
// A point that cannot be shown has an x beyond the width of the display. Values that are no numbers, or beyond any
// range, give such a point or one far outside the picture.
#pragma once

#include <QLine>
#include <QPoint>
#include <vector>

#include "astro/vec3.h"

/// A world map as it is set up for one drawing.
struct MapFrame
{
    int mapprj = 0;      // as in the record: 1 northern, 2 southern hemisphere, otherwise the whole world
    double centmer = 0;  // central meridian, degrees
    QPoint centre;
    double xscale = 0;  // pixels per degree, on hemisphere maps per radius of the sphere
    double yscale = 0;
    int width = 0;  // of the display
    int height = 0;

    bool hemisphere() const { return mapprj == 1 || mapprj == 2; }
    bool southern() const { return mapprj == 2; }
    bool shows(const QPoint& p) const { return p.x() <= width; }
};

/// Degrees.
struct GeoPlace
{
    double lat, lng;
};

/// Latitude of a pixel outside a hemisphere.
constexpr double outsideMap = -100.0;

/// An angle in degrees, brought into -180 to 180 by whole turns; both ends stay.
double halfTurns(double degrees);

QPoint pixelOf(const MapFrame& map, double lat, double lng);

/// The place under a pixel; latitude `outsideMap` outside the hemisphere.
GeoPlace placeAt(const MapFrame& map, const QPoint& p);

/// The coast, without the pieces that cross the edge of the map.
std::vector<QLine> coastLines(const MapFrame& map);

/// The circle around a hemisphere map.
std::vector<QLine> equatorLines(const MapFrame& map);

/// Meridians and parallels of the whole world at multiples of `step` degrees, without those at its poles and at -180.
std::vector<QLine> worldGrid(const MapFrame& map, int step);

/// Meridians every 30 degrees and the parallels at 30 and 60 degrees of a hemisphere.
std::vector<QLine> hemisphereGrid(const MapFrame& map);

/// The direction of the Sun in the mean equator of date, as a unit vector.
Vec3 sunDirection(double mjd);

/// The latitude in degrees at which a meridian crosses the border of day and night.
///
/// @param sun       unit vector of the Sun
/// @param meridian  unit vector of the point of the meridian on the equator, in the same frame
///
/// Napier's analogies on the spherical triangle of pole, Sun and that point.
double terminatorLatitude(const Vec3& sun, const Vec3& meridian);

/// The half degrees of latitude in the dark on one meridian, from the dark pole to the terminator.
struct NightMeridian
{
    double lng;       // degrees
    int first, last;  // half degrees of latitude, first <= last; none in the dark if first > last
};

/// The night on the meridians -180, -179.5, up to 180.
std::vector<NightMeridian> nightMeridians(double mjd);

/// The night of a world map as upright lines: there the half degrees are pixels.
std::vector<QLine> nightColumns(const MapFrame& map, double mjd);

/// The night as the points of every half degree, those on the map only.
std::vector<QPoint> nightPoints(const MapFrame& map, double mjd);
