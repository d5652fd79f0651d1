// What a plot adds to the map: markers, trails, circles of visibility, names, the symbol of the Sun.

#include <QImage>
#include <QPainter>
#include <QTest>
#include <cmath>

#include "engine/satpos_data.h"
#include "record/text.h"
#include "record_fields.h"
#include "view/marks.h"
#include "view/picture_helper.h"
#include "view/view_fixture.h"

namespace {

// The ISS over Vienna, 87.629 degrees of azimuth, 71.355 of elevation, above 48.285 north, 18.235 east: SGP4 and ERFA.
constexpr double overVienna = 58139.8632;
const QPoint issOnWorld(396, 83);
const QPoint issOnSky(325, 179);  // r = 2 cos(el) / (1 + sin(el)) = 0.3283, 35 pixels east of the zenith

const QColor white(255, 255, 255), red(255, 0, 0), blue(0, 0, 255), yellow(255, 255, 0), green(0, 255, 0);

/// A marker alone on a black ground.
QImage marker(bool square, const QColor& colour)
{
    QPixmap pixmap(9, 9);
    pixmap.fill(Qt::black);
    QPainter painter(&pixmap);
    painter.setPen(colour);
    const QRect box(QPoint(2, 2), QPoint(5, 5));
    if (square)
        painter.drawRect(box);
    else
        painter.drawEllipse(box);
    painter.drawPoint(4, 4);
    painter.end();
    return pixmap.toImage();
}

}  // namespace

class OverlayTest : public ViewTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        open();
        windows::observeAllFromVienna();
        windows::select("ISS");
        // the place of the observer out of the way of the marker
        setFields(*indata, "lat=-33.9 mapprj=0 mgrey=2 mgrid=0 mjd=58139.8632");
    }

    void cleanup() { close(); }

    void colorsBelongToSlots()
    {
        const QColor magenta(255, 0, 255), rest[] = {red, blue, green, yellow, magenta, blue, green, yellow, magenta};
        for (const auto& [mgrey, first] : {std::pair{0, QColor(0, 0, 0)}, {1, QColor(0, 0, 0)}, {2, white}}) {
            const auto colours = coloursOf(mgrey).satellites;
            QCOMPARE(colours[0], first);
            QVERIFY(std::equal(colours.begin() + 1, colours.end(), rest));
        }
    }

    void aMarkerStandsOnTheWorldAndLeavesATrail()
    {
        const QImage shown = plotted(0);
        QCOMPARE(view->PxCoord(satps->lat[0], satps->lng[0]), issOnWorld);
        QCOMPARE(shown.pixelColor(issOnWorld), white);
        QCOMPARE(pictures::differences(shown.copy(392, 79, 9, 9), marker(false, white), {2, 2, 5, 5}), 0);
        // one dot in the background, for the next plot
        QCOMPARE(mapImage().pixelColor(issOnWorld), white);
        QVERIFY(mapImage().pixelColor(issOnWorld + QPoint(2, 0)) != white);

        view->SatPlot(overVienna + 60 / 86400.0, 0);
        const QPoint next = view->PxCoord(satps->lat[0], satps->lng[0]);
        QVERIFY((next - issOnWorld).manhattanLength() > 5);
        const QImage later = shownImage();
        QCOMPARE(later.pixelColor(issOnWorld), white);
        QCOMPARE(later.pixelColor(next), white);
        QVERIFY(later.pixelColor(issOnWorld + QPoint(0, 2)) != white);  // the marker itself has gone
        QVERIFY(drawnMap().pixelColor(issOnWorld) != white);

        indata->mpnight = 1;
        QCOMPARE(plotted(0).pixelColor(issOnWorld), white);
        QVERIFY(mapImage().pixelColor(issOnWorld) != white);
    }

    void aMarkerOnTheSkyIsASquare()
    {
        setFields(*indata, "lat=48.25 skymap=1");
        const QImage shown = plotted(1);
        QCOMPARE(shown.pixelColor(issOnSky), white);
        QCOMPARE(pictures::differences(shown.copy(321, 175, 9, 9), marker(true, white), {2, 2, 5, 5}), 0);

        indata->visflg = 1;  // in shadow, with visible passes wanted: neither marker nor trail
        QVERIFY(plotted(1).pixelColor(issOnSky) != white);
        QVERIFY(mapImage().pixelColor(issOnSky) != white);
    }

    void theCircleBoundsWhatSeesTheSatellite()
    {
        const QImage plain = plotted(0), shown = plotted(1);
        QVERIFY(pictures::differences(plain, shown) > 40);
        // 407.8 km high the horizon lies 19.97 degrees away: due north and south of the satellite
        for (const double lat : {48.284852 + 19.97, 48.284852 - 19.97}) {
            const QPoint p = view->PxCoord(lat, 18.234994);
            QVERIFY(pictures::pixelsOf(shown, white, {p - QPoint(6, 1), p + QPoint(6, 1)}) > 0);
        }
        indata->occflg = 1;
        QCOMPARE(plotted(1).pixelColor(view->PxCoord(48.284852 + 19.97, 18.234994)), QColor(0, 0, 0));
    }

    /// In the middle, and twice at the right border, where the meridian of the centre brings the marker.
    void namesAreCutAndStandBesideTheMarker()
    {
        assignField(indata->fsname[0], "ABCDEFGHIJKLMNOPQRS");
        const int width = QFontMetrics(QFont("Helvetica", 8, QFont::Normal)).horizontalAdvance("ABCDEFGHIJKLMNO");
        for (const auto& [fields, x] : {std::pair{"", 396}, {"centmer=-158", 712}, {"centmer=-161.765", 720}}) {
            setFields(*indata, std::string("nmflg=0 ") + fields);
            const QImage plain = plotted(0);
            QCOMPARE(view->PxCoord(satps->lat[0], satps->lng[0]).x(), x);
            indata->nmflg = 1;
            const QImage named = plotted(0);
            const QRect beside(x < 600 ? x + 3 : x - 6 - width, issOnWorld.y() - 8, width + 4, 16);
            QVERIFY(pictures::differences(plain, named, beside) > 50);
            QCOMPARE(pictures::differences(plain, named), pictures::differences(plain, named, beside));
        }
    }

    void namesStayInsideThePicture()
    {
        const QRect letters(-1, -9, 102, 12), picture(0, 0, 721, 362);
        for (const QPoint& marker : {QPoint(0, 0), {0, 361}, {720, 0}, {720, 361}, {617, 100}, {618, 100}}) {
            const QRect name = letters.translated(nameBeside(marker, letters, picture));
            QVERIFY(picture.contains(name));
            QVERIFY(!name.intersects(QRect(marker - QPoint(2, 2), marker + QPoint(2, 2))));
        }
        indata->nmflg = indata->occflg = 1;  // no transit: the marker stands above the map
        QCOMPARE(satps->occlat[0], 100.0);
        const QImage named = plotted(0);
        indata->nmflg = 0;
        QCOMPARE(pictures::differences(named, plotted(0)), 0);
    }

    void theSunStandsOverItsPoint()
    {
        const QImage shown = plotted(0);
        // ERFA: the Sun overhead at 19.88680 south, 127.90096 west
        const QPoint p(360 - 256, 180 + 40);
        QCOMPARE(view->PxCoord(satps->sslat, satps->sslng), p);
        const char* const star[] = {"#.#.#", ".###.", "##o##", ".###.", "#.#.#"};
        for (int row = 0; row < 5; ++row) {
            for (int column = 0; column < 5; ++column) {
                const QColor colour = shown.pixelColor(p + QPoint(column - 2, row - 2));
                const char mark = star[row][column];
                QCOMPARE(colour == yellow, mark == '#');
                QCOMPARE(colour == white, mark == 'o');
            }
        }
    }

    void lostSatellitesLeaveFinitePixels()
    {
        // in the centre of the Earth, without a motion, too fast, nearly a parabola, decayed, of no time, nowhere
        const char* const losses[] = {"",           "aflg=0 a=0", "aflg=0 n0=nan", "n0=1e300",
                                      "ecc=0.9999", "bstar=1",    "mjdep=1e300",   "aflg=0 m0=nan"};
        for (std::size_t slot = 1; slot < std::size(losses); ++slot) {
            windows::select("ISS");
            setFields(*indata, losses[slot], static_cast<int>(slot));
        }
        indata->nmflg = 1;
        for (int kind = 0; kind < 12; ++kind) {
            indata->skymap = kind % 2;
            indata->skyprj = indata->mapprj = kind % 4;
            indata->occflg = kind / 4;
            indata->sunmplt = indata->occflg == 2;
            for (indata->prs = 0; indata->prs < indata->satn; ++indata->prs) {
                indata->satsky = indata->prs % 2 != 0;
                view->vRefresh();
                view->SatPlot(overVienna + 400 * (indata->prs == 5), 1);
                for (int slot = 0; slot < indata->satn; ++slot) {
                    for (const QPoint& p : {view->PxCoord(satps->lat[slot], satps->lng[slot]),
                                            view->PxSky(satps->el[slot], satps->az[slot]), view->PxCdSun(slot, 1)})
                        QVERIFY(std::abs(p.x()) <= 200000 && std::abs(p.y()) <= 200000);
                }
                QCOMPARE(mapImage().pixelColor(5, 500), QColor(0, 50, 200));
            }
        }
    }

private:
    /// The display with a plot on a new background.
    QImage plotted(int circles)
    {
        view->vRefresh();
        view->SatPlot(overVienna, circles);
        return shownImage();
    }
};

QTEST_MAIN(OverlayTest)
#include "overlay_test.moc"
