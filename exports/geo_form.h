// Points and lines of the Earth's surface: GeoJSON, RFC 7946.
#pragma once

#include <string>
#include <vector>

/// A place, degrees; north and east are positive. Heights are km.
struct GeoPoint
{
    double latitude, longitude, heightKm;
};

std::string geoHead();
std::string geoTail();

/// A feature without its separator.
///
/// @param properties  a JSON object
std::string geoPoint(const GeoPoint& point, const std::string& properties);

/// The line through the points in their order. Where it crosses the date line it is cut there, so that each piece
/// stays within -180 to 180 degrees; a single point gives a point.
std::string geoLine(const std::vector<GeoPoint>& points, const std::string& properties);
