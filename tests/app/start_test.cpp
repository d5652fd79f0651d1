// Start and end of a run: working directory, configuration, window size, and what quitting saves.

#include <memory>

#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QScrollArea>
#include <QSpinBox>

#include "app/app_fixture.h"
#include "app/record/config.h"

using windows::answering;

class StartTest : public AppTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { prepare(); }
    void cleanup() { close(); }

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

    void aDesktopFindsTheLauncherOfTheWindow()
    {
        start();
        const QString launcher = QGuiApplication::desktopFileName() + ".desktop";
        QCOMPARE(launcher, QString("io.vorlix.Vorlix.desktop"));
        QVERIFY(QFile::exists(SOURCE_DIR "/resources/desktop/" + launcher));
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
                      chooseFile(dialog, place->path("other.txt"));
                  }});
        QCOMPARE(QFileInfo(TLEname).fileName(), QString("other.txt"));
        QCOMPARE(QFileInfo(app->canvas()->getTLEname()).fileName(), QString("other.txt"));
        QCOMPARE(indata->satn, 1);
    }

    void theFormOmmCsvGivesTheNameItsEnding()
    {
        start();
        windows::select("ISS");
        QStringList filters;
        QString question, done;
        const auto choose = [&](QDialog* dialog) {
            auto* files = qobject_cast<QFileDialog*>(dialog);
            QVERIFY(files);
            filters = files->nameFilters();
            files->selectNameFilter("OMM CSV (*.csv)");
            chooseFile(dialog, place->path("mine"));
        };
        const auto read = [&](QDialog* dialog) { done = qobject_cast<QMessageBox*>(dialog)->text(); };
        const auto answer = [&](const QString& button) {
            return [&, button](QDialog* dialog) {
                question = qobject_cast<QMessageBox*>(dialog)->text();
                windows::press(dialog, button);
            };
        };
        const auto save = [this] { action("fileTLESaveAs")->trigger(); };
        answering(save, {choose, read});
        QCOMPARE(filters, QStringList({"TLE files (*.txt *.TXT *.tle *.TLE)", "OMM CSV (*.csv)", "all files (*.*)"}));
        QCOMPARE(done, "TLE's saved on file " + place->path("mine.csv"));
        const QByteArray saved = place->read("mine.csv");
        QVERIFY(saved.startsWith("OBJECT_NAME,OBJECT_ID,EPOCH,"));
        QVERIFY(saved.contains("\r\nISS (ZARYA),1998-067A,"));
        QVERIFY(!QFile::exists(place->path("mine")));

        place->write("mine.csv", "precious");
        answering(save, {choose, answer("No")});
        QVERIFY(question.contains("mine.csv"));
        QCOMPARE(place->read("mine.csv"), QByteArray("precious"));
        answering(save, {choose, answer("Yes"), read});
        QCOMPARE(place->read("mine.csv"), saved);
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
        QVERIFY(timer()->isActive());
        QCOMPARE(indata->rtflg, 1);
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
};

QTEST_MAIN(StartTest)
#include "start_test.moc"
