// The frame of one plot of the satellites: what is redrawn, what is kept, and in which order.

#include "view/vorlix_view.h"

#include <cmath>

#include <QPainter>

#include "astro/calendar.h"
#include "engine/pass_search.h"
#include "engine/position.h"
#include "record/keep.h"
#include "view/calculation.h"
#include "view/painting.h"

namespace {

constexpr double oldMapDays = 0.01;

/// The observer's fields, put back at the end of a plot.
struct KeptObserver
{
    Keep<double> lat{indata->lat};
    Keep<double> lng{indata->lng};
    Keep<double> height{indata->height};
};

double oldSkyDays(const WinpData& in)
{
    const double zenith = in.mpnight ? 0.002 : 0.004;
    const double azimuth = in.mpnight ? 0.001 : 0.002;
    return in.skyprj == 0 ? zenith : azimuth;
}

}  // namespace

void VorlixView::SatPlot(double t, int circles)
{
    if (!flownAhead(t)) {
        showIfDrawnAnew();
        return;
    }
    if (indata->picflg) {
        PicPlot(t);
        return;
    }
    const KeptObserver observer;
    indata->mjd = t;
    if (indata->satsky && indata->skymap == 1 && indata->satn > 0) {
        GetSatPos(t, indata, satps, indata->prs, 0);
        observeFromPrime();
    }
    refreshIfAged(t);
    if (indata->skymap)
        indata->rlm = 0;

    const PlotScene scene = sceneOf(t, circles);
    indata->plotyear = scene.year;
    for (int slot = 0; slot < indata->satn; ++slot)
        GetSatPos(t, indata, satps, slot, circles);
    drawLegend(scene);
    showMarks(scene);
    drawTrails(scene);
    update();
}

/// For a plot that ends early: a background drawn anew for it is shown without.
void VorlixView::showIfDrawnAnew()
{
    if (!stale.isEmpty())
        update();
}

/// Makes all pictures anew for the scale of the screen that the window is on now: no satellite is calculated, legend,
/// markers and trails are those on show.
void VorlixView::takeScale()
{
    scaleAsked = false;
    scale = devicePixelRatioF() * zoom;
    txtPix = pixmapOf(pageSize(), scale);
    paintPage();
    makePixmaps();
    mapPix.fill(colours().ground);
    {
        QPainter painter(&mapPix);
        paintMap(painter);
    }
    const Marks shown = marks;
    copyMapToDisplay();
    marks = shown;
    QPainter painter(&dspPix);
    paint(painter, marks);
    if (!picPix.isNull())
        makePicture();
    viewport()->update();
}

/// The background as it was made, with the trails and the legend of the last plot.
void VorlixView::paintMap(QPainter& painter)
{
    const KeptObserver observer;
    const Keep time(indata->mjd, indata->mjdlast);
    const bool fromSatellite = legend && indata->satsky && indata->skymap == 1 && indata->satn > 0;
    if (fromSatellite)
        observeFromPrime();
    paintBackground(painter);
    painter.setRenderHint(QPainter::Antialiasing, false);
    if (!fromSatellite)  // there each plot begins anew
        paintTrails(painter);
    if (legend)
        writeLegend(painter, *legend, QRect(QPoint(), displaySize));
}

void VorlixView::paintTrails(QPainter& painter) const
{
    for (auto dot = trails.constKeyValueBegin(); dot != trails.constKeyValueEnd(); ++dot) {
        painter.setPen(QColor(dot->second));
        painter.drawPoint(dot->first);
    }
}

/// The prime satellite, where the last plot has it, takes the observer's place until the caller puts it back.
void VorlixView::observeFromPrime()
{
    indata->lat = satps->lat[indata->prs];
    indata->lng = satps->lng[indata->prs];
    indata->height = satps->hgt[indata->prs] * 1000.0;
}

void VorlixView::refreshIfAged(double t)
{
    const auto older = [t](double days) { return std::abs(t - indata->mjdlast) > days; };
    if (diskWanted()) {
        if (!indata->diskon || older(oldMapDays))
            redrawBehindPlot();
        return;
    }
    if (indata->diskon) {
        redrawBehindPlot();
        return;
    }
    if (indata->mpnight && older(oldMapDays))
        redrawBehindPlot();
    if (indata->skymap && (indata->satsky || older(oldSkyDays(*indata))))
        redrawBehindPlot();
}

PlotScene VorlixView::sceneOf(double t, int circles) const
{
    PlotScene scene;
    scene.t = t;
    scene.circles = circles;
    scene.relative = indata->skymap == 0 && relativeMode(*indata);
    scene.disk = diskWanted();
    caldat(t + indata->tzone / 24.0, scene.day, scene.month, scene.year, scene.hours);
    scene.colours = readable && indata->picflg ? readableColoursOnPicture() : colours();
    return scene;
}

/// A dot for each satellite into the background, where it stays. On the display it lies under the point of its marker
/// and comes to light when that moves on. A map with night has no trails.
void VorlixView::drawTrails(const PlotScene& scene)
{
    QPainter painter(&mapPix);
    for (int slot = 0; slot < indata->satn && !indata->mpnight; ++slot) {
        if (lastx[slot] > indata->mapw)
            continue;
        const QColor colour = scene.colours.satellites[static_cast<std::size_t>(slot)];
        painter.setPen(colour);
        painter.drawPoint(lastx[slot], lasty[slot]);
        if (mapPicture.contains(lastx[slot], lasty[slot]))
            trails.insert({lastx[slot], lasty[slot]}, colour.rgb());
    }
}
