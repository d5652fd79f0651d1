// The disk of the Sun or the Moon, for transits.

#include "view/vorlix_view.h"

#include <cmath>

#include <QPainter>

#include "astro/angles.h"
#include "engine/satpos_data.h"
#include "view/disk_geometry.h"
#include "view/marks.h"
#include "view/painting.h"
#include "view/pixel.h"

namespace {

constexpr int transitOfSun = 1;  // value of occflg

Horizontal sunOf(const SatPosData& sp)
{
    return {sp.osunaz, sp.osunel * radPerDeg};
}

Horizontal moonOf(const SatPosData& sp)
{
    return {sp.omoonaz, sp.omoonel};
}

void joinAll(QPainter& painter, const std::vector<QPoint>& points, std::size_t count)
{
    for (std::size_t i = 1; i < count; ++i)
        painter.drawLine(points[i - 1], points[i]);
}

/// The lit half of the limb is a line, the dark one is dotted; near new Moon all of it is.
void drawMoon(QPainter& painter, const DiskFrame& disk, double radius, const QColor& darkLimb)
{
    constexpr double newMoon = -0.995;
    constexpr std::size_t litPoints = 37;  // 0 to 180 degrees
    const bool lit = satps->moonph > newMoon;
    const double start = litStart(sunOf(*satps), moonOf(*satps));
    const std::vector<QPoint> limb = limbPoints(disk, radius, start);
    if (lit)
        joinAll(painter, limb, litPoints);

    const QColor base = painter.pen().color();
    painter.setPen(darkLimb);
    for (std::size_t i = lit ? litPoints : 1; i < limb.size(); ++i)
        painter.drawPoint(limb[i]);
    painter.setPen(base);

    if (!lit)
        return;
    const std::vector<QPoint> terminator = terminatorPoints(disk, radius, start, satps->moonph);
    joinAll(painter, terminator, terminator.size());
}

void drawNorth(QPainter& painter, const DiskFrame& disk, double radius, const Horizontal& body, const QColor& colour)
{
    const QPoint end = limbPoint(disk, 0.35 * radius, northAngle(body, indata->lat));
    painter.setPen(colour);
    painter.drawLine(disk.centre, end);
    painter.drawText(end, VorlixView::tr("N"));
}

/// Which body it is, and how long a tenth of a degree.
void drawDiskName(QPainter& painter, const DiskFrame& disk, bool moon, const MapColours& colours)
{
    constexpr QPoint left(20, 340);
    constexpr int end = 4;  // of the scale, up and down
    const QPoint right = left + QPoint(nearestPixel(0.1 * disk.xscale), 0);
    painter.setFont(nameFont());
    painter.setPen(colours.labels);
    drawAll(painter, {QLine(left, right), QLine(left - QPoint(0, end), left + QPoint(0, end)),
                      QLine(right - QPoint(0, end), right + QPoint(0, end))});
    const QPoint above = left - QPoint(0, 2 * end);
    painter.drawText(above, QStringLiteral("0.1\u00b0"));
    painter.drawText(QPoint(left.x(), 20), moon ? VorlixView::tr("Moon") : VorlixView::tr("Sun"));
}

}  // namespace

DiskFrame VorlixView::diskFrame() const
{
    return {{cenx, ceny}, xscale, yscale};
}

void VorlixView::PltSunM(QPainter& painter)
{
    const DiskFrame disk = diskFrame();
    const bool moon = indata->occflg != transitOfSun && indata->satn != 0;
    const double radius = (moon ? satps->moonrad : sunRadiusDegrees) * yscale;
    const MapColours c = colours();
    painter.setPen(c.contrast);
    if (moon) {
        drawMoon(painter, disk, radius, c.darkLimb);
    } else {
        const std::vector<QPoint> limb = limbPoints(disk, radius, 0.0);
        joinAll(painter, limb, limb.size());
    }
    if (c.readable)
        drawDiskName(painter, disk, moon, c);
    if (indata->satn >= 1 && indata->mgrid >= 1)
        drawNorth(painter, disk, radius, moon ? moonOf(*satps) : sunOf(*satps), c.northMark);
}

QPoint VorlixView::PxCdSun(int i, int occflg) const
{
    const Horizontal body = occflg == transitOfSun ? sunOf(*satps) : moonOf(*satps);
    return pixelOf(diskFrame(), body, satps->az[i], satps->el[i]);
}
