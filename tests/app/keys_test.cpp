// The hot keys of the main window, with real key events.

#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>

#include "app/app_fixture.h"

using windows::answering;

class KeysTest : public AppTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        AppTest::open();
        activate();
    }

    void cleanup() { close(); }

    void keysOpenTheirDialogs()
    {
        windows::select("ISS");
        const struct
        {
            QKeyCombination key;
            const char* title;
        } cases[] = {{Qt::Key_C, "Observer's Location"},
                     {Qt::Key_D, "Date, Time and Timezone"},
                     {Qt::Key_F, "TLE file dialog"},
                     {Qt::Key_H, "Quick Help"},
                     {Qt::Key_M, "Magnitude"},
                     {Qt::Key_S, "Select Satellite"},
                     {Qt::Key_T, "Time Step"},
                     {Qt::Key_V, "Visibility Settings"},
                     {Qt::Key_W, "Select Prime Satellite"},
                     {Qt::Key_Y, "Map Settings"},
                     {Qt::Key_Z, "Remove Satellites"},
                     {Qt::Key_Space, "Observer's Location"},
                     {Qt::CTRL | Qt::Key_I, "Online Update"},
                     {Qt::CTRL | Qt::Key_V, "Visibility Settings"},
                     {Qt::SHIFT | Qt::Key_S, "Select Satellite"},
                     {Qt::Key_J, ""}};
        for (const auto& c : cases) {
            activate();
            QString seen;
            answering([&] { QTest::keyClick(app.get(), c.key.key(), c.key.keyboardModifiers()); },
                      {[&](QDialog* dialog) { seen = dialog->windowTitle(); }});
            QCOMPARE(seen, QString(c.title));
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

    void lettersPlotAndToggle()
    {
        const auto press = [this](Qt::Key key) { QTest::keyClick(app.get(), key); };
        press(Qt::Key_R);
        QVERIFY(timer()->isActive());
        QCOMPARE(indata->rtflg, 1);
        press(Qt::Key_G);  // a running plot is only stopped
        QVERIFY(!timer()->isActive());
        press(Qt::Key_G);
        QVERIFY(timer()->isActive());
        press(Qt::Key_U);
        QVERIFY(!timer()->isActive());
        press(Qt::Key_N);
        QCOMPARE(indata->nmflg, 1);
        QVERIFY(action("viewNames")->isChecked());
        QCOMPARE(indata->dspmd, 1);
        press(Qt::Key_X);
        QCOMPARE(indata->dspmd, 0);
        windows::select("ISS");
        press(Qt::Key_A);
        QCOMPARE(indata->dspmd, -1);
        press(Qt::Key_Delete);
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
};

QTEST_MAIN(KeysTest)
#include "keys_test.moc"
