// The pictures of the world maps: coast, grid, night, observer, by their pixels.

#include <QImage>
#include <QPainter>
#include <QTest>
#include <cmath>

#include "view/coast_data.h"
#include "view/map_geometry.h"
#include "view/picture_helper.h"
#include "view/view_fixture.h"

namespace {

const QColor coast(200, 100, 50), grid(130, 160, 180), strong(30, 240, 120), observer(0, 255, 255);
constexpr int mapRows = 362;

/// The coast as the table tells it, line by line.
void drawCoast(QPainter& painter, const VorlixView& view)
{
    painter.setPen(coast);
    bool penDown = false;
    QPoint pen;
    for (const CoastPoint& point : coastPoints) {
        if (point.lat == penUp) {
            penDown = false;
            continue;
        }
        const QPoint next = view.PxCoord(point.lat * 0.1, point.lng * 0.1);
        if (penDown && std::abs(next.x() - pen.x()) < 200)
            painter.drawLine(pen, next);
        pen = next;
        penDown = true;
    }
}

}  // namespace

class WorldMapTest : public ViewTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        openForDrawing(58138.5);
        indata->mapprj = 0;
        indata->mgrid = 1;
    }

    void cleanup() { close(); }

    void theViewKnowsThePixelsOfItsMap()
    {
        for (const auto& [mapprj, pixel] :
             {std::pair{0, QPoint(393, 83)}, {1, QPoint(337, 102)}, {3, QPoint(393, 83)}}) {
            indata->mapprj = mapprj;
            const QImage map = drawnMap();
            QCOMPARE(view->PxCoord(48.25, 16.5), pixel);
            double lat = 0, lng = 0;
            view->CoordPx(pixel, lat, lng);
            QVERIFY(std::abs(lat - 48.25) < 0.5 && std::abs(lng - 16.5) < 0.5);
            for (const QPoint& drawn : {pixel, pixel + QPoint(2, 0), pixel - QPoint(0, 2)})
                QCOMPARE(map.pixelColor(drawn), observer);
            QVERIFY(map.pixelColor(pixel + QPoint(3, 3)) != observer);
        }
    }

    void theCoastIsThatOfSingleLines_data() { everyMap(); }
    void theCoastIsThatOfSingleLines()
    {
        QFETCH(int, mapprj);
        QFETCH(double, centmer);
        indata->mapprj = mapprj;
        indata->centmer = centmer;
        view->vRefresh();
        QPixmap expected(721, mapRows), drawn(721, mapRows);
        expected.fill(Qt::black);
        drawn.fill(Qt::black);
        {
            QPainter one(&expected), other(&drawn);
            drawCoast(one, *view);
            view->MapLand(other);
            if (mapprj != 0) {
                one.setPen(grid);
                QPoint last = view->PxCoord(0, 0.0001);
                for (int lng = 0; lng < 360; ++lng) {
                    const QPoint next = view->PxCoord(0, lng);
                    if (last.x() <= 860 && last.y() <= 501 && next.x() <= 860 && next.y() <= 501)
                        one.drawLine(last, next);
                    last = next;
                }
            }
        }
        QVERIFY(drawn.toImage() == expected.toImage());
    }

    void theGridStandsWhereItShould()
    {
        indata->mgrid = 2;
        QImage map = drawnMap();
        QCOMPARE(map.pixelColor(20, 5), grid);     // 170 degrees west
        QCOMPARE(map.pixelColor(60, 5), strong);   // 150 degrees west
        QCOMPARE(map.pixelColor(720, 5), strong);  // 180 degrees
        QCOMPARE(map.pixelColor(0, 5), QColor(0, 0, 0));
        QCOMPARE(map.pixelColor(5, 340), grid);   // 80 degrees south
        QCOMPARE(map.pixelColor(5, 60), strong);  // 60 degrees north
        QCOMPARE(map.pixelColor(65, 61), QColor(0, 0, 0));
        indata->mgrid = 1;
        map = drawnMap();
        QCOMPARE(map.pixelColor(20, 5), QColor(0, 0, 0));
        QCOMPARE(map.pixelColor(60, 5), grid);
        QCOMPARE(map.pixelColor(5, 60), grid);
        QCOMPARE(map.pixelColor(5, 340), QColor(0, 0, 0));
        indata->mgrid = 0;
        map = drawnMap();
        QCOMPARE(map.pixelColor(60, 5), QColor(0, 0, 0));
        QCOMPARE(map.pixelColor(720, 0), grid);
        QCOMPARE(map.pixelColor(720, 361), grid);
    }

    void theNightLiesOnTheDarkSide()
    {
        // 20 January and 10 August 2018: where ephem 4.1.4 has the Sun overhead
        constexpr double suns[][3] = {{58138.5, -20.0668, 2.7545}, {58340.145833, 15.5935, 128.8541}};
        constexpr int nights[] = {223, 150, 65};
        indata->mpnight = 1;
        indata->centmer = 37.0;
        for (int mgrey = 0; mgrey < 3; ++mgrey) {
            const auto& [day, sunLat, sunLng] = suns[mgrey % 2];
            const QColor night(nights[mgrey], nights[mgrey], nights[mgrey]);
            indata->mgrey = mgrey;
            indata->mjd = day;
            const QImage map = drawnMap();
            const QColor background = map.pixelColor(361, 361);  // below the south pole
            int dark = 0, light = 0;
            for (int y = 0; y <= 360; ++y) {
                for (int x = 0; x < 720; ++x) {  // the column at 720 repeats the meridian of the first one
                    const double elevation =
                        pictures::sunElevation(sunLat, sunLng, (180 - y) / 2.0, (x - 360) / 2.0 + 37.0);
                    const QColor colour = map.pixelColor(x, y);
                    dark += colour == night;
                    light += colour == background;
                    // the border stands on half degrees
                    QVERIFY(colour != night || elevation < 0.52);
                    QVERIFY(colour != background || elevation > -0.52);
                }
            }
            QVERIFY(dark > 100000 && light > 100000);
        }
    }

    void theNightOfEveryMapIsThatOfSinglePoints_data() { everyMap(); }
    void theNightOfEveryMapIsThatOfSinglePoints()
    {
        QFETCH(int, mapprj);
        QFETCH(double, centmer);
        indata->mapprj = mapprj;
        indata->centmer = centmer;
        indata->mpnight = 1;
        view->vRefresh();
        const QColor night(65, 65, 65);
        QImage expected(721, mapRows, QImage::Format_RGB32);
        expected.fill(Qt::black);
        for (const NightMeridian& dark : nightMeridians(indata->mjd)) {
            for (int k = dark.first; k <= dark.last; ++k) {
                const QPoint p = view->PxCoord(k / 2.0, dark.lng);
                if (expected.rect().contains(p))
                    expected.setPixelColor(p, night);
            }
        }
        const QImage map = mapImage();
        int dark = 0;
        for (int y = 0; y < mapRows; ++y) {
            for (int x = 0; x <= 720; ++x) {
                const QColor colour = map.pixelColor(x, y);
                if (colour == night || colour == QColor(0, 0, 0))
                    QCOMPARE(colour, expected.pixelColor(x, y));
                dark += colour == night;
            }
        }
        QVERIFY(dark > 10000);
    }

private:
    void everyMap()
    {
        QTest::addColumn<int>("mapprj");
        QTest::addColumn<double>("centmer");
        for (const int mapprj : {0, 1, 2})
            for (const double centmer : {0.0, 100.0, 217.3})
                QTest::addRow("map %d, meridian %g", mapprj, centmer) << mapprj << centmer;
    }
};

QTEST_MAIN(WorldMapTest)
#include "world_map_test.moc"
