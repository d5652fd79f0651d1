// Readable colours: the contrast of each text with its ground, and what they add to maps and skies.

#include <QPainterPath>
#include <QTest>
#include <cmath>
#include <random>

#include "astro/angles.h"
#include "astro/frames.h"
#include "record_fields.h"
#include "view/colours.h"
#include "view/constellation_data.h"
#include "view/footprint.h"
#include "view/painting.h"
#include "view/picture_helper.h"
#include "view/star_data.h"
#include "view/view_fixture.h"

namespace {

constexpr double leastContrast = 4.5;

struct Pair
{
    QString what;
    QColor text, ground;
};

/// Every text that is drawn, with what lies behind it.
std::vector<Pair> pairsOf(const MapColours& c)
{
    std::vector<Pair> pairs{{"legend", c.text, c.legend},
                            {"dark", c.dark, c.legend},
                            {"moonlit", c.moonlit, c.legend},
                            {"alert", c.alert, c.legend},
                            {"degrees", c.labels, c.plate},
                            {"compass", c.contrast, c.ground},
                            {"disk", c.labels, c.ground},
                            {"north", c.northMark, c.ground},
                            {"Sun", c.bodies.sun, c.ground},
                            {"Moon", c.bodies.moon, c.ground},
                            {"Mercury", c.bodies.mercury, c.ground},
                            {"Venus", c.bodies.venus, c.ground},
                            {"Mars", c.bodies.mars, c.ground},
                            {"Jupiter", c.bodies.jupiter, c.ground},
                            {"Saturn", c.bodies.saturn, c.ground}};
    if (c.plate == Qt::black)  // on photographs
        pairs.insert(pairs.end(), {{"photo", c.photoText, c.plate},
                                   {"point", c.photoPoint, c.plate},
                                   {"no satellite", c.photoAlert, c.plate}});
    for (const QColor& name : c.satellites)
        pairs.push_back({"name", name, c.plate});
    return pairs;
}

constexpr double radians(double degrees)
{
    return degrees * radPerDeg;
}

Vec3 directionOf(const GeoPlace& p)
{
    return polcar({1.0, radians(p.lng), radians(p.lat)});
}

/// A circle about a place, from its northernmost point on.
std::vector<GeoPlace> circleAbout(const GeoPlace& centre, double radius)
{
    std::vector<GeoPlace> edge;
    const double lat = radians(centre.lat), r = radians(radius);
    for (int k = 0; k < 90; ++k) {
        const double course = radians(4.0 * k);
        const double north = std::asin(std::sin(lat) * std::cos(r) + std::cos(lat) * std::sin(r) * std::cos(course));
        const double east =
            std::atan2(std::sin(course) * std::sin(r) * std::cos(lat), std::cos(r) - std::sin(lat) * std::sin(north));
        edge.push_back({north * degPerRad, halfTurns(centre.lng + east * degPerRad)});
    }
    return edge;
}

}  // namespace

class ColoursTest : public ViewTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyTextStandsOut()
    {
        // the example of the guideline: the lightest grey that passes on white
        QVERIFY(std::abs(contrast(QColor(118, 118, 118), Qt::white) - 4.54) < 0.005);
        QCOMPARE(contrast(Qt::black, Qt::white), 21.0);
        for (const auto& [ground, colours] : {std::pair{"white", readableColoursOf(0)},
                                              {"grey", readableColoursOf(1)},
                                              {"black", readableColoursOf(2)},
                                              {"picture", readableColoursOnPicture()}}) {
            for (const Pair& pair : pairsOf(colours))
                QVERIFY2(
                    contrast(pair.text, pair.ground) >= leastContrast,
                    qPrintable(QString("%1 on %2: %3").arg(pair.what, ground).arg(contrast(pair.text, pair.ground))));
        }
    }

    /// A pixel inside the area lies inside the circle on the sphere, on every map.
    void anAreaHoldsWhatSeesTheSatellite()
    {
        std::mt19937 dice(23);
        std::uniform_real_distribution<double> turn(-180.0, 180.0), sine(-1.0, 1.0), size(3.0, 81.0);
        for (int round = 0; round < 200; ++round) {
            const GeoPlace centre{std::asin(sine(dice)) * degPerRad, turn(dice)};
            const double radius = size(dice);
            for (const int mapprj : {0, 1, 2}) {
                const double scale = mapprj == 0 ? 2.0 : 180 / 1.678;
                const MapFrame map{mapprj, round % 2 ? 0.0 : 330.0, {360, 180}, scale, scale, 860, 501};
                const QPainterPath area = footprint(map, circleAbout(centre, radius), centre);
                for (int k = 0; k < 40; ++k) {
                    const GeoPlace at{std::asin(sine(dice)) * degPerRad, turn(dice)};
                    const QPoint p = pixelOf(map, at.lat, at.lng);
                    const double away = std::acos(dot(directionOf(at), directionOf(centre))) * degPerRad;
                    constexpr double width = 4.0;  // of the edge: chords, and pixels near the poles
                    if (!map.shows(p) || !mapPicture.contains(p) || std::abs(away - radius) < width)
                        continue;
                    const QString where = QString("%1: %2 %3, %4 about %5 %6")
                                              .arg(mapprj)
                                              .arg(at.lat)
                                              .arg(at.lng)
                                              .arg(radius)
                                              .arg(centre.lat)
                                              .arg(centre.lng);
                    QVERIFY2(area.contains(p) == (away < radius), qPrintable(where));
                }
            }
        }
    }

    /// The lines lead from star to star; a few lead to stars that are fainter than those of the table.
    void figuresJoinStars()
    {
        const Mat3 precession = pmatequ(0.0, -0.015);
        int points = 0, onStars = 0;
        for (const FigurePoint& point : figurePoints) {
            if (point.ra == figurePenUp.ra)
                continue;
            ++points;
            const Vec3 r = mxvct(precession, polcar({1.0, radians(point.ra / 100.0), radians(point.dec / 100.0)}));
            onStars += std::ranges::any_of(brightStars, [&](const BrightStar& star) {
                const Vec3 s = polcar({1.0, DmsDegF(star.ra / 1e5) * radPerHour, radians(DmsDegF(star.dec / 1e4))});
                return dot(r, s) > std::cos(radians(0.03));
            });
        }
        QVERIFY2(onStars > 0.75 * points, qPrintable(QString("%1 of %2").arg(onStars).arg(points)));
    }

    void theNightLetsTheEarthThrough()
    {
        openForDrawing(58139.8632);  // night in Vienna
        view->vRefresh();
        const QImage day = mapImage();
        indata->mpnight = 1;
        const auto distinct = [this](const QImage& map) {
            QSet<QRgb> colours;
            for (int x = 400; x < 480; ++x)
                colours.insert(map.pixel(x, 100));
            return colours.size();
        };
        const auto opaque = distinct(drawnMap());
        view->vReadable(true);
        const QImage night = mapImage();
        QVERIFY(opaque < 10 && distinct(night) > 30);
        QVERIFY(night.pixelColor(440, 100).lightness() < day.pixelColor(440, 100).lightness());
        close();
    }

    /// The second set comes and goes with the switch, on whatever is on show.
    void theSwitchLeavesNoTrace()
    {
        openForDrawing(58138.75);
        windows::select("ISS");
        for (const char* fields :
             {"mapprj=0 mgrid=1", "mapprj=3", "mapprj=1", "skymap=1", "skyprj=3", "skymap=0 occflg=2 sunmplt=1"}) {
            setFields(*indata, fields);
            view->vRefreshP();
            const QImage before = shownImage();
            view->vReadable(true);
            const QImage readable = shownImage();
            QVERIFY2(pictures::differences(before, readable) > 100, fields);
            QCOMPARE(readable.pixelColor(5, 495), readableColoursOf(2).legend);
            view->vReadable(false);
            QVERIFY2(shownImage() == before, fields);
            view->vText();
            view->vReadable(true);
            QCOMPARE(indata->dspmd, 0);  // a text stays
            view->vText();
            view->vReadable(false);
            QVERIFY2(shownImage() == before, fields);
        }
        close();
    }
};

QTEST_MAIN(ColoursTest)
#include "colours_test.moc"
