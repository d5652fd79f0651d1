// Elevation and azimuth, and pixels of the sky.

#include <QTest>
#include <cmath>

#include "astro/angles.h"
#include "view/sky_geometry.h"

namespace {

SkyFrame zenithSky(double satelliteMetres = 0)
{
    constexpr double scale = 180.0 / 1.678;
    return {0, 0.0, satelliteMetres > 0, satelliteMetres, {360, 180}, scale, scale, 860, 501};
}

SkyFrame azimuthSky(double skaz, double satelliteMetres = 0)
{
    return {5, skaz, satelliteMetres > 0, satelliteMetres, {360, 361}, 360 / 1.414, 255.30410183875532, 860, 501};
}

struct PixelCase
{
    const char* what;
    SkyFrame sky;
    double el, az;
    QPoint pixel;
};

const QPoint off(863, 504);

// The zenith projection worked out from r = 2 cos(el) / (1 + sin(el)), the other one with a Mollweide angle found by
// bisection. 400 km high the horizon lies 19.782 degrees deep.
const PixelCase pixelCases[] = {
    {"zenith", zenithSky(), 90, 33, {360, 180}},
    {"zenith, another azimuth", zenithSky(), 90, 277, {360, 180}},
    {"north is up", zenithSky(), 45, 0, {360, 91}},
    {"east is left", zenithSky(), 45, 90, {271, 180}},
    {"southwest", zenithSky(), 20, 250, {501, 231}},
    {"horizon", zenithSky(), 0, 270, {575, 180}},
    {"horizon, below", zenithSky(), 0, 225, {512, 332}},
    {"last row", zenithSky(), 9.6, 180, {360, 361}},
    {"below the last row only y is off", zenithSky(), 9.5, 180, {360, 863}},
    {"under the horizon", zenithSky(), -0.001, 180, off},
    {"satellite: under its horizontal", zenithSky(400000), -19.5, 100, {61, 233}},
    {"satellite: to the west", zenithSky(400000), -10, 250, {600, 267}},
    {"satellite: under the Earth's horizon", zenithSky(400000), -19.79, 100, off},
    {"azimuth: the middle", azimuthSky(180), 0, 180, {360, 361}},
    {"azimuth: left edge", azimuthSky(180), 0, 90, {0, 361}},
    {"azimuth: right edge", azimuthSky(180), 0, 270, {720, 361}},
    {"azimuth: right of the edge", azimuthSky(0), 0, 90.4, {863, 361}},
    {"azimuth: left of the edge", azimuthSky(0), 0, 269.6, {-2, 361}},
    {"azimuth: across north", azimuthSky(0), 20, 350, {322, 263}},
    {"azimuth: half way up", azimuthSky(180), 30, 200, {433, 215}},
    {"azimuth: west", azimuthSky(270), 45, 300, {457, 147}},
    {"azimuth: before the steps change", azimuthSky(180), 69, 250, {506, 53}},
    {"azimuth: eight steps", azimuthSky(180), 80, 180, {360, 20}},
    {"azimuth: under the horizon", azimuthSky(180), -0.001, 180, off},
    {"azimuth, satellite", azimuthSky(180, 400000), -10, 180, {360, 313}},
    {"azimuth, satellite: high", azimuthSky(90, 400000), 60, 100, {373, 20}},
    {"azimuth, satellite: above its picture", azimuthSky(90, 400000), 70.3, 100, off},
    {"azimuth, satellite: under the Earth's horizon", azimuthSky(90, 400000), -19.79, 100, off},
};

}  // namespace

class SkyGeometryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void directionsBecomePixels()
    {
        for (const PixelCase& c : pixelCases)
            QVERIFY2(pixelOf(c.sky, c.el, c.az) == c.pixel, c.what);
    }

    void theTopOfTheAzimuthSkyIsTheZenith()
    {
        // x has not converged there
        for (const double az : {0.0, 77.0, 260.0})
            QCOMPARE(pixelOf(azimuthSky(180), 90, az).y(), 0);
        QCOMPARE(pixelOf(azimuthSky(180), 85, 180).y(), 8);
        // three steps are not enough above 70 degrees: no jump may show where their number changes
        const QPoint below = pixelOf(azimuthSky(180), 69.99, 200), above = pixelOf(azimuthSky(180), 70.01, 200);
        QVERIFY((below - above).manhattanLength() <= 1);
    }

    void theLimitIsTheHorizonOfTheEarth()
    {
        QCOMPARE(skyLimit(zenithSky()), 0.0);
        QVERIFY(std::abs(skyLimit(zenithSky(400000)) * degPerRad + 19.78206872) < 1e-8);
        SkyFrame site = zenithSky();
        site.altitude = 8000;  // a mountain is no satellite
        QCOMPARE(skyLimit(site), 0.0);
        SkyFrame low = zenithSky(1);
        low.altitude = -1;
        QCOMPARE(skyLimit(low), 0.0);
    }

    void pixelsBecomeDirections()
    {
        const auto agrees = [](const SkyPlace& place, double az, double el) {
            return std::abs(place.az - az) < 1e-4 && std::abs(place.el - el) < 1e-4;
        };
        QVERIFY(agrees(placeAt(zenithSky(), {272, 92}), 45.0, 29.7658));
        QVERIFY(agrees(placeAt(zenithSky(), {400, 300}), 198.4349, 28.9537));
        QVERIFY(agrees(placeAt(zenithSky(), {360, 180}), 0.0, 90.0));
        QVERIFY(agrees(placeAt(azimuthSky(180), {300, 100}), 158.2947, 56.3411));
        QVERIFY(agrees(placeAt(azimuthSky(90), {100, 200}), 17.3914, 33.2530));
        QVERIFY(agrees(placeAt(azimuthSky(0), {360, 361}), 0.0, 0.0));
    }

    void outsideTheSkyIsNoElevation()
    {
        for (const SkyFrame& sky : {zenithSky(), zenithSky(400000)})
            QCOMPARE(placeAt(sky, {0, 0}).el, outsideSky);
        QCOMPARE(placeAt(zenithSky(), {145, 180}).el, outsideSky);  // 215 pixels from the zenith
        QVERIFY(placeAt(zenithSky(), {146, 180}).el > 0);
        QVERIFY(placeAt(zenithSky(400000), {145, 180}).el < 0);  // under its horizontal, above the Earth
        QVERIFY(placeAt(zenithSky(400000), {145, 180}).el > -19.0);
        QCOMPARE(placeAt(azimuthSky(0), {360, 362}).el, outsideSky);
        QCOMPARE(placeAt(azimuthSky(0), {360, 400}).el, outsideSky);
        QCOMPARE(placeAt(azimuthSky(0), {360, -10}).el, outsideSky);
    }

    void everyPixelReturnsToItself()
    {
        for (const double satellite : {0.0, 400000.0}) {
            int inside = 0;
            for (const SkyFrame& sky : {zenithSky(satellite), azimuthSky(180, satellite)}) {
                // the printed factors of the way back have six digits, and x near the zenith has not converged
                const int tolerance = sky.zenith() ? 0 : 1, top = sky.zenith() ? 0 : 30;
                for (int y = top; y <= 361; y += 2) {
                    for (int x = 100; x <= 620; x += 2) {
                        const SkyPlace place = placeAt(sky, {x, y});
                        if (place.el == outsideSky || std::abs(place.el - skyLimit(sky) * degPerRad) < 0.01)
                            continue;
                        ++inside;
                        QVERIFY((pixelOf(sky, place.el, place.az) - QPoint(x, y)).manhattanLength() <= tolerance);
                    }
                }
            }
            QVERIFY(inside > 70000);
        }
    }
};

QTEST_MAIN(SkyGeometryTest)
#include "sky_geometry_test.moc"
