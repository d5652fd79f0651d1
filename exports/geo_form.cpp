#include "exports/geo_form.h"

#include "exports/rows.h"

#include <cmath>

namespace {

constexpr int angleDecimals = 6;
constexpr int metreDecimals = 1;

using Piece = std::vector<GeoPoint>;

std::string position(const GeoPoint& p)
{
    return '[' + fixedNumber(p.longitude, angleDecimals) + ", " + fixedNumber(p.latitude, angleDecimals) + ", " +
           fixedNumber(1000.0 * p.heightKm, metreDecimals) + ']';
}

std::string positions(const Piece& piece)
{
    std::string text = "[";
    for (const GeoPoint& p : piece)
        text += (text.size() > 1 ? ", " : "") + position(p);
    return text + ']';
}

std::string feature(const char* type, const std::string& coordinates, const std::string& properties)
{
    return std::string(R"({"type": "Feature", "geometry": {"type": ")") + type + R"(", "coordinates": )" +
           coordinates + "}, \"properties\": " + properties + '}';
}

/// The point between two neighbours where the longitude reaches 180 degrees on the side of the first one.
GeoPoint atDateLine(const GeoPoint& from, const GeoPoint& to)
{
    const double side = from.longitude < 0.0 ? -180.0 : 180.0;
    const double ahead = to.longitude + 2.0 * side;
    const double way = ahead - from.longitude;
    const double share = way != 0.0 ? (side - from.longitude) / way : 0.0;
    return {from.latitude + share * (to.latitude - from.latitude), side,
            from.heightKm + share * (to.heightKm - from.heightKm)};
}

std::vector<Piece> cutAtDateLine(const std::vector<GeoPoint>& points)
{
    std::vector<Piece> pieces(1);
    for (const GeoPoint& p : points) {
        Piece& piece = pieces.back();
        if (!piece.empty() && std::abs(p.longitude - piece.back().longitude) > 180.0) {
            GeoPoint edge = atDateLine(piece.back(), p);
            piece.push_back(edge);
            edge.longitude = -edge.longitude;
            pieces.push_back({edge, p});
        } else {
            piece.push_back(p);
        }
    }
    return pieces;
}

}  // namespace

std::string geoHead()
{
    return "{\"type\": \"FeatureCollection\", \"features\": [\n";
}

std::string geoTail()
{
    return "]}\n";
}

std::string geoPoint(const GeoPoint& point, const std::string& properties)
{
    return feature("Point", position(point), properties);
}

std::string geoLine(const std::vector<GeoPoint>& points, const std::string& properties)
{
    if (points.size() == 1)
        return geoPoint(points[0], properties);
    const std::vector<Piece> pieces = cutAtDateLine(points);
    if (pieces.size() == 1)
        return feature("LineString", positions(pieces[0]), properties);
    std::string text = "[";
    for (const Piece& piece : pieces)
        text += (text.size() > 1 ? ", " : "") + positions(piece);
    return feature("MultiLineString", text + ']', properties);
}
