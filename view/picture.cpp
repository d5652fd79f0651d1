// The loaded picture: its sizes, its measurement by three stars, and the satellites on it.

#include "view/vorlix_view.h"

#include <algorithm>
#include <cmath>

#include <QImage>
#include <QPainter>

#include "astro/angles.h"
#include "design/astrometry.h"
#include "dialogs/st_ast_dialog.h"
#include "engine/position.h"
#include "record/numbers.h"
#include "record/text.h"
#include "view/legend_text.h"
#include "view/marks.h"
#include "view/message_boxes.h"
#include "view/painting.h"

namespace {

// Where the texts on a picture begin, from the left of the part in sight.
constexpr int timeX = 10;
constexpr int firstAngleX = 180;
constexpr int secondFlareAngleX = 290;
constexpr int secondAngleX = 320;
constexpr int nameX = 500;

constexpr int fourDigits = 1;  // of the angles, whatever the legend shows

/// The size of a picture for the code; no side vanishes.
QSize sizeFor(const QSize& full, int code)
{
    const int part = code == 2 ? 2 : code == 3 ? 4 : 1;
    return {std::max(full.width() / part, 1), std::max(full.height() / part, 1)};
}

/// The scale of the screen, or as much of it as leaves a large picture within bounds.
double scaleFor(const QSize& size, double scale)
{
    constexpr double mostPixels = 4e7;
    const double most = std::sqrt(mostPixels / (1.0 * size.width() * size.height()));
    return std::min(scale, std::max(most, 1.0));
}

/// The picture at a size, on black where it is transparent or smaller.
void fitInto(QPixmap& at, const QPixmap& picture)
{
    at.fill(Qt::black);
    const bool full = at.size() == picture.size();
    QPixmap fitting = full ? picture : picture.scaled(at.size(), Qt::KeepAspectRatio, Qt::SmoothTransformation);
    fitting.setDevicePixelRatio(at.devicePixelRatio());
    QPainter(&at).drawPixmap(0, 0, fitting);
}

void forgetStars(WinpData* in)
{
    std::fill_n(in->astra, astrometry::lastStar, 0.0);
    std::fill_n(in->astdec, astrometry::lastStar, 0.0);
}

/// What is written after it, if the colours are readable.
void putOnPlates(QPainter& painter, const MapColours& colours)
{
    painter.setBackground(colours.plate);
    painter.setBackgroundMode(colours.readable ? Qt::OpaqueMode : Qt::TransparentMode);
}

void drawAngles(QPainter& painter, const QPoint& origin, double ra, double dec)
{
    painter.drawText(origin + QPoint(firstAngleX, 0), withAngle("R.A.:", fourDigits, packedHours, ra));
    painter.drawText(origin + QPoint(secondAngleX, 0), withAngle("Dec.:", fourDigits, packedDegrees, dec));
}

QString flareAngle(char letter, double degrees)
{
    char line[64];
    return textQString(formatted(line, "%c:%7.1lf", letter, degrees));
}

/// The two angles of a flaring surface.
void drawFlareAngles(QPainter& painter, const QPoint& origin, double yaw, double pitch)
{
    painter.drawText(origin + QPoint(firstAngleX, 0), flareAngle('Y', yaw));
    painter.drawText(origin + QPoint(secondFlareAngleX, 0), flareAngle('P', pitch));
}

QString meaningOfClick(int step)
{
    if (step == astrometry::noPicture)
        return {};
    if (step <= astrometry::lastStar)
        return VorlixView::tr("Next click: star %1 of %2").arg(step).arg(int{astrometry::lastStar});
    if (step == astrometry::firstTrailEnd)
        return VorlixView::tr("Next click: first point of the trail");
    return step == astrometry::furtherTrailPoint ? VorlixView::tr("Next click: a further point of the trail")
                                                 : VorlixView::tr("Next click: second point of the trail");
}

}  // namespace

void VorlixView::tellNextClick()
{
    const int step = indata->picflg && indata->dspmd > 0 ? indata->picstep : astrometry::noPicture;
    if (step == toldStep)
        return;
    toldStep = step;
    Q_EMIT nextClickMeans(meaningOfClick(step));
}

void VorlixView::vPicture(const QImage& image)
{
    if (indata->picstep == astrometry::noPicture) {
        std::ranges::fill(indata->astra, 0.0);
        std::ranges::fill(indata->astdec, 0.0);
    }
    picPix = QPixmap::fromImage(image);
    picPix.setDevicePixelRatio(1.0);  // a file name may ask for another one
    vImage(indata->picsize);
}

void VorlixView::vImage(int code)
{
    indata->picsize = code;
    indata->picflg = true;
    indata->picstep = astrometry::firstStar;
    indata->dspmd = 1;
    setCursor(Qt::CrossCursor);
    picSize = sizeFor(picPix.size(), code);
    makePicture();
    resize(zoomed(picSize));
    if (skyPicture && skyPicture->plate && skyPicture->width == picPix.width())
        measureByPlate();
    update();
}

void VorlixView::makePicture()
{
    picBase = pixmapOf(picSize, scaleFor(picSize, scale));
    fitInto(picBase, picPix);
    picDsp = picBase;
}

void VorlixView::astroEvent(int x, int y, bool)
{
    indata->rlm = 0;
    if (indata->picstep >= astrometry::firstTrailEnd)
        markTrailPoint(x, y);
    else if (!markStar(x, y))
        return;
    indata->picstep = std::min(indata->picstep + 1, static_cast<int>(astrometry::furtherTrailPoint));
    setCursor(Qt::CrossCursor);
    update();
}

/// Asks for the coordinates of the star at a pixel. @return  false without them
bool VorlixView::markStar(int x, int y)
{
    WinpData& in = *indata;
    const int k = std::max(in.picstep - 1, 0);
    StAstDialog dialog(this);
    const StAstDialog::Values before{DegFDms(in.astra[k] / radPerHour), DegFDms(in.astdec[k] / radPerDeg)};
    dialog.setStar(k + 1, astrometry::lastStar);
    dialog.setValues(before);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    double ra = 0;
    double dec = 0;
    bool aborted = false;
    dialog.getParams(ra, dec, aborted);
    if (aborted) {
        inform(this, tr("PicAst: "), tr("Astrometry aborted."));
        in.picstep = astrometry::firstStar;
        forgetStars(&in);
        tellNextClick();
        return false;
    }
    if (ra != before.ra)  // the way through the packed form costs the last bit
        in.astra[k] = DmsDegF(ra) * radPerHour;
    if (dec != before.dec)
        in.astdec[k] = DmsDegF(dec) * radPerDeg;
    in.astx[k] = x;
    in.asty[k] = y;
    if (in.picstep == astrometry::lastStar)
        getPlateConst();
    return true;
}

/// A point of the trail; of three the first is dropped.
void VorlixView::markTrailPoint(int x, int y)
{
    constexpr int firstEnd = 3;
    constexpr int secondEnd = 4;
    WinpData& in = *indata;
    double ra = 0;
    double dec = 0;
    if (!plateAt(x, y, ra, dec))
        getRaDec(x, y, ra, dec);
    if (in.picstep == astrometry::furtherTrailPoint) {
        in.astra[firstEnd] = in.astra[secondEnd];
        in.astdec[firstEnd] = in.astdec[secondEnd];
    }
    const int end = in.picstep == astrometry::firstTrailEnd ? firstEnd : secondEnd;
    in.astra[end] = ra;
    in.astdec[end] = dec;

    QPainter painter(&picDsp);
    painter.drawPixmap(0, 0, picBase);
    painter.setFont(legendFont(in));
    putOnPlates(painter, readable ? readableColoursOnPicture() : colours());
    painter.setPen(colours().photoPoint);
    drawAngles(painter, textOrigin(painter), ra, dec);
}

QPoint VorlixView::textOrigin(const QPainter& painter) const
{
    return mapFromParent(QPoint(0, 0)) / zoom + QPoint(0, painter.fontMetrics().ascent() + 10);
}

void VorlixView::PicPlot(double t)
{
    if (indata->picstep < astrometry::firstTrailEnd) {
        showIfDrawnAnew();
        return;
    }
    indata->rlm = 0;
    indata->mjd = t;
    const PlotScene scene = sceneOf(t, 0);
    indata->plotyear = scene.year;
    for (int slot = 0; slot < indata->satn; ++slot)
        GetSatPos(t, indata, satps, slot, 0);
    {
        QPainter painter(&picDsp);
        painter.drawPixmap(0, 0, picBase);
        drawPictureTexts(painter, scene);
        drawPictureMarkers(painter, scene);
    }
    update();
}

void VorlixView::drawPictureTexts(QPainter& painter, const PlotScene& scene) const
{
    const WinpData& in = *indata;
    const int prime = std::clamp(in.prs, 0, maxSatellites - 1);
    painter.setFont(legendFont(in));
    const QPoint origin = textOrigin(painter);
    putOnPlates(painter, scene.colours);
    painter.setPen(scene.colours.photoText);
    painter.drawText(origin + QPoint(timeX, 0), timeText(scene, in.tmstep));
    if (in.flarflg && in.flarmod == -1) {
        painter.setPen(scene.colours.photoPoint);
        drawFlareAngles(painter, origin, in.occra, in.occdec);
    } else {
        drawAngles(painter, origin, satps->ra[prime], satps->dec[prime]);
    }
    painter.setPen(in.satn != 0 ? scene.colours.satellites[static_cast<std::size_t>(prime)]
                                : scene.colours.photoAlert);
    painter.drawText(origin + QPoint(nameX, 0),
                     in.satn != 0 ? shownName(in, prime) : QStringLiteral("*** No Satellite ***"));
}

/// A square and, if wanted, a name for each satellite that stands above the horizon.
void VorlixView::drawPictureMarkers(QPainter& painter, const PlotScene& scene)
{
    painter.setFont(nameFont());
    for (int slot = 0; slot < indata->satn; ++slot) {
        if (!(satps->el[slot] > 0) || !isMarkedOnSky(*indata, *satps, slot))
            continue;
        getPixel(satps->ra[slot], satps->dec[slot], lastx[slot], lasty[slot]);
        const QPoint p(lastx[slot], lasty[slot]);
        painter.setPen(scene.colours.satellites[static_cast<std::size_t>(slot)]);
        painter.drawRect(boxAbout(p, 2));
        painter.drawPoint(p);
        const QString name = shownName(*indata, slot).trimmed();
        if (indata->nmflg)
            painter.drawText(nameBeside(p, nameBoxOf(name, painter.fontMetrics()), QRect(QPoint(), picSize)), name);
    }
}
