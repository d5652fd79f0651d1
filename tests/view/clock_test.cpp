// The plot clock: steps, ticks, the ageing of the background and the pass jumps.

#include <array>
#include <cmath>

#include <QMessageBox>
#include <QTest>

#include "astro/calendar.h"
#include "engine/pass_search.h"
#include "engine/position.h"
#include "view/view_fixture.h"

namespace {

constexpr double start = 58138.0;  // 2018-01-20, 0h UTC

/// The elevation of the prime satellite, found without the view.
double elevationAt(double t)
{
    GetSatPos(t, indata, satpos, indata->prs, 0);
    return satpos->el[indata->prs];
}

}  // namespace

class ClockTest : public ViewTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        open();
        indata->mjd = start;
    }

    void cleanup() { close(); }

    void aStepMovesTheTimeAndShowsTheMapBehindAText()
    {
        indata->tmstep = 0.25;
        for (const auto& [shown, shownAfter] : {std::pair{0, 1}, {-1, -1}, {1, 1}}) {  // a pass table stays
            for (const auto& [command, days] : {std::pair{&VorlixView::vForward, 0.25},
                                                {&VorlixView::vBackward, 0.0},
                                                {&VorlixView::vCurrent, 0.0}}) {
                indata->dspmd = shown;
                (view.get()->*command)();
                QCOMPARE(indata->mjd, start + days);
                QCOMPARE(indata->dspmd, shownAfter);
            }
        }
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

    void theBackgroundIsDrawnAnewWhenItHasAged()
    {
        windows::select("ISS");
        struct Case
        {
            const char* what;
            int skymap, skyprj, mpnight, sunmplt;
            double oldest;  // days
        };
        constexpr std::array cases{
            Case{"with night", 0, 0, 1, 0, 0.01},         Case{"zenith sky", 1, 0, 0, 0, 0.004},
            Case{"azimuth sky", 1, 3, 0, 0, 0.002},       Case{"zenith and night", 1, 0, 1, 0, 0.002},
            Case{"azimuth and night", 1, 1, 1, 0, 0.001}, Case{"disk", 0, 0, 0, 1, 0.01}};
        for (const Case& c : cases) {
            indata->skymap = c.skymap;
            indata->skyprj = c.skyprj;
            indata->mpnight = c.mpnight;
            indata->sunmplt = indata->occflg = c.sunmplt;
            for (const double way : {1.0, -1.0}) {
                indata->mjd = start;
                view->vRefresh();
                QCOMPARE(indata->mjdlast, start);
                view->SatPlot(start + way * 0.98 * c.oldest, 0);
                QVERIFY2(indata->mjdlast == start, c.what);
                view->SatPlot(start + way * 1.02 * c.oldest, 0);
                QVERIFY2(indata->mjdlast == start + way * 1.02 * c.oldest, c.what);
            }
        }
        indata->sunmplt = indata->occflg = 0;
        for (const auto& [skymap, drawn] : {std::pair{1, true}, {0, false}}) {  // from the satellite, sky and world
            indata->skymap = skymap;
            indata->satsky = true;
            indata->mjd = start;
            view->vRefresh();
            view->SatPlot(start + (drawn ? 1e-6 : 5.0), 0);
            QCOMPARE(indata->mjdlast != start, drawn);
        }
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

    void aJumpWithoutSatelliteOrPassWarnsAndChangesNothing()
    {
        indata->satel = 91.0;
        for (const char* told : {"No satellite selected", "No suitable pass found"}) {
            QString text, second;
            windows::answering([&] { view->vPlotNext(); }, {[&](QDialog* dialog) {
                                   text = qobject_cast<QMessageBox*>(dialog)->text();
                                   second = qobject_cast<QMessageBox*>(dialog)->escapeButton()->text();
                                   windows::press(dialog, "OK");
                               }});
            QCOMPARE(text, QString(told));
            QCOMPARE(second, QString("Quit"));
            QCOMPARE(indata->mjd, start);
            QCOMPARE(indata->pasjmp, 0);
            windows::select("ISS");
        }
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

private:
    bool cksatokNow()
    {
        GetSatPos(indata->mjd, indata, satpos, indata->prs, 0);
        return cksatok(indata, satpos, indata->prs) != 0;
    }
};

QTEST_MAIN(ClockTest)
#include "clock_test.moc"
