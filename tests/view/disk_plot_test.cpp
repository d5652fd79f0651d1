// The plot of the Sun's or the Moon's disk: where satellites stand, limb, phase and north mark.

#include <QImage>
#include <QTest>
#include <cmath>
#include <limits>
#include <numbers>

#include "astro/angles.h"
#include "engine/satpos_data.h"
#include "view/disk_geometry.h"
#include "view/picture_helper.h"
#include "view/view_fixture.h"

namespace {

constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
const DiskFrame disk{{360, 180}, 504.0, 504.0};

struct PixelCase
{
    const char* what;
    Horizontal body;  // degrees here
    double az, el;
    QPoint pixel;
};

// 504 pixels to a degree; an azimuth counts less by the cosine of the elevation.
const PixelCase pixelCases[] = {
    {"in the middle", {120, 30}, 120, 30, {360, 180}},
    {"to the right", {120, 0}, 120.25, 0, {486, 180}},
    {"to the right, high up", {120, 60}, 120.5, 60, {486, 180}},
    {"above", {120, 30}, 120, 30.25, {360, 54}},
    {"less than half a pixel", {120, 0}, 120 - 0.49 / 504, 0.49 / 504, {360, 180}},
    {"more than half a pixel", {120, 0}, 120 - 0.51 / 504, 0.51 / 504, {359, 179}},
    {"across north", {-0.1, 0}, 0.1, 0, {461, 180}},
    {"across north, the other way", {0.1, 0}, 359.9, 0, {259, 180}},
    {"last row", {10, 0}, 10, -181.4 / 504, {360, 361}},
    {"below it", {10, 0}, 10, -181.6 / 504, {360, -10}},
    {"5 degrees off", {10, 0}, 15, 0, {2880, 180}},
    {"more than 5 degrees off", {10, 0}, 15.01, 0, {0, -10}},
    {"more than 5 degrees higher", {10, 0}, 10, 5.01, {0, -10}},
    {"no number", {10, noNumber}, 10, 0, {0, -10}},
};

Horizontal radians(const Horizontal& degrees)
{
    return {degrees.az * radPerDeg, degrees.el * radPerDeg};
}

struct NorthCase
{
    const char* what;
    Horizontal body;  // degrees
    double lat, angle;
};

// sin q = sin(az) cos(lat) / cos(dec), and on the meridian the pole stands straight above or below.
constexpr NorthCase northCases[] = {
    {"south", {180, 30}, 48, 0},
    {"north, between pole and horizon", {0, 20}, 48, 0},
    {"north, above the pole", {0.01, 70}, 48, -179.982138},
    {"west point", {270, 0}, 48, 42},
    {"west point, counted backward", {-90, 0}, 48, 42},
    {"east point", {90, 0}, 48, -42},
};

const QColor white(255, 255, 255), black(0, 0, 0), green(30, 240, 120), northColour(200, 100, 50);

}  // namespace

class DiskPlotTest : public ViewTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        openForDrawing(58140.75);  // 22 January 2018, 18h: a crescent Moon, a third lit, in the southwest
        indata->mapprj = 0;
        indata->sunmplt = 1;
        indata->occflg = 1;
        indata->mgrid = 1;
    }

    void cleanup() { close(); }

    void satellitesStandBesideTheBody()
    {
        for (const PixelCase& c : pixelCases)
            QVERIFY2(pixelOf(disk, radians(c.body), c.az, c.el) == c.pixel, c.what);
    }

    void northLeansTowardsThePole()
    {
        for (const NorthCase& c : northCases)
            QVERIFY2(std::abs(northAngle(radians(c.body), c.lat) * degPerRad - c.angle) < 1e-4, c.what);
    }

    void theLitSideFacesTheSun()
    {
        // the middle of the lit half lies 90 degrees behind its start, clockwise from the top
        const auto middle = [](const Horizontal& sun, const Horizontal& moon) {
            return std::remainder((litStart(radians(sun), radians(moon)) + std::numbers::pi / 2) * degPerRad, 360.0);
        };
        QVERIFY(std::abs(middle({270, 0}, {180, 0}) - 90) < 1e-9);  // Sun to the right
        QVERIFY(std::abs(middle({90, 0}, {180, 0}) + 90) < 1e-9);
        QVERIFY(std::abs(middle({180, 50}, {180, 20})) < 1e-9);  // Sun above
        QVERIFY(std::abs(std::abs(middle({180, -20}, {180, 20})) - 180) < 1e-9);
        QCOMPARE(litStart({0, 0}, {0, 0}), -std::numbers::pi / 2);
    }

    void theSunIsARoundLine()
    {
        windows::select("ISS");
        view->vRefresh();
        QCOMPARE(indata->diskon, 1);
        const QImage map = mapImage();
        // radius 0.265 x 504 = 133.56
        for (const QPoint& p : {QPoint(360, 46), QPoint(494, 180), QPoint(360, 314), QPoint(226, 180)})
            QCOMPARE(map.pixelColor(p), white);
        for (int y = 0; y < 362; ++y)
            for (int x = 0; x < 721; ++x)
                if (map.pixelColor(x, y) == white)
                    QVERIFY(std::abs(std::hypot(x - 360, y - 180) - 133.56) < 1.5);
    }

    void theMarkOfNorthComesWithGridAndSatellite()
    {
        for (const auto& [mgrid, satellite] : {std::pair{1, false}, {0, true}, {1, true}}) {
            if (satellite && indata->satn == 0)
                windows::select("ISS");
            indata->mgrid = mgrid;
            const QImage map = drawnMap();
            QCOMPARE(pictures::pixelsOf(map, northColour) > 20, mgrid && satellite);
            QCOMPARE(map.pixelColor(360, 180) == northColour, mgrid && satellite);
        }
    }

    void theMoonShowsItsPhase()
    {
        windows::select("ISS");
        indata->occflg = 2;
        indata->mgrid = 0;
        view->vRefresh();
        const double R = satps->moonrad * 504.0;
        QVERIFY(R > 120 && R < 145);
        QVERIFY(std::abs(satps->moonph + 0.44) < 0.1);  // a good quarter of the disk is lit
        const QImage map = mapImage();
        // the lit limb on the side of the Sun, right and below, as a line; the dark one in dots
        QVERIFY(pictures::pixelsOf(map, white, {360, 180, 200, 182}) > 150);
        QCOMPARE(pictures::pixelsOf(map, white, {0, 0, 300, 180}), 0);
        QVERIFY(pictures::pixelsOf(map, green, {0, 0, 360, 180}) > 10);
        QCOMPARE(pictures::pixelsOf(map, green, {400, 200, 321, 162}), 0);
        // the terminator lies between the centre and the lit limb
        QVERIFY(pictures::pixelsOf(map, white, {365, 185, 80, 80}) > 20);
    }

    void aNewMoonIsDottedAllRound()
    {
        windows::select("ISS");
        indata->occflg = 2;
        indata->mgrid = 0;
        indata->mjd = 58135.1;  // two hours after new Moon
        const QImage map = drawnMap();
        QVERIFY(satps->moonph <= -0.995);
        QCOMPARE(pictures::pixelsOf(map, white), 0);
        QCOMPARE(pictures::pixelsOf(map, green), 72);
        indata->mgrey = 0;  // of the base colour on white
        QCOMPARE(pictures::pixelsOf(drawnMap(), black), 72);
    }
};

QTEST_MAIN(DiskPlotTest)
#include "disk_plot_test.moc"
