// The pictures of the world maps: coast, grid, night, observer, by their pixels.

#include <QImage>
#include <QPainter>
#include <QTest>
#include <cmath>
#include <limits>
#include <memory>

#include "astro/angles.h"
#include "view/coast_data.h"
#include "view/map_geometry.h"
#include "view/picture_helper.h"
#include "view/vorlix_view.h"
#include "view/window_helper.h"

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

class WorldMapTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        windows::stopTheClock();
        place = std::make_unique<windows::Workplace>();
        view = std::make_unique<VorlixView>();
        windows::observeAllFromVienna();
        indata->mapprj = 0;
        indata->mgrey = 2;
        indata->mgrid = 1;
        indata->mjd = 58138.5;
    }

    void cleanup()
    {
        view.reset();
        place.reset();
    }

    void theViewKnowsThePixelsOfItsMap_data()
    {
        QTest::addColumn<int>("mapprj");
        QTest::addColumn<QPoint>("pixel");
        QTest::newRow("outline") << 0 << QPoint(393, 83);
        QTest::newRow("northern") << 1 << QPoint(337, 102);
        QTest::newRow("southern") << 2 << QPoint(863, 504);
        QTest::newRow("physical") << 3 << QPoint(393, 83);
    }

    void theViewKnowsThePixelsOfItsMap()
    {
        QFETCH(int, mapprj);
        QFETCH(QPoint, pixel);
        indata->mapprj = mapprj;
        view->vRefresh();
        QCOMPARE(view->PxCoord(48.25, 16.5), pixel);
        if (mapprj == 2)
            return;
        double lat = 0, lng = 0;
        view->CoordPx(pixel, lat, lng);
        QVERIFY(std::abs(lat - 48.25) < 0.5);
        QVERIFY(std::abs(lng - 16.5) < 0.5);
        const QImage map = view->mapPixmap().toImage();
        QCOMPARE(map.pixelColor(pixel), observer);
        QCOMPARE(map.pixelColor(pixel + QPoint(2, 0)), observer);
        QCOMPARE(map.pixelColor(pixel - QPoint(0, 2)), observer);
        QVERIFY(map.pixelColor(pixel + QPoint(3, 3)) != observer);
    }

    void theCoastIsThatOfSingleLines_data()
    {
        QTest::addColumn<int>("mapprj");
        QTest::addColumn<double>("centmer");
        for (const int mapprj : {0, 1, 2})
            for (const double centmer : {0.0, 100.0, 217.3})
                QTest::addRow("map %d, meridian %g", mapprj, centmer) << mapprj << centmer;
    }

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
        view->vRefresh();
        QImage map = view->mapPixmap().toImage();
        QCOMPARE(map.pixelColor(20, 5), grid);     // 170 degrees west
        QCOMPARE(map.pixelColor(60, 5), strong);   // 150 degrees west
        QCOMPARE(map.pixelColor(720, 5), strong);  // 180 degrees
        QCOMPARE(map.pixelColor(0, 5), QColor(0, 0, 0));
        QCOMPARE(map.pixelColor(5, 340), grid);   // 80 degrees south
        QCOMPARE(map.pixelColor(5, 60), strong);  // 60 degrees north
        QCOMPARE(map.pixelColor(65, 61), QColor(0, 0, 0));
        indata->mgrid = 1;
        view->vRefresh();
        map = view->mapPixmap().toImage();
        QCOMPARE(map.pixelColor(20, 5), QColor(0, 0, 0));
        QCOMPARE(map.pixelColor(60, 5), grid);
        QCOMPARE(map.pixelColor(5, 60), grid);
        QCOMPARE(map.pixelColor(5, 340), QColor(0, 0, 0));
        indata->mgrid = 0;
        view->vRefresh();
        map = view->mapPixmap().toImage();
        QCOMPARE(map.pixelColor(60, 5), QColor(0, 0, 0));
        QCOMPARE(map.pixelColor(720, 0), grid);
        QCOMPARE(map.pixelColor(720, 361), grid);
    }

    void hemispheresHaveOneGrid()
    {
        for (const int mapprj : {1, 2}) {
            indata->mapprj = mapprj;
            indata->mgrid = 1;
            view->vRefresh();
            const QImage coarse = view->mapPixmap().toImage();
            QCOMPARE(coarse.pixelColor(360, 20), grid);   // a meridian
            QCOMPARE(coarse.pixelColor(180, 180), grid);  // another one
            QCOMPARE(coarse.pixelColor(720, 20), QColor(0, 0, 0));
            indata->mgrid = 2;
            view->vRefresh();
            QCOMPARE(view->mapPixmap().toImage(), coarse);
            indata->mgrid = 0;
            view->vRefresh();
            QCOMPARE(view->mapPixmap().toImage().pixelColor(360, 20), QColor(0, 0, 0));
            QCOMPARE(view->mapPixmap().toImage().pixelColor(720, 20), grid);
        }
    }

    void theNightLiesOnTheDarkSide_data()
    {
        QTest::addColumn<int>("mgrey");
        QTest::addColumn<QColor>("night");
        QTest::newRow("white") << 0 << QColor(223, 223, 223);
        QTest::newRow("grey") << 1 << QColor(150, 150, 150);
        QTest::newRow("black") << 2 << QColor(65, 65, 65);
    }

    void theNightLiesOnTheDarkSide()
    {
        QFETCH(int, mgrey);
        QFETCH(QColor, night);
        // 20 January and 10 August 2018: where ephem 4.1.4 has the Sun overhead
        for (const auto& [day, sunLat, sunLng] :
             {std::array{58138.5, -20.0668, 2.7545}, std::array{58340.145833, 15.5935, 128.8541}}) {
            indata->mgrey = mgrey;
            indata->mpnight = 1;
            indata->mjd = day;
            indata->centmer = 37.0;
            view->vRefresh();
            const QImage map = view->mapPixmap().toImage();
            const QColor background = map.pixelColor(361, 361);  // below the south pole
            int dark = 0, light = 0;
            for (int y = 0; y <= 360; ++y) {
                for (int x = 0; x < 720; ++x) {  // the column at 720 repeats the meridian of the first one
                    const double elevation =
                        pictures::sunElevation(sunLat, sunLng, (180 - y) / 2.0, (x - 360) / 2.0 + 37.0);
                    const QColor colour = map.pixelColor(x, y);
                    dark += colour == night;
                    light += colour == background;
                    if (colour == night)
                        QVERIFY(elevation < 0.52);  // the border stands on half degrees
                    else if (colour == background)
                        QVERIFY(elevation > -0.52);
                }
            }
            QVERIFY(dark > 100000 && light > 100000);
        }
    }

    void theNightOfEveryMapIsThatOfSinglePoints_data()
    {
        QTest::addColumn<int>("mapprj");
        QTest::addColumn<double>("centmer");
        for (const int mapprj : {0, 1, 2})
            for (const double centmer : {0.0, 100.0, 217.3})
                QTest::addRow("map %d, meridian %g", mapprj, centmer) << mapprj << centmer;
    }

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
        const QImage map = view->mapPixmap().toImage();
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

    void thePhysicalMapStandsWithoutOutlinesByDay()
    {
        indata->mapprj = 3;
        indata->mgrid = 0;
        const auto coastPixels = [this] {
            view->vRefresh();
            const QImage map = view->mapPixmap().toImage();
            int count = 0;
            for (int y = 0; y < mapRows; ++y)
                for (int x = 0; x < 720; ++x)
                    count += map.pixelColor(x, y) == coast;
            return count;
        };
        QVERIFY(coastPixels() < 50);  // what the image holds of that colour
        indata->mpnight = 1;
        QVERIFY(coastPixels() > 3000);
        indata->mpnight = 0;
        indata->phwm = false;
        QVERIFY(coastPixels() > 3000);
    }

    void theMeridianMovesEverythingAlike()
    {
        indata->mpnight = 1;
        view->vRefresh();
        const QImage before = view->mapPixmap().toImage();
        indata->centmer = 60.0;
        view->vRefresh();
        const QImage after = view->mapPixmap().toImage();
        // 120 pixels; the columns at both edges belong to the same meridian
        int different = 0;
        for (int y = 0; y < mapRows; ++y)
            for (int x = 121; x < 719; ++x)
                different += before.pixel(x, y) != after.pixel(x - 120, y);
        // a sloping line may take another way between the same ends where the edge cut it
        QVERIFY(different < 50);
    }

    void absurdSettingsLeaveAPicture_data()
    {
        QTest::addColumn<double>("value");
        QTest::newRow("huge") << 1e300;
        QTest::newRow("hugely negative") << -1e300;
        QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
        QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN();
    }

    void absurdSettingsLeaveAPicture()
    {
        QFETCH(double, value);
        for (const int mapprj : {0, 1, 2, 3}) {
            indata->mapprj = mapprj;
            indata->mpnight = 1;
            indata->mgrid = 2;
            indata->centmer = value;
            indata->lat = value;
            indata->lng = value;
            indata->mjd = value;
            view->vRefresh();
            QCOMPARE(view->mapPixmap().toImage().pixelColor(10, 370), QColor(0, 50, 200));
        }
        indata->centmer = 0;
    }

private:
    std::unique_ptr<windows::Workplace> place;
    std::unique_ptr<VorlixView> view;
};

QTEST_MAIN(WorldMapTest)
#include "world_map_test.moc"
