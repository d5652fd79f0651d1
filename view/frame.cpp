// The frame of the view: its pixmaps, what is on show, and the background pass.

#include "view/vorlix_view.h"

#include <algorithm>
#include <utility>

#include <QCoreApplication>
#include <QPaintEvent>
#include <QPainter>

#include "elements/kept_selection.h"
#include "engine/position.h"
#include "record/config.h"
#include "record/keep.h"
#include "record/text.h"
#include "record/wout_data.h"
#include "reports/welcome.h"
#include "view/canvas_accessible.h"
#include "view/message_boxes.h"
#include "view/painting.h"

int dsplmd = filled::nothing;
int fsz = 10;

namespace {

constexpr QSize mapSize(721, 501);
constexpr QSize legendSize(860, 140);
constexpr QColor rowShade(0, 50, 200, 32);  // over the row of a table under the pointer

}  // namespace

VorlixView::VorlixView(QWidget* parent) : QScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);  // a position of the mouse is a position in the pixmap
    viewport()->setAttribute(Qt::WA_OpaquePaintEvent);
    viewport()->setMouseTracking(true);
    setFocusPolicy(Qt::NoFocus);  // a click that means nothing leaves the keys to the main window
    makeCanvasAccessible();
    resize(720, 600);
    outdata->nlines = 0;
    swelcm(indata, outdata);
    fsz = indata->fsz;
    scale = devicePixelRatioF();
    txtPix = pixmapOf(pageSize(), scale);
    resize(mapSize);
    showtxt(false);
    indata->mapw = displaySize.width();
    indata->maph = displaySize.height();
    indata->phwm = earthPix.load(":/satpearth.png");
    makePixmaps();
    vRefresh();
    vText();
}

bool VorlixView::physicalWanted() const
{
    return indata->phwm && !indata->skymap && indata->mapprj == 3 && !diskWanted();
}

MapColours VorlixView::colours() const
{
    if (inTheDark)
        return nightColours(readable, physicalWanted());
    if (!readable)
        return coloursOf(indata->mgrey);
    return physicalWanted() ? readableColoursOnPicture() : readableColoursOf(indata->mgrey);
}

void VorlixView::makePixmaps()
{
    mapPix = pixmapOf(mapSize, scale);
    dspPix = pixmapOf(displaySize, scale);
    dspPix.fill(Qt::black);
    legendPix = pixmapOf(legendSize, scale);
    legendPix.fill(colours().legend);
}

void VorlixView::update()
{
    const bool mapStays = onScreen == &dspPix && onScreen == &pixmapOnShow();
    if (unseen && mapStays && ChangedTiles::fit(scale) && ChangedTiles::fit(zoom))
        viewport()->repaint(zoomed(*unseen));
    else
        viewport()->repaint();
    unseen.reset();
    tellNextClick();
    announce();
}

const QPixmap& VorlixView::pixmapOnShow() const
{
    if (indata->dspmd < 1)
        return txtPix;
    return indata->picflg ? picDsp : dspPix;
}

QSize VorlixView::sizeOnShow() const
{
    if (indata->dspmd < 1)
        return textSize;
    return indata->picflg ? picSize : displaySize;
}

QSize VorlixView::zoomed(const QSize& size) const
{
    return (QSizeF(size) * zoom).toSize();
}

QRegion VorlixView::zoomed(const QRegion& region) const
{
    if (zoom == 1.0)
        return region;
    QRegion large;
    for (const QRect& part : region)
        large += QRectF(QPointF(part.topLeft()) * zoom, QSizeF(part.size()) * zoom).toAlignedRect();
    return large;
}

double VorlixView::zoomFor(const QSize& room)
{
    const double x = 1.0 * room.width() / displaySize.width(), y = 1.0 * room.height() / displaySize.height();
    return std::clamp(std::min(x, y), 1.0, largestZoom);
}

void VorlixView::vZoom(double factor)
{
    const double before = std::exchange(zoom, std::clamp(factor, 1.0, largestZoom));
    if (zoom == before)
        return;
    takeScale();
    resize(zoomed(sizeOnShow()));
}

void VorlixView::paintEvent(QPaintEvent* event)
{
    onScreen = &pixmapOnShow();
    QPainter painter(viewport());
    const QSize size = zoomed(sizeOnShow());
    if (onScreen != &dspPix || viewport()->height() == zoomed(textSize).height())
        resize(size);
    for (const QRect& part : event->region() - QRect(QPoint(), size))
        painter.fillRect(part, palette().window());
    if (onScreen == &txtPix && zoom != 1.0)
        painter.fillRect(QRect(QPoint(), size), inTheDark ? Qt::black : Qt::white);  // below the page
    if (devicePixelRatioF() * zoom != scale && !scaleAsked)
        scaleAsked = QMetaObject::invokeMethod(this, &VorlixView::takeScale, Qt::QueuedConnection);
    // with another scale parts might be taken from other pixels than the whole
    painter.scale(zoom, zoom);
    if (scale != 1.0) {
        painter.drawPixmap(0, 0, *onScreen);
    } else {
        for (const QRect& part : event->region() & onScreen->rect())
            painter.drawPixmap(part, *onScreen, part);
    }
    if (indata->dspmd == -1 && pointedRow >= 0)
        painter.fillRect(rowOnShow(pointedRow), rowShade);
}

int VorlixView::getLeft() const
{
    return indata->leftbtn;
}

int VorlixView::getFsz() const
{
    return fsz;
}

void VorlixView::setFont(int size)
{
    fsz = size;
    indata->fsz = size;
}

void VorlixView::goHome()
{
    move(0, 0);
    update();
}

/// Keys are the business of the main window.
void VorlixView::keyPressEvent(QKeyEvent* event)
{
    clearFocus();
    if (window() != this)
        QCoreApplication::sendEvent(window(), event);
}

void VorlixView::keyPress(int n)
{
    if (n <= indata->satn)
        indata->prs = n - 1;
    else if (indata->prs < 0)
        indata->prs = 0;
}

/// Where the bottom of the picture on show meets that of the window.
int VorlixView::lowestScroll() const
{
    const int room = parentWidget() ? parentWidget()->height() : height();
    return std::min(room - zoomed(sizeOnShow()).height(), 0);
}

void VorlixView::scrollDsp(int dx, int dy)
{
    if (dx > 0)
        vBackward();
    else if (dx < 0)
        vForward();
    else
        move(0, std::clamp(y() + dy, lowestScroll(), 0));
}

void VorlixView::vRefresh()
{
    redrawMap();
    update();
}

/// A new background, which the screen does not show yet.
void VorlixView::redrawMap()
{
    dsplmd = filled::map;
    setCursor(Qt::CrossCursor);
    indata->dspmd = 1;
    if (diskWanted() && indata->satn > 0) {
        GetSatPos(indata->mjd, indata, satps, indata->prs, 0);
        indata->mjdlast = indata->mjd;
    }
    drawBackground();
    copyMapToDisplay();
    if (indata->picflg) {
        QPainter painter(&picDsp);
        painter.drawPixmap(0, 0, picBase);
    }
}

/// The same for a plot, whose marks and legend come to the screen with it.
void VorlixView::redrawBehindPlot()
{
    redrawMap();
    stale.addAll();
}

void VorlixView::drawBackground()
{
    mapPix.fill(colours().ground);
    legend.reset();
    trails.clear();
    chooseScales(diskWanted());
    QPainter painter(&mapPix);
    paintBackground(painter);
    if (!diskWanted())
        indata->mjdlast = indata->mjd;
    indata->diskon = diskWanted();
}

/// On its ground.
void VorlixView::paintBackground(QPainter& painter)
{
    painter.setRenderHint(QPainter::Antialiasing, zoom > 1.0);
    if (physicalWanted())
        drawPhysicalMap(painter);
    painter.drawPixmap(0, legendTop, legendPix);
    if (diskWanted())
        PltSunM(painter);
    else if (indata->skymap)
        PltSky(painter);
    else
        PlotWorld(painter);
}

bool VorlixView::diskWanted() const
{
    return indata->sunmplt != 0 && (indata->occflg == 1 || indata->occflg == 2);
}

void VorlixView::chooseScales(bool disk)
{
    cenx = 360;
    ceny = 180;
    const bool azimuth = indata->skymap && indata->skyprj != 0;
    const bool cylindrical = !indata->skymap && indata->mapprj != 1 && indata->mapprj != 2;
    if (disk) {
        xscale = yscale = ceny * 2.8;
    } else if (azimuth) {
        xscale = cenx / 1.414;
        yscale = 255.30410183875532;
        ceny = 361;
    } else if (cylindrical) {
        xscale = cenx / 180.0;
        yscale = ceny / 90.0;
    } else {
        xscale = yscale = ceny / 1.678;
    }
}

/// Lays a part of the map on the display, on black where it is wider.
void VorlixView::copyMap(QPainter& painter, const QRect& part) const
{
    if (part.right() >= mapSize.width())
        painter.fillRect(part & QRect(mapSize.width(), 0, displaySize.width(), displaySize.height()), Qt::black);
    copyPart(painter, mapPix, part);
}

void VorlixView::copyMapToDisplay()
{
    QPainter painter(&dspPix);
    copyMap(painter, QRect(QPoint(), displaySize));
    marks = Marks();
    stale.clear();
}

void VorlixView::forgetPlot()
{
    legend.reset();
    stale.addAll();
}

void VorlixView::vRefreshP()
{
    redrawBehindPlot();
    showNewMap(true);
}

void VorlixView::showNewMap(bool plot)
{
    if (plot && indata->satn >= 1)
        vCurrent();
    else
        update();
}

void VorlixView::vText()
{
    if (indata->dspmd == 1) {
        indata->dspmd = dsplmd == filled::passTable ? -1 : 0;
        resize(zoomed(textSize));
        setCursor(Qt::ArrowCursor);
    } else {
        indata->dspmd = 1;
        resize(zoomed(sizeOnShow()));
        setCursor(Qt::CrossCursor);
        goHome();
    }
    update();
}

void VorlixView::vNames(bool on)
{
    indata->nmflg = on;
    if (indata->rtflg == 0)
        vCurrent();
}

void VorlixView::vLeft(bool on)
{
    indata->leftbtn = on;
}

void VorlixView::vReadable(bool on)
{
    readable = on;
    legendPix.fill(colours().legend);
    drawAnew();
}

void VorlixView::vNight(bool on)
{
    inTheDark = on;
    legendPix.fill(colours().legend);
    paintPage();
    drawAnew();
    viewport()->update();
}

void VorlixView::drawAnew()
{
    const Keep what(dsplmd);
    if (indata->dspmd == 1) {
        vRefreshP();
        return;
    }
    drawBackground();
    copyMapToDisplay();
    stale.addAll();
}

void VorlixView::vPicSwitch(bool on)
{
    indata->picflg = on;
    if (on)
        indata->dspmd = 1;
    else if (indata->dspmd > 0) {
        resize(zoomed(displaySize));
        vRefreshP();
    }
    update();
}

void VorlixView::vQuit()
{
    const std::string why = putcfg(indata);
    if (!why.empty())
        warn(this, tr("Vorlix"),
             tr("The settings are not kept.\n") + nothingWritten(tr("vorlix.cfg"), textQString(why)));
    keepSelectedNumbers(*indata);
}
