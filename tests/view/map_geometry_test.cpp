// Degrees and pixels of the world maps, the coast table and the border of day and night.

#include <QTest>
#include <cmath>

#include "astro/angles.h"
#include "astro/frames.h"
#include "view/coast_data.h"
#include "view/map_geometry.h"
#include "view/picture_helper.h"

namespace {

constexpr double hemisphereScale = 180.0 / 1.678;

MapFrame frameOf(int mapprj, double centmer)
{
    const double scale = mapprj == 1 || mapprj == 2 ? hemisphereScale : 2.0;
    return {mapprj, centmer, {360, 180}, scale, scale, 860, 501};
}

struct PixelCase
{
    const char* what;
    int mapprj;
    double centmer, lat, lng;
    QPoint pixel;
};

// Worked out by hand from r = 2 cos(lat) / (1 + sin(lat)) and 107.2705 pixels to the unit.
const PixelCase pixelCases[] = {
    {"the middle", 0, 0, 0, 0, {360, 180}},
    {"halves go away from zero", 0, 0, 48.25, 16.5, {393, 83}},
    {"also southwest", 0, 0, -48.25, -16.25, {327, 277}},
    {"the east edge", 0, 0, 0, 180, {720, 180}},
    {"the west edge", 0, 0, 0, -180, {0, 180}},
    {"a turn more", 0, 0, 0, 190, {20, 180}},
    {"two turns less", 3, 0, 0, -710, {380, 180}},
    {"north pole", 3, 0, 90, 12, {384, 0}},
    {"no ground point", 0, 0, 100, 20, {400, -20}},
    {"central meridian east", 0, 100, 0, 110, {380, 180}},
    {"central meridian at the east edge", 0, 100, 0, 280, {720, 180}},
    {"central meridian at the west edge", 0, 100, 0, -80, {0, 180}},
    {"central meridian beyond the edge", 0, 100, 0, -79, {2, 180}},
    {"central meridian as stored", 3, 330, 10, -30, {360, 160}},
    {"north: pole", 1, 0, 90, 77, {360, 180}},
    {"north: central meridian upward", 1, 0, 10, 0, {360, 0}},
    {"north: east is left", 1, 0, 0, 90, {145, 180}},
    {"north: a diagonal", 1, 0, 30, 45, {272, 92}},
    {"north: the same by its meridian", 1, 100, 30, 145, {272, 92}},
    {"north: behind the pole", 1, 0, 70, -120, {393, 199}},
    {"north: above the picture", 1, 0, 0, 0, {360, -35}},
    {"north: last row", 1, 0, 9.6, 180, {360, 361}},
    {"north: below the last row", 1, 0, 9.5, 180, {863, 863}},
    {"north: beyond the pole, just", 1, 0, 90.05, 0, {360, 180}},
    {"north: beyond the pole", 1, 0, 90.2, 0, {863, 504}},
    {"north: no ground point", 1, 0, 100, 0, {863, 504}},
    {"north: other hemisphere", 1, 0, -0.001, 45, {863, 504}},
    {"south: pole", 2, 0, -90, 10, {360, 180}},
    {"south: east is right", 2, 0, -30, 45, {448, 92}},
    {"south: behind the pole", 2, 0, -70, -120, {327, 199}},
    {"south: other hemisphere", 2, 0, 0.001, 45, {863, 504}},
    {"south: equator belongs to it", 2, 0, 0, -90, {145, 180}},
};

struct PlaceCase
{
    const char* what;
    int mapprj;
    double centmer;
    QPoint pixel;
    double lat, lng;
};

// The hemispheres from lat = 90 - 2 atan(r / 2), to 1e-6 degrees.
const PlaceCase placeCases[] = {
    {"corner", 0, 0, {0, 0}, 90, -180},
    {"right of the edge, not reduced", 0, 0, {721, 360}, -90, 180.5},
    {"central meridian", 3, 100, {360, 180}, 0, 100},
    {"central meridian over the edge", 3, 100, {720, 80}, 50, -80},
    {"north: pole", 1, 0, {360, 180}, 90, 0},
    {"north: pole, central meridian", 1, 100, {360, 180}, 90, 100},
    {"north: a diagonal", 1, 0, {272, 92}, 29.765762, 45},
    {"north: up", 1, 0, {360, 100}, 49.100147, 0},
    {"north: up, central meridian", 1, 200, {360, 100}, 49.100147, -160},
    {"north: down", 1, 0, {360, 260}, 49.100147, 180},
    {"north: just inside", 1, 0, {146, 180}, 0.144695, 90},
    {"north: just outside", 1, 0, {145, 180}, -100, 90},
    {"north: corner", 1, 0, {0, 0}, -100, 63.434949},
    {"south: pole", 2, 0, {360, 180}, -90, 0},
    {"south: a diagonal", 2, 0, {448, 92}, -29.765762, 45},
    {"south: corner, nothing negated", 2, 0, {0, 0}, -100, 63.434949},
    {"south: corner, central meridian", 2, 10, {0, 0}, -100, 73.434949},
};

struct SunCase
{
    const char* what;
    double mjd, lat, lng;  // where the Sun stands overhead
};

// Declination, and right ascension less Greenwich sidereal time, by ephem 4.1.4 (VSOP87).
constexpr SunCase sunCases[] = {
    {"June solstice", 58290.421528, 23.4353, 28.6928},
    {"December solstice", 58473.932639, -23.4354, -156.1834},
    {"minutes before the March equinox", 58197.677083, -0.0003, -61.8940},
    {"minutes before the September equinox", 58384.079167, -0.0001, 149.6298},
    {"January", 58138.5, -20.0668, 2.7545},
    {"August", 58340.145833, 15.5935, 128.8541},
    {"sixty years ago", 36509.75, -14.7565, -94.0955},
    {"2049", 69559.25, 14.2995, 89.3668},
};

}  // namespace

class MapGeometryTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void degreesBecomePixels()
    {
        for (const PixelCase& c : pixelCases)
            QVERIFY2(pixelOf(frameOf(c.mapprj, c.centmer), c.lat, c.lng) == c.pixel, c.what);
    }

    void aPointRightOfTheMapIsOffIt()
    {
        MapFrame map = frameOf(1, 0);
        map.xscale = 200.0;
        QCOMPARE(pixelOf(map, 10.0, -90.0).x(), 360 + 336);
        QCOMPARE(pixelOf(map, 2.0, -90.0).x(), 863);
        QVERIFY(!map.shows(pixelOf(map, 2.0, -90.0)));
    }

    void pixelsBecomeDegrees()
    {
        for (const PlaceCase& c : placeCases) {
            const GeoPlace place = placeAt(frameOf(c.mapprj, c.centmer), c.pixel);
            QVERIFY2(std::abs(place.lat - c.lat) < 1e-6, c.what);
            QVERIFY2(std::abs(std::remainder(place.lng - c.lng, 360.0)) < 1e-6, c.what);
            QVERIFY2(c.mapprj == 0 || std::abs(place.lng) <= 180.0, c.what);
        }
    }

    void everyPixelReturnsToItself()
    {
        for (const int mapprj : {0, 1, 2, 3}) {
            for (const double centmer : {0.0, 100.0, 330.5}) {
                const MapFrame map = frameOf(mapprj, centmer);
                int inside = 0;
                for (int y = 0; y <= 361; ++y) {
                    for (int x = 1; x < 720; x += 3) {
                        const GeoPlace place = placeAt(map, {x, y});
                        if (place.lat == outsideMap)
                            continue;
                        ++inside;
                        // 330.5 degrees put the middle between two pixels
                        QVERIFY((pixelOf(map, place.lat, place.lng) - QPoint(x, y)).manhattanLength() == 0);
                    }
                }
                QVERIFY(inside > 40000);
            }
        }
    }

    void theCoastHoldsItsLines()
    {
        int pens = 0, longest = 0, length = 0;
        double south = 0, north = 0;
        for (const CoastPoint& point : coastPoints) {
            if (point.lat == penUp) {
                ++pens;
                length = 0;
                continue;
            }
            longest = std::max(longest, ++length);
            south = std::min(south, point.lat * 0.1);
            north = std::max(north, point.lat * 0.1);
        }
        QCOMPARE(coastPoints.size(), 1799u);
        QCOMPARE(pens, 76);
        QCOMPARE(longest, 173);
        QCOMPARE(south, -78.2);
        QVERIFY(north > 83.0 && north <= 84.0);
    }

    void theSunIsOnTheHorizonAlongTheTerminator()
    {
        for (const SunCase& c : sunCases) {
            const Vec3 sun = sunDirection(c.mjd);
            for (double lng = -180.0; lng <= 180.0; lng += 7.5) {
                const Vec3 meridian = vnorm(GeoPos(c.mjd, 0, 0, lng * radPerDeg, 0));
                const double size = terminatorLatitude(sun, meridian);
                const double lat = c.lat > 0 ? size : -size;
                QVERIFY2(std::abs(lat) <= 90.0, c.what);
                // aberration, nutation and the four digits above come to less than 0.02 degrees
                QVERIFY2(std::abs(pictures::sunElevation(c.lat, c.lng, lat, lng)) < 0.02, c.what);
            }
        }
    }

    void theNightIsDarkAndTheDayIsNot()
    {
        for (const SunCase& c : sunCases) {
            const std::vector<NightMeridian> night = nightMeridians(c.mjd);
            QCOMPARE(night.size(), 721u);
            for (const NightMeridian& dark : night) {
                // the border is cut to half degrees towards the equator: up to one of them lies in the day
                for (int k = -180; k <= 180; ++k) {
                    const double elevation = pictures::sunElevation(c.lat, c.lng, k / 2.0, dark.lng);
                    const bool shaded = k >= dark.first && k <= dark.last;
                    if (std::abs(elevation) > 0.52)
                        QVERIFY2(shaded == (elevation < 0), c.what);
                }
            }
        }
    }
};

QTEST_MAIN(MapGeometryTest)
#include "map_geometry_test.moc"
