// The hot keys of the main window, with real key events.

#include <memory>

#include <QAction>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>

#include "app/vorlix_app.h"
#include "view/vorlix_view.h"
#include "view/window_helper.h"

using windows::answering;

class KeysTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        windows::stopTheClock();
        place = std::make_unique<windows::Workplace>();
        app = std::make_unique<VorlixApp>();
        app->show();
        activate();
    }

    void cleanup()
    {
        app.reset();
        place.reset();
    }

    void lettersOpenTheirDialogs_data()
    {
        QTest::addColumn<Qt::Key>("key");
        QTest::addColumn<QString>("title");
        QTest::newRow("C") << Qt::Key_C << "Observer's Location";
        QTest::newRow("D") << Qt::Key_D << "Date, Time and Timezone";
        QTest::newRow("F") << Qt::Key_F << "TLE file dialog";
        QTest::newRow("H") << Qt::Key_H << "Quick Help";
        QTest::newRow("M") << Qt::Key_M << "Magnitude";
        QTest::newRow("S") << Qt::Key_S << "Select Satellite";
        QTest::newRow("T") << Qt::Key_T << "Time Step";
        QTest::newRow("V") << Qt::Key_V << "Visibility Settings";
        QTest::newRow("W") << Qt::Key_W << "Select Prime Satellite";
        QTest::newRow("Y") << Qt::Key_Y << "Map Settings";
        QTest::newRow("Z") << Qt::Key_Z << "Remove Satellites";
        QTest::newRow("Space") << Qt::Key_Space << "Observer's Location";
    }

    void lettersOpenTheirDialogs()
    {
        QFETCH(Qt::Key, key);
        QFETCH(QString, title);
        windows::select("ISS");
        const QList<Qt::KeyboardModifiers> ways{Qt::NoModifier, Qt::ShiftModifier};
        for (const Qt::KeyboardModifiers modifiers : ways) {
            QString seen;
            answering([&] { QTest::keyClick(app.get(), key, modifiers); },
                      {[&](QDialog* dialog) { seen = dialog->windowTitle(); }});
            QCOMPARE(seen, title);
        }
    }

    void shortcutsOpenTheSameDialogs()
    {
        for (const auto& [key, title] : {std::pair{Qt::Key_S, "Select Satellite"},
                                         {Qt::Key_D, "Date, Time and Timezone"},
                                         {Qt::Key_V, "Visibility Settings"},
                                         {Qt::Key_I, "Online Update"}}) {
            QString seen;
            activate();
            answering([&] { QTest::keyClick(app.get(), key, Qt::ControlModifier); },
                      {[&](QDialog* dialog) { seen = dialog->windowTitle(); }});
            QCOMPARE(seen, QString(title));
        }
    }

    void plainSAndVShowNoMessage()
    {
        for (const Qt::Key key : {Qt::Key_S, Qt::Key_V}) {
            app->statusBar()->showMessage("as before");
            answering([&] { QTest::keyClick(app.get(), key); }, {});
            QCOMPARE(app->statusBar()->currentMessage(), QString("as before"));
            activate();
            answering([&] { QTest::keyClick(app.get(), key, Qt::ControlModifier); }, {});
            QCOMPARE(app->statusBar()->currentMessage(), QString("Ready."));
        }
    }

    void lettersWithoutAKeyDoNothing()
    {
        app->statusBar()->showMessage("as before");
        for (const Qt::Key key : {Qt::Key_B, Qt::Key_I, Qt::Key_J, Qt::Key_K, Qt::Key_Q}) {
            QCOMPARE(answering([&] { QTest::keyClick(app.get(), key); }, {}), 0);
            QCOMPARE(app->statusBar()->currentMessage(), QString("as before"));
        }
    }

    void lettersPlotAndToggle()
    {
        QTest::keyClick(app.get(), Qt::Key_R);
        QVERIFY(timer()->isActive());
        QCOMPARE(indata->rtflg, 1);
        QTest::keyClick(app.get(), Qt::Key_G);  // a running plot is only stopped
        QVERIFY(!timer()->isActive());
        QTest::keyClick(app.get(), Qt::Key_G);
        QVERIFY(timer()->isActive());
        QTest::keyClick(app.get(), Qt::Key_U);
        QVERIFY(!timer()->isActive());
        QTest::keyClick(app.get(), Qt::Key_N);
        QCOMPARE(indata->nmflg, 1);
        QVERIFY(app->findChild<QAction*>("viewNames")->isChecked());
        QCOMPARE(indata->dspmd, 1);
        QTest::keyClick(app.get(), Qt::Key_X);
        QCOMPARE(indata->dspmd, 0);
        windows::select("ISS");
        QTest::keyClick(app.get(), Qt::Key_A);
        QCOMPARE(indata->dspmd, -1);
        QTest::keyClick(app.get(), Qt::Key_Delete);
        QCOMPARE(indata->dspmd, 1);
    }

    void arrowsStopARealTimePlotAndStep()
    {
        indata->tmstep = 0.25;
        QTest::keyClick(app.get(), Qt::Key_R);
        canvas()->RT_Plot();
        const double last = indata->mjd;
        QTest::keyClick(app.get(), Qt::Key_Right);
        QVERIFY(!timer()->isActive());
        QCOMPARE(indata->mjd, last + 0.25);
        QTest::keyClick(app.get(), Qt::Key_Left);
        QCOMPARE(indata->mjd, last);
        QTest::keyClick(app.get(), Qt::Key_Up);
        QCOMPARE(canvas()->pos(), QPoint(0, -10));
        QTest::keyClick(app.get(), Qt::Key_Down);
        QCOMPARE(canvas()->pos(), QPoint(0, 0));
    }

    void pageKeysJumpToPasses()
    {
        windows::observeAllFromVienna();
        windows::select("ISS");
        const double begin = indata->mjd;
        QTest::keyClick(app.get(), Qt::Key_PageDown);
        const double first = indata->mjd;
        QVERIFY(first > begin);
        QTest::keyClick(app.get(), Qt::Key_PageDown);
        QVERIFY(indata->mjd > first);
        QTest::keyClick(app.get(), Qt::Key_PageUp);
        QVERIFY(std::abs(indata->mjd - first) < 2.0 / 86400.0);
    }

    void digitsChooseThePrimeSatellite()
    {
        for (const char* name : {"ISS", "HST", "SERT 2"})
            windows::select(name);
        QTest::keyClick(app.get(), Qt::Key_3);
        QCOMPARE(indata->prs, 2);
        QTest::keyClick(app.get(), Qt::Key_5);
        QCOMPARE(indata->prs, 2);
        QTest::keyClick(app.get(), Qt::Key_0);
        QCOMPARE(indata->prs, 2);
        QTest::keyClick(app.get(), Qt::Key_1, Qt::ControlModifier);
        QCOMPARE(indata->prs, 0);
    }

    void homeGoesToTheUpperLeftCorner()
    {
        const auto* area = qobject_cast<QScrollArea*>(app->centralWidget());
        area->verticalScrollBar()->setValue(300);
        QVERIFY(area->verticalScrollBar()->value() > 0);
        QTest::keyClick(app.get(), Qt::Key_Home);
        QCOMPARE(area->verticalScrollBar()->value(), 0);
        QCOMPARE(canvas()->pos(), QPoint(0, 0));
    }

    void aClickThatMeansNothingKeepsTheKeys()
    {
        QTest::mouseClick(canvas()->viewport(), Qt::LeftButton, Qt::NoModifier, {100, 100});
        pressWhereTheFocusIs(Qt::Key_R);
        QVERIFY(timer()->isActive());
    }

    void theCanvasHandsTheKeysBack()
    {
        QTest::mouseClick(canvas()->viewport(), Qt::RightButton, Qt::NoModifier, {100, 100});
        QVERIFY(canvas()->hasFocus());
        pressWhereTheFocusIs(Qt::Key_R);
        QVERIFY(!timer()->isActive());
        pressWhereTheFocusIs(Qt::Key_R);
        QVERIFY(timer()->isActive());
    }

    void realTimeTicksWaitForAPick()
    {
        QTest::keyClick(app.get(), Qt::Key_R);
        canvas()->RT_Plot();
        const double before = indata->mjd;
        answering([&] { QTest::keyClick(app.get(), Qt::Key_Space); }, {[&](QDialog* dialog) {
                      windows::clockSeconds += 60;
                      QTest::qWait(1200);  // a tick of the timer falls into this
                      QCOMPARE(indata->mjd, before);
                      QVERIFY(timer()->isActive());
                      dialog->reject();
                  }});
        QTRY_VERIFY(indata->mjd > before + 59.0 / 86400.0);
    }

    void realTimeTicksGoOnBehindOtherDialogs()
    {
        QTest::keyClick(app.get(), Qt::Key_R);
        canvas()->RT_Plot();
        const double before = indata->mjd;
        answering([&] { QTest::keyClick(app.get(), Qt::Key_D); }, {[&](QDialog* dialog) {
                      windows::clockSeconds += 60;
                      QTRY_VERIFY(indata->mjd > before + 59.0 / 86400.0);
                      dialog->reject();
                  }});
    }

    void aPickEndsADeltaPlot()
    {
        QTest::keyClick(app.get(), Qt::Key_G);
        answering([&] { QTest::keyClick(app.get(), Qt::Key_Space); }, {[&](QDialog* dialog) {
                      QTRY_VERIFY(!timer()->isActive());
                      dialog->reject();
                  }});
    }

private:
    /// No window manager gives the window back its keys when a dialog closes.
    void activate()
    {
        app->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(app.get()));
    }

    void pressWhereTheFocusIs(Qt::Key key)
    {
        QTest::keyClick(app->focusWidget() ? app->focusWidget() : app.get(), key);
    }

    VorlixView* canvas() const { return app->canvas(); }
    QTimer* timer() const { return app->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly); }

    std::unique_ptr<windows::Workplace> place;
    std::unique_ptr<VorlixApp> app;
};

QTEST_MAIN(KeysTest)
#include "keys_test.moc"
