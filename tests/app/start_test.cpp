// Start and end of a run: working directory, configuration, window size, and what quitting saves.

#include <memory>

#include <QAction>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QScrollArea>
#include <QSpinBox>

#include "app/record/config.h"
#include "app/record/text.h"
#include "app/record/wout_data.h"
#include "app/vorlix_app.h"
#include "scratch_dir.h"
#include "view/vorlix_view.h"
#include "view/window_helper.h"

using windows::answering;

class StartTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        windows::stopTheClock();
        place = std::make_unique<windows::Workplace>();
    }

    void cleanup()
    {
        app.reset();
        place.reset();
    }

    void aFirstRunHasTheDefaults()
    {
        start();
        QCOMPARE(app->windowTitle(), QString("Vorlix - 11.8"));
        QCOMPARE(app->size(), QSize(837, 560));
        QCOMPARE(APPDIR, QDir::currentPath());
        QCOMPARE(CFDIR, QDir::homePath());
        QCOMPARE(TLEname, QString("./visual.txt"));
        QCOMPARE(fntsz, 10);
        QCOMPARE(qobject_cast<QScrollArea*>(app->centralWidget())->widget(), app->canvas());
        QCOMPARE(indata->satn, 0);
        QVERIFY(!QFile::exists("vorlix.cfg"));
    }

    void theFontSizeOfTheConfigurationSizesTheWindow()
    {
        configure([](WinpData& in) {
            in.fsz = 8;
            in.leftbtn = true;
        });
        start();
        QCOMPARE(app->size(), QSize(744, 560));
        QCOMPARE(fntsz, 8);
        QCOMPARE(fsz, 8);
        QVERIFY(indata->leftbtn);
        QVERIFY(!action("viewLeft")->isChecked());  // starts so whatever the value
    }

    void withoutElementFileTheHomeDirectoryIsTheWorkingOne()
    {
        QFile::remove("visual.txt");
        start();
        QCOMPARE(TLEname, QString());
        QCOMPARE(QDir::currentPath(), QDir(QDir::homePath()).canonicalPath());
        QCOMPARE(QString(indata->tlename), QString("*"));
        action("fileQuit")->trigger();
        QCOMPARE(QDir::currentPath(), APPDIR);
        QVERIFY(QFile::exists(place->path("vorlix.cfg")));
    }

    void quittingSavesAndClosingDoesNot()
    {
        start();
        windows::select("HST");
        indata->lat = 48.25;
        app->show();
        app->close();
        QVERIFY(!QFile::exists("vorlix.cfg"));
        action("fileQuit")->trigger();
        const QByteArray saved = place->read("vorlix.cfg");
        QVERIFY(saved.startsWith("16.000000 \n48.250000 \n"));
        QVERIFY(saved.contains("\n1 \nHST"));
        start();
        QCOMPARE(indata->satn, 1);
        QCOMPARE(indata->norad[0], 20580);
        QCOMPARE(indata->lat, 48.25);
        action("fileQuit")->trigger();
        QCOMPARE(place->read("vorlix.cfg"), saved);
    }

    void aDecimalCommaOfTheEnvironmentReachesNoFile()
    {
        configure([](WinpData& in) {
            in.tzauto = 0;
            in.tzone = 5.5;
            in.lat = 48.25;
        });
        const QByteArray pointed = place->read("vorlix.cfg");
        const CommaLocale comma;
        if (!comma.present)
            QSKIP("no locale with a decimal comma");
        start();
        QCOMPARE(indata->lat, 48.25);
        QCOMPARE(QByteArray(outdata->text[4]).left(13), QByteArray("Timezone: 5.5"));
        action("fileQuit")->trigger();
        QCOMPARE(place->read("vorlix.cfg"), pointed);
    }

    void quittingStopsARunningPlot()
    {
        start();
        action("plotRT")->trigger();
        action("fileQuit")->trigger();
        QVERIFY(!app->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly)->isActive());
    }

    void openingAnElementFileKeepsTheSelection()
    {
        start();
        windows::select("HST");
        place->write("other.txt", "");
        answering([&] { action("fileOpen")->trigger(); }, {[&](QDialog* dialog) {
                      QCOMPARE(dialog->windowTitle(), QString("TLE file dialog"));
                      auto* files = qobject_cast<QFileDialog*>(dialog);
                      QCOMPARE(files->nameFilters(),
                               QStringList({"TLE files (*.txt *.TXT *.tle *.TLE)", "all files (*.*)"}));
                      files->findChild<QLineEdit*>("fileNameEdit")->setText(place->path("other.txt"));
                      QTest::keyClick(files->findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
                  }});
        QCOMPARE(QFileInfo(TLEname).fileName(), QString("other.txt"));
        QCOMPARE(QFileInfo(app->canvas()->getTLEname()).fileName(), QString("other.txt"));
        QCOMPARE(indata->satn, 1);
    }

    void savingUnderANewNameStartsTheFileAnew()
    {
        start();
        windows::observeAllFromVienna();
        windows::select("ISS");
        answering([&] { action("fileSaveAs")->trigger(); },
                  {[&](QDialog* dialog) {
                       QCOMPARE(dialog->windowTitle(), QString("Select a File Name"));
                       auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
                       name->setText(place->path("list.txt"));
                       QTest::keyClick(name, Qt::Key_Return);
                   },
                   [&](QDialog* dialog) {
                       QCOMPARE(qobject_cast<QMessageBox*>(dialog)->text(),
                                "Saved on File " + place->path("list.txt"));
                       dialog->accept();
                   }});
        QVERIFY(place->read("list.txt").contains(" Satellite: ISS"));
    }

    void theFontSizeCommandOffersThreeSizes()
    {
        start();
        answering([&] { action("viewFontSize")->trigger(); }, {[](QDialog* dialog) {
                      QCOMPARE(dialog->windowTitle(), QString("Font Size"));
                      auto* spin = dialog->findChild<QSpinBox*>();
                      QCOMPARE(spin->minimum(), 8);
                      QCOMPARE(spin->maximum(), 12);
                      QCOMPARE(spin->singleStep(), 2);
                      QCOMPARE(spin->value(), 10);
                      spin->setValue(12);
                      dialog->accept();
                  }});
        QCOMPARE(fntsz, 12);
        QCOMPARE(indata->fsz, 12);
        action("fileQuit")->trigger();
        start();
        QCOMPARE(fntsz, 10);  // for the run only
    }

    void theNextSatellitesAreShownInRealTime()
    {
        start();
        windows::observeAllFromVienna();
        QCOMPARE(answering([&] { action("inputNextSat")->trigger(); }, {}), 0);
        QVERIFY(indata->satn >= 1);
        QVERIFY(app->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly)->isActive());
        QCOMPARE(indata->rtflg, 1);
    }

    void aPictureThatIsNoneIsTold()
    {
        start();
        place->write("no.png", "no picture");
        QString text;
        answering([&] { action("filePicture")->trigger(); },
                  {[&](QDialog* dialog) {
                       QCOMPARE(dialog->windowTitle(), QString("Open Picture"));
                       auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
                       name->setText(place->path("no.png"));
                       QTest::keyClick(name, Qt::Key_Return);
                   },
                   [&](QDialog* dialog) {
                       text = qobject_cast<QMessageBox*>(dialog)->text();
                       dialog->accept();
                   }});
        QCOMPARE(text, "Cannot load " + place->path("no.png") + ".");
        QVERIFY(!action("viewPicture")->isEnabled());
        QCOMPARE(CFDIR, place->path("no.png"));
    }

    void aPictureEnablesItsActions()
    {
        start();
        QImage(64, 48, QImage::Format_RGB32).save(place->path("yes.png"));
        answering([&] { action("filePicture")->trigger(); }, {[&](QDialog* dialog) {
                      auto* name = dialog->findChild<QLineEdit*>("fileNameEdit");
                      name->setText(place->path("yes.png"));
                      QTest::keyClick(name, Qt::Key_Return);
                  }});
        for (const char* name : {"viewPicture", "size25", "size50", "normalSize"})
            QVERIFY2(action(name)->isEnabled(), name);
        QVERIFY(action("viewPicture")->isChecked());
        QVERIFY(indata->picflg);
        action("viewPicture")->trigger();
        QVERIFY(!indata->picflg);
        QVERIFY(action("size25")->isEnabled());
        action("size25")->trigger();
        QCOMPARE(picsize, 3);
    }

    void aFailedDownloadGivesTheOldFileBack()
    {
        start();
        const QByteArray before = place->read("visual.txt");
        // nothing listens there
        answering([&] { action("fileUpdate")->trigger(); }, {[](QDialog* dialog) {
                      qobject_cast<QInputDialog*>(dialog)->setTextValue("127.0.0.1/x/visual.txt");
                      dialog->accept();
                  }});
        QHash<QString, QString> told;  // the refusal comes as fast as it likes, so in either order
        const auto listen = [&](QDialog* dialog) {
            told[dialog->windowTitle()] = qobject_cast<QMessageBox*>(dialog)->text();
            dialog->accept();
        };
        answering(
            [&] {
                action("fileUpdate")->trigger();  // while the first is under way
                QTRY_COMPARE(told.size(), 2);
            },
            {listen, listen});
        QCOMPARE(told["Online Update"], QString("Another online update still in progress."));
        QVERIFY2(told["HTTP Get"].startsWith("Error fetching file with HTTP: "), qPrintable(told["HTTP Get"]));
        QCOMPARE(place->read("visual.txt"), before);
        QVERIFY(!QFile::exists("satwwwsave.tmp"));
    }

    void aTargetThatCannotBeWrittenIsTold()
    {
        start();
        QDir().mkdir("visual");
        QString text;
        answering([&] { action("fileUpdate")->trigger(); },
                  {[](QDialog* dialog) {
                       qobject_cast<QInputDialog*>(dialog)->setTextValue("127.0.0.1/x/visual");  // a directory
                       dialog->accept();
                   },
                   [&](QDialog* dialog) {
                       text = qobject_cast<QMessageBox*>(dialog)->text();
                       dialog->accept();
                   }});
        QVERIFY2(text.startsWith("Cannot write file ./visual\n"), qPrintable(text));
    }

private:
    static void configure(const std::function<void(WinpData&)>& change)
    {
        const auto run = std::make_unique<WinpData>();
        setDefaults(run.get());
        change(*run);
        putcfg(run.get());
    }

    void start()
    {
        app.reset();
        app = std::make_unique<VorlixApp>();
    }

    QAction* action(const char* name) const { return app->findChild<QAction*>(QLatin1String(name)); }

    std::unique_ptr<windows::Workplace> place;
    std::unique_ptr<VorlixApp> app;
};

QTEST_MAIN(StartTest)
#include "start_test.moc"
