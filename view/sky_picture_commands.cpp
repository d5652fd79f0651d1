// Pictures with a solution: their display, the place under the pointer, and the satellites on them.

#include "view/vorlix_view.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "astro/angles.h"
#include "design/astrometry.h"
#include "elements/brightness_files.h"
#include "exports/rows.h"
#include "imaging/identify.h"
#include "imaging/solver.h"
#include "imaging/trail_report.h"
#include "record/numbers.h"
#include "record/wout_data.h"
#include "view/calculation.h"
#include "view/marks.h"
#include "view/message_boxes.h"

namespace {

constexpr double degreesPerHour = 15.0;
constexpr QColor fitting(255, 230, 0), others(90, 200, 255), streakColour(255, 70, 70);

/// Grey between the levels; what is no number is black.
QImage greyOf(const PixelField& pixels)
{
    constexpr double blackShare = 0.02, whiteShare = 0.997;
    const Levels levels = levelsOf(pixels, blackShare, whiteShare);
    QImage image(pixels.width, pixels.height, QImage::Format_Grayscale8);
    for (int row = 0; row < pixels.height && !image.isNull(); ++row)
        for (int column = 0; column < pixels.width; ++column) {
            const float share = (pixels.at(column, row) - levels.black) / (levels.white - levels.black);
            image.scanLine(row)[column] = static_cast<uchar>(share > 0.0f ? 255.0f * std::min(share, 1.0f) : 0.0f);
        }
    return image;
}

/// The grey values of a picture that is no FITS file.
PixelField valuesOf(const QImage& image)
{
    const QImage grey = image.convertToFormat(QImage::Format_Grayscale8);
    PixelField pixels{grey.width(), grey.height(), {}};
    for (int row = 0; row < grey.height(); ++row)
        pixels.values.insert(pixels.values.end(), grey.constScanLine(row), grey.constScanLine(row) + grey.width());
    return pixels;
}

}  // namespace

bool VorlixView::openPicture(const QString& name, QString& why)
{
    const std::string path = QFile::encodeName(name).toStdString();
    ReadPicture read = readPicture(path);
    why = QString::fromStdString(read.complaint);
    if (!read.complaint.empty())
        return false;
    const QImage image = read.picture.pixels.width > 0 ? greyOf(read.picture.pixels) : QImage(name);
    if (image.isNull())
        return false;
    skyPicture = std::make_unique<SkyPicture>(std::move(read.picture));
    if (skyPicture->pixels.width == 0)
        skyPicture->pixels = valuesOf(image);
    skyPicture->width = image.width();
    skyPicture->height = image.height();
    vPicture(image);
    if (skyPicture->plate)
        measureByPlate();
    return true;
}

PicturePoint VorlixView::platePixel(double x, double y) const
{
    const double factor = double(skyPicture->width) / std::max(picSize.width(), 1);
    const double column = (x + 0.5) * factor + 0.5, row = (y + 0.5) * factor + 0.5;
    return {column, skyPicture->rowsUpward ? skyPicture->height + 1.0 - row : row};
}

QPointF VorlixView::shownPoint(const PicturePoint& p) const
{
    const double factor = double(picSize.width()) / std::max(skyPicture->width, 1);
    const double row = skyPicture->rowsUpward ? skyPicture->height + 1.0 - p.y : p.y;
    return {(p.x - 0.5) * factor - 0.5, (row - 0.5) * factor - 0.5};
}

/// Three points of the plate take the place of three stars, so that the rest of the measurement works as it does with
/// these.
void VorlixView::measureByPlate()
{
    WinpData& in = *indata;
    const QSize size = picSize;
    const QPoint corners[] = {{size.width() / 2, size.height() / 2},
                              {size.width() * 3 / 4, size.height() / 2},
                              {size.width() / 2, size.height() / 4}};
    for (int k = 0; k < astrometry::lastStar; ++k) {
        const auto place = skyPicture->plate->skyOf(platePixel(corners[k].x(), corners[k].y()));
        if (!place)
            return;
        in.astra[k] = place->ra * radPerDeg;
        in.astdec[k] = place->dec * radPerDeg;
        in.astx[k] = corners[k].x();
        in.asty[k] = corners[k].y();
    }
    getPlateConst();
    in.picstep = astrometry::firstTrailEnd;
    tellNextClick();
}

bool VorlixView::plateAt(int x, int y, double& ra, double& dec) const
{
    if (!skyPicture || !skyPicture->plate || !indata->picflg)
        return false;
    const auto place = skyPicture->plate->skyOf(platePixel(x, y));
    if (!place)
        return false;
    ra = DegFDms(place->ra / degreesPerHour);
    dec = DegFDms(place->dec);
    return true;
}

void VorlixView::tellPlace(const QPoint& p)
{
    double ra = 0, dec = 0;
    if (indata->dspmd > 0 && plateAt(p.x(), p.y(), ra, dec))
        Q_EMIT nextClickMeans(tr("R.A. %1 h, Dec. %2").arg(ra, 0, 'f', 5).arg(dec, 0, 'f', 4));
}

/// The streak between the two marked points of a trail, or those that are found.
std::vector<Streak> VorlixView::streaksOfPicture() const
{
    std::vector<Streak> streaks;
    if (indata->picstep >= astrometry::furtherTrailPoint) {
        const auto ends = astrometry::trailEnds(*indata);
        const auto pixel = [&](const astrometry::Place& place) {
            return skyPicture->plate->pixelOf({DmsDegF(place.ra) * degreesPerHour, DmsDegF(place.dec)});
        };
        if (const auto a = pixel(ends[0]), b = pixel(ends[1]); a && b)
            streaks.push_back({*a, *b, 0.0});
        return streaks;
    }
    streaks = findStreaks(skyPicture->pixels);
    if (skyPicture->rowsUpward)
        for (Streak& streak : streaks)
            for (PicturePoint* p : {&streak.from, &streak.to})
                p->y = skyPicture->height + 1.0 - p->y;
    return streaks;
}

/// Time and exposure of the picture, or those that are asked for. @return  false if the user cancelled
bool VorlixView::askExposure(ExposedPicture& picture)
{
    const PictureFacts& facts = skyPicture->facts;
    if (facts.begin)
        picture.begin = *facts.begin;
    else if (askEventDate(tr("Begin of the Exposure")))
        picture.begin = indata->mjd;
    else
        return false;
    constexpr double longestSeconds = 86400.0;
    picture.exposure = facts.exposure.value_or(0.0);
    return picture.exposure > 0.0 || askNumber(this, tr("Satellites in Picture"), tr("Exposure (seconds):"),
                                               picture.exposure, longestSeconds, 3);
}

/// Asks whether the plate solver shall look for a solution, and loads the picture anew with it.
void VorlixView::solveLoadedPicture()
{
    constexpr double limitSeconds = 120.0;
    const QString title = tr("Satellites in Picture"), name = QFile::decodeName(skyPicture->name.c_str());
    if (!agrees(this, title,
                tr("The picture has no solution. Shall solve-field look for one, for two minutes at most?")))
        return;
    std::string why;
    QString reason;
    if (!calculated([&] { why = solvePicture(name, limitSeconds); }))
        return;
    if (!why.empty() || !openPicture(name, reason))
        inform(this, title, tr("No solution: %1.").arg(why.empty() ? reason : QString::fromStdString(why)));
}

void VorlixView::vPictureSatellites()
{
    const QString title = tr("Satellites in Picture");
    if (skyPicture && !skyPicture->plate && readsSolutions() && hasPlateSolver())
        solveLoadedPicture();
    if (!skyPicture || !skyPicture->plate) {
        inform(this, title,
               readsSolutions()
                   ? tr("A picture with a solution is needed: a FITS file, or one with a .wcs file beside it.")
                   : tr("This program was built without WCSLIB, which reads the solutions of pictures."));
        return;
    }
    ExposedPicture picture;
    if (!askExposure(picture))
        return;
    picture.plate = skyPicture->plate.get();
    picture.width = skyPicture->width;
    picture.height = skyPicture->height;
    picture.equinox = skyPicture->facts.equinox;
    picture.site = skyPicture->facts.site.value_or(siteOf(*indata));
    picture.earth = earthOrientationOf(*indata);
    std::optional<std::vector<PictureTrail>> onIt;
    const auto search = [&] {
        picture.streaks = streaksOfPicture();
        const auto book = brightnessBook(keptBrightnessSettings(indata->chlen), indata->tlename);
        onIt = satellitesOn(indata, picture, book);
    };
    if (!calculated(search))
        return;
    if (!onIt) {
        inform(this, title, tr("*** Unable to open TLE file ***"));
        return;
    }
    drawPictureTrails(picture, *onIt);
    trailReport(outdata, *indata, picture, *onIt);
    indata->txtrdy = 1;
}

void VorlixView::drawPictureTrails(const ExposedPicture& picture, const std::vector<PictureTrail>& all)
{
    QPainter painter(&picDsp);
    painter.drawPixmap(0, 0, picBase);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(nameFont());
    painter.setPen(QPen(streakColour, 1, Qt::DashLine));
    for (const Streak& streak : picture.streaks)
        painter.drawLine(shownPoint(streak.from), shownPoint(streak.to));
    for (const PictureTrail& trail : all) {
        if (trail.line.empty())
            continue;
        painter.setPen(trail.match ? fitting : others);
        QPolygonF line;
        for (const PicturePoint& p : trail.line)
            line << shownPoint(p);
        painter.drawPolyline(line);
        painter.drawText(line.last() + QPointF(4, -4), QString::fromStdString(trail.crossing.name));
    }
    painter.end();
    indata->dspmd = 1;
    update();
}
