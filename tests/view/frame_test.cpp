// The frame: what stands on the pixmaps, what is on show, and what a click means.

#include <QImage>
#include <QTest>

#include "view/view_fixture.h"

class FrameTest : public ViewTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { open(); }
    void cleanup() { close(); }

    void theBackgroundHasTheChosenColour()
    {
        const QColor legend(0, 50, 200), beside(0, 0, 0);
        indata->mapprj = 1;  // the corners of a hemisphere map are empty
        for (const auto& [mgrey, level] : {std::pair{0, 255}, {1, 200}, {2, 0}}) {
            indata->mgrey = mgrey;
            const QImage map = drawnMap(), shown = shownImage();
            QCOMPARE(map.pixelColor(3, 3), QColor(level, level, level));
            QCOMPARE(map.pixelColor(5, 361), QColor(level, level, level));
            QCOMPARE(map.pixelColor(5, 362), legend);
            QCOMPARE(map.pixelColor(720, 500), legend);
            QCOMPARE(shown.copy(0, 0, 721, 501), map);
            QCOMPARE(shown.pixelColor(721, 100), beside);
            QCOMPARE(shown.pixelColor(859, 500), beside);
        }
    }

    void thePhysicalMapMovesWithTheCentralMeridian()
    {
        const QImage earth = QImage(":/satpearth.png").convertToFormat(QImage::Format_RGB32);
        indata->mapprj = 3;
        indata->mgrid = 1;
        // pixels to the left; a fraction is dropped
        for (const auto& [meridian, shift] :
             {std::pair{0.0, 0}, {30.9, 60}, {-30.0, 660}, {-181.0, 360}, {361.0, 0}, {1e300, 0}}) {
            indata->centmer = meridian;
            const QImage map = drawnMap().convertToFormat(QImage::Format_RGB32);
            int equal = 0, looked = 0;
            for (int y = 7; y < 355; y += 10) {
                for (int x = 7; x < 715; x += 10) {
                    ++looked;
                    equal += map.pixel(x, y) == earth.pixel((x + shift) % 720, y);
                }
            }
            // grid lines and the observer cover a few
            QVERIFY2(equal > 0.98 * looked, qPrintable(QString::number(meridian)));
        }
    }

    void theTextCommandTogglesTextAndMap()
    {
        QCOMPARE(view->size(), QSize(860, 2500));
        QCOMPARE(view->cursor().shape(), Qt::ArrowCursor);
        view->vText();
        QCOMPARE(indata->dspmd, 1);
        QCOMPARE(view->size(), QSize(860, 501));
        QCOMPARE(view->cursor().shape(), Qt::CrossCursor);
        QCOMPARE(view->grab().toImage().copy(0, 0, 721, 501), mapImage().copy(0, 0, 721, 501));
        view->vText();
        QCOMPARE(indata->dspmd, 0);
        QCOMPARE(view->size(), QSize(860, 2500));
        QCOMPARE(view->cursor().shape(), Qt::ArrowCursor);
    }

    void aPickOnTheMapLeavesPlaceAndObservationsAlone()
    {
        windows::observeAllFromVienna();
        windows::select("ISS");
        for (double WinpData::*field : {&WinpData::az1, &WinpData::el1, &WinpData::az2, &WinpData::el2})
            indata->*field = 11;
        for (const auto& [skymap, satsky] : {std::pair{0, false}, {1, false}, {1, true}}) {
            indata->skymap = skymap;
            indata->satsky = satsky;
            view->vRefresh();
            view->vLeft(true);
            clickAt({300, 150}, Qt::LeftButton, {});
            QCOMPARE(indata->lat + indata->lng + indata->height, 48.25 + 16.5 + 200.0);
            for (double WinpData::*field : {&WinpData::az1, &WinpData::el1, &WinpData::az2, &WinpData::el2})
                QCOMPARE(indata->*field, 11.0);
        }
    }

    void aClickOpensDetailsOnMapsOnly()
    {
        struct Case
        {
            const char* what;
            int shown;  // dspmd
            bool disk;
            Qt::MouseButton button;
            bool leftEnabled;
            int dialogs;
        };
        windows::select("ISS");
        for (const Case& c :
             {Case{"map", 1, false, Qt::RightButton, false, 1}, Case{"map, left", 1, false, Qt::LeftButton, false, 0},
              Case{"map, left enabled", 1, false, Qt::LeftButton, true, 1},
              Case{"disk", 1, true, Qt::RightButton, true, 0},
              Case{"plain text", 0, false, Qt::RightButton, true, 0}}) {
            indata->sunmplt = indata->occflg = c.disk;
            view->vRefresh();
            indata->dspmd = c.shown;
            view->vLeft(c.leftEnabled);
            QString title;
            QCOMPARE(clickAt({300, 150}, c.button, {[&](QDialog* dialog) { title = dialog->windowTitle(); }}),
                     c.dialogs);
            QVERIFY2(title == (c.dialogs ? "Local Details" : ""), c.what);
        }
    }

    void noTickPlotsWhileAPickAsksForItsPlace()
    {
        indata->mjd = 58138.0;
        view->vTmCheck(2);
        const double before = indata->mjd;
        windows::answering([&] { view->vLocalInf(); }, {[&](QDialog* dialog) {
                               view->RT_Plot();
                               QCOMPARE(indata->mjd, before);
                               QVERIFY(view->PlotDelta() != 0);
                               QCOMPARE(indata->mjd, before);
                               dialog->reject();
                           }});
        QCOMPARE(view->PlotDelta(), 0);
        QVERIFY(indata->mjd > before);
    }

private:
    int clickAt(const QPoint& p, Qt::MouseButton button, const std::vector<std::function<void(QDialog*)>>& handlers)
    {
        return windows::answering([&] { QTest::mouseClick(view->viewport(), button, {}, p); }, handlers);
    }
};

QTEST_MAIN(FrameTest)
#include "frame_test.moc"
