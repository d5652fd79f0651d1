#include "view/map_labels.h"

#include <algorithm>
#include <cstdlib>

#include <QFontMetrics>
#include <QPainter>

#include "view/map_geometry.h"
#include "view/painting.h"
#include "view/pixel.h"
#include "view/sky_geometry.h"

namespace {

constexpr int lineStep = 30;  // degrees
constexpr double ringElevations[] = {30.0, 60.0};

QString withDegree(int degrees, const QString& side = {})
{
    return QString::number(degrees) + QChar(0xB0) + side;
}

QString longitudeText(int lng)
{
    const bool none = lng == 0 || std::abs(lng) == 180;
    return withDegree(std::abs(lng), none ? QString() : lng > 0 ? QStringLiteral("E") : QStringLiteral("W"));
}

QString latitudeText(int lat)
{
    return withDegree(std::abs(lat), lat == 0 ? QString() : lat > 0 ? QStringLiteral("N") : QStringLiteral("S"));
}

/// Longitudes along the lower border, latitudes along the left one.
std::vector<MapLabel> worldLabels(const MapFrame& map)
{
    std::vector<MapLabel> labels;
    for (int lng = lineStep - 180; lng <= 180; lng += lineStep)
        labels.push_back({{pixelOf(map, 0.0, lng).x(), mapPicture.bottom()}, longitudeText(lng)});
    for (int lat = lineStep - 90; lat < 90; lat += lineStep)
        labels.push_back({{0, pixelOf(map, lat, 0.0).y()}, latitudeText(lat)});
    return labels;
}

/// Longitudes on a parallel near the border, latitudes between two meridians.
std::vector<MapLabel> hemisphereLabels(const MapFrame& map)
{
    constexpr double besideBorder = 18.0, besideMeridian = 15.0;
    const int north = map.southern() ? -1 : 1;
    std::vector<MapLabel> labels;
    for (int lng = lineStep - 180; lng <= 180; lng += lineStep)
        labels.push_back({pixelOf(map, north * besideBorder, lng), longitudeText(lng)});
    for (int lat = lineStep; lat < 90; lat += lineStep)
        labels.push_back({pixelOf(map, north * lat, map.centmer + besideMeridian), latitudeText(north * lat)});
    return labels;
}

/// The lowest point of an azimuth at which a label fits into the picture.
QPoint lowestPlace(const SkyFrame& sky, double az)
{
    constexpr int roomX = 14, roomY = 8;
    const QRect room = mapPicture.adjusted(roomX, roomY, -roomX, -roomY);
    const double highest = sky.zenith() ? 45.0 : 5.0;
    for (double el = 4.0; el <= highest; el += 1.0)
        if (const QPoint p = pixelOf(sky, el, az); room.contains(p))
            return p;
    return {-1, -1};
}

}  // namespace

std::vector<MapLabel> gridLabels(const MapFrame& map)
{
    return map.hemisphere() ? hemisphereLabels(map) : worldLabels(map);
}

std::vector<QLine> altitudeRings(const SkyFrame& sky)
{
    std::vector<QLine> lines;
    for (const double el : ringElevations) {
        const auto ring = ringOfLines([&](double az) { return pixelOf(sky, el, az); }, sky.width, sky.height);
        lines.insert(lines.end(), ring.begin(), ring.end());
    }
    return lines;
}

std::vector<MapLabel> skyLabels(const SkyFrame& sky)
{
    std::vector<MapLabel> labels;
    for (const double el : ringElevations)
        labels.push_back({pixelOf(sky, el, sky.zenith() ? 45.0 : sky.skaz + 15.0), withDegree(static_cast<int>(el))});
    for (int az = 0; az < 360; az += lineStep)
        if (az % 90 != 0)
            labels.push_back({lowestPlace(sky, az), QString("%1").arg(az, 3, 10, QLatin1Char('0'))});
    std::erase_if(labels, [](const MapLabel& label) { return !mapPicture.contains(label.centre); });
    return labels;
}

void writeLabels(QPainter& painter, const std::vector<MapLabel>& labels, const QColor& pen, const QColor& plate)
{
    painter.save();
    painter.setPen(pen);
    painter.setBackground(plate);
    painter.setBackgroundMode(Qt::OpaqueMode);
    const QFontMetrics metrics = painter.fontMetrics();
    const int ascent = metrics.ascent(), height = metrics.height();
    for (const MapLabel& label : labels) {
        const int width = metrics.horizontalAdvance(label.text);
        const int x = std::clamp(label.centre.x() - width / 2, 1, mapPicture.right() - 1 - width);
        const int y = std::clamp(label.centre.y() - height / 2, 1, mapPicture.bottom() - 1 - height);
        painter.drawText(x, y + ascent, label.text);
    }
    painter.restore();
}
