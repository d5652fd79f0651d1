// The hot keys of the main window, with real key events.

#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>

#include "app/app_helper.h"

class KeysTest : public AppTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { open(); }
    void cleanup() { close(); }

    void plainSAndVShowNoMessage()
    {
        for (const char* key : {"S", "V"}) {
            app->statusBar()->showMessage("as before");
            choose(key, {answer("reject")});
            QCOMPARE(app->statusBar()->currentMessage(), QString("as before"));
            choose(QString("Ctrl+") + key, {answer("reject")});
            QCOMPARE(app->statusBar()->currentMessage(), QString("Ready."));
        }
    }

    void lettersPlotAndToggle()
    {
        choose("R");
        QVERIFY(timer()->isActive());
        QCOMPARE(indata->rtflg, 1);
        choose("G");  // a running plot is only stopped
        QVERIFY(!timer()->isActive());
        choose("G");
        QVERIFY(timer()->isActive());
        choose("U");
        QVERIFY(!timer()->isActive());
        choose("N");
        QCOMPARE(indata->nmflg, 1);
        QVERIFY(action("viewNames")->isChecked());
        QCOMPARE(indata->dspmd, 1);
        choose("X");
        QCOMPARE(indata->dspmd, 0);
        windows::select("ISS");
        choose("A");
        QCOMPARE(indata->dspmd, -1);
        choose("Del");
        QCOMPARE(indata->dspmd, 1);
    }

    void rowsOfTheTableAreChosenByKeys()
    {
        windows::select("ISS");
        show();
        choose("A");
        choose("Return");  // no row is marked yet
        QStringList byMouse, byKeys;
        choose("row 2", {answer("see passEdit; closeButton", &byMouse)});
        canvas()->showSattxt();
        for (const char* key : {"Down", "Down", "Down", "Up", "Down"})
            choose(key);
        choose("Return", {answer("see passEdit; closeButton", &byKeys)});
        QVERIFY(byKeys.value(0).contains("ISS (ZARYA)"));
        QCOMPARE(byKeys, byMouse);
        for (int i = 0; i < 200; ++i)
            choose("Down");
        QVERIFY(canvas()->mapToParent(QPoint(0, epos[indata->naos - 1])).y() < canvas()->parentWidget()->height());
        choose("Up");
        choose("Return", {answer("closeButton")});
        QCOMPARE(indata->aossel, indata->naos - 2);
    }

    void arrowsStopARealTimePlotAndStep()
    {
        indata->tmstep = 0.25;
        choose("R");
        canvas()->RT_Plot();
        const double last = indata->mjd;
        choose("Right");
        QVERIFY(!timer()->isActive());
        QCOMPARE(indata->mjd, last + 0.25);
        choose("Left");
        QCOMPARE(indata->mjd, last);
        const int lowest = canvas()->parentWidget()->height() - canvas()->displayPixmap().height();
        QVERIFY(lowest < -10 && lowest > -20);  // the bottom of the map comes up to that of the window, no further
        for (const auto& [key, y] : {std::pair("Up", -10), {"Up", lowest}, {"Up", lowest}, {"Down", lowest + 10}}) {
            choose(key);
            QCOMPARE(canvas()->pos(), QPoint(0, y));
        }
    }

    void pageKeysJumpToPasses()
    {
        windows::observeAllFromVienna();
        windows::select("ISS");
        const double begin = indata->mjd;
        choose("PgDown");
        const double first = indata->mjd;
        QVERIFY(first > begin);
        choose("PgDown");
        QVERIFY(indata->mjd > first);
        choose("PgUp");
        QVERIFY(std::abs(indata->mjd - first) < 2.0 / 86400.0);
    }

    void someCommandsGoToTheUpperLeftCorner()
    {
        QScrollBar* bar = qobject_cast<QScrollArea*>(app->centralWidget())->verticalScrollBar();
        for (const char* command : {"Home", "viewRefresh", "X"}) {
            bar->setValue(100);
            QVERIFY(bar->value() > 0);
            choose(command);
            QCOMPARE(bar->value(), 0);
            QCOMPARE(canvas()->pos(), QPoint(0, 0));
        }
    }

    void theCanvasHandsTheKeysBack()
    {
        const auto pressWhereTheFocusIs = [this](Qt::Key key) {
            QTest::keyClick(app->focusWidget() ? app->focusWidget() : app.get(), key);
        };
        QTest::mouseClick(canvas()->viewport(), Qt::RightButton, Qt::NoModifier, {100, 100});
        QVERIFY(canvas()->hasFocus());
        pressWhereTheFocusIs(Qt::Key_R);
        QVERIFY(timer()->isActive());
    }
};

QTEST_MAIN(KeysTest)
#include "keys_test.moc"
