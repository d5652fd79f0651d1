// The plot of the Sun's or the Moon's disk: where satellites stand, limb, phase and north mark.

#include <QImage>
#include <QTest>
#include <cmath>
#include <numbers>

#include "astro/angles.h"
#include "engine/satpos_data.h"
#include "record_fields.h"
#include "view/disk_geometry.h"
#include "view/picture_helper.h"
#include "view/table_rows.h"
#include "view/view_fixture.h"

namespace {

const DiskFrame disk{{360, 180}, 504.0, 504.0};

Horizontal radians(double az, double el)
{
    return {az * radPerDeg, el * radPerDeg};
}

const QColor white(255, 255, 255), black(0, 0, 0), green(30, 240, 120), northColour(200, 100, 50);

}  // namespace

class DiskPlotTest : public ViewTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        openForDrawing(58140.75);  // 22 January 2018, 18h: a crescent Moon, a third lit, in the southwest
        windows::select("ISS");
        setFields(*indata, "mapprj=0 sunmplt=1 occflg=1 mgrid=1");
    }

    void cleanup() { close(); }

    void satellitesStandBesideTheBody()
    {
        for (const TableRow& row : tableRows("disk_pixels.txt")) {
            const Horizontal body = radians(row.number(1), row.number(2));
            QVERIFY2(pixelOf(disk, body, row.number(3), row.number(4)) == row.pixel(5), row.what);
        }
    }

    void northLeansTowardsThePole()
    {
        for (const TableRow& row : tableRows("disk_north.txt")) {
            const double angle = northAngle(radians(row.number(1), row.number(2)), row.number(3));
            QVERIFY2(std::abs(angle * degPerRad - row.number(4)) < 1e-4, row.what);
        }
    }

    void theLitSideFacesTheSun()
    {
        // the middle of the lit half lies 90 degrees behind its start, clockwise from the top
        const auto middle = [](double sunAz, double sunEl, double moonEl) {
            const double start = litStart(radians(sunAz, sunEl), radians(180, moonEl));
            return std::remainder((start + std::numbers::pi / 2) * degPerRad, 360.0);
        };
        QVERIFY(std::abs(middle(270, 0, 0) - 90) < 1e-9);  // Sun to the right
        QVERIFY(std::abs(middle(90, 0, 0) + 90) < 1e-9);
        QVERIFY(std::abs(middle(180, 50, 20)) < 1e-9);  // Sun above
        QVERIFY(std::abs(std::abs(middle(180, -20, 20)) - 180) < 1e-9);
        QCOMPARE(litStart({0, 0}, {0, 0}), -std::numbers::pi / 2);
    }

    void theSunIsARoundLine()
    {
        const QImage map = drawnMap();
        QCOMPARE(indata->diskon, 1);
        // radius 0.265 x 504 = 133.56
        for (const QPoint& p : {QPoint(360, 46), QPoint(494, 180), QPoint(360, 314), QPoint(226, 180)})
            QCOMPARE(map.pixelColor(p), white);
        for (int y = 0; y < 362; ++y)
            for (int x = 0; x < 721; ++x)
                QVERIFY(map.pixelColor(x, y) != white || std::abs(std::hypot(x - 360, y - 180) - 133.56) < 1.5);
    }

    void theMarkOfNorthComesWithGridAndSatellite()
    {
        for (const auto& [mgrid, satellites] : {std::pair{1, 0}, {0, 1}, {1, 1}}) {
            indata->satn = satellites;
            indata->mgrid = mgrid;
            const QImage map = drawnMap();
            QCOMPARE(pictures::pixelsOf(map, northColour) > 20, mgrid && satellites);
            QCOMPARE(map.pixelColor(360, 180) == northColour, mgrid && satellites);
        }
    }

    void theMoonShowsItsPhase()
    {
        setFields(*indata, "occflg=2 mgrid=0");
        const QImage map = drawnMap();
        const double R = satps->moonrad * 504.0;
        QVERIFY(R > 120 && R < 145);
        QVERIFY(std::abs(satps->moonph + 0.44) < 0.1);  // a good quarter of the disk is lit
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
        setFields(*indata, "occflg=2 mgrid=0 mjd=58135.1");  // two hours after new Moon
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
