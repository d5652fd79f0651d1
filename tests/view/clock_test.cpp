// The plot clock: steps, ticks, the ageing of the background and the pass jumps.

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>

#include <QMessageBox>
#include <QTest>

#include "astro/calendar.h"
#include "engine/pass_search.h"
#include "engine/position.h"
#include "view/vorlix_view.h"
#include "view/window_helper.h"

namespace {

constexpr double start = 58138.0;  // 2018-01-20, 0h UTC

/// The elevation of the prime satellite, found without the view.
double elevationAt(double t)
{
    GetSatPos(t, indata, satpos, indata->prs, 0);
    return satpos->el[indata->prs];
}

}  // namespace

class ClockTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        windows::stopTheClock();
        place = std::make_unique<windows::Workplace>();
        view = std::make_unique<VorlixView>();
        indata->mjd = start;
    }

    void cleanup()
    {
        view.reset();
        place.reset();
    }

    void aStepMovesTheTimeAndShowsTheMapBehindAText_data()
    {
        QTest::addColumn<int>("shown");
        QTest::addColumn<int>("shownAfter");
        QTest::newRow("text") << 0 << 1;
        QTest::newRow("pass table stays") << -1 << -1;
        QTest::newRow("map") << 1 << 1;
    }

    void aStepMovesTheTimeAndShowsTheMapBehindAText()
    {
        QFETCH(int, shown);
        QFETCH(int, shownAfter);
        indata->tmstep = 0.25;
        indata->dspmd = shown;
        view->vForward();
        QCOMPARE(indata->mjd, start + 0.25);
        QCOMPARE(indata->dspmd, shownAfter);
        indata->dspmd = shown;
        view->vBackward();
        view->vBackward();
        QCOMPARE(indata->mjd, start - 0.25);
        QCOMPARE(indata->dspmd, shownAfter);
        indata->dspmd = shown;
        view->vCurrent();
        QCOMPARE(indata->mjd, start - 0.25);
        QCOMPARE(indata->dspmd, shownAfter);
    }

    void aDeltaPlotRunsFromTheStartDateToItsEnd()
    {
        indata->year = 2018;
        indata->month = 1;
        indata->day = 20;
        indata->hour = indata->minute = indata->second = 0;
        indata->tzauto = 0;
        indata->tzone = 0;
        indata->tmstep = 0.25;
        indata->dur = 1.0;
        indata->mjd = start + 77.0;  // the time last plotted does not count
        indata->rtflg = 1;
        view->vTmCheck(2);
        QCOMPARE(indata->mjd, start);
        QCOMPARE(indata->dspmd, 1);
        QCOMPARE(indata->rtflg, 0);
        for (int step = 1; step <= 4; ++step) {
            QCOMPARE(view->PlotDelta(), 0);
            QCOMPARE(indata->mjd, start + 0.25 * step);  // the fourth lands on the end itself
        }
        QVERIFY(view->PlotDelta() != 0);
        QCOMPARE(indata->mjd, start + 1.0);
    }

    void aDeltaPlotTakesItsEndBetweenTwoSteps()
    {
        indata->tmstep = 0.3;
        indata->dur = 1.0;
        view->vTmCheck(2);
        const double begin = indata->mjd;
        int steps = 0;
        while (view->PlotDelta() == 0)
            ++steps;
        QCOMPARE(steps, 3);
        QVERIFY(indata->mjd <= begin + 1.0);
    }

    void aTimerModeStartedFromAPassTableShowsTheMap()
    {
        for (const int mode : {1, 2}) {
            indata->dspmd = -1;
            view->vTmCheck(mode);
            QCOMPARE(indata->dspmd, 1);
        }
    }

    void aRealTimeTickShowsTheClockWithItsOffset()
    {
        view->vTmCheck(1);
        QCOMPARE(indata->rtflg, 1);
        indata->rtoff = -6.0;
        view->RT_Plot();
        const double now = mjd(20, 1, 2018, 17 + 5 / 60.0 + 9 / 3600.0);
        QVERIFY(std::abs(indata->mjd - (now - 0.25)) < 1e-9);
        windows::clockSeconds += 86400;  // a clock that was set
        view->RT_Plot();
        QVERIFY(std::abs(indata->mjd - (now + 0.75)) < 1e-9);
        view->vTmCheck(0);
        QCOMPARE(indata->rtflg, 0);
        QVERIFY(std::abs(indata->mjd - (now + 0.75)) < 1e-9);
    }

    void theBackgroundIsDrawnAnewWhenItHasAged_data()
    {
        QTest::addColumn<int>("skymap");
        QTest::addColumn<int>("skyprj");
        QTest::addColumn<int>("mpnight");
        QTest::addColumn<bool>("satsky");
        QTest::addColumn<double>("age");
        QTest::addColumn<bool>("drawn");
        QTest::newRow("a world map never") << 0 << 0 << 0 << false << 5.0 << false;
        QTest::newRow("with night") << 0 << 0 << 1 << false << 0.0101 << true;
        QTest::newRow("with night, young") << 0 << 0 << 1 << false << 0.0099 << false;
        QTest::newRow("zenith sky") << 1 << 0 << 0 << false << 0.0041 << true;
        QTest::newRow("zenith sky, young") << 1 << 0 << 0 << false << 0.0039 << false;
        QTest::newRow("azimuth sky") << 1 << 3 << 0 << false << 0.0021 << true;
        QTest::newRow("azimuth sky, young") << 1 << 3 << 0 << false << 0.0019 << false;
        QTest::newRow("zenith sky and night") << 1 << 0 << 1 << false << 0.0021 << true;
        QTest::newRow("zenith sky and night, young") << 1 << 0 << 1 << false << 0.0019 << false;
        QTest::newRow("azimuth sky and night") << 1 << 1 << 1 << false << 0.0011 << true;
        QTest::newRow("azimuth sky and night, young") << 1 << 1 << 1 << false << 0.0009 << false;
        QTest::newRow("backwards") << 1 << 0 << 0 << false << -0.0041 << true;
        QTest::newRow("from the satellite always") << 1 << 0 << 0 << true << 1e-6 << true;
        QTest::newRow("from the satellite, world map") << 0 << 0 << 0 << true << 1e-6 << false;
    }

    void theBackgroundIsDrawnAnewWhenItHasAged()
    {
        QFETCH(int, skymap);
        QFETCH(int, skyprj);
        QFETCH(int, mpnight);
        QFETCH(bool, satsky);
        QFETCH(double, age);
        QFETCH(bool, drawn);
        windows::select("ISS");
        indata->skymap = skymap;
        indata->skyprj = skyprj;
        indata->mpnight = mpnight;
        indata->satsky = satsky;
        view->vRefresh();
        QCOMPARE(indata->mjdlast, start);
        view->SatPlot(start + age, 0);
        QCOMPARE(indata->mjdlast, drawn ? start + age : start);
        QCOMPARE(indata->mjd, start + age);
    }

    void aDiskPlotComesAndGoesWithItsSettings()
    {
        windows::select("ISS");
        indata->sunmplt = 1;
        indata->occflg = 1;
        view->SatPlot(start, 0);
        QCOMPARE(indata->diskon, 1);
        QCOMPARE(indata->mjdlast, start);
        view->SatPlot(start + 0.0099, 0);
        QCOMPARE(indata->mjdlast, start);
        view->SatPlot(start + 0.0101, 0);
        QCOMPARE(indata->mjdlast, start + 0.0101);
        indata->occflg = 3;
        view->SatPlot(start + 0.0102, 0);
        QCOMPARE(indata->diskon, 0);
        QCOMPARE(indata->mjdlast, start + 0.0102);
    }

    void trailsStayInTheBackgroundUntilItIsDrawnAnew_data()
    {
        QTest::addColumn<int>("mpnight");
        QTest::addColumn<int>("dots");
        QTest::newRow("trails") << 0 << 3;
        QTest::newRow("night instead of trails") << 1 << 0;
    }

    void trailsStayInTheBackgroundUntilItIsDrawnAnew()
    {
        QFETCH(int, mpnight);
        QFETCH(int, dots);
        windows::select("ISS");
        indata->mapprj = 0;
        indata->mpnight = mpnight;
        indata->mgrey = 1;  // the prime satellite is black on grey
        view->vRefresh();
        std::array<QPoint, 3> places;
        for (std::size_t i = 0; i < places.size(); ++i) {
            view->SatPlot(start + 0.003 * static_cast<double>(i), 0);
            places[i] = view->PxCoord(satps->lat[0], satps->lng[0]);
        }
        const auto blackOnes = [&] {
            const QImage map = view->mapPixmap().toImage();
            return std::count_if(places.begin(), places.end(),
                                 [&](const QPoint& p) { return map.pixelColor(p) == QColor(0, 0, 0); });
        };
        QCOMPARE(int(blackOnes()), dots);
        view->vRefresh();
        QCOMPARE(int(blackOnes()), 0);
    }

    void aPlotFromTheSatelliteLeavesTheObserverAlone()
    {
        windows::observeAllFromVienna();
        windows::select("ISS");
        indata->skymap = 1;
        indata->satsky = true;
        view->SatPlot(start, 1);
        QCOMPARE(indata->lat, 48.25);
        QCOMPARE(indata->lng, 16.5);
        QCOMPARE(indata->height, 200.0);
    }

    void aSkyMapEndsRelativeMode()
    {
        indata->rlm = 1;
        view->SatPlot(start, 0);
        QCOMPARE(indata->rlm, 1);
        indata->skymap = 1;
        view->SatPlot(start, 0);
        QCOMPARE(indata->rlm, 0);
    }

    void thePlottedYearIsThatOfCivilTime()
    {
        indata->tzone = -1.0;
        view->SatPlot(58119.0, 0);  // 2018-01-01, 0h UTC
        QCOMPARE(indata->plotyear, 2017);
    }

    void aJumpWithoutSatelliteWarnsAndChangesNothing()
    {
        QString text, second;
        const int boxes = windows::answering([&] { view->vPlotNext(); }, {[&](QDialog* dialog) {
                                                 auto* box = qobject_cast<QMessageBox*>(dialog);
                                                 QVERIFY(box);
                                                 text = box->text();
                                                 QCOMPARE(box->windowTitle(), QString("Vorlix"));
                                                 QVERIFY(box->escapeButton() != nullptr);
                                                 second = box->escapeButton()->text();
                                                 windows::press(dialog, "OK");
                                             }});
        QCOMPARE(boxes, 1);
        QCOMPARE(text, QString("No satellite selected"));
        QCOMPARE(second, QString("Quit"));
        QCOMPARE(indata->mjd, start);
        QCOMPARE(indata->dspmd, 0);
        QCOMPARE(indata->pasjmp, 0);
    }

    void aJumpWithoutPassWarnsAndKeepsTheTime()
    {
        windows::select("ISS");
        indata->satel = 91.0;
        indata->iridflg = 3;
        QString text;
        windows::answering([&] { view->vPlotLast(); }, {[&](QDialog* dialog) {
                               text = qobject_cast<QMessageBox*>(dialog)->text();
                               windows::press(dialog, "Quit");
                           }});
        QCOMPARE(text, QString("No suitable pass found"));
        QCOMPARE(indata->mjd, start);
        QCOMPARE(indata->iridflg, 3);
    }

    void jumpsGoToTheMaximaOfPassesAndBack()
    {
        windows::observeAllFromVienna();
        windows::select("ISS");
        indata->iridflg = 3;
        std::array<double, 3> maxima{};
        for (double& t : maxima) {
            view->vPlotNext();
            t = indata->mjd;
            QVERIFY(elevationAt(t) > 10.0);
            // rounded to whole seconds, so the neighbours two seconds off are lower
            QVERIFY(elevationAt(t) > elevationAt(t - 2.0 / 86400.0));
            QVERIFY(elevationAt(t) > elevationAt(t + 2.0 / 86400.0));
            const double seconds = t * 86400.0;
            QVERIFY(std::abs(seconds - std::round(seconds)) < 1e-5);
            QCOMPARE(indata->dspmd, 1);
            QCOMPARE(indata->pasjmp, 1);
            QCOMPARE(indata->iridflg, 3);
        }
        QVERIFY(maxima[0] < maxima[1] && maxima[1] < maxima[2]);
        view->vPlotLast();
        QVERIFY(std::abs(indata->mjd - maxima[1]) < 1.5 / 86400.0);
    }

    void aStepBelowASecondLeavesTheTimeOfAPassUnrounded()
    {
        windows::observeAllFromVienna();
        windows::select("ISS");
        indata->tmstep = 0.5 / 86400.0;
        view->vPlotNext();
        const double fine = indata->mjd;
        indata->tmstep = 1.0 / 86400.0;
        indata->mjd = start;
        indata->pasjmp = 0;
        view->vPlotNext();
        QVERIFY(fine != indata->mjd);
        QVERIFY(std::abs(fine - indata->mjd) <= 1.6 / 86400.0);
    }

    void aJumpTurnsTheAutomaticSkyMapToTheSatellite()
    {
        windows::observeAllFromVienna();
        windows::select("ISS");
        indata->skymap = 1;
        indata->skyprj = 5;
        indata->skaz = -1.0;
        view->vPlotNext();
        elevationAt(indata->mjd);
        QVERIFY(std::abs(std::remainder(indata->skaz - satpos->az[0], 360.0)) < 2.0);
    }

    void aJumpInRelativeModeGoesToTheStartOfTheContact()
    {
        windows::select("ISS");
        windows::select("HST");
        indata->visflg = 0;
        indata->rlm = 1;
        view->vPlotNext();
        QVERIFY(cksatokNow());
        indata->mjd -= 120.0 / 86400.0;
        QVERIFY(!cksatokNow());
    }

    void digitKeysChooseThePrimeSatellite()
    {
        windows::select("ISS");
        windows::select("HST");
        struct Case
        {
            const char* what;
            int key, before, after;
        };
        constexpr std::array cases{Case{"the first", 1, 1, 0}, Case{"the second", 2, 0, 1},
                                   Case{"not selected", 3, 1, 1}, Case{"the tenth", 10, 1, 1},
                                   Case{"a negative one", 5, -1, 0}};
        for (const Case& c : cases) {
            indata->prs = c.before;
            view->keyPress(c.key);
            QVERIFY2(indata->prs == c.after, c.what);
        }
        QCOMPARE(indata->mjd, start);
    }

    void scrollingStepsSidewaysAndMovesUpAndDown()
    {
        indata->tmstep = 0.25;
        view->scrollDsp(10, 0);
        QCOMPARE(indata->mjd, start - 0.25);
        view->scrollDsp(-10, 0);
        QCOMPARE(indata->mjd, start);
        view->move(7, -15);
        view->scrollDsp(0, -10);
        QCOMPARE(view->pos(), QPoint(0, -25));
        view->scrollDsp(0, 10);
        view->scrollDsp(0, 10);
        QCOMPARE(view->pos(), QPoint(0, -5));
        view->scrollDsp(0, 10);
        QCOMPARE(view->pos(), QPoint(0, 0));
    }

    void namesReplotUnlessARealTimePlotRuns()
    {
        indata->dspmd = 0;
        indata->rtflg = 1;
        view->vNames(true);
        QCOMPARE(indata->nmflg, 1);
        QCOMPARE(indata->dspmd, 0);
        indata->rtflg = 0;
        view->vNames(false);
        QCOMPARE(indata->nmflg, 0);
        QCOMPARE(indata->dspmd, 1);
    }

private:
    bool cksatokNow()
    {
        GetSatPos(indata->mjd, indata, satpos, indata->prs, 0);
        return cksatok(indata, satpos, indata->prs) != 0;
    }

    std::unique_ptr<windows::Workplace> place;
    std::unique_ptr<VorlixView> view;
};

QTEST_MAIN(ClockTest)
#include "clock_test.moc"
