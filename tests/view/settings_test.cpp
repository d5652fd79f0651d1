// The commands that run a dialog and store its values.

#include <cmath>
#include <memory>

#include <QDoubleSpinBox>
#include <QGroupBox>
#include <QInputDialog>
#include <QRadioButton>
#include <QTest>

#include "app/record/text.h"
#include "astro/calendar.h"
#include "astro/time_scales.h"
#include "view/vorlix_view.h"
#include "view/window_helper.h"

using windows::answering;
using windows::click;
using windows::enter;

class SettingsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        windows::stopTheClock();
        place = std::make_unique<windows::Workplace>();
        view = std::make_unique<VorlixView>();
    }

    void cleanup()
    {
        view.reset();
        place.reset();
    }

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

    void theDateOfAnEventKeepsTheDuration()
    {
        indata->lcflg = 1;
        answering([&] { view->vInputDate(); }, {[](QDialog* dialog) {
                      auto* span = dialog->findChild<QLineEdit*>("durEdit");
                      QVERIFY(!span->isEnabled());
                      QCOMPARE(span->text(), QString("3.1"));
                      click(dialog, "okButton");
                  }});
        QCOMPARE(indata->dur, 3.1);
    }

    void cancelLeavesTheRecordAlone()
    {
        const auto before = std::make_unique<WinpData>(*indata);
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

    void theTimeStep_data()
    {
        QTest::addColumn<QString>("minutes");
        QTest::addColumn<QString>("seconds");
        QTest::addColumn<int>("stepmin");
        QTest::addColumn<double>("stepsec");
        QTest::addColumn<double>("tmstep");
        QTest::newRow("both") << "1"
                              << "30" << 1 << 30.0 << 90.0 / 86400;
        QTest::newRow("negative") << "-1"
                                  << "-0.5" << 1 << 0.5 << 60.5 / 86400;
        QTest::newRow("nothing") << "0"
                                 << "0" << 0 << 0.1 << 1.1574074074074074e-6;
        QTest::newRow("letters") << "x"
                                 << "" << 0 << 0.1 << 1.1574074074074074e-6;
        QTest::newRow("no number") << "0"
                                   << "nan" << 0 << 0.1 << 1.1574074074074074e-6;
        QTest::newRow("lowest int") << "-2147483648"
                                    << "0" << 2147483647 << 0.0 << 2147483647 / 1440.0;
    }

    void theTimeStep()
    {
        QFETCH(QString, minutes);
        QFETCH(QString, seconds);
        answering([&] { view->vStep(); }, {[&](QDialog* dialog) {
                      enter(dialog, "minEdit", minutes);
                      enter(dialog, "secEdit", seconds);
                      click(dialog, "okButton");
                  }});
        QTEST(indata->stepmin, "stepmin");
        QTEST(indata->stepsec, "stepsec");
        QFETCH(double, tmstep);
        QVERIFY(std::abs(indata->tmstep - tmstep) <= 1e-15 * std::abs(tmstep));
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

    void anotherBodyAgesTheDiskPlot()
    {
        indata->sunmplt = 1;
        indata->occflg = 1;
        indata->mjdlast = 58138.0;
        answering([&] { view->vVisibility(); }, {[](QDialog* dialog) { click(dialog, "okButton"); }});
        QCOMPARE(indata->mjdlast, 58138.0);
        answering([&] { view->vVisibility(); }, {[](QDialog* dialog) {
                      dialog->findChild<QRadioButton*>("moonButton")->click();
                      click(dialog, "okButton");
                  }});
        QCOMPARE(indata->occflg, 2);
        QCOMPARE(indata->mjdlast, 0.0);
    }

    void theMapDialogDrawsAnewAndHoldsItsNumbers()
    {
        QCOMPARE(indata->dspmd, 0);
        answering([&] { view->vMapDialog(); }, {[](QDialog* dialog) {
                      enter(dialog, "meridianEdit", "-30");
                      enter(dialog, "frequEdit", "-1");
                      dialog->findChild<QRadioButton*>("whiteButton")->click();
                      click(dialog, "okButton");
                  }});
        QCOMPARE(indata->centmer, 330.0);
        QCOMPARE(indata->frequ, 0.0);
        QCOMPARE(indata->mgrey, 0);
        QCOMPARE(indata->dspmd, 1);
    }

    void withoutItsImageThePhysicalMapIsNotOffered()
    {
        indata->phwm = false;
        indata->mapprj = 3;
        answering([&] { view->vMapDialog(); }, {[](QDialog* dialog) {
                      QVERIFY(!dialog->findChild<QRadioButton*>("ppwmButton")->isVisible());
                      click(dialog, "okButton");
                  }});
        QCOMPARE(indata->mapprj, 0);
    }

    void theSwitchDialogChoosesThePrimeSatellite()
    {
        windows::select("ISS");
        windows::select("HST");
        answering([&] { view->vSwitch(); }, {[](QDialog* dialog) {
                      dialog->findChild<QRadioButton*>("satButton2")->click();
                      click(dialog, "relativeBox");
                      click(dialog, "closeButton");
                  }});
        QCOMPARE(indata->prs, 1);
        QCOMPARE(indata->rlm, 1);
        QCOMPARE(indata->dspmd, 0);
    }

    void theMagnitudeTakesALength()
    {
        answering([&] { view->vMag(); }, {[](QDialog* dialog) {
                      QCOMPARE(dialog->windowTitle(), QString("Magnitude"));
                      auto* spin = dialog->findChild<QDoubleSpinBox*>();
                      QCOMPARE(spin->maximum(), 10000.0);
                      QCOMPARE(spin->decimals(), 2);
                      spin->setValue(3.25);
                      dialog->accept();
                  }});
        QCOMPARE(indata->chlen, 3.25);
    }

    void theSystemParametersAreStored()
    {
        answering([&] { view->vSysConf(); }, {[](QDialog* dialog) {
                      enter(dialog, "tolEdit", "1e-10");
                      enter(dialog, "mxiEdit", "many");
                      click(dialog, "refractBox");
                      click(dialog, "okButton");
                  }});
        QCOMPARE(indata->RKFtol, 1e-10);
        QCOMPARE(indata->mxit, 0);
        QVERIFY(!indata->refrc);
        QVERIFY(indata->atmx);
    }

    void absurdNumbersDoNoHarm_data()
    {
        QTest::addColumn<QString>("entered");
        for (const char* entered : {"", "letters", "1e300", "-1e300", "nan", "inf", "-2147483648", "99999999999"})
            QTest::newRow(entered) << QString(entered);
    }

    void absurdNumbersDoNoHarm()
    {
        QFETCH(QString, entered);
        windows::select("ISS");
        windows::select("HST");
        const auto fillIn = [&](QDialog* dialog) {
            for (auto* edit : dialog->findChildren<QLineEdit*>())
                edit->setText(entered);
            click(dialog, "okButton");
        };
        for (const auto command : {&VorlixView::vSetIERS, &VorlixView::vVisibility, &VorlixView::vStep,
                                   &VorlixView::vMapDialog, &VorlixView::vSysConf})
            QCOMPARE(answering([&] { (view.get()->*command)(); }, {fillIn}), 1);
        answering([&] { view->vInputLocation(); }, {fillIn});
        answering([&] { view->vInputDate(); }, {fillIn});
        QVERIFY(std::isfinite(indata->tmstep) && std::isfinite(indata->mjd));
        for (const int map : {0, 1, 2, 3, 4, 5, 6}) {
            indata->mapprj = map & 3;
            indata->skymap = map >= 4;
            indata->skyprj = map == 6 ? 5 : 0;
            indata->satsky = map == 5;
            indata->mpnight = map & 1;
            view->vRefresh();
            view->vCurrent();
            view->vForward();
            view->vBackward();
            answering([&] { view->getMapPos(300, 100); }, {});
        }
        view->vTmCheck(2);
        view->PlotDelta();
        view->RT_Plot();
        QCOMPARE(indata->dspmd, 1);
    }

private:
    std::unique_ptr<windows::Workplace> place;
    std::unique_ptr<VorlixView> view;
};

QTEST_MAIN(SettingsTest)
#include "settings_test.moc"
