// The sky maps: directions and pixels, stars, Sun, Moon and planets, letters, and picks on them.

#include <QImage>
#include <QPainter>
#include <QTest>
#include <cmath>

#include "astro/angles.h"
#include "record_fields.h"
#include "view/picture_helper.h"
#include "view/sky_geometry.h"
#include "view/table_rows.h"
#include "view/view_fixture.h"

namespace {

const QColor black(0, 0, 0), white(255, 255, 255), red(255, 0, 0), yellow(255, 255, 0), green(0, 255, 0);

}  // namespace

class SkyMapTest : public ViewTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        openForDrawing(58138.833333);
        indata->skymap = 1;
        indata->skyprj = 0;
    }

    void cleanup() { close(); }

    void directionsBecomePixelsAndPixelsDirections()
    {
        for (const TableRow& row : tableRows("sky_pixels.txt")) {
            show(row[1]);
            QVERIFY2(view->PxSky(row.number(2), row.number(3)) == row.pixel(4), row.what);
        }
        for (const TableRow& row : tableRows("sky_places.txt")) {
            show(row[1]);
            setFields(*indata, "az1=11 az2=11 el2=11");
            view->SkyPx(row.pixel(2));
            const bool outside = row.number(5) == outsideSky;
            QVERIFY2(std::abs(indata->az1 - (outside ? 11.0 : row.number(4))) < 1e-4, row.what);
            QVERIFY2(std::abs(indata->el1 - row.number(5)) < 1e-4, row.what);
            QVERIFY2(!outside || indata->az2 + indata->el2 == 22.0, row.what);
            if (row.fields.size() < 8)
                continue;
            QVERIFY2(std::abs(DmsDegF(indata->az2) - DmsDegF(row.number(6))) < 2e-6, row.what);
            QVERIFY2(std::abs(DmsDegF(indata->el2) - DmsDegF(row.number(7))) < 1e-5, row.what);
        }
    }

    void theStepsOfTheAzimuthSkyChangeWithoutAJump()
    {
        show("skyprj=5 skaz=180");
        QVERIFY((view->PxSky(69.99, 200) - view->PxSky(70.01, 200)).manhattanLength() <= 1);
    }

    void theLimitIsTheHorizonOfTheEarth()
    {
        SkyFrame sky;
        for (const auto& [satellite, altitude, limit] :
             {std::tuple{true, 4e5, -19.78206872}, {true, -1.0, 0.0}, {false, 8000.0, 0.0}}) {  // the last a mountain
            sky.satsky = satellite;
            sky.altitude = altitude;
            QVERIFY(std::abs(skyLimit(sky) * degPerRad - limit) < 1e-8);
        }
    }

    void everyPixelReturnsToItself()
    {
        for (const char* fields :
             {"skyprj=0", "skyprj=0 satsky=1 height=4e5", "skyprj=3", "skyprj=3 satsky=1 height=4e5"}) {
            show(fields);
            // the printed factors of the way back have six digits, and x near the zenith has not converged
            const int tolerance = indata->skyprj == 0 ? 0 : 1, top = indata->skyprj == 0 ? 0 : 30;
            const double limit = indata->satsky ? -19.782 : 0.0;
            int inside = 0;
            for (int y = top; y <= 361; y += 2) {
                for (int x = 100; x <= 620; x += 2) {
                    view->SkyPx({x, y});
                    if (indata->el1 == outsideSky || std::abs(indata->el1 - limit) < 0.01)
                        continue;
                    ++inside;
                    QVERIFY((view->PxSky(indata->el1, indata->az1) - QPoint(x, y)).manhattanLength() <= tolerance);
                }
            }
            QVERIFY(inside > 30000);
        }
    }

    void starsStandWhereTheyShould()
    {
        indata->skaz = 180.0;
        const QList<TableRow> stars = tableRows("sky_stars.txt");
        for (const auto& [mgrey, skyprj] : {std::pair{0, 0}, {1, 3}, {2, 0}, {2, 3}}) {
            indata->mgrey = mgrey;
            indata->skyprj = skyprj;
            const QImage map = drawnMap();
            for (const TableRow& star : stars) {
                const QPoint p = view->PxSky(star.number(2), star.number(1));
                if (!map.rect().contains(p))
                    continue;
                const int grey = static_cast<int>(star.number(mgrey == 2 ? 4 : 3));
                const QColor colour(grey, grey, grey);
                const bool disk = pictures::pixelsOf(map, colour, {p - QPoint(3, 3), QSize(7, 7)}) > 1;
                QVERIFY2(pictures::pixelsOf(map, colour, {p - QPoint(1, 1), QSize(3, 3)}) > 0, star.what);
                QVERIFY2(disk == (star.number(5) != 0), star.what);
            }
        }
    }

    void bodiesStandWhereTheyShouldAndInTheKey()
    {
        for (const TableRow& body : tableRows("sky_bodies.txt")) {
            indata->mjd = body.number(1);
            const QImage map = drawnMap();
            // Sun and Venus stand side by side that day
            const QPoint p = view->PxSky(body.number(3), body.number(2)) - QPoint(2, 0);
            QVERIFY2(pictures::pixelsOf(map, body.colour(4), {p - QPoint(1, 1), QSize(3, 3)}) > 0, body.what);
            const QPoint left(static_cast<int>(body.number(6)), static_cast<int>(body.number(5)));
            QVERIFY2(map.pixelColor(left) == body.colour(4), body.what);
            QVERIFY2(map.pixelColor(left - QPoint(1, 0)) == black, body.what);
        }
        const QImage early = mapImage();  // neither Sun nor Moon in the key
        QCOMPARE(pictures::pixelsOf(early, yellow, {8, 5, 80, 14}), 0);
        QCOMPARE(pictures::pixelsOf(early, white, {8, 22, 80, 12}), 0);
        indata->mjd = 58138.5;
        const QImage late = drawnMap();  // neither Mars nor Jupiter; the Sun has a core
        QCOMPARE(pictures::pixelsOf(late, red, {8, 65, 80, 12}), 0);
        QCOMPARE(pictures::pixelsOf(late, green, {8, 80, 80, 12}), 0);
        QCOMPARE(late.pixelColor(view->PxSky(20.581, 193.792)), red);
        for (const int x : {12, 13, 14})
            QCOMPARE(late.pixelColor(x, 13), red);
    }

    void lettersAreThoseOfThePainter()
    {
        indata->skaz = 180.0;
        for (const auto& [skyprj, letter, x, y] : {std::tuple{0, "N", 360, 10},
                                                   {0, "E", 137, 180},
                                                   {0, "W", 575, 180},
                                                   {0, "S", 360, 351},
                                                   {3, "S", 360, 359}}) {
            indata->skyprj = skyprj;
            const QImage map = drawnMap();
            QPixmap reference(720, 362);
            reference.fill(Qt::black);
            QPainter painter(&reference);
            painter.setFont(QFont("Helvetica", 8));
            painter.setPen(Qt::white);
            painter.drawText(x, y, letter);
            painter.end();
            const QImage expected = reference.toImage();
            for (int row = 0; row < 362; ++row)
                for (int column = 0; column < 720; ++column)
                    if (const QColor colour = expected.pixelColor(column, row); colour != black)
                        QCOMPARE(map.pixelColor(column, row), colour);
        }
    }

private:
    void show(const QString& fields)
    {
        setFields(*indata, "mjd=58138.75 skaz=0 satsky=0 height=200 yrepoch=0");
        setFields(*indata, fields.toStdString());
        view->vRefresh();
    }
};

QTEST_MAIN(SkyMapTest)
#include "sky_map_test.moc"
