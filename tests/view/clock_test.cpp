// The plot clock: steps, ticks, the ageing of the background and the pass jumps.

#include <array>
#include <cmath>

#include <QMessageBox>
#include <QTest>

#include "astro/calendar.h"
#include "engine/pass_search.h"
#include "engine/position.h"
#include "record_fields.h"
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
        setFields(*indata, "year=2018 month=1 day=20 hour=0 minute=0 second=0 tzauto=0 tzone=0 tmstep=0.25 dur=1 "
                           "mjd=58215 rtflg=1");  // the time last plotted does not count
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
        const std::pair<const char*, double> oldest[] = {// days
                                                         {"skymap=0 mpnight=1", 0.01},
                                                         {"skymap=0 mpnight=1 satsky=1", 0.01},
                                                         {"skymap=1 skyprj=0", 0.004},
                                                         {"skymap=1 skyprj=3", 0.002},
                                                         {"skymap=1 skyprj=0 mpnight=1", 0.002},
                                                         {"skymap=1 skyprj=1 mpnight=1", 0.001},
                                                         {"skymap=1 satsky=1", 1e-6},
                                                         {"skymap=0 sunmplt=1 occflg=1", 0.01}};
        for (const auto& [map, days] : oldest) {
            setFields(*indata, "skyprj=0 mpnight=0 satsky=0 sunmplt=0 occflg=0");
            setFields(*indata, map);
            for (const double way : {1.0, -1.0}) {
                indata->mjd = start;
                view->vRefresh();
                QCOMPARE(indata->mjdlast, start);
                view->SatPlot(start + way * 0.98 * days, 0);
                QVERIFY2(indata->mjdlast == start || days == 1e-6, map);  // from a satellite it is always old
                view->SatPlot(start + way * 1.02 * days, 0);
                QVERIFY2(indata->mjdlast == start + way * 1.02 * days, map);
            }
        }
        setFields(*indata, "skymap=0 satsky=1 sunmplt=0 occflg=0 mpnight=0");  // the world without night never is
        view->vRefresh();
        view->SatPlot(start + 5.0, 0);
        QVERIFY(indata->mjdlast < start + 5.0);
    }

    void aSkyMapEndsRelativeMode()
    {
        indata->rlm = 1;
        for (const int skymap : {0, 1}) {
            indata->skymap = skymap;
            view->SatPlot(start, 0);
            QCOMPARE(indata->rlm, 1 - skymap);
        }
    }

    void aJumpWithoutPassWarnsAndChangesNothing()
    {
        windows::select("ISS");
        indata->satel = 91.0;
        QString second;
        windows::answering([this] { view->vPlotNext(); }, {[&](QDialog* dialog) {
                               const auto* box = qobject_cast<QMessageBox*>(dialog);
                               second = box->escapeButton()->text();
                           }});
        QCOMPARE(second, QString("Cancel"));
        QCOMPARE(windows::told([this] { view->vPlotLast(); }), QStringList("Vorlix: No suitable pass found"));
        QCOMPARE(indata->mjd, start);
        QCOMPARE(indata->pasjmp, 0);
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

    void aJumpOnTheSkyTurnsToTheSatelliteAndKeepsFractionsOfShortSteps()
    {
        windows::observeAllFromVienna();
        windows::select("ISS");
        setFields(*indata, "skymap=1 skyprj=5 skaz=33 tmstep=1.2e-6");
        view->vPlotNext();
        const double seconds = indata->mjd * 86400.0;
        QVERIFY(std::abs(seconds - std::round(seconds)) > 1e-3);
        QVERIFY(elevationAt(indata->mjd) > 10.0);
        QVERIFY(std::abs(satpos->az[0] - indata->skaz) < 1e-6);
    }

    void aJumpInRelativeModeGoesToTheBeginOfTheContact()
    {
        windows::observeAllFromVienna();
        windows::select("ISS");
        windows::select("HST");
        indata->rlm = 1;
        const auto contactAt = [](double t) {
            GetSatPos(t, indata, satpos, 0, 0);
            return cksatok(indata, satpos, 0) != 0;
        };
        view->vPlotNext();
        QVERIFY(contactAt(indata->mjd + 2.0 / 86400.0));
        QVERIFY(!contactAt(indata->mjd - 2.0 / 86400.0));
    }
};

QTEST_MAIN(ClockTest)
#include "clock_test.moc"
