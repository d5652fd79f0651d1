// The pictures of the sky, and picks on it.

#include <QImage>
#include <QPainter>
#include <QTest>
#include <cmath>

#include "astro/angles.h"
#include "view/picture_helper.h"
#include "view/star_data.h"
#include "view/view_fixture.h"

namespace {

const QColor black(0, 0, 0), white(255, 255, 255), red(255, 0, 0), yellow(255, 255, 0), horizon(200, 100, 50);

struct StarCase
{
    const char* what;
    double az, el;         // degrees
    int onLight, onBlack;  // grey
    bool disk;
};

// Vienna, 20 January 2018, 20h UT; places by ephem 4.1.4 without refraction from the J2000 places of the catalogue.
constexpr StarCase starCases[] = {
    {"Sirius, -1.46", 154.406, 21.332, 0, 255, true},    {"Capella, 0.08", 137.849, 87.037, 0, 255, true},
    {"Procyon, 0.38", 130.144, 35.938, 0, 255, true},    {"Aldebaran, 0.85", 193.375, 57.717, 0, 255, true},
    {"Dubhe, 1.79", 39.147, 41.222, 0, 255, false},      {"Alcyone, 2.87", 219.532, 61.406, 50, 200, false},
    {"gamma UMi, 3.05", 9.414, 31.473, 100, 150, false}, {"epsilon UMi, 4.23", 1.025, 40.286, 150, 100, false},
};

struct BodyCase
{
    const char* name;
    double az, el;
    QColor colour;
    int keyRow;  // middle of its disk in the key
};

// Vienna, 20 January 2018, 12h UT: Sun, Moon, Mercury, Venus and Saturn are up; 5:30 for Jupiter and Mars.
const BodyCase noonCases[] = {
    {"Sun", 193.792, 20.581, yellow, 11},        {"Moon", 153.130, 26.676, white, 28},
    {"Mercury", 209.947, 12.755, horizon, 42},   {"Saturn", 219.204, 9.713, yellow, 102},
    {"Venus", 190.699, 20.536, {0, 0, 255}, 57},
};
const BodyCase dawnCases[] = {
    {"Mars", 164.236, 21.795, red, 72},
    {"Jupiter", 170.345, 24.584, {0, 255, 0}, 87},
    {"Saturn", 130.412, 3.692, yellow, 102},
};

struct PickCase
{
    const char* what;
    int skyprj;
    double skaz, epoch;
    QPoint pixel;
    double az, el, ra, dec;  // degrees, HH.MMSS, DD.MMSS
};

// Sidereal time gmst82 and precession pmat76 by ERFA; Vienna, MJD 58138.75.
const PickCase pickCases[] = {
    {"zenith sky, of date", 0, 0, 0, {272, 92}, 45.0, 29.7658, 9.530904, 51.104524},
    {"zenith sky, of 2000", 0, 0, 2000, {400, 300}, 198.4349, 28.9537, 1.595260, -11.075624},
    {"the zenith has the latitude", 0, 0, 0, {360, 180}, 0, 90, 3.061579, 48.15},
    {"azimuth sky", 3, 180, 0, {300, 100}, 158.2947, 56.3411, 3.553293, 16.084583},
    {"azimuth sky, of 1950", 5, 90, 1950, {100, 200}, 17.3914, 33.2530, 11.531704, 70.304211},
};

bool near(const QImage& image, const QPoint& p, const QColor& colour)
{
    for (int dx = -1; dx <= 1; ++dx)
        for (int dy = -1; dy <= 1; ++dy)
            if (image.rect().contains(p + QPoint(dx, dy)) && image.pixelColor(p + QPoint(dx, dy)) == colour)
                return true;
    return false;
}

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

    void theCatalogueHasItsStars()
    {
        int bright = 0, first = 0, faint = 0;
        for (const BrightStar& star : brightStars) {
            bright += star.mag <= 10;
            first += star.mag <= 100;
            faint += star.mag > 400;
            QVERIFY(star.mag <= 450 && star.mag >= -146);
        }
        QCOMPARE(bright, 6);
        QCOMPARE(first, 15);
        QCOMPARE(faint, 388);
        QCOMPARE(brightStars[0].ra / 1e5, 0.0153);
        QCOMPARE(brightStars[902].ra / 1e5, 23.59504);
        QCOMPARE(brightStars[902].dec / 1e4, -65.3508);
    }

    void starsStandWhereTheyShould()
    {
        for (const auto& [mgrey, skyprj] : {std::pair{0, 0}, {1, 3}, {2, 0}, {2, 3}}) {
            indata->mgrey = mgrey;
            indata->skyprj = skyprj;
            indata->skaz = 180.0;
            const QImage map = drawnMap();
            for (const StarCase& c : starCases) {
                const QPoint p = view->PxSky(c.el, c.az);
                if (p.x() > 721 || p.x() < 1 || p.y() > 361)
                    continue;
                const int grey = mgrey == 2 ? c.onBlack : c.onLight;
                QVERIFY2(near(map, p, QColor(grey, grey, grey)), c.what);
                const int drawn = pictures::pixelsOf(map, QColor(grey, grey, grey), {p - QPoint(3, 3), QSize(7, 7)});
                QVERIFY2(c.disk == (drawn > 1), c.what);
            }
        }
    }

    void bodiesStandWhereTheyShouldAndInTheKey()
    {
        const auto check = [this](const BodyCase& c) {
            const QPoint p = view->PxSky(c.el, c.az);
            const QImage map = mapImage();
            // Sun and Venus stand side by side that day
            QVERIFY2(near(map, p - QPoint(2, 0), c.colour), c.name);
            QVERIFY2(map.pixelColor(13 - 2, c.keyRow) == c.colour, c.name);
        };
        indata->mjd = 58138.5;
        view->vRefresh();
        for (const BodyCase& c : noonCases)
            check(c);
        const QImage noon = mapImage();
        QCOMPARE(noon.pixelColor(view->PxSky(20.581, 193.792)), red);  // the core of the Sun
        QCOMPARE(noon.pixelColor(13, 13), red);
        QCOMPARE(pictures::pixelsOf(noon, red, {8, 65, 80, 12}), 0);  // no Mars in the key
        QCOMPARE(pictures::pixelsOf(noon, QColor(0, 255, 0), {8, 80, 80, 12}), 0);
        indata->mjd = 58138.229167;
        view->vRefresh();
        for (const BodyCase& c : dawnCases)
            check(c);
        const QImage dawn = mapImage();
        QCOMPARE(pictures::pixelsOf(dawn, yellow, {8, 5, 80, 14}), 0);  // nor a Sun under the horizon
        QCOMPARE(pictures::pixelsOf(dawn, white, {8, 22, 80, 12}), 0);
    }

    void lettersAreThoseOfThePainter()
    {
        struct Case
        {
            int skyprj;
            const char* letter;
            QPoint origin;
        };
        indata->skaz = 180.0;
        for (const Case& c : {Case{0, "N", {360, 10}}, Case{0, "E", {137, 180}}, Case{0, "W", {575, 180}},
                              Case{0, "S", {360, 351}}, Case{3, "S", {360, 359}}}) {
            indata->skyprj = c.skyprj;
            const QImage map = drawnMap();
            QPixmap reference(721, 362);
            reference.fill(Qt::black);
            QPainter painter(&reference);
            painter.setFont(QFont("Helvetica", 8));
            painter.setPen(Qt::white);
            painter.drawText(c.origin, c.letter);
            painter.end();
            const QImage expected = reference.toImage();
            for (int y = 0; y < 362; ++y)
                for (int x = 0; x < 720; ++x)
                    if (expected.pixelColor(x, y) != black)
                        QCOMPARE(map.pixelColor(x, y), expected.pixelColor(x, y));
        }
    }

    void aPickHasItsPlaceOnTheSky()
    {
        for (const PickCase& c : pickCases) {
            indata->skyprj = c.skyprj;
            indata->skaz = c.skaz;
            indata->yrepoch = c.epoch;
            indata->mjd = 58138.75;
            view->vRefresh();
            view->SkyPx(c.pixel);
            QVERIFY2(std::abs(indata->az1 - c.az) < 1e-4, c.what);
            QVERIFY2(std::abs(indata->el1 - c.el) < 1e-4, c.what);
            QVERIFY2(std::abs(DmsDegF(indata->az2) - DmsDegF(c.ra)) < 2e-6, c.what);
            QVERIFY2(std::abs(DmsDegF(indata->el2) - DmsDegF(c.dec)) < 1e-5, c.what);
        }
    }
};

QTEST_MAIN(SkyMapTest)
#include "sky_map_test.moc"
