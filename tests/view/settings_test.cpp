// The commands that run a dialog and store its values.

#include <cmath>
#include <memory>

#include <QRadioButton>
#include <QTest>

#include "astro/calendar.h"
#include "astro/time_scales.h"
#include "view/view_fixture.h"

using windows::answering;
using windows::click;
using windows::enter;

class SettingsTest : public ViewTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { open(); }
    void cleanup() { close(); }

    void theDateSetsTheMasterTime()
    {
        int result = 9;
        answering([&] { result = view->vInputDate(); }, {[](QDialog* dialog) {
                      click(dialog, "systemBox");  // off
                      enter(dialog, "tzoneEdit", "5.5");
                      enter(dialog, "dayEdit", "21");
                      enter(dialog, "hourEdit", "12");
                      enter(dialog, "minEdit", "0");
                      enter(dialog, "secEdit", "0");
                      enter(dialog, "durEdit", "-2");
                      click(dialog, "okButton");
                  }});
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
        answering([&] { cancelled = view->vInputDate(); }, {});
        QCOMPARE(cancelled, 1);
        answering([&] { cancelled = view->vInputLocation(); }, {[](QDialog* dialog) {
                      enter(dialog, "latEdit", "12");
                      dialog->findChild<QRadioButton*>("ddmmButton")->click();
                      dialog->reject();
                  }});
        QCOMPARE(cancelled, 1);
        for (const auto command :
             {&VorlixView::vSetIERS, &VorlixView::vVisibility, &VorlixView::vStep, &VorlixView::vMag,
              &VorlixView::vSwitch, &VorlixView::vMapDialog, &VorlixView::vSysConf}) {
            QCOMPARE(answering([&] { (view.get()->*command)(); }, {}), 1);
        }
        QVERIFY(same());
    }

    void thePlaceIsStoredInDecimalDegrees()
    {
        answering([&] { view->vInputLocation(); }, {[](QDialog* dialog) {
                      dialog->findChild<QRadioButton*>("ddmmButton")->click();
                      enter(dialog, "latEdit", "48.2845");
                      enter(dialog, "lngEdit", "-16.30");
                      enter(dialog, "heightEdit", "abc");
                      enter(dialog, "locEdit", QString(40, 'x'));
                      click(dialog, "okButton");
                  }});
        QVERIFY(std::abs(indata->lat - (48 + 28 / 60.0 + 45 / 3600.0)) < 1e-9);
        QVERIFY(std::abs(indata->lng + 16.5) < 1e-9);
        QCOMPARE(indata->height, 0.0);
        QCOMPARE(indata->ddmm, 1);
        QCOMPARE(QString(indata->geoname), QString(30, 'x'));
    }

    void earthOrientationSetsTerrestrialTime()
    {
        answering([&] { view->vSetIERS(); }, {[](QDialog* dialog) {
                      // what the default is
                      QCOMPARE(dialog->findChild<QLineEdit*>("taiEdit")->text().toInt(),
                               -int(DefTdUt(2018) - 32.184 + 0.0001));
                      click(dialog, "ckDefault");
                      enter(dialog, "taiEdit", "-35");
                      enter(dialog, "ut1Edit", "0.25");
                      click(dialog, "okButton");
                  }});
        QVERIFY(indata->IERSflg);
        QVERIFY(std::abs(indata->ttut - 67.184) < 1e-9);
        QCOMPARE(indata->Ut1Utc, 0.25);
        answering([&] { view->vSetIERS(); }, {[](QDialog* dialog) {
                      click(dialog, "ckDefault");
                      click(dialog, "okButton");
                  }});
        QCOMPARE(indata->ttut, DefTdUt(2018));
        QCOMPARE(indata->Ut1Utc, 0.25);
    }

    void theTimeStep()
    {
        constexpr double least = 1.1574074074074074e-6;
        const struct
        {
            const char *minutes, *seconds;
            int stepmin;
            double stepsec, tmstep;
        } cases[] = {{"1", "30", 1, 30.0, 90.0 / 86400},
                     {"-1", "-0.5", 1, 0.5, 60.5 / 86400},
                     {"0", "0", 0, 0.1, least},
                     {"x", "nan", 0, 0.1, least},
                     {"-2147483648", "0", 2147483647, 0.0, 2147483647 / 1440.0}};
        for (const auto& c : cases) {
            answering([&] { view->vStep(); }, {[&](QDialog* dialog) {
                          enter(dialog, "minEdit", c.minutes);
                          enter(dialog, "secEdit", c.seconds);
                          click(dialog, "okButton");
                      }});
            QCOMPARE(indata->stepmin, c.stepmin);
            QCOMPARE(indata->stepsec, c.stepsec);
            QVERIFY(std::abs(indata->tmstep - c.tmstep) <= 1e-15 * std::abs(c.tmstep));
        }
    }

    void theAnglesOfTheVisibilityDialogGoWhereTheNewModeNeedsThem()
    {
        indata->occra = 1.5;
        indata->cylra = 2.5;
        answering([&] { view->vVisibility(); }, {[](QDialog* dialog) {
                      click(dialog, "flarBox");
                      click(dialog, "knownBox");  // off
                      click(dialog, "cylBox");
                      enter(dialog, "yawEdit", "30");
                      enter(dialog, "pitchEdit", "-20");
                      click(dialog, "okButton");
                  }});
        QCOMPARE(indata->flarflg, 1);
        QCOMPARE(indata->flarmod, -1);
        QVERIFY(indata->cylflg);
        QCOMPARE(indata->cylra, 30.0);
        QCOMPARE(indata->cyldec, -20.0);
        QCOMPARE(indata->occra, 1.5);
        answering([&] { view->vVisibility(); }, {[](QDialog* dialog) {
                      QCOMPARE(dialog->findChild<QLineEdit*>("yawEdit")->text(), QString("30"));
                      click(dialog, "cylBox");  // off: the angles are those of a surface again
                      click(dialog, "okButton");
                  }});
        QCOMPARE(indata->occra, 30.0);
        QCOMPARE(indata->cylra, 30.0);
    }
};

QTEST_MAIN(SettingsTest)
#include "settings_test.moc"
