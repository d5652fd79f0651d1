#include "view/footprint.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "astro/angles.h"
#include "view/painting.h"
#include "view/stereographic.h"

namespace {

/// The longitudes of the edge without jumps, from the first one on.
std::vector<double> unwound(const std::vector<GeoPlace>& edge)
{
    std::vector<double> lng;
    lng.reserve(edge.size());
    for (const GeoPlace& p : edge)
        lng.push_back(lng.empty() ? p.lng : lng.back() + halfTurns(p.lng - lng.back()));
    return lng;
}

/// Whether the edge goes around a pole.
bool windsAround(const std::vector<double>& lng)
{
    return std::abs(lng.back() + halfTurns(lng.front() - lng.back()) - lng.front()) > 180.0;
}

/// As it lies on one map of the whole world without a seam, and once more to each side. Around a pole the area reaches
/// to the border of the map.
QPainterPath onWorld(const MapFrame& map, const std::vector<GeoPlace>& edge, const GeoPlace& centre)
{
    const std::vector<double> lng = unwound(edge);
    const double shift = halfTurns(lng.front() - map.centmer) - lng.front();
    QPolygonF area;
    for (std::size_t i = 0; i < edge.size(); ++i)
        area << QPointF((lng[i] + shift) * map.xscale + map.centre.x(), map.centre.y() - edge[i].lat * map.yscale);
    const double turn = 360.0 * map.xscale;
    if (windsAround(lng)) {
        const double pole = map.centre.y() - (centre.lat >= 0 ? 90.0 : -90.0) * map.yscale;
        const double end = area.front().x() + (lng.back() > lng.front() ? turn : -turn);
        area << QPointF(end, area.front().y()) << QPointF(end, pole) << QPointF(area.front().x(), pole);
    }
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (const int times : {-1, 0, 1})
        path.addPolygon(area.translated(times * turn, 0));
    return path;
}

/// Points far beyond the equator are brought nearer, outside the map; an area around the far pole is all but the hole
/// that its edge encloses.
QPainterPath onHemisphere(const MapFrame& map, const std::vector<GeoPlace>& edge, const GeoPlace& centre)
{
    constexpr double farthestLatitude = -60.0, wide = 1e4;
    const double north = map.southern() ? -1.0 : 1.0;
    QPolygonF area;
    for (const GeoPlace& p : edge) {
        const double r = stereographic::radius(std::max(north * p.lat, farthestLatitude) * radPerDeg);
        const double lambda = north * (p.lng - map.centmer) * radPerDeg;
        area << QPointF(map.centre.x() - r * std::sin(lambda) * map.xscale,
                        map.centre.y() - r * std::cos(lambda) * map.yscale);
    }
    QPainterPath path;
    path.addPolygon(area);
    if (north * centre.lat < 0 && windsAround(unwound(edge)))
        path.addRect(-wide, -wide, 2.0 * wide, 2.0 * wide);
    return path;
}

}  // namespace

QPainterPath footprint(const MapFrame& map, const std::vector<GeoPlace>& edge, const GeoPlace& centre)
{
    const auto number = [](const GeoPlace& p) { return std::isfinite(p.lat) && std::isfinite(p.lng); };
    constexpr std::size_t fewest = 3;
    if (edge.size() < fewest || !number(centre) || !std::isfinite(map.centmer) || !std::ranges::all_of(edge, number))
        return {};
    return map.hemisphere() ? onHemisphere(map, edge, centre) : onWorld(map, edge, centre);
}

QPainterPath fieldOf(const MapFrame& map)
{
    QPainterPath field;
    field.addRect(mapPicture);
    if (!map.hemisphere())
        return field;
    const double equator = 2.0 * map.xscale;
    QPainterPath disk;
    disk.addEllipse(QPointF(map.centre), equator, equator);
    return field.intersected(disk);
}
