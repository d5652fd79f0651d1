// What stands on top of the map: markers, circles of visibility, names and the symbol of the Sun.

#include "view/vorlix_view.h"

#include <algorithm>
#include <numbers>

#include <QPainter>

#include "engine/satpos_data.h"
#include "view/legend_text.h"
#include "view/painting.h"

namespace {

/// From a satellite one does not see that satellite.
bool isObserver(const WinpData& in, int slot)
{
    return in.satsky && in.skymap == 1 && slot == in.prs;
}

}  // namespace

std::array<QColor, maxSatellites> satelliteColours(int mgrey)
{
    const QColor red(255, 0, 0), blue(0, 0, 255), green(0, 255, 0), yellow(255, 255, 0), magenta(255, 0, 255);
    return {contrastColour(mgrey), red, blue, green, yellow, magenta, blue, green, yellow, magenta};
}

bool isMarkedOnSky(const WinpData& in, const SatPosData& sp, int slot)
{
    const bool inMoonlight = in.moonflg && sp.moonel[slot] > 0;
    return !in.visflg || !(sp.sunel[slot] < 0) || inMoonlight;
}

void VorlixView::drawMarkers(const PlotScene& scene)
{
    if (indata->satn == 0)
        return;
    QPainter painter(&dspPix);
    painter.setFont(QFont("Helvetica", 8, QFont::Normal));
    for (int slot = 0; slot < indata->satn; ++slot) {
        const QPoint p = markerOf(slot, scene.disk);
        lastx[slot] = p.x();
        lasty[slot] = p.y();
        painter.setPen(scene.colours[static_cast<std::size_t>(slot)]);
        drawMarker(painter, slot, scene);
    }
    if (!scene.disk && !indata->skymap)
        drawSunSymbol(painter, scene);
}

QPoint VorlixView::markerOf(int slot, bool disk) const
{
    const bool events = indata->occflg || (indata->flarflg && indata->flarmod >= 1);
    if (disk)
        return PxCdSun(slot, indata->occflg);
    if (indata->skymap) {
        if (isMarkedOnSky(*indata, *satps, slot))
            return PxSky(satps->el[slot], satps->az[slot]);
        return {indata->mapw + 3, 0};
    }
    return events ? PxCoord(satps->occlat[slot], satps->occlng[slot]) : PxCoord(satps->lat[slot], satps->lng[slot]);
}

void VorlixView::drawMarker(QPainter& painter, int slot, const PlotScene& scene)
{
    const QPoint p(lastx[slot], lasty[slot]);
    const bool onDisplay = p.x() - 2 <= indata->mapw;
    if (onDisplay)
        drawSymbol(painter, p, slot, scene.disk);
    if (scene.circles && !indata->occflg && !indata->flarflg && !indata->skymap)
        drawCircle(painter, slot);
    if (onDisplay && indata->nmflg && !isObserver(*indata, slot))
        painter.drawText(p - QPoint(2, 2), shownName(*indata, slot));
}

/// A square on the sky, else a circle, with a point in the middle.
void VorlixView::drawSymbol(QPainter& painter, const QPoint& p, int slot, bool disk)
{
    if (disk || !indata->skymap)
        painter.drawEllipse(boxAbout(p, 2));
    else if (!isObserver(*indata, slot))
        painter.drawRect(boxAbout(p, 2));
    else
        return;
    painter.drawPoint(p);
}

/// The edge of the region that sees the satellite.
void VorlixView::drawCircle(QPainter& painter, int slot)
{
    const auto degrees = [](double radians) { return 180.0 * radians / std::numbers::pi; };
    const int count = std::clamp(satps->nvis, 0, circlePoints);
    std::array<QPoint, circlePoints> points;
    for (int j = 0; j < count; ++j)
        points[static_cast<std::size_t>(j)] = PxCoord(degrees(satps->vlat[slot][j]), degrees(satps->vlng[slot][j]));
    painter.drawPoints(points.data(), count);
}

/// A star of single pixels over the subsolar point.
void VorlixView::drawSunSymbol(QPainter& painter, const PlotScene& scene)
{
    static constexpr std::array<QPoint, 16> rays{QPoint{-2, -2}, {-2, 0}, {-2, 2}, {-1, -1}, {-1, 0}, {-1, 1},
                                                 {0, -2},        {0, -1}, {0, 1},  {0, 2},   {1, -1}, {1, 0},
                                                 {1, 1},         {2, -2}, {2, 0},  {2, 2}};
    const QPoint p = PxCoord(satps->sslat, satps->sslng);
    painter.setPen(scene.colours[4]);
    for (const QPoint& ray : rays)
        painter.drawPoint(p + ray);
    painter.setPen(scene.colours[0]);
    painter.drawPoint(p);
}
