// The frame: what stands on the pixmaps, what is on show, and what a click means.

#include <memory>

#include <QImage>
#include <QMessageBox>
#include <QTest>

#include "view/vorlix_view.h"
#include "view/window_helper.h"

class FrameTest : public QObject
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

    void knowsItsSizesAndTheEarth()
    {
        QCOMPARE(view->textPixmap().size(), QSize(860, 2500));
        QCOMPARE(view->mapPixmap().size(), QSize(721, 501));
        QCOMPARE(view->displayPixmap().size(), QSize(860, 501));
        QCOMPARE(indata->mapw, 860);
        QCOMPARE(indata->maph, 501);
        QVERIFY(indata->phwm);
    }

    void theBackgroundHasTheChosenColour_data()
    {
        QTest::addColumn<int>("mgrey");
        QTest::addColumn<QColor>("colour");
        QTest::newRow("white") << 0 << QColor(255, 255, 255);
        QTest::newRow("grey") << 1 << QColor(200, 200, 200);
        QTest::newRow("black") << 2 << QColor(0, 0, 0);
    }

    void theBackgroundHasTheChosenColour()
    {
        QFETCH(int, mgrey);
        QFETCH(QColor, colour);
        indata->mgrey = mgrey;
        indata->mapprj = 1;  // the corners of a hemisphere map are empty
        view->vRefresh();
        const QImage map = view->mapPixmap().toImage();
        QCOMPARE(map.pixelColor(3, 3), colour);
        QCOMPARE(map.pixelColor(5, 361), colour);
        QCOMPARE(map.pixelColor(5, 362), QColor(0, 50, 200));  // the legend
        QCOMPARE(map.pixelColor(720, 500), QColor(0, 50, 200));
        const QImage shown = view->displayPixmap().toImage();
        QCOMPARE(shown.copy(0, 0, 721, 501), map.copy(0, 0, 721, 501));
        QCOMPARE(shown.pixelColor(721, 100), QColor(0, 0, 0));
        QCOMPARE(shown.pixelColor(859, 500), QColor(0, 0, 0));
    }

    void thePhysicalMapMovesWithTheCentralMeridian_data()
    {
        QTest::addColumn<double>("meridian");
        QTest::addColumn<int>("shift");  // pixels to the left
        QTest::newRow("none") << 0.0 << 0;
        QTest::newRow("east") << 30.0 << 60;
        QTest::newRow("a fraction is dropped") << 30.9 << 60;
        QTest::newRow("west") << -30.0 << 660;
        QTest::newRow("west as stored") << 330.0 << 660;
        QTest::newRow("below -180") << -181.0 << 360;
        QTest::newRow("beyond 360") << 361.0 << 0;
        QTest::newRow("absurd") << 1e300 << 0;
    }

    void thePhysicalMapMovesWithTheCentralMeridian()
    {
        QFETCH(double, meridian);
        QFETCH(int, shift);
        const QImage earth = QImage(":/satpearth.png").convertToFormat(QImage::Format_RGB32);
        indata->mapprj = 3;
        indata->mgrid = 1;
        indata->centmer = meridian;
        view->vRefresh();
        const QImage map = view->mapPixmap().toImage().convertToFormat(QImage::Format_RGB32);
        int equal = 0;
        int looked = 0;
        for (int y = 7; y < 355; y += 10) {
            for (int x = 7; x < 715; x += 10) {
                ++looked;
                equal += map.pixel(x, y) == earth.pixel((x + shift) % 720, y);
            }
        }
        // grid lines and the observer cover a few
        QVERIFY2(equal > 0.98 * looked, qPrintable(QString("%1 of %2").arg(equal).arg(looked)));
    }

    void theTextCommandTogglesTextAndMap()
    {
        QCOMPARE(view->size(), QSize(860, 2500));
        QCOMPARE(view->cursor().shape(), Qt::ArrowCursor);
        view->vText();
        QCOMPARE(indata->dspmd, 1);
        QCOMPARE(view->size(), QSize(860, 501));
        QCOMPARE(view->cursor().shape(), Qt::CrossCursor);
        QCOMPARE(view->grab().toImage().copy(0, 0, 721, 501), view->mapPixmap().toImage().copy(0, 0, 721, 501));
        view->vText();
        QCOMPARE(indata->dspmd, 0);
        QCOMPARE(view->size(), QSize(860, 2500));
        QCOMPARE(view->cursor().shape(), Qt::ArrowCursor);
    }

    void aMapCommandFromTextShowsTheMap()
    {
        view->vRefresh();
        QCOMPARE(indata->dspmd, 1);
        QCOMPARE(dsplmd, int(filled::map));
        (void)view->grab();  // the paint handler finds the widget as large as the text
        QCOMPARE(view->size(), QSize(860, 501));
    }

    void thePictureSwitchLeavesTextAlone()
    {
        view->vPicSwitch(true);
        QCOMPARE(indata->dspmd, 1);
        QVERIFY(indata->picflg);
        view->vText();
        QCOMPARE(indata->dspmd, 0);
        QVERIFY(indata->picflg);  // survives
        view->vPicSwitch(false);
        QCOMPARE(indata->dspmd, 0);
        QCOMPARE(view->size(), QSize(860, 2500));
    }

    void aPickOnTheMapLeavesPlaceAndObservationsAlone_data()
    {
        QTest::addColumn<int>("skymap");
        QTest::addColumn<bool>("satsky");
        QTest::newRow("world") << 0 << false;
        QTest::newRow("sky") << 1 << false;
        QTest::newRow("sky from the satellite") << 1 << true;
    }

    void aPickOnTheMapLeavesPlaceAndObservationsAlone()
    {
        QFETCH(int, skymap);
        QFETCH(bool, satsky);
        windows::observeAllFromVienna();
        windows::select("ISS");
        indata->skymap = skymap;
        indata->satsky = satsky;
        indata->az1 = 11;
        indata->el1 = 12;
        indata->az2 = 13;
        indata->el2 = 14;
        view->vRefresh();
        view->vLeft(true);
        windows::answering(
            [&] {
                QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, {300, 150});
            },
            {});
        QCOMPARE(indata->lat, 48.25);
        QCOMPARE(indata->lng, 16.5);
        QCOMPARE(indata->height, 200.0);
        QCOMPARE(indata->az1, 11.0);
        QCOMPARE(indata->el1, 12.0);
        QCOMPARE(indata->az2, 13.0);
        QCOMPARE(indata->el2, 14.0);
    }

    void aClickOpensDetailsOnMapsOnly_data()
    {
        QTest::addColumn<int>("shown");  // dspmd
        QTest::addColumn<bool>("disk");
        QTest::addColumn<Qt::MouseButton>("button");
        QTest::addColumn<bool>("leftEnabled");
        QTest::addColumn<int>("dialogs");
        QTest::newRow("map") << 1 << false << Qt::RightButton << false << 1;
        QTest::newRow("map, left") << 1 << false << Qt::LeftButton << false << 0;
        QTest::newRow("map, left enabled") << 1 << false << Qt::LeftButton << true << 1;
        QTest::newRow("disk") << 1 << true << Qt::RightButton << true << 0;
        QTest::newRow("plain text") << 0 << false << Qt::RightButton << true << 0;
    }

    void aClickOpensDetailsOnMapsOnly()
    {
        QFETCH(int, shown);
        QFETCH(bool, disk);
        QFETCH(Qt::MouseButton, button);
        QFETCH(bool, leftEnabled);
        QFETCH(int, dialogs);
        windows::select("ISS");
        indata->sunmplt = disk;
        indata->occflg = disk;
        view->vRefresh();
        QCOMPARE(indata->diskon, int(disk));
        indata->dspmd = shown;
        view->vLeft(leftEnabled);
        QString title;
        const int seen = windows::answering(
            [&] {
                QTest::mouseClick(view->viewport(), button, Qt::NoModifier, {300, 150});
            },
            {[&](QDialog* dialog) { title = dialog->windowTitle(); }});
        QCOMPARE(seen, dialogs);
        QCOMPARE(title, dialogs ? QString("Local Details") : QString());
    }

    void theLocalCommandAsksForAPlaceAndForgetsIt()
    {
        windows::observeAllFromVienna();
        const int windowsSeen = windows::answering([&] { view->vLocalInf(); }, {[](QDialog* dialog) {
                                                       windows::enter(dialog, "latEdit", "-33");
                                                       windows::enter(dialog, "locEdit", "Sydney");
                                                       windows::click(dialog, "okButton");
                                                   }});
        QVERIFY(windowsSeen >= 1);
        QCOMPARE(indata->lat, 48.25);
        QCOMPARE(QString(indata->geoname), QString("Default"));
        indata->skymap = 1;
        QCOMPARE(windows::answering([&] { view->vLocalInf(); }, {}), 0);
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

    void aKeyIsHandedBackToTheWindow()
    {
        view->show();
        view->setFocus();
        QVERIFY(QTest::qWaitForWindowActive(view.get()));
        QVERIFY(view->hasFocus());
        QTest::keyClick(view.get(), Qt::Key_R);
        QVERIFY(!view->hasFocus());
        QCOMPARE(indata->rtflg, 0);
    }

private:
    std::unique_ptr<windows::Workplace> place;
    std::unique_ptr<VorlixView> view;
};

QTEST_MAIN(FrameTest)
#include "frame_test.moc"
