// The commands that run a dialog and store its values.

#include <cmath>
#include <memory>

#include <QCheckBox>
#include <QTest>

#include "astro/calendar.h"
#include "astro/time_scales.h"
#include "reports/welcome.h"
#include "view/view_fixture.h"

using windows::acts;
using windows::answering;

class SettingsTest : public ViewTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { open(); }
    void cleanup() { close(); }

    void theDateSetsTheMasterTime()
    {
        int result = 9;
        answering([&] { result = view->vInputDate(); },
                  {acts("systemBox tzoneEdit=5.5 dayEdit=21 hourEdit=12 minEdit=0 secEdit=0 durEdit=-2 okButton")});
        QCOMPARE(result, 0);
        QCOMPARE(indata->tzauto, 0);
        QVERIFY(std::abs(indata->mjd - mjd(21, 1, 2018, 6.5)) < 1e-9);
        QCOMPARE(indata->dur, 2.0);
    }

    void cancelLeavesTheRecordAlone()
    {
        const auto before = std::make_unique<WinpData>(*indata);
        // NOLINTNEXTLINE(bugprone-suspicious-memory-comparison): byte for byte, so that a NaN is like itself
        const auto same = [&] { return std::memcmp(before.get(), indata, sizeof(WinpData)) == 0; };
        QVERIFY(same());
        int cancelled = 0;
        answering([&] { cancelled += view->vInputDate(); }, {});
        answering([&] { cancelled += view->vInputLocation(); }, {acts("latEdit=12 ddmmButton cancelButton")});
        answering([&] { cancelled += !view->vMapDialog(); }, {});
        QCOMPARE(cancelled, 3);
        for (const auto command :
             {&VorlixView::vSetIERS, &VorlixView::vVisibility, &VorlixView::vStep, &VorlixView::vMag,
              &VorlixView::vSwitch, &VorlixView::vSysConf, &VorlixView::vModels}) {
            QCOMPARE(answering([&] { (view.get()->*command)(); }, {}), 1);
        }
        QVERIFY(same());
    }

    void thePlaceIsStoredInDecimalDegrees()
    {
        const QString name(40, 'x');
        answering([&] { view->vInputLocation(); },
                  {acts("ddmmButton latEdit=48.2845 lngEdit=-16.30 heightEdit=abc locEdit=" + name + " okButton")});
        QVERIFY(std::abs(indata->lat - (48 + 28 / 60.0 + 45 / 3600.0)) < 1e-9);
        QVERIFY(std::abs(indata->lng + 16.5) < 1e-9);
        QCOMPARE(indata->height, 0.0);
        QCOMPARE(indata->ddmm, 1);
        QCOMPARE(QString(indata->geoname), name.left(30));
    }

    void earthOrientationSetsTerrestrialTime()
    {
        answering([&] { view->vSetIERS(); }, {[](QDialog* dialog) {
                      // what the default is
                      QCOMPARE(dialog->findChild<QLineEdit*>("taiEdit")->text().toInt(),
                               -int(DefTdUt(2018) - 32.184 + 0.0001));
                      acts("ckDefault taiEdit=-35 ut1Edit=0.25 okButton")(dialog);
                  }});
        QVERIFY(indata->IERSflg);
        QVERIFY(std::abs(indata->ttut - 67.184) < 1e-9);
        answering([&] { view->vSetIERS(); }, {acts("ckDefault okButton")});
        QCOMPARE(indata->ttut, DefTdUt(2018));
        QCOMPARE(indata->Ut1Utc, 0.25);
    }

    void modelsAreRememberedOneByOne()
    {
        std::vector<std::string> on;
        for (std::size_t i = 0; i < correctionNames.size(); ++i) {
            answering([&] { view->vModels(); }, {[i](QDialog* dialog) {
                          dialog->findChildren<QCheckBox*>().at(static_cast<int>(i))->click();
                          acts("okButton")(dialog);
                      }});
            on.emplace_back(correctionNames[i].name);
            QCOMPARE(namesOf(indata->models), on);
            const auto nextRun = std::make_unique<WinpData>();
            const auto out = std::make_unique<WoutData>();
            swelcm(nextRun.get(), out.get());
            QVERIFY(nextRun->models == indata->models);
        }
    }

    void theTimeStep()
    {
        constexpr double least = 1.1574074074074074e-6;
        for (const auto& [edits, stepmin, stepsec, tmstep] :
             {std::tuple{"minEdit=1 secEdit=30", 1, 30.0, 90.0 / 86400},
              {"minEdit=-1 secEdit=-0.5", 1, 0.5, 60.5 / 86400},
              {"minEdit=0 secEdit=0", 0, 0.1, least},
              {"minEdit=x secEdit=nan", 0, 0.1, least},
              {"minEdit=-2147483648 secEdit=0", 2147483647, 0.0, 2147483647 / 1440.0}}) {
            answering([&] { view->vStep(); }, {acts(QString(edits) + " okButton")});
            QCOMPARE(indata->stepmin, stepmin);
            QCOMPARE(indata->stepsec, stepsec);
            QVERIFY(std::abs(indata->tmstep - tmstep) <= 1e-15 * std::abs(tmstep));
        }
    }

    void theAnglesOfTheVisibilityDialogGoWhereTheNewModeNeedsThem()
    {
        indata->occra = 1.5;
        indata->cylra = 2.5;
        // the mode, not a known surface, but a cylinder
        answering([&] { view->vVisibility(); }, {acts("flarBox knownBox cylBox yawEdit=30 pitchEdit=-20 okButton")});
        QCOMPARE(indata->flarflg, 1);
        QCOMPARE(indata->flarmod, -1);
        QVERIFY(indata->cylflg);
        QCOMPARE(indata->cylra, 30.0);
        QCOMPARE(indata->cyldec, -20.0);
        QCOMPARE(indata->occra, 1.5);
        answering([&] { view->vVisibility(); }, {[](QDialog* dialog) {
                      QCOMPARE(dialog->findChild<QLineEdit*>("yawEdit")->text(), QString("30"));
                      acts("cylBox okButton")(dialog);  // the angles are those of a surface again
                  }});
        QCOMPARE(indata->occra, 30.0);
        QCOMPARE(indata->cylra, 30.0);
    }

    void anotherBodyOfTheDiskPlotMakesTheMapOld()
    {
        for (const auto& [plot, before, button, old] : {std::tuple{1, 1, "moonButton", true},
                                                        {1, 2, "sunButton", true},
                                                        {1, 2, "moonButton", false},
                                                        {0, 1, "moonButton", false}}) {
            indata->sunmplt = plot;
            indata->occflg = before;
            indata->mjdlast = 58138.0;
            answering([&] { view->vVisibility(); }, {acts(QString(button) + " okButton")});
            QCOMPARE(indata->mjdlast == 0, old);
        }
    }

    void theMapDialogStoresWhatTheMapCanShow()
    {
        answering([&] { view->vMapDialog(); }, {acts("meridianEdit=-30 frequEdit=-1 okButton")});
        QCOMPARE(indata->centmer, 330.0);
        QCOMPARE(indata->frequ, 0.0);
        QCOMPARE(indata->dspmd, 1);  // drawn at once
        QCOMPARE(indata->mapprj, 3);
        indata->phwm = false;
        answering([&] { view->vMapDialog(); }, {acts("okButton")});
        QCOMPARE(indata->mapprj, 0);
    }

    void theMatchSearchTakesItsDialog()
    {
        indata->sunel = 90.0;
        answering([&] { view->vMatch(); }, {acts("okButton"), acts("mxaEdit=5 tmEdit=-2 okButton")});
        QCOMPARE(indata->mxa, 5.0);
        QCOMPARE(indata->tm, 2.0);
        QCOMPARE(indata->lcflg, 0);
        QCOMPARE(indata->txtrdy, 1);
        QCOMPARE(indata->dspmd, 0);
    }
};

QTEST_MAIN(SettingsTest)
#include "settings_test.moc"
