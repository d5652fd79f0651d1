// A star picture from the file to the orbit: loading, sizes, three stars, trail ends, satellites plotted on it.

#include <algorithm>
#include <array>
#include <cmath>

#include <QMessageBox>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>

#include "app/app_fixture.h"
#include "app/record/text.h"
#include "astro/angles.h"
#include "astro/vec3.h"

using windows::answering;
using windows::click;
using windows::enter;

namespace {

/// A place in the sky, degrees, equator of J2000.
struct Place
{
    double ra = 0, dec = 0;
};

struct Pixel
{
    double x = 0, y = 0;
};

double distance(const Pixel& a, const Pixel& b)
{
    return std::sqrt((a.x - b.x) * (a.x - b.x) + (a.y - b.y) * (a.y - b.y));
}

// ENVISAT over Vienna at 18:46:00 and :03 UTC of 20 January 2018, from its elements in visual_2018.txt: python3-sgp4
// (WGS72) to the true equator and once more through the nutation, as the engine does it; nutation, precession, sidereal
// time and ellipsoid by ERFA (nut80, pmat76, gst94, gd2gc), UT1 equal to UTC. Good to an arc second.
constexpr Place trailBegin{29.263462, 19.844790};
constexpr Place trailEnd{28.516987, 20.994099};
constexpr double heightOfEnvisatKm = 771.5;
constexpr double inclinationOfEnvisat = 98.3;

/// A pinhole camera: the gnomonic projection, by vectors.
class Camera
{
public:
    static constexpr QSize size{800, 600};
    static constexpr double arcsecPerPixel = 10.0;

    /// @param turn  degrees; at 0 North is up and East on the left
    explicit Camera(double turn, const Place& at = {28.9, 20.43})
        : centre(towards(at)),
          east{-std::sin(radPerDeg * at.ra), std::cos(radPerDeg * at.ra), 0.0},
          cosine(std::cos(radPerDeg * turn)),
          sine(std::sin(radPerDeg * turn))
    {}

    Pixel pixelOf(const Place& place) const
    {
        const Vec3 s = towards(place);
        const double xi = dot(s, east) / dot(s, centre) / unit;
        const double eta = dot(s, north) / dot(s, centre) / unit;
        return {400.0 - xi * cosine + eta * sine, 300.0 - xi * sine - eta * cosine};
    }

    Place placeOf(const Pixel& p) const
    {
        const double right = 400.0 - p.x;
        const double down = 300.0 - p.y;
        const Vec3 s =
            centre + unit * (right * cosine + down * sine) * east + unit * (down * cosine - right * sine) * north;
        const double ra = degPerRad * std::atan2(s[1], s[0]);
        return {ra < 0 ? ra + 360.0 : ra, degPerRad * std::atan2(s[2], std::sqrt(s[0] * s[0] + s[1] * s[1]))};
    }

private:
    static Vec3 towards(const Place& p)
    {
        const double a = radPerDeg * p.ra;
        const double d = radPerDeg * p.dec;
        return {std::cos(d) * std::cos(a), std::cos(d) * std::sin(a), std::sin(d)};
    }

    static constexpr double unit = radPerDeg * arcsecPerPixel / 3600.0;
    const Vec3 centre, east;
    const Vec3 north = centre * east;
    const double cosine, sine;
};

// Whole pixels at a quarter of the size as well.
constexpr std::array<Pixel, 3> starPixels{Pixel{200, 160}, {640, 200}, {400, 520}};

/// Degrees or hours as a person types them: D.MMSS with thousandths of the second.
QString packed(double value)
{
    const long long thousandths = std::llround(std::abs(value) * 3600.0 * 1000.0);
    return QStringLiteral("%1%2.%3%4")
        .arg(value < 0 ? "-" : "")
        .arg(thousandths / 3600000)
        .arg(thousandths / 60000 % 60, 2, 10, QLatin1Char('0'))
        .arg(thousandths % 60000, 5, 10, QLatin1Char('0'));
}

QImage photograph(const Camera& camera)
{
    QImage image(Camera::size, QImage::Format_RGB32);
    image.fill(QColor(12, 14, 24));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto at = [](const Pixel& p) { return QPointF(p.x + 0.5, p.y + 0.5); };
    painter.setPen(QPen(QColor(200, 200, 190), 2));
    painter.drawLine(at(camera.pixelOf(trailBegin)), at(camera.pixelOf(trailEnd)));
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(250, 250, 250));
    for (const Pixel& star : starPixels)
        painter.drawEllipse(at(star), 5, 5);
    return image;
}

QImage shown(const VorlixView* view)
{
    return view->picturePixmap().toImage().convertToFormat(QImage::Format_RGB32);
}

/// The smallest rectangle around all pixels of a colour below the line of texts.
QRect boxOf(const QImage& image, QRgb colour)
{
    constexpr int belowTexts = 40;
    QRect box;
    for (int y = belowTexts; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) == colour)
                box |= QRect(x, y, 1, 1);
    return box;
}

}  // namespace

class PictureTest : public AppTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        AppTest::open();
        view = app->canvas();
        windows::observeAllFromVienna();
        indata->mfsz = 10;
        indata->bf = false;
    }

    void cleanup() { close(); }

    void measuresAndPlots_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("sizeAction");
        QTest::addColumn<int>("part");
        QTest::addColumn<double>("turn");
        QTest::addRow("JPEG at half size") << "stars.jpg"
                                           << "size50" << 2 << 25.0;
        QTest::addRow("BMP at a quarter, held upright") << "stars.bmp"
                                                        << "size25" << 4 << 90.0;
        QTest::addRow("named as one for fine screens, upside down") << "stars@2x.png"
                                                                    << "normalSize" << 1 << 180.0;
    }

    void measuresAndPlots()
    {
        QFETCH(QString, file);
        QFETCH(QString, sizeAction);
        QFETCH(int, part);
        QFETCH(double, turn);
        const Camera camera(turn);
        open(saved(photograph(camera), file));
        for (const char* name : {"viewPicture", "size25", "size50", "normalSize"})
            QVERIFY2(action(name)->isEnabled(), name);
        action(qPrintable(sizeAction))->trigger();
        QCOMPARE(view->size(), Camera::size / part);
        for (const Pixel& star : starPixels)
            QVERIFY(shown(view).pixelColor(toInt(star.x / part), toInt(star.y / part)).lightness() > 100);

        markStars(camera, part);
        QCOMPARE(indata->picstep, 4);
        for (int k = 0; k < 10; ++k) {
            const Pixel at{20.0 + k * 379 % 760, 24.0 + k * 233 % 552};
            const QPoint clicked(toInt(at.x / part), toInt(at.y / part));
            clickAt(clicked);
            const Pixel measured = camera.pixelOf(lastPoint(k == 0 ? 3 : 4));
            const Pixel truth{1.0 * clicked.x() * part, 1.0 * clicked.y() * part};
            QVERIFY2(distance(measured, truth) < 0.3 * part, qPrintable(QString::number(distance(measured, truth))));
        }

        plotTheTrail();
        // half a pixel of rounding, 0.3 of the plate
        const Pixel marker = camera.pixelOf(trailBegin);
        const QRect box = boxOf(shown(view), qRgb(255, 0, 0));
        QCOMPARE(box.size(), QSize(5, 5));
        QVERIFY(std::abs(box.center().x() - marker.x / part) < 0.8);
        QVERIFY(std::abs(box.center().y() - marker.y / part) < 0.8);
    }

    void theTrailGivesAnOrbit()
    {
        const Camera camera(25.0);
        open(saved(photograph(camera), "stars.png"));
        QVERIFY(!pictureButtonShown());
        markStars(camera, 1);
        clickAt({30, 500});  // the first of three points is dropped
        QVERIFY(!pictureButtonShown());
        for (const Place& end : {trailBegin, trailEnd}) {
            const Pixel p = camera.pixelOf(end);
            clickAt({toInt(std::round(p.x)), toInt(std::round(p.y))});
        }
        std::array<QString, 4> fields;
        QStringList titles;
        const auto dateTaken = [&](QDialog* dialog) { enterDate(dialog); };
        const auto sightings = [&](QDialog* dialog) {
            click(dialog, "picButton");
            const char* const edits[] = {"az1Edit", "el1Edit", "az2Edit", "el2Edit"};
            for (std::size_t k = 0; k < fields.size(); ++k)
                fields[k] = dialog->findChild<QLineEdit*>(edits[k])->text();
            enter(dialog, "deltmEdit", "3");
            click(dialog, "matchBox");
            click(dialog, "okButton");
        };
        const auto editor = [&](QDialog* dialog) { click(dialog, "okButton"); };
        QCOMPARE(answering([&] { action("manvOrbDet")->trigger(); }, {dateTaken, sightings, editor}), 3);

        for (std::size_t end : {0U, 1U}) {
            const Place read{15.0 * DmsDegF(fields[2 * end].toDouble()), DmsDegF(fields[2 * end + 1].toDouble())};
            // half a pixel of the click in each direction, the plate and six digits of the dialog
            QVERIFY(distance(camera.pixelOf(read), camera.pixelOf(end == 0 ? trailBegin : trailEnd)) < 1.2);
        }
        QCOMPARE(fieldQString(indata->fsname[0]), QString("New"));
        // and the element file knows the satellite
        QVERIFY(indata->satn >= 2);
        QVERIFY(std::ranges::find(indata->norad, 27386) != std::end(indata->norad));
        QCOMPARE(indata->dspmd, 0);
        // a pixel of the 484 of the trail is 0.2 % of the distance and 2 km; a pixel across it turns the path by 0.1 degrees
        QVERIFY2(std::abs(indata->a[0] - 6371.0 - heightOfEnvisatKm) < 30.0,
                 qPrintable(QString::number(indata->a[0])));
        QVERIFY2(std::abs(indata->inc[0] - inclinationOfEnvisat) < 1.0, qPrintable(QString::number(indata->inc[0])));
    }

    void writesWhatWasMeasured()
    {
        open(saved(photograph(Camera(0)), "stars.png"));
        const QImage base = shown(view);
        scrollDown();
        markStar({200, 360}, "1.5650", "-20.3015");
        markStar({640, 360}, "1.5150", "-20.3015");
        markStar({400, 520}, "1.54", "-21");
        QCOMPARE(shown(view), base);
        clickAt({200, 360});
        const int top = -view->y();
        QVERIFY(top > 0);
        QImage expected = base;
        {
            QPainter painter(&expected);
            painter.setFont(QFont("Helvetica", 10, QFont::Normal));
            const int y = top + 10 + painter.fontMetrics().ascent();
            painter.setPen(QColor(255, 255, 0));
            painter.drawText(180, y, "R.A.:   1h5650");
            painter.drawText(320, y,
                             QString::fromLatin1("Dec.: -20\xB0"
                                                 "3015"));
        }
        QCOMPARE(shown(view), expected);
    }

    void marksWhatIsInSight()
    {
        const Camera camera(25.0);
        open(saved(photograph(camera), "stars.png"));
        markStars(camera, 1);
        plotTheTrail();
        QImage expected = shown(view);
        const QRect box = boxOf(expected, qRgb(255, 0, 0));
        {
            QPainter painter(&expected);
            painter.setFont(QFont("Helvetica", 8, QFont::Normal));
            painter.setPen(QColor(255, 0, 0));
            painter.drawText(box.center() + QPoint(1, -2), "ENVISAT");
        }
        action("viewNames")->trigger();
        QCOMPARE(shown(view), expected);
        action("viewNames")->trigger();
        QCOMPARE(boxOf(shown(view), qRgb(255, 0, 0)), box);
        // the Sun stood 28.5 degrees below the horizon of ENVISAT, whose height lowers it by 26.9
        indata->visflg = 1;
        action("plotCurrent")->trigger();
        QVERIFY(boxOf(shown(view), qRgb(255, 0, 0)).isNull());
    }

    void aPlotWaitsForThreeStars()
    {
        open(saved(photograph(Camera(0)), "stars.png"));
        markStar({200, 160}, "1.5650", "20.3015");
        markStar({640, 200}, "1.5150", "20.3015");
        const QImage before = shown(view);
        const double t = indata->mjd;
        for (const char* plot : {"plotForward", "plotCurrent", "plotBackward"})
            action(plot)->trigger();
        QCOMPARE(shown(view), before);
        QCOMPARE(indata->mjd, t);
        markStar({400, 520}, "1.54", "20");
        action("plotForward")->trigger();
        QCOMPARE(indata->mjd, t + indata->tmstep);
        QCOMPARE(indata->plotyear, 2018);
    }

    void cancelAsksAgainAndAbortForgets()
    {
        open(saved(photograph(Camera(0)), "stars.png"));
        markStar({200, 160}, "1.5650", "20.3015");
        answering(
            [&] {
                clickAt({640, 200});
            },
            {[](QDialog* dialog) {
                enter(dialog, "raEdit", "2.0");
                click(dialog, "cancelButton");
            }});
        QCOMPARE(indata->picstep, 2);
        QCOMPARE(indata->astra[1], 0.0);
        QCOMPARE(indata->astx[1], 0);

        action("size50")->trigger();
        QCOMPARE(indata->picstep, 1);
        QCOMPARE(askedFor({100, 80}), QStringList({"1.565", "20.3015"}));  // the star of the full size

        QString text;
        answering(
            [&] {
                clickAt({100, 80});
            },
            {[](QDialog* dialog) { click(dialog, "abortButton"); },
             [&](QDialog* dialog) {
                 text = dialog->windowTitle();
                 text += qobject_cast<QMessageBox*>(dialog)->text();
                 dialog->accept();
             }});
        QCOMPARE(text, QString("PicAst: Astrometry aborted."));
        QCOMPARE(indata->picstep, 1);
        QCOMPARE(askedFor({100, 80}), QStringList({"", ""}));
    }

    void aPictureIsPutAwayAndTakenUpAgain()
    {
        const Camera camera(25.0);
        open(saved(photograph(camera), "stars.png"));
        markStars(camera, 1);
        clickAt({300, 300});
        const QImage before = shown(view);
        action("viewPicture")->trigger();
        QVERIFY(!indata->picflg);
        QCOMPARE(view->size(), view->displayPixmap().size());
        action("viewPicture")->trigger();
        QCOMPARE(indata->picstep, 5);
        QCOMPARE(shown(view), before);
        QCOMPARE(view->size(), Camera::size);
        action("viewText")->trigger();
        QCOMPARE(view->size(), view->textPixmap().size());
        action("viewText")->trigger();
        QCOMPARE(view->size(), Camera::size);

        open(saved(QImage(320, 200, QImage::Format_RGB32), "other.png"));
        QCOMPARE(view->size(), QSize(320, 200));
        const Place first = camera.placeOf(starPixels[0]);
        const QStringList fields = askedFor({10, 10});
        // six digits of the earlier coordinates
        QVERIFY(std::abs(15.0 * DmsDegF(fields[0].toDouble()) - first.ra) < 15.0 * 0.06 / 3600.0);
        QVERIFY(std::abs(DmsDegF(fields[1].toDouble()) - first.dec) < 0.6 / 3600.0);
    }

    void whatIsNoPictureLeavesTheFormerOne()
    {
        const QString files[] = {"text.png", "colours.bmp", "large.png"};
        place->write(files[0], "no picture");
        place->write(files[1], bitmapHeader(20000));  // 20,000 x 20,000 in colours
        saved(QImage(20000, 20000, QImage::Format_Mono), files[2]);
        const Camera camera(25.0);
        open(saved(photograph(camera), "stars.png"));
        markStars(camera, 1);
        clickAt({300, 300});
        const QImage before = shown(view);
        for (const QString& file : files) {
            QString text;
            answering([&] { action("filePicture")->trigger(); },
                      {[&](QDialog* dialog) { chooseFile(dialog, place->path(file)); },
                       [&](QDialog* dialog) {
                           text = qobject_cast<QMessageBox*>(dialog)->text();
                           dialog->accept();
                       }});
            QCOMPARE(text, "Cannot load " + place->path(file) + ".");
            QCOMPARE(shown(view), before);
            QCOMPARE(indata->picstep, 5);
            QVERIFY(indata->picflg);
        }
    }

private:
    static constexpr double timeOfTrail = 58138.0 + (18.0 + 46.0 / 60.0) / 24.0;

    static int toInt(double x) { return static_cast<int>(x); }

    QString saved(const QImage& image, const QString& file) const
    {
        return image.save(place->path(file), nullptr, 95) ? place->path(file) : QString();
    }

    void open(const QString& file)
    {
        const int windows = answering([&] { action("filePicture")->trigger(); },
                                      {[&](QDialog* dialog) { chooseFile(dialog, file); }});
        QCOMPARE(windows, 1);
    }

    void clickAt(const QPoint& p) const { QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, p); }

    void markStar(const QPoint& p, const QString& ra, const QString& dec)
    {
        const int windows = answering([&] { clickAt(p); }, {[&](QDialog* dialog) {
                                          enter(dialog, "raEdit", ra);
                                          enter(dialog, "decEdit", dec);
                                          click(dialog, "okButton");
                                      }});
        QCOMPARE(windows, 1);
    }

    void markStars(const Camera& camera, int part)
    {
        for (const Pixel& star : starPixels) {
            const Place truth = camera.placeOf(star);
            markStar({toInt(star.x / part), toInt(star.y / part)}, packed(truth.ra / 15.0), packed(truth.dec));
        }
    }

    /// What the star dialog proposes after a click; it is cancelled.
    QStringList askedFor(const QPoint& p)
    {
        QStringList fields;
        answering([&] { clickAt(p); }, {[&](QDialog* dialog) {
                      for (const char* edit : {"raEdit", "decEdit"})
                          fields += dialog->findChild<QLineEdit*>(QLatin1String(edit))->text();
                  }});
        return fields;
    }

    /// The point of the trail measured last.
    static Place lastPoint(int entry)
    {
        return {15.0 * DmsDegF(indata->astra[entry]), DmsDegF(indata->astdec[entry])};
    }

    static void enterDate(QDialog* dialog)
    {
        enter(dialog, "hourEdit", "18");
        enter(dialog, "minEdit", "46");
        enter(dialog, "secEdit", "0");
        click(dialog, "okButton");
    }

    /// HST, which is down, ENVISAT, which left the trail, and one that stands beside the picture, at its beginning.
    void plotTheTrail()
    {
        for (const char* name : {"HST", "ENVISAT", "COSMO-SKYMED 1"})
            windows::select(name);
        QCOMPARE(indata->satn, 3);
        QCOMPARE(indata->norad[1], 27386);
        indata->prs = 0;
        answering([&] { action("inputDate")->trigger(); }, {[](QDialog* dialog) { enterDate(dialog); }});
        action("plotCurrent")->trigger();
    }

    bool pictureButtonShown()
    {
        bool shows = false;
        answering([&] { action("manvOrbDet")->trigger(); },
                  {[](QDialog* dialog) { click(dialog, "okButton"); },
                   [&](QDialog* dialog) { shows = dialog->findChild<QAbstractButton*>("picButton")->isVisible(); }});
        return shows;
    }

    void scrollDown() const
    {
        QScrollBar* bar = qobject_cast<QScrollArea*>(app->centralWidget())->verticalScrollBar();
        bar->setValue(bar->maximum());
    }

    /// A bitmap of true colours that ends behind its header.
    static QByteArray bitmapHeader(int side)
    {
        QByteArray bytes("BM");
        const auto put = [&bytes](quint32 value, int count) {
            for (int k = 0; k < count; ++k)
                bytes += static_cast<char>(value >> (8 * k) & 0xFFU);
        };
        const quint32 length = static_cast<quint32>(side) * static_cast<quint32>(side) * 3U;
        for (quint32 word : {54U + length, 0U, 54U, 40U, static_cast<quint32>(side), static_cast<quint32>(side)})
            put(word, 4);
        put(1, 2);
        put(24, 2);
        for (quint32 word : {0U, length, 2835U, 2835U, 0U, 0U})
            put(word, 4);
        return bytes;
    }

    VorlixView* view = nullptr;
};

QTEST_MAIN(PictureTest)
#include "picture_test.moc"
