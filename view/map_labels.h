// What a readable map or sky says beside its lines: degrees on the grid, azimuths, and rings of altitude.
#pragma once

#include <QLine>
#include <QPoint>
#include <QString>
#include <vector>

class QColor;
class QPainter;
struct MapFrame;
struct SkyFrame;

/// A short text about a point.
struct MapLabel
{
    QPoint centre;
    QString text;
};

/// Longitudes and latitudes at the lines that are 30 degrees apart.
std::vector<MapLabel> gridLabels(const MapFrame& map);

/// Rings at 30 and 60 degrees of elevation.
std::vector<QLine> altitudeRings(const SkyFrame& sky);

/// The elevations of the rings, and as three digits the azimuths between the letters of the compass.
std::vector<MapLabel> skyLabels(const SkyFrame& sky);

/// Writes the labels on plates, each moved as far as it takes to stand whole inside the map.
void writeLabels(QPainter& painter, const std::vector<MapLabel>& labels, const QColor& pen, const QColor& plate);
