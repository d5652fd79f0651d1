// The map of the world behind the satellites.

#include "view/vorlix_view.h"

#include <algorithm>
#include <cmath>

#include <QImage>
#include <QPainter>

#include "view/map_geometry.h"
#include "view/map_labels.h"
#include "view/marks.h"
#include "view/painting.h"

namespace {

constexpr double pixelsPerDegree = 2.0;  // of the physical map
constexpr int turnPixels = 720;

/// How far the physical map lies to the left for a central meridian.
int shiftOf(double meridian)
{
    const double c = std::trunc(meridian);
    if (!(c <= 360.0))
        return 0;
    if (c < -180.0)
        return turnPixels / 2;
    return static_cast<int>(pixelsPerDegree * c) + (c < 0 ? turnPixels : 0);
}

/// The night on a clear ground: put in one by one, its hundred thousand points would take most of the time of a map.
QImage nightImage(const MapFrame& map, double mjd, const QColor& colour)
{
    QImage image(721, legendTop, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    auto* const pixels = reinterpret_cast<QRgb*>(image.bits());
    const auto put = [pixels, bounds = image.rect(), night = qPremultiply(colour.rgba())](int x, int y) {
        if (bounds.contains(x, y))
            pixels[y * bounds.width() + x] = night;  // rows of four-byte pixels lie without gaps
    };
    if (map.hemisphere()) {
        for (const QPoint& p : nightPoints(map, mjd))
            put(p.x(), p.y());
    } else {
        for (const QLine& column : nightColumns(map, mjd))
            for (int y = std::min(column.y1(), column.y2()); y <= std::max(column.y1(), column.y2()); ++y)
                put(column.x1(), y);
    }
    return image;
}

}  // namespace

MapFrame VorlixView::mapFrame() const
{
    return {indata->mapprj, indata->centmer, {cenx, ceny}, xscale, yscale, indata->mapw, indata->maph};
}

QPoint VorlixView::PxCoord(double lat, double lng) const
{
    return pixelOf(mapFrame(), lat, lng);
}

void VorlixView::CoordPx(const QPoint& p, double& lat, double& lng) const
{
    const GeoPlace place = placeAt(mapFrame(), p);
    lat = place.lat;
    lng = place.lng;
}

void VorlixView::MapLand(QPainter& painter)
{
    const MapFrame map = mapFrame();
    painter.setPen(colours().coast);
    drawAll(painter, coastLines(map));
    if (!map.hemisphere())
        return;
    painter.setPen(colours().grid);
    drawAll(painter, equatorLines(map));
}

void VorlixView::PlotWorld(QPainter& painter)
{
    const bool physical = indata->mapprj == 3 && indata->phwm;
    if (indata->mpnight)
        drawNight(painter);
    drawGrid(painter);
    const bool coarse = zoom > 1.0;  // then the picture of the Earth is blurred
    if (!physical || indata->mpnight || coarse)
        MapLand(painter);
    drawObserver(painter);
    painter.setFont(nameFont());
    writeLabels(painter, labelsOfGrid(), colours().labels, colours().plate);
}

/// Degrees beside the lines of a readable map.
std::vector<MapLabel> VorlixView::labelsOfGrid() const
{
    const bool grid = !indata->skymap && !diskWanted() && indata->mgrid != 0;
    return readable && grid ? gridLabels(mapFrame()) : std::vector<MapLabel>();
}

void VorlixView::drawNight(QPainter& painter)
{
    painter.drawImage(0, 0, nightImage(mapFrame(), indata->mjd, colours().night));
}

void VorlixView::drawGrid(QPainter& painter)
{
    const MapFrame map = mapFrame();
    painter.setPen(colours().grid);
    if (indata->mgrid == 0) {
        painter.drawLine(rightBorder);
        return;
    }
    if (map.hemisphere()) {
        drawAll(painter, hemisphereGrid(map));
        return;
    }
    if (indata->mgrid == 2) {
        drawAll(painter, worldGrid(map, 10));
        painter.setPen(colours().strongLine);
    }
    drawAll(painter, worldGrid(map, 30));
}

void VorlixView::drawObserver(QPainter& painter)
{
    const QPoint p = PxCoord(indata->lat, indata->lng);
    if (p.x() > indata->mapw)
        return;
    fillWith(painter, colours().observer);
    painter.drawEllipse(boxAbout(p, 2));
    painter.setBrush(Qt::NoBrush);
}

void VorlixView::drawPhysicalMap(QPainter& painter)
{
    painter.setRenderHint(QPainter::SmoothPixmapTransform, scale != 1.0);
    if (indata->centmer == 0) {
        painter.drawPixmap(0, 0, earthPix);
        return;
    }
    const int shift = shiftOf(indata->centmer);
    painter.drawPixmap(-shift, 0, earthPix);
    painter.drawPixmap(turnPixels - shift, 0, earthPix);
}
