// What a plot adds to the map: markers, trails, circles of visibility, names, the symbol of the Sun.

#include <QImage>
#include <QPainter>
#include <QTest>
#include <cmath>
#include <limits>
#include <numbers>

#include "app/record/text.h"
#include "engine/satpos_data.h"
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
        indata->lat = -33.9;  // the place of the observer out of the way of the marker
        indata->mapprj = 0;
        indata->mgrey = 2;
        indata->mgrid = 0;
    }

    void cleanup() { close(); }

    void colorsBelongToSlots()
    {
        const QColor magenta(255, 0, 255), rest[] = {red, blue, green, yellow, magenta, blue, green, yellow, magenta};
        for (const auto& [mgrey, first] : {std::pair{0, QColor(0, 0, 0)}, {1, QColor(0, 0, 0)}, {2, white}}) {
            const auto colours = satelliteColours(mgrey);
            QCOMPARE(colours[0], first);
            QVERIFY(std::equal(colours.begin() + 1, colours.end(), rest));
        }
    }

    void aMarkerStandsOnTheWorld()
    {
        windows::select("ISS");
        view->vRefresh();
        view->SatPlot(overVienna, 0);
        QCOMPARE(view->PxCoord(satps->lat[0], satps->lng[0]), issOnWorld);
        const QImage shown = shownImage(), map = mapImage();
        QCOMPARE(shown.pixelColor(issOnWorld), white);
        QCOMPARE(pictures::differences(shown.copy(392, 79, 9, 9), marker(false, white), {2, 2, 5, 5}), 0);
        // the trail: one dot in the background, for the next plot
        QCOMPARE(map.pixelColor(issOnWorld), white);
        QVERIFY(map.pixelColor(issOnWorld + QPoint(2, 0)) != white);
    }

    void trailsStayUntilTheBackgroundIsDrawnAgain()
    {
        windows::select("ISS");
        view->vRefresh();
        view->SatPlot(overVienna, 0);
        view->SatPlot(overVienna + 60 / 86400.0, 0);
        const QPoint later = view->PxCoord(satps->lat[0], satps->lng[0]);
        QImage shown = shownImage();
        QVERIFY((later - issOnWorld).manhattanLength() > 5);
        QCOMPARE(shown.pixelColor(issOnWorld), white);
        QCOMPARE(shown.pixelColor(later), white);
        QVERIFY(shown.pixelColor(issOnWorld + QPoint(0, 2)) != white);  // the marker itself has gone
        view->vRefresh();
        QVERIFY(mapImage().pixelColor(issOnWorld) != white);

        indata->mpnight = 1;
        view->SatPlot(overVienna, 0);
        QVERIFY(mapImage().pixelColor(issOnWorld) != white);
        QCOMPARE(shownImage().pixelColor(issOnWorld), white);
    }

    void aMarkerOnTheSkyIsASquare()
    {
        windows::select("ISS");
        indata->lat = 48.25;
        indata->skymap = 1;
        indata->mjd = overVienna;
        view->vRefresh();
        view->SatPlot(overVienna, 1);
        QImage shown = shownImage();
        QCOMPARE(shown.pixelColor(issOnSky), white);
        QCOMPARE(pictures::differences(shown.copy(321, 175, 9, 9), marker(true, white), {2, 2, 5, 5}), 0);

        // in shadow, with visible passes wanted: neither marker nor trail
        indata->visflg = 1;
        view->vRefresh();
        view->SatPlot(overVienna, 1);
        QVERIFY(shownImage().pixelColor(issOnSky) != white);
        QVERIFY(mapImage().pixelColor(issOnSky) != white);
        indata->visflg = 0;
    }

    void theCircleBoundsWhatSeesTheSatellite()
    {
        windows::select("ISS");
        view->vRefresh();
        const QImage plain = [this] {
            view->SatPlot(overVienna, 0);
            return shownImage();
        }();
        view->vRefresh();
        view->SatPlot(overVienna, 1);
        const QImage shown = shownImage();
        QVERIFY(pictures::differences(plain, shown) > 40);
        // 407.8 km high the horizon lies 19.97 degrees away: due north and south of the satellite
        for (const double lat : {48.284852 + 19.97, 48.284852 - 19.97}) {
            bool found = false;
            for (int dx = -6; dx <= 6; ++dx)
                for (int dy = -1; dy <= 1; ++dy)
                    found |= shown.pixelColor(view->PxCoord(lat, 18.234994) + QPoint(dx, dy)) == white;
            QVERIFY(found);
        }
        for (int j = 0; j < satps->nvis; ++j) {
            const QPoint p =
                view->PxCoord(satps->vlat[0][j] * 180 / std::numbers::pi, satps->vlng[0][j] * 180 / std::numbers::pi);
            QCOMPARE(shown.pixelColor(p), white);
        }
        indata->occflg = 1;
        view->vRefresh();
        view->SatPlot(overVienna, 1);
        indata->occflg = 0;
        QVERIFY(pictures::differences(shownImage(), shown) > 40);
    }

    void namesAreCutAndStandByTheMarker()
    {
        windows::select("ISS");
        assignField(indata->fsname[0], "ABCDEFGHIJKLMNOPQRS");
        view->vRefresh();
        view->SatPlot(overVienna, 0);
        const QPixmap plain = view->displayPixmap();
        indata->nmflg = 1;
        view->vRefresh();
        view->SatPlot(overVienna, 0);
        QPixmap expected = plain;
        QPainter painter(&expected);
        painter.setFont(QFont("Helvetica", 8, QFont::Normal));
        painter.setPen(white);
        painter.drawText(issOnWorld - QPoint(2, 2), "ABCDEFGHIJKLMNO");
        painter.end();
        QCOMPARE(pictures::differences(expected.toImage(), shownImage()), 0);
        QVERIFY(pictures::differences(plain.toImage(), shownImage()) > 50);
    }

    void theSunStandsOverItsPoint()
    {
        windows::select("ISS");
        view->vRefresh();
        view->SatPlot(overVienna, 0);
        const QImage shown = shownImage();
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
        constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
        for (int slot = 0; slot < 10; ++slot)
            windows::select("ISS");
        indata->aflg[1] = indata->aflg[2] = indata->aflg[7] = 0;
        indata->a[1] = 0;  // at the centre of the Earth
        indata->n0[2] = noNumber;
        indata->n0[3] = 1e300;
        indata->ecc[4] = 0.9999;
        indata->bstar[5] = 1.0;  // long decayed
        indata->mjdep[6] = 1e300;
        indata->m0[7] = noNumber;
        indata->nmflg = 1;
        for (int kind = 0; kind < 12; ++kind) {
            indata->skymap = kind % 2;
            indata->skyprj = indata->mapprj = kind % 4;
            indata->occflg = kind / 4;
            indata->sunmplt = indata->occflg == 2;
            for (int prime = 0; prime < 10; ++prime) {
                indata->prs = prime;
                indata->satsky = prime % 2 != 0;
                view->vRefresh();
                view->SatPlot(overVienna + 400 * (prime == 5), 1);
                for (int slot = 0; slot < 10; ++slot) {
                    for (const QPoint& p : {view->PxCoord(satps->lat[slot], satps->lng[slot]),
                                            view->PxSky(satps->el[slot], satps->az[slot]), view->PxCdSun(slot, 1)})
                        QVERIFY(std::abs(p.x()) <= 200000 && std::abs(p.y()) <= 200000);
                }
                QCOMPARE(mapImage().pixelColor(5, 500), QColor(0, 50, 200));
            }
        }
    }
};

QTEST_MAIN(OverlayTest)
#include "overlay_test.moc"
