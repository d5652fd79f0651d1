// What a plot adds to the map: markers, trails, circles of visibility, names, the symbol of the Sun.

#include <QImage>
#include <QPainter>
#include <QTest>
#include <cmath>
#include <limits>
#include <memory>
#include <numbers>

#include "app/record/text.h"
#include "engine/satpos_data.h"
#include "view/picture_helper.h"
#include "view/vorlix_view.h"
#include "view/window_helper.h"

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

class OverlayTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        windows::stopTheClock();
        place = std::make_unique<windows::Workplace>();
        view = std::make_unique<VorlixView>();
        windows::observeAllFromVienna();
        indata->lat = -33.9;  // the place of the observer out of the way of the marker
        indata->mapprj = 0;
        indata->mgrey = 2;
        indata->mgrid = 0;
    }

    void cleanup()
    {
        view.reset();
        place.reset();
    }

    void colorsBelongToSlots()
    {
        const auto onBlack = satelliteColours(2), onWhite = satelliteColours(0);
        QCOMPARE(onBlack[0], white);
        QCOMPARE(onWhite[0], QColor(0, 0, 0));
        QCOMPARE(satelliteColours(1)[0], QColor(0, 0, 0));
        const QColor magenta(255, 0, 255);
        const QColor rest[] = {red, blue, green, yellow, magenta, blue, green, yellow, magenta};
        for (std::size_t slot = 1; slot < 10; ++slot) {
            QCOMPARE(onBlack[slot], rest[slot - 1]);
            QCOMPARE(onWhite[slot], rest[slot - 1]);
        }
    }

    void aMarkerStandsOnTheWorld()
    {
        windows::select("ISS");
        view->vRefresh();
        view->SatPlot(overVienna, 0);
        QCOMPARE(view->PxCoord(satps->lat[0], satps->lng[0]), issOnWorld);
        const QImage shown = view->displayPixmap().toImage(), map = view->mapPixmap().toImage();
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
        QImage shown = view->displayPixmap().toImage();
        QVERIFY((later - issOnWorld).manhattanLength() > 5);
        QCOMPARE(shown.pixelColor(issOnWorld), white);
        QCOMPARE(shown.pixelColor(later), white);
        QVERIFY(shown.pixelColor(issOnWorld + QPoint(0, 2)) != white);  // the marker itself has gone
        view->vRefresh();
        QVERIFY(view->mapPixmap().toImage().pixelColor(issOnWorld) != white);

        indata->mpnight = 1;
        view->SatPlot(overVienna, 0);
        QVERIFY(view->mapPixmap().toImage().pixelColor(issOnWorld) != white);
        QCOMPARE(view->displayPixmap().toImage().pixelColor(issOnWorld), white);
    }

    void otherHemispheresShowNoMarker()
    {
        windows::select("ISS");
        indata->mapprj = 2;
        view->vRefresh();
        const QImage before = view->mapPixmap().toImage();
        view->SatPlot(overVienna, 1);
        const QImage shown = view->displayPixmap().toImage();
        // 48 degrees north: even its circle ends north of the equator
        int more = 0;
        for (int y = 0; y < 362; ++y)
            for (int x = 0; x < 721; ++x)
                more += shown.pixelColor(x, y) == white;
        QCOMPARE(more, 1);  // the centre of the Sun's symbol
        QCOMPARE(pictures::differences(view->mapPixmap().toImage(), before), 0);
        indata->mapprj = 1;
        view->vRefresh();
        view->SatPlot(overVienna, 1);
        QCOMPARE(view->displayPixmap().toImage().pixelColor(view->PxCoord(48.284852, 18.234994)), white);
    }

    void aMarkerOnTheSkyIsASquare()
    {
        windows::select("ISS");
        indata->lat = 48.25;
        indata->skymap = 1;
        indata->mjd = overVienna;
        view->vRefresh();
        view->SatPlot(overVienna, 1);
        QImage shown = view->displayPixmap().toImage();
        QCOMPARE(shown.pixelColor(issOnSky), white);
        QCOMPARE(pictures::differences(shown.copy(321, 175, 9, 9), marker(true, white), {2, 2, 5, 5}), 0);

        // in shadow, with visible passes wanted: neither marker nor trail
        indata->visflg = 1;
        view->vRefresh();
        view->SatPlot(overVienna, 1);
        QVERIFY(view->displayPixmap().toImage().pixelColor(issOnSky) != white);
        QVERIFY(view->mapPixmap().toImage().pixelColor(issOnSky) != white);
        indata->visflg = 0;
    }

    void fromASatelliteItDoesNotSeeItself()
    {
        windows::select("ISS");
        indata->lat = 48.25;
        indata->skymap = 1;
        indata->satsky = true;
        indata->nmflg = 1;
        view->SatPlot(overVienna, 1);
        const QImage map = view->mapPixmap().toImage(), shown = view->displayPixmap().toImage();
        // its trail dot apart, which lies in the background only
        QVERIFY(pictures::differences(map, shown) <= 1);
    }

    void theCircleBoundsWhatSeesTheSatellite()
    {
        windows::select("ISS");
        view->vRefresh();
        const QImage plain = [this] {
            view->SatPlot(overVienna, 0);
            return view->displayPixmap().toImage();
        }();
        view->vRefresh();
        view->SatPlot(overVienna, 1);
        const QImage shown = view->displayPixmap().toImage();
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
        QVERIFY(pictures::differences(view->displayPixmap().toImage(), shown) > 40);
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
        QCOMPARE(pictures::differences(expected.toImage(), view->displayPixmap().toImage()), 0);
        QVERIFY(pictures::differences(plain.toImage(), view->displayPixmap().toImage()) > 50);
    }

    void theSunStandsOverItsPoint()
    {
        windows::select("ISS");
        view->vRefresh();
        view->SatPlot(overVienna, 0);
        const QImage shown = view->displayPixmap().toImage();
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

    void aTransitMovesTheMarkerToTheGround()
    {
        windows::select("ISS");
        indata->occflg = 3;
        indata->occra = 12.0;
        indata->occdec = 20.0;
        view->vRefresh();
        view->SatPlot(overVienna, 1);
        const QPoint p = view->PxCoord(satps->occlat[0], satps->occlng[0]);
        if (satps->occlat[0] >= noGroundPoint)
            QVERIFY(p.y() < 0);
        else
            QCOMPARE(view->displayPixmap().toImage().pixelColor(p), white);
        QVERIFY(view->displayPixmap().toImage().pixelColor(issOnWorld) != white);
        indata->occflg = 0;
    }

    void withoutSatelliteThereIsOnlyTheMap()
    {
        view->vRefresh();
        view->SatPlot(overVienna, 1);
        QCOMPARE(
            pictures::differences(view->mapPixmap().toImage(), view->displayPixmap().toImage(), {0, 0, 721, 501}), 0);
    }

    void lostSatellitesLeaveFinitePixels_data()
    {
        QTest::addColumn<int>("skymap");
        QTest::addColumn<int>("mapprj");
        QTest::addColumn<int>("occflg");
        for (const int skymap : {0, 1})
            for (const int mapprj : {0, 1, 2, 3})
                for (const int occflg : {0, 1, 2})
                    QTest::addRow("sky %d, map %d, event %d", skymap, mapprj, occflg) << skymap << mapprj << occflg;
    }

    void lostSatellitesLeaveFinitePixels()
    {
        QFETCH(int, skymap);
        QFETCH(int, mapprj);
        QFETCH(int, occflg);
        constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();
        for (int slot = 0; slot < 10; ++slot)
            windows::select("ISS");
        indata->aflg[1] = 0;
        indata->a[1] = 0;  // at the centre of the Earth
        indata->aflg[2] = 0;
        indata->n0[2] = noNumber;
        indata->n0[3] = 1e300;
        indata->ecc[4] = 0.9999;
        indata->bstar[5] = 1.0;  // long decayed
        indata->mjdep[6] = 1e300;
        indata->aflg[7] = 0;
        indata->m0[7] = noNumber;
        indata->satn = 10;
        indata->skymap = skymap;
        indata->skyprj = mapprj;
        indata->mapprj = mapprj;
        indata->occflg = occflg;
        indata->sunmplt = occflg == 2;
        indata->nmflg = 1;
        for (int prime = 0; prime < 10; ++prime) {
            indata->prs = prime;
            indata->satsky = prime % 2 != 0;
            view->vRefresh();
            view->SatPlot(overVienna + 400 * (prime == 5), 1);
            for (int slot = 0; slot < 10; ++slot) {
                for (const QPoint& p : {view->PxCoord(satps->lat[slot], satps->lng[slot]),
                                        view->PxSky(satps->el[slot], satps->az[slot]), view->PxCdSun(slot, 1)}) {
                    QVERIFY(std::abs(p.x()) <= 200000);
                    QVERIFY(std::abs(p.y()) <= 200000);
                }
            }
            QCOMPARE(view->mapPixmap().toImage().pixelColor(5, 500), QColor(0, 50, 200));
        }
        indata->sunmplt = 0;
    }

private:
    std::unique_ptr<windows::Workplace> place;
    std::unique_ptr<VorlixView> view;
};

QTEST_MAIN(OverlayTest)
#include "overlay_test.moc"
