// The world maps: degrees and pixels, the coast, the grid, the border of day and night, the observer.

#include <QImage>
#include <QPainter>
#include <QTest>
#include <cmath>

#include "astro/angles.h"
#include "astro/frames.h"
#include "record_fields.h"
#include "view/coast_data.h"
#include "view/map_geometry.h"
#include "view/picture_helper.h"
#include "view/table_rows.h"
#include "view/view_fixture.h"

namespace {

const QColor coast(200, 100, 50), grid(130, 160, 180), observer(0, 255, 255);
constexpr int mapRows = 362;

/// Elevation in degrees of a Sun that stands overhead at `sunLat`, `sunLng`.
double sunElevation(double sunLat, double sunLng, double lat, double lng)
{
    const double hour = (lng - sunLng) * radPerDeg;
    return degPerRad * std::asin(std::sin(sunLat * radPerDeg) * std::sin(lat * radPerDeg) +
                                 std::cos(sunLat * radPerDeg) * std::cos(lat * radPerDeg) * std::cos(hour));
}

/// The coast as the table tells it, line by line, and the equator around a hemisphere.
void drawLand(QPainter& painter, const VorlixView& view)
{
    painter.setPen(coast);
    bool penDown = false;
    QPoint pen;
    for (const CoastPoint& point : coastPoints) {
        const QPoint next = view.PxCoord(point.lat * 0.1, point.lng * 0.1);
        const bool drawn = point.lat != penUp;
        if (drawn && penDown && std::abs(next.x() - pen.x()) < 200)
            painter.drawLine(pen, next);
        pen = next;
        penDown = drawn;
    }
    painter.setPen(grid);
    pen = view.PxCoord(0, 0.0001);
    for (int lng = 0; lng < 360 && indata->mapprj != 0; ++lng) {
        const QPoint next = view.PxCoord(0, lng);
        if (pen.x() <= 860 && pen.y() <= 501 && next.x() <= 860 && next.y() <= 501)
            painter.drawLine(pen, next);
        pen = next;
    }
}

template <class Draw>
QImage drawnOnBlack(const Draw& draw)
{
    QPixmap map(721, mapRows);
    map.fill(Qt::black);
    QPainter painter(&map);
    draw(painter);
    painter.end();
    return map.toImage();
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

    void degreesBecomePixelsAndPixelsDegrees()
    {
        for (const TableRow& row : tableRows("world_pixels.txt")) {
            show(row[1]);
            QVERIFY2(view->PxCoord(row.number(2), row.number(3)) == row.pixel(4), row.what);
        }
        for (const TableRow& row : tableRows("world_places.txt")) {
            show(row[1]);
            double lat = 0, lng = 0;
            view->CoordPx(row.pixel(2), lat, lng);
            QVERIFY2(std::abs(lat - row.number(4)) < 1e-6, row.what);
            QVERIFY2(std::abs(std::remainder(lng - row.number(5), 360.0)) < 1e-6, row.what);
            QVERIFY2(indata->mapprj == 0 || std::abs(lng) <= 180.0, row.what);
        }
        const MapFrame wide{1, 0, {360, 180}, 200, 200, 860, 501};
        QCOMPARE(pixelOf(wide, 10.0, -90.0).x(), 360 + 336);
        QCOMPARE(pixelOf(wide, 2.0, -90.0).x(), 863);  // right of the map
    }

    void everyPixelReturnsToItself()
    {
        for (const int mapprj : {0, 1, 2, 3}) {
            for (const double centmer : {0.0, 100.0, 330.5}) {  // half a degree puts the middle between two pixels
                show(QString("mapprj=%1 centmer=%2").arg(mapprj).arg(centmer));
                int inside = 0;
                for (int y = 0; y <= 361; ++y) {
                    for (int x = 1; x < 720; x += 3) {
                        double lat = 0, lng = 0;
                        view->CoordPx({x, y}, lat, lng);
                        inside += lat != outsideMap;
                        QVERIFY(lat == outsideMap || view->PxCoord(lat, lng) == QPoint(x, y));
                    }
                }
                QVERIFY(inside > 40000);
            }
        }
    }

    void theNightIsWhereTheSunIsDown()
    {
        for (const TableRow& row : tableRows("suns.txt")) {
            const double time = row.number(1), sunLat = row.number(2), sunLng = row.number(3);
            const Vec3 sun = sunDirection(time);
            const std::vector<NightMeridian> night = nightMeridians(time);
            QCOMPARE(night.size(), 721u);
            for (const NightMeridian& dark : night) {
                const Vec3 meridian = vnorm(GeoPos(time, 0, 0, dark.lng * radPerDeg, 0));
                const double size = terminatorLatitude(sun, meridian);
                QVERIFY2(size <= 90.0, row.what);
                // aberration, nutation and the four digits of the table come to less than 0.02 degrees
                QVERIFY2(std::abs(sunElevation(sunLat, sunLng, sunLat > 0 ? size : -size, dark.lng)) < 0.02,
                         row.what);
                // the border is cut to half degrees towards the equator: up to one of them lies in the day
                for (int k = -180; k <= 180; ++k) {
                    const double elevation = sunElevation(sunLat, sunLng, k / 2.0, dark.lng);
                    const bool shaded = k >= dark.first && k <= dark.last;
                    QVERIFY2(std::abs(elevation) <= 0.52 || shaded == (elevation < 0), row.what);
                }
            }
        }
    }

    void theObserverIsADot()
    {
        for (const auto& [mapprj, pixel] :
             {std::pair{0, QPoint(393, 83)}, {1, QPoint(337, 102)}, {3, QPoint(393, 83)}}) {
            indata->mapprj = mapprj;
            const QImage map = drawnMap();
            double lat = 0, lng = 0;
            view->CoordPx(pixel, lat, lng);
            QVERIFY(std::abs(lat - 48.25) < 0.5 && std::abs(lng - 16.5) < 0.5);
            for (const QPoint& drawn : {pixel, pixel + QPoint(2, 0), pixel - QPoint(0, 2)})
                QCOMPARE(map.pixelColor(drawn), observer);
            QVERIFY(map.pixelColor(pixel + QPoint(3, 3)) != observer);
        }
    }

    void theGridStandsWhereItShould()
    {
        for (const TableRow& row : tableRows("world_grid.txt")) {
            show(row[1]);
            QVERIFY2(mapImage().pixelColor(row.pixel(2)) == row.colour(4), row.what);
        }
    }

    /// Lines are drawn in one call and the night as an image; the pixels are those of drawing line by line.
    void landAndNightAreThoseOfSingleLinesAndPoints_data()
    {
        QTest::addColumn<int>("mapprj");
        QTest::addColumn<double>("centmer");
        for (const int mapprj : {0, 1, 2})
            for (const double centmer : {0.0, 100.0, 217.3})
                QTest::addRow("map %d, meridian %g", mapprj, centmer) << mapprj << centmer;
    }
    void landAndNightAreThoseOfSingleLinesAndPoints()
    {
        QFETCH(int, mapprj);
        QFETCH(double, centmer);
        indata->mapprj = mapprj;
        indata->centmer = centmer;
        indata->mpnight = 1;
        indata->mgrey = mapprj;
        const QImage map = drawnMap();
        QCOMPARE(drawnOnBlack([&](QPainter& painter) { view->MapLand(painter); }),
                 drawnOnBlack([&](QPainter& painter) { drawLand(painter, *view); }));

        constexpr int nights[] = {223, 150, 65}, grounds[] = {255, 200, 0};
        const QColor night(nights[mapprj], nights[mapprj], nights[mapprj]);
        const QColor ground(grounds[mapprj], grounds[mapprj], grounds[mapprj]);
        QImage expected(721, mapRows, QImage::Format_RGB32);
        expected.fill(ground);
        for (const NightMeridian& dark : nightMeridians(indata->mjd)) {
            for (int k = dark.first; k <= dark.last; ++k) {
                const QPoint p = view->PxCoord(k / 2.0, dark.lng);
                if (expected.rect().contains(p))
                    expected.setPixelColor(p, night);
            }
        }
        for (int y = 0; y < mapRows; ++y) {
            for (int x = 0; x <= 720; ++x) {
                const QColor colour = map.pixelColor(x, y);
                if (colour == night || colour == ground)
                    QCOMPARE(colour, expected.pixelColor(x, y));
            }
        }
        QVERIFY(pictures::pixelsOf(map, night) > 10000);
    }

private:
    void show(const QString& fields)
    {
        indata->centmer = 0;
        setFields(*indata, fields.toStdString());
        view->vRefresh();
    }
};

QTEST_MAIN(WorldMapTest)
#include "world_map_test.moc"
