// What is on show as a picture, on paper, and on the clipboard.

#include "view/vorlix_view.h"

#include <algorithm>
#include <string>

#include <QBuffer>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QPagedPaintDevice>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>
#include <QSvgGenerator>

#include "exports/time_text.h"
#include "record/text.h"
#include "view/message_boxes.h"
#include "view/painting.h"

namespace {

constexpr QSize mapWithLegend(721, 501);
constexpr double widestMagnification = 2.0;  // of a map on paper

/// A page in dots of the screen, without its header.
struct Sheet
{
    explicit Sheet(const QPagedPaintDevice& device)
        : size((device.pageLayout().paintRect(QPageLayout::Inch).size() * VorlixView::paperDotsPerInch).toSize()),
          head(3 * QFontMetrics(QFont("Helvetica", 10)).height())
    {}

    QRect body() const { return {0, head, size.width(), size.height() - head}; }

    QSize size;
    int head;
};

}  // namespace

QImage VorlixView::pictureOnShow() const
{
    if (indata->dspmd < 1)
        return txtPix.toImage().copy(QRect(QPoint(), (QSizeF(reportSize()) * scale).toSize()));
    if (indata->picflg)
        return picDsp.toImage();
    return dspPix.toImage().copy(QRect(QPoint(), mapPix.size()));
}

void VorlixView::vCopyPicture()
{
    QImage picture = pictureOnShow();
    picture.setDevicePixelRatio(1.0);
    QGuiApplication::clipboard()->setImage(picture);
}

/// Lines and letters as such, at 100 percent; a photograph as its pixels.
QByteArray VorlixView::svgOnShow()
{
    const QSize size = indata->dspmd < 1 ? reportSize() : indata->picflg ? picSize : mapWithLegend;
    QBuffer bytes;
    QSvgGenerator svg;
    svg.setOutputDevice(&bytes);
    svg.setSize(size);
    svg.setViewBox(QRect(QPoint(), size));
    svg.setResolution(logicalDpiX());  // letters as large as on the screen
    svg.setTitle(spokenName());
    QPainter painter(&svg);
    painter.setClipRect(QRect(QPoint(), size));
    if (indata->dspmd < 1) {
        painter.fillRect(QRect(QPoint(), size), Qt::white);
        paintLines(painter, 0, shownReport.nlines);
    } else {
        drawPicture(painter, size);
    }
    painter.end();
    return bytes.data();
}

bool VorlixView::vSavePicture(const QString& name)
{
    QSaveFile file(name);
    if (name.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive)) {
        const QByteArray svg = svgOnShow();
        if (file.open(QIODevice::WriteOnly) && file.write(svg) == svg.size() && file.commit())
            return true;
        warn(this, tr("Save Picture"), nothingWritten(name, file.errorString()));
        return false;
    }
    QImage picture = pictureOnShow();
    picture.setDevicePixelRatio(1.0);
    if (file.open(QIODevice::WriteOnly) && picture.save(&file, "PNG") && file.commit())
        return true;
    warn(this, tr("Save Picture"), nothingWritten(name, file.errorString()));
    return false;
}

bool VorlixView::vPrintToPdf(const QString& name)
{
    QSaveFile file(name);
    if (file.open(QIODevice::WriteOnly)) {
        {
            QPdfWriter writer(&file);
            writer.setTitle(tr("Vorlix"));
            writer.setPageSize(QPageSize(QPageSize::A4));
            writer.setPageOrientation(indata->dspmd < 1 ? QPageLayout::Portrait : QPageLayout::Landscape);
            writer.setResolution(VorlixView::paperDotsPerInch);
            vPrint(writer);
        }
        if (file.commit())
            return true;
    }
    warn(this, tr("Print to PDF"), nothingWritten(name, file.errorString()));
    return false;
}

void VorlixView::vPrint(QPagedPaintDevice& device)
{
    QPainter painter;
    if (!painter.begin(&device)) {
        warn(this, tr("Print"), tr("The printer or the file to print to cannot be used."));
        return;
    }
    const Sheet sheet(device);
    if (indata->dspmd < 1)
        printReport(painter, device, sheet.body());
    else
        printPicture(painter, sheet.body());
}

/// Who sees what by which elements, at the top of a page.
void VorlixView::printHeader(QPainter& painter) const
{
    const WinpData& in = *indata;
    QString text =
        tr("%1 (%2, %3, %4 m)").arg(fieldQString(in.geoname).trimmed()).arg(in.lat).arg(in.lng).arg(in.height);
    if (in.satn > 0) {
        const int prime = std::clamp(in.prs, 0, maxSatellites - 1);
        text += tr("   %1, elements of %2 UTC")
                    .arg(fieldQString(in.fsname[prime]).trimmed(),
                         textQString(isoTime(in.mjdep[prime]).substr(0, 16)).replace(u'T', u' '));
    }
    painter.save();
    painter.setFont(QFont("Helvetica", 10));
    painter.setPen(Qt::black);
    painter.drawText(0, painter.fontMetrics().ascent(), text);
    painter.restore();
}

/// As many lines on each page as it holds, and all columns.
void VorlixView::printReport(QPainter& painter, QPagedPaintDevice& device, const QRect& body)
{
    const double fit = std::min(1.0, 1.0 * body.width() / std::max(reportSize().width(), 1));
    const int linesOnPage = std::max(static_cast<int>(body.height() / (lineHeight * fit)) - 1, 1);
    for (int first = 0; first == 0 || first < shownReport.nlines; first += linesOnPage) {
        if (first > 0)
            device.newPage();
        printHeader(painter);
        painter.save();
        painter.translate(body.topLeft());
        painter.scale(fit, fit);
        paintLines(painter, first, std::min(first + linesOnPage, shownReport.nlines));
        painter.restore();
    }
}

/// A map is drawn anew for the paper; a photograph is taken as it is on the screen.
void VorlixView::printPicture(QPainter& painter, const QRect& body)
{
    printHeader(painter);
    const QSize size = indata->picflg ? picSize : mapWithLegend;
    const double fit =
        std::min({1.0 * body.width() / size.width(), 1.0 * body.height() / size.height(), widestMagnification});
    painter.translate(body.topLeft());
    painter.scale(fit, fit);
    painter.setClipRect(QRect(QPoint(), size));
    drawPicture(painter, size);
}

/// Map, sky or photograph of this size.
void VorlixView::drawPicture(QPainter& painter, const QSize& size)
{
    if (indata->picflg) {
        painter.drawPixmap(0, 0, picDsp);
        return;
    }
    painter.fillRect(mapPicture, colours().ground);
    paintMap(painter);
    painter.setClipRect(QRect(QPoint(), size));
    paint(painter, marks);
}
