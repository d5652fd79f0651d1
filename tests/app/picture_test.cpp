// A star picture from the file to the orbit: loading, sizes, three stars, trail ends, satellites plotted on it.

#include <algorithm>
#include <array>
#include <cmath>

#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>

#include "app/app_helper.h"
#include "astro/angles.h"
#include "astro/vec3.h"
#include "record/text.h"

namespace {

/// A place in the sky, degrees, equator of J2000.
struct Place
{
    double ra = 0, dec = 0;
};

double distance(const QPointF& a, const QPointF& b)
{
    return QLineF(a, b).length();
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
    /// @param turn  degrees; at 0 North is up and East on the left
    explicit Camera(double turn)
        : toPixels(QTransform::fromTranslate(400, 300).rotate(turn).scale(-pixelsPerUnit, -pixelsPerUnit))
    {}

    QPointF pixelOf(const Place& place) const
    {
        const Vec3 s = towards(place);
        return toPixels.map(QPointF(dot(s, east), dot(s, north)) / dot(s, centre));
    }

    Place placeOf(const QPointF& pixel) const
    {
        const QPointF p = toPixels.inverted().map(pixel);
        const Vec3 s = centre + p.x() * east + p.y() * north;
        return {degPerRad * std::atan2(s[1], s[0]),
                degPerRad * std::atan2(s[2], std::sqrt(s[0] * s[0] + s[1] * s[1]))};
    }

    QImage photograph() const
    {
        QImage image(800, 600, QImage::Format_RGB32);
        image.fill(QColor(12, 14, 24));
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        const QPointF middle(0.5, 0.5);
        painter.setPen(QPen(QColor(200, 200, 190), 2));
        painter.drawLine(pixelOf(trailBegin) + middle, pixelOf(trailEnd) + middle);
        painter.setPen(Qt::NoPen);
        painter.setBrush(QColor(250, 250, 250));
        for (const QPoint& star : stars)
            painter.drawEllipse(star + middle, 5, 5);
        return image;
    }

    // whole pixels at a quarter of the size as well
    static constexpr std::array stars{QPoint{200, 160}, QPoint{640, 200}, QPoint{400, 520}};

private:
    static Vec3 towards(const Place& p)
    {
        const double a = radPerDeg * p.ra;
        const double d = radPerDeg * p.dec;
        return {std::cos(d) * std::cos(a), std::cos(d) * std::sin(a), std::sin(d)};
    }

    static constexpr Place at{28.9, 20.43};
    static constexpr double pixelsPerUnit = degPerRad * 3600.0 / 10.0;  // ten seconds of arc to a pixel
    const Vec3 centre = towards(at);
    const Vec3 east{-std::sin(radPerDeg * at.ra), std::cos(radPerDeg* at.ra), 0.0};
    const Vec3 north = centre * east;
    const QTransform toPixels;
};

}  // namespace

class PictureTest : public AppTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        open();
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
        load(camera.photograph(), file);
        for (const char* name : {"viewPicture", "size25", "size50", "normalSize"})
            QVERIFY2(action(name)->isEnabled(), name);
        QCOMPARE(app->statusBar()->currentMessage(), QString("Ready."));
        choose(sizeAction);
        QCOMPARE(nextClick(), QString("Next click: star 1 of 3"));
        QCOMPARE(canvas()->size(), QSize(800, 600) / part);
        for (const QPoint& star : Camera::stars)
            QVERIFY(shown().pixelColor(star / part).lightness() > 100);

        markStars(camera, part);
        QCOMPARE(indata->picstep, 4);
        QCOMPARE(nextClick(), QString("Next click: first point of the trail"));
        for (int k = 0; k < 10; ++k) {
            const QPoint clicked((20 + k * 379 % 760) / part, (24 + k * 233 % 552) / part);
            choose(clickAt(clicked));
            const std::size_t point = k == 0 ? 3 : 4;
            const Place last{15.0 * DmsDegF(indata->astra[point]), DmsDegF(indata->astdec[point])};
            QVERIFY(distance(camera.pixelOf(last), clicked * part) < 0.3 * part);
        }

        plotTheTrail();
        // half a pixel of rounding, 0.3 of the plate
        const QPointF off = markerBox().center() - camera.pixelOf(trailBegin) / part;
        QCOMPARE(markerBox().size(), QSize(5, 5));
        QVERIFY(std::abs(off.x()) < 0.8 && std::abs(off.y()) < 0.8);
    }

    void theNextClickIsToldWhereOneIsAwaited()
    {
        load(Camera(25.0).photograph());
        const QStringList seen = follow(clickAt({30, 500}) + "\n| see title; cancelButton");
        QCOMPARE(seen, QStringList("Astrometry: Star 1 of 3"));
        choose("viewPicture");
        QCOMPARE(nextClick(), QString());
    }

    void theTrailGivesAnOrbit()
    {
        const Camera camera(25.0);
        load(camera.photograph());
        const auto pictureButtonShown = [this] {
            bool shows = false;
            choose("manvOrbDet", {answer("okButton"), [&](QDialog* dialog) {
                                      shows = dialog->findChild<QAbstractButton*>("picButton")->isVisible();
                                  }});
            return shows;
        };
        QVERIFY(!pictureButtonShown());
        markStars(camera, 1);
        choose(clickAt({30, 500}));  // the first of three points is dropped
        QVERIFY(!pictureButtonShown());
        for (const Place& end : {trailBegin, trailEnd})
            choose(clickAt(camera.pixelOf(end).toPoint()));
        const QStringList seen = follow(R"(
            manvOrbDet
            | hourEdit = 18; minEdit = 46; secEdit = 0; okButton
            | picButton; see az1Edit el1Edit az2Edit el2Edit; deltmEdit = 3; matchBox on; okButton
            | okButton)");
        for (int end : {0, 1}) {
            const auto field = [&](int k) { return DmsDegF(seen.value(2 * end + k).section(' ', -1).toDouble()); };
            // half a pixel of the click in each direction, the plate and six digits of the dialog
            QVERIFY(distance(camera.pixelOf({15.0 * field(0), field(1)}),
                             camera.pixelOf(end == 0 ? trailBegin : trailEnd)) < 1.2);
        }
        QCOMPARE(fieldQString(indata->fsname[0]), QString("New"));
        // and the element file knows the satellite
        QVERIFY(indata->satn >= 2);
        QVERIFY(std::ranges::find(indata->norad, 27386) != std::end(indata->norad));
        QCOMPARE(indata->dspmd, 0);
        // a pixel of the 484 of the trail is 0.2 % of the distance and 2 km; a pixel across it turns the path by 0.1
        // degrees
        QVERIFY2(std::abs(indata->a[0] - 6371.0 - heightOfEnvisatKm) < 30.0,
                 qPrintable(QString::number(indata->a[0])));
        QVERIFY2(std::abs(indata->inc[0] - inclinationOfEnvisat) < 1.0, qPrintable(QString::number(indata->inc[0])));
    }

    void writesWhatWasMeasured()
    {
        load(Camera(0).photograph());
        QImage expected = shown();
        QScrollBar* bar = qobject_cast<QScrollArea*>(app->centralWidget())->verticalScrollBar();
        bar->setValue(bar->maximum());
        markStar({200, 360}, "1.5650", "-20.3015");
        markStar({640, 360}, "1.5150", "-20.3015");
        markStar({400, 520}, "1.54", "-21");
        QCOMPARE(shown(), expected);
        choose(clickAt({200, 360}));
        const int top = -canvas()->y();
        QVERIFY(top > 0);
        QPainter painter(&expected);
        painter.setFont(QFont("Helvetica", 10, QFont::Normal));
        const int y = top + 10 + painter.fontMetrics().ascent();
        painter.setPen(QColor(255, 255, 0));
        painter.drawText(180, y, "R.A.:   1h5650");
        painter.drawText(320, y, QStringLiteral("Dec.: -20\u00B03015"));
        painter.end();
        QCOMPARE(shown(), expected);
        choose("viewPicture");
        QCOMPARE(bar->value(), 0);
    }

    void marksWhatIsInSight()
    {
        const Camera camera(25.0);
        load(camera.photograph());
        markStars(camera, 1);
        plotTheTrail();
        QImage expected = shown();
        const QRect box = markerBox();
        QPainter painter(&expected);
        painter.setFont(QFont("Helvetica", 8, QFont::Normal));
        painter.setPen(QColor(255, 0, 0));
        const int bearing = painter.fontMetrics().boundingRect("ENVISAT").left();
        painter.drawText(box.center() + QPoint(5 - bearing, 4), "ENVISAT");
        painter.end();
        choose("viewNames");
        QCOMPARE(shown(), expected);
        choose("viewNames");
        QCOMPARE(markerBox(), box);
        // the Sun stood 28.5 degrees below the horizon of ENVISAT, whose height lowers it by 26.9
        indata->visflg = 1;
        choose("plotCurrent");
        QVERIFY(markerBox().isNull());
    }

    void aPictureIsPutAwayAndTakenUpAgain()
    {
        const Camera camera(25.0);
        load(camera.photograph());
        markStars(camera, 1);
        choose(clickAt({300, 300}));
        const QImage before = shown();
        windows::select("ISS");
        choose("viewPicture");
        QVERIFY(!indata->picflg);
        QCOMPARE(canvas()->size(), canvas()->displayPixmap().size());
        const QImage map = canvas()->displayPixmap().toImage();
        choose("plotCurrent");
        QVERIFY(canvas()->displayPixmap().toImage() == map);  // satellites and legend were there
        choose("viewPicture");
        QCOMPARE(indata->picstep, 5);
        QCOMPARE(shown(), before);
        QCOMPARE(canvas()->size(), before.size());
        choose("viewText");
        QCOMPARE(canvas()->size(), canvas()->textPixmap().size());
        choose("viewText");
        QCOMPARE(canvas()->size(), before.size());

        load(QImage(320, 200, QImage::Format_RGB32), "other.png");
        QCOMPARE(canvas()->size(), QSize(320, 200));
        const Place first = camera.placeOf(Camera::stars[0]);
        const QStringList fields = follow("click 10 10\n| see raEdit decEdit; reject");
        // six digits of the earlier coordinates
        QVERIFY(std::abs(15.0 * DmsDegF(fields[0].section(' ', -1).toDouble()) - first.ra) < 15.0 * 0.06 / 3600.0);
        QVERIFY(std::abs(DmsDegF(fields[1].section(' ', -1).toDouble()) - first.dec) < 0.6 / 3600.0);
    }

private:
    static QString clickAt(const QPoint& p) { return QString("click %1 %2").arg(p.x()).arg(p.y()); }

    QImage shown() const { return canvas()->picturePixmap().toImage().convertToFormat(QImage::Format_RGB32); }

    void load(const QImage& image, const QString& file = "stars.png")
    {
        QVERIFY(image.save(place->path(file), nullptr, 95));
        choose("filePicture", {answer("file " + file)});
    }

    void markStar(const QPoint& p, const QString& ra, const QString& dec)
    {
        choose(clickAt(p), {answer("raEdit = " + ra + "; decEdit = " + dec + "; okButton")});
    }

    QString nextClick() const { return app->findChild<QLabel*>("nextClickLabel")->text(); }

    void markStars(const Camera& camera, int part)
    {
        for (const QPoint& star : Camera::stars) {
            const Place truth = camera.placeOf(star);
            markStar(star / part, QString::number(DegFDms(truth.ra / 15.0), 'f', 7),
                     QString::number(DegFDms(truth.dec), 'f', 7));
        }
    }

    /// HST, which is down, ENVISAT, which left the trail, and one that stands beside the picture, at its beginning.
    void plotTheTrail()
    {
        follow(R"(
            select HST
            select ENVISAT
            select COSMO-SKYMED 1
            inputDate
            | hourEdit = 18; minEdit = 46; secEdit = 0; okButton)");
        QCOMPARE(indata->norad[1], 27386);
        indata->prs = 0;
        choose("plotCurrent");
    }

    /// The smallest rectangle around all red pixels below the line of texts.
    QRect markerBox() const
    {
        constexpr int belowTexts = 40;
        const QImage image = shown();
        QRect box;
        for (int y = belowTexts; y < image.height(); ++y)
            for (int x = 0; x < image.width(); ++x)
                if (image.pixel(x, y) == qRgb(255, 0, 0))
                    box |= QRect(x, y, 1, 1);
        return box;
    }
};

QTEST_MAIN(PictureTest)
#include "picture_test.moc"
