// The marks of a plot, and how they come on the display.

#include "view/vorlix_view.h"

#include <algorithm>
#include <numbers>

#include <QPainter>

#include "astro/angles.h"
#include "engine/satpos_data.h"
#include "view/footprint.h"
#include "view/legend_text.h"
#include "view/marks.h"
#include "view/painting.h"

namespace {

/// From a satellite one does not see that satellite.
bool isObserver(const WinpData& in, int slot)
{
    return in.satsky && in.skymap == 1 && slot == in.prs;
}

}  // namespace

bool isMarkedOnSky(const WinpData& in, const SatPosData& sp, int slot)
{
    const bool inMoonlight = in.moonflg && sp.moonel[slot] > 0;
    return !in.visflg || !(sp.sunel[slot] < 0) || inMoonlight;
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

/// Also sets `lastx`, `lasty`.
Marks VorlixView::marksOf(const PlotScene& scene)
{
    Marks now;
    if (scene.colours.readable) {
        now.plate = scene.colours.plate;
        now.opacity = scene.colours.footprint;
        now.field = fieldOf(mapFrame());
        now.labels = labelsOfGrid();
        now.labelColour = scene.colours.labels;
    }
    for (int slot = 0; slot < indata->satn; ++slot)
        now.satellites.push_back(markOf(slot, scene));
    if (indata->satn != 0 && !scene.disk && !indata->skymap)
        now.sun = SunMark{PxCoord(satps->sslat, satps->sslng), scene.colours.sunRays, scene.colours.sunCore};
    return now;
}

Mark VorlixView::markOf(int slot, const PlotScene& scene)
{
    Mark mark;
    mark.at = markerOf(slot, scene.disk);
    mark.colour = scene.colours.satellites[static_cast<std::size_t>(slot)];
    lastx[slot] = mark.at.x();
    lasty[slot] = mark.at.y();
    const bool onDisplay = mark.at.x() - 2 <= indata->mapw;
    const bool observer = isObserver(*indata, slot);
    if (onDisplay && (scene.disk || !indata->skymap))
        mark.figure = Mark::Figure::disk;
    else if (onDisplay && !observer)
        mark.figure = Mark::Figure::square;
    const bool inPicture = mapPicture.adjusted(-2, -2, 2, 2).contains(mark.at);
    if (inPicture && indata->nmflg && !observer)
        mark.name = shownName(*indata, slot).trimmed();
    if (scene.circles && !indata->occflg && !indata->flarflg && !indata->skymap)
        mark.circle = circleOf(slot);
    if (scene.colours.readable && !mark.circle.empty())
        mark.area = areaOf(slot);
    return mark;
}

/// The region that sees the satellite.
QPainterPath VorlixView::areaOf(int slot) const
{
    std::vector<GeoPlace> edge;
    for (int j = 0; j < std::clamp(satps->nvis, 0, circlePoints); ++j)
        edge.push_back({satps->vlat[slot][j] * degPerRad, satps->vlng[slot][j] * degPerRad});
    return footprint(mapFrame(), edge, {satps->lat[slot], satps->lng[slot]});
}

/// The edge of the region that sees the satellite.
std::vector<QPoint> VorlixView::circleOf(int slot) const
{
    const auto degrees = [](double radians) { return 180.0 * radians / std::numbers::pi; };
    const int count = std::clamp(satps->nvis, 0, circlePoints);
    std::vector<QPoint> points;
    points.reserve(static_cast<std::size_t>(count));
    for (int j = 0; j < count; ++j)
        points.push_back(PxCoord(degrees(satps->vlat[slot][j]), degrees(satps->vlng[slot][j])));
    return points;
}

/// Brings the display up to the background and the marks of the plot: what lags behind is painted, the rest stays.
void VorlixView::showMarks(const PlotScene& scene)
{
    Marks now = marksOf(scene);
    measure(now, marks, &dspPix);
    addChanges(stale, marks, now);
    if (!ChangedTiles::fit(scale) || scene.colours.readable)
        stale.addAll();
    unseen = stale.region();
    stale.clear();
    marks = std::move(now);

    QPainter painter(&dspPix);
    for (const QRect& part : *unseen)
        copyMap(painter, part);
    painter.setClipRegion(*unseen);
    paint(painter, marks);
}
