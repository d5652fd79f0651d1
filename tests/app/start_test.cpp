// Start and end of a run, whatever the files hold; the questions of the file menu; what quitting saves.

#include <QClipboard>
#include <QFileDialog>
#include <QInputDialog>
#include <QMimeData>
#include <QScrollArea>
#include <QSpinBox>
#include <QStatusBar>
#include <QToolBar>

#include "app/app_helper.h"
#include "scratch_dir.h"

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
        QCOMPARE(qobject_cast<QScrollArea*>(app->centralWidget())->widget(), canvas());
        QCOMPARE(indata->satn, 0);
        QVERIFY(!QFile::exists("vorlix.cfg"));
        const QString launcher = QGuiApplication::desktopFileName() + ".desktop";
        QVERIFY(QFile::exists(SOURCE_DIR "/resources/desktop/" + launcher));
    }

    void theFontSizeOfTheConfigurationSizesTheWindow()
    {
        place->write("vorlix.cfg", configurationWith({{5, "8"}, {15, "1"}}));
        start();
        QCOMPARE(app->size(), QSize(744, 560));
        QCOMPARE(fntsz, 8);
        QCOMPARE(fsz, 8);
        QVERIFY(indata->leftbtn);
        QVERIFY(action("viewLeft")->isChecked());
    }

    void switchesAreRemembered()
    {
        for (const char* name : {"settThorough", "viewReadable", "viewFit"}) {
            start();
            QVERIFY(!action(name)->isChecked());
            action(name)->trigger();
            start();
            QVERIFY(action(name)->isChecked());
        }
    }

    void theSizeGoesInStepsAndIsRemembered()
    {
        start();
        show();
        const QSize text(860, 2500), map(860, 501);
        QCOMPARE(canvas()->size(), text);
        for (const char* name : {"viewLarger", "viewLarger", "viewText"})
            action(name)->trigger();
        QCOMPARE(canvas()->size(), map * 1.5);
        for (int i = 0; i < 5; ++i)
            action("viewLarger")->trigger();
        QCOMPARE(canvas()->size(), map * 3);
        action("viewSmaller")->trigger();
        start();
        QCOMPARE(canvas()->size(), text * 2.5);
        show();
        app->resize(1720 + 20, 1200);
        action("viewFit")->trigger();
        action("viewText")->trigger();
        QTRY_VERIFY(canvas()->width() >= 1700 && canvas()->width() <= 1740);
        app->resize(1320, 1200);
        QTRY_VERIFY(canvas()->width() >= 1300 && canvas()->width() <= 1320);
        action("viewOriginalSize")->trigger();
        QVERIFY(!action("viewFit")->isChecked());
        QCOMPARE(canvas()->size(), map);
    }

    void theMarksOfTheBarsTellTheirState()
    {
        start();
        auto* bar = app->findChild<QToolBar*>("toolBar");
        QVERIFY(action("viewToolBar")->isChecked() && !action("viewStatusBar")->isChecked());
        action("viewToolBar")->trigger();
        QVERIFY(bar->isHidden());
        bar->toggleViewAction()->trigger();
        QVERIFY(!bar->isHidden() && action("viewToolBar")->isChecked());
    }

    void aChangedMapShowsItsSatellitesAtOnce()
    {
        place->write("vorlix.cfg", configurationWith({{8, "./visual.txt"}}));
        start();
        windows::select("SEASAT 1");
        QCOMPARE(indata->satn, 1);
        show();
        choose("viewMap", {answer("accept")});
        const QImage seen = canvas()->grab().toImage();
        choose("plotCurrent");
        QVERIFY(seen == canvas()->grab().toImage());
        choose("viewRefresh");
        QVERIFY(seen == canvas()->grab().toImage());
    }

    void withoutElementFileTheHomeDirectoryIsTheWorkingOne()
    {
        QFile::remove("visual.txt");
        start();
        QCOMPARE(TLEname, QString());
        QCOMPARE(QDir::currentPath(), QDir(QDir::homePath()).canonicalPath());
        QCOMPARE(QString(indata->tlename), QString("*"));
        choose("fileQuit");
        QCOMPARE(QDir::currentPath(), APPDIR);
        QVERIFY(QFile::exists(place->path("vorlix.cfg")));
    }

    void aFolderIsNoElementFile()
    {
        QVERIFY(QDir().mkdir(place->path("rough.txt")));
        open(configurationWith({{8, "./rough.txt"}}));
        QVERIFY(report().contains("*** No valid TLE file selected ***"));
        QStringList told;
        choose("inputSelectSat", {answer("see; accept", &told)});
        QCOMPARE(told, QStringList("Unable to open TLE file *"));
    }

    void damagedOrAbsurdConfigurationsHarmNothing()
    {
        const QByteArray absurd = configurationWith({{0, "-1e300"},
                                                     {1, "-1e300"},
                                                     {2, "-1e300"},
                                                     {3, "-1e300"},
                                                     {5, "-1e300"},
                                                     {6, "-1e300"},
                                                     {7, "-1e300"},
                                                     {4, QByteArray(10000, 'x')},
                                                     {10, "-1e300"},
                                                     {11, "-1e300"},
                                                     {12, "-1e300"},
                                                     {13, "-1e300"},
                                                     {19, "2"},
                                                     {17, "inf 1e300 -1e300 nan"}});
        const QByteArray cut = dataFile("vienna.cfg").left(60);
        for (const QByteArray& bytes : {QByteArray(100000, '\0'), QByteArray(1000000, '9'), cut, absurd}) {
            open(bytes);
            QCOMPARE(report().contains("Problems reading Configuration File. Using defaults instead."),
                     bytes != absurd);
            QVERIFY(report().contains(bytes == absurd ? QString(30, 'x') : "Maximum Sun Elev.: -6"));
            for (const char* command : {"calcAOS", "viewRefresh", "plotForward"})
                choose(command);
            QCOMPARE(indata->dspmd, 1);
        }
    }

    void quittingSavesAndClosingDoesNot()
    {
        const CommaLocale comma;  // which must not be seen in the file
        start();
        windows::select("HST");
        indata->lat = 48.25;
        app->show();
        app->close();
        QVERIFY(!QFile::exists("vorlix.cfg"));
        choose("fileQuit");
        const QByteArray saved = place->read("vorlix.cfg");
        QVERIFY(saved.startsWith("16.000000 \n48.250000 \n"));
        QVERIFY(saved.contains("\n1 \nHST"));
        start();
        QCOMPARE(indata->satn, 1);
        QCOMPARE(indata->norad[0], 20580);
        QCOMPARE(indata->lat, 48.25);
        choose("fileQuit");
        QCOMPARE(place->read("vorlix.cfg"), saved);
    }

    void aStartSaysWhatTheElementFileLacks()
    {
        start();
        windows::select("HST");
        choose("fileQuit");
        place->write("vorlix.cfg", place->read("vorlix.cfg").replace("\n1 \nHST", "\n2 \nNOSUCH\nHST"));
        start();
        QCOMPARE(indata->satn, 1);
        QVERIFY(!app->statusBar()->isHidden());
        QCOMPARE(app->statusBar()->currentMessage(), QString("Not found in the element file: NOSUCH"));
    }

    void openingAnElementFileKeepsTheSelection()
    {
        start();
        windows::select("HST");
        place->write("other.txt", "");
        choose("fileOpen", {[&](QDialog* dialog) {
                   QCOMPARE(qobject_cast<QFileDialog*>(dialog)->nameFilters(),
                            QStringList({"TLE files (*.txt *.TXT *.tle *.TLE)", "all files (*.*)"}));
                   answer("file other.txt")(dialog);
               }});
        QCOMPARE(QFileInfo(TLEname).fileName(), QString("other.txt"));
        QCOMPARE(QFileInfo(canvas()->getTLEname()).fileName(), QString("other.txt"));
        QCOMPARE(indata->satn, 1);
    }

    void theFormOmmCsvGivesTheNameItsEnding()
    {
        start();
        windows::select("ISS");
        choose("fileTLESaveAs", {[](QDialog* dialog) {
                   QCOMPARE(
                       qobject_cast<QFileDialog*>(dialog)->nameFilters(),
                       QStringList({"TLE files (*.txt *.TXT *.tle *.TLE)", "OMM CSV (*.csv)", "all files (*.*)"}));
               }});
        const QString saving = "fileTLESaveAs\n| form OMM CSV (*.csv); file mine\n";
        const QString done = "TLE's saved on file mine.csv";
        QCOMPARE(follow(saving + "| see; accept"), QStringList(done));
        QCOMPARE(app->statusBar()->currentMessage(), QString("Ready."));
        const QByteArray saved = place->read("mine.csv");
        QVERIFY(saved.startsWith("OBJECT_NAME,OBJECT_ID,EPOCH,"));
        QVERIFY(saved.contains("\r\nISS (ZARYA),1998-067A,"));
        QVERIFY(!QFile::exists(place->path("mine")));

        place->write("mine.csv", "precious");
        QVERIFY(follow(saving + "| see; press No").value(0).contains("mine.csv already exists."));
        QCOMPARE(place->read("mine.csv"), QByteArray("precious"));
        QCOMPARE(follow(saving + "| press Yes\n| see; accept"), QStringList(done));
        QCOMPARE(place->read("mine.csv"), saved);
    }

    void theReportLeavesInOtherForms()
    {
        cleanup();
        open(dataFile("vienna.cfg"));
        const QString exported = "fileExport\n| form %1; file %2\n";
        QCOMPARE(follow(exported.arg("Calendar (*.ics)", "report") + "| see; accept"),
                 QStringList("*** This report has no such form: choose a name that ends in .txt or .csv"));
        choose("editCopy");
        QCOMPARE(QGuiApplication::clipboard()->text().split('\n').value(0), report().value(0));

        windows::select("SEASAT 1");
        choose("calcAOS");
        follow(exported.arg("Comma separated (*.csv)", "passes") + exported.arg("Text (*.txt)", "passes") +
               exported.arg("all files (*.*)", "passes.json"));
        const QByteArray csv = place->read("passes.csv");
        QVERIFY(indata->naos > 0 && csv.startsWith("name,catalogue_number,"));
        QCOMPARE(csv.count('\n'), indata->naos + 1);
        QCOMPARE(QString(place->read("passes.txt")), report().join('\n') + '\n');
        QVERIFY(place->read("passes.json").startsWith("{\"request\": "));
        const double before = indata->satel;
        indata->satel = 80.0;  // the list on the screen stays what it is
        choose("Ctrl+Shift+C");
        QCOMPARE(QGuiApplication::clipboard()->mimeData()->data("text/csv"), csv);

        canvas()->setSaveName(place->path("saved.csv"));
        indata->satel = before;
        QCOMPARE(follow("fileSave\n| see; accept"), QStringList("Saved on File saved.csv"));
        QCOMPARE(place->read("saved.csv"), csv);
        QCOMPARE(follow("calcAllSats\n| see; accept"), QStringList("List of passes saved on file saved.csv"));
        const QByteArray all = place->read("saved.csv");
        QVERIFY(all.startsWith(csv));  // rows of the same columns come behind
        QVERIFY(all.contains("\nENVISAT,27386,") && all.count("\nSEASAT 1,") == 2 * indata->naos);
        canvas()->setSaveName(place->path("flares.csv"));
        indata->iridflg = event::iridium;
        QVERIFY(follow("calcAllSats\n| see; accept").value(0).startsWith("*** Flares of mirrors"));
        QVERIFY(!QFile::exists(place->path("flares.csv")));
    }

    /// Each row is a line of the report.
    void flaresAndMatchesLeaveAsRows()
    {
        cleanup();
        open(dataFile("vienna.cfg"));
        QVERIFY(QFile::copy(SOURCE_DIR "/resources/elements/iridium.txt", place->path("iridium.txt")));
        const QString exported = "\nfileExport\n| form Comma separated (*.csv); file %1.csv\n";
        follow("inputDate\n| date 20 12:00:00 1 5\ncalcIridium\n| magEdit = 4; okButton" + exported.arg("flares"));
        const QStringList flares = report().filter("mag");
        const QStringList rows = QString(place->read("flares.csv")).trimmed().split("\r\n").mid(1);
        QVERIFY2(flares.size() > 9, qPrintable(report().join('\n')));
        QCOMPARE(rows.size(), flares.size());
        for (int i = 0; i < rows.size(); ++i) {
            QVERIFY2(flares[i].contains(rows[i].section(',', 0, 0)), qPrintable(rows[i]));
            const auto instant = QDateTime::fromString(rows[i].section(',', 4, 4), Qt::ISODateWithMs).addMSecs(500);
            const QString clock = instant.addSecs(3600).toString("hh:mm:ss");
            QVERIFY2(flares[i].contains(clock) || flares[i].contains(' ' + clock.mid(1)), qPrintable(rows[i]));
        }

        follow("calcMatch\n| date 20 18:00:00 1\n| raBox off; drfBox off; azEdit = 250; elEdit = 23; mxaEdit = 20;"
               "tmEdit = 1; okButton" +
               exported.arg("matches"));
        const QStringList matches = report().filter("NORAD#");
        QStringList found = QString(place->read("matches.csv")).trimmed().split("\r\n").mid(1);
        QVERIFY(matches.size() > 1);
        QCOMPARE(found.size(), matches.size());
        QCOMPARE(found[0].section(',', 0, 1), QString("SEASAT 1,10967"));  // the nearest
    }

    void theFontSizeCommandOffersThreeSizes()
    {
        start();
        choose("viewFontSize", {[](QDialog* dialog) {
                   auto* spin = dialog->findChild<QSpinBox*>();
                   QCOMPARE(QList({spin->minimum(), spin->maximum(), spin->singleStep(), spin->value()}),
                            QList({8, 12, 2, 10}));
                   spin->setValue(12);
                   dialog->accept();
               }});
        QCOMPARE(fntsz, 12);
        QCOMPARE(indata->fsz, 12);
        choose("fileQuit");
        start();
        QCOMPARE(fntsz, 10);  // for the run only
    }

    void theNextSatellitesAreShownInRealTime()
    {
        start();
        windows::observeAllFromVienna();
        choose("inputNextSat");
        QVERIFY(indata->satn >= 1);
        QVERIFY(timer()->isActive());
        QCOMPARE(indata->rtflg, 1);
    }

    void aDownloadTellsWhatStoppedIt()
    {
        start();
        const QByteArray before = place->read("visual.txt");
        QDir().mkdir("folder");
        const auto from = [](const QString& address) -> Answer {
            return [=](QDialog* dialog) {
                qobject_cast<QInputDialog*>(dialog)->setTextValue(address);
                dialog->accept();
            };
        };
        QStringList told;
        choose("fileUpdate", {from("127.0.0.1/x/folder"), answer("see title; accept", &told)});
        QVERIFY2(told.join('|').startsWith("HTTP Get|Cannot write file ./folder|"), qPrintable(told.join('|')));

        choose("fileUpdate", {from("127.0.0.1/x/visual.txt")});  // nothing listens there
        told.clear();
        const Answer listen = answer("see title; accept", &told);  // the refusal comes as fast as it likes
        windows::answering(
            [&] {
                action("fileUpdate")->trigger();  // while the first is under way
                QTRY_COMPARE(told.size(), 4);
            },
            {listen, listen});
        const qsizetype refused = told.indexOf("HTTP Get") + 1;
        QVERIFY2(told.value(refused).startsWith("Error fetching file with HTTP: "), qPrintable(told.join('|')));
        QCOMPARE(told.value(told.indexOf("Online Update") + 1), QString("Another online update still in progress."));
        QCOMPARE(place->read("visual.txt"), before);
        QVERIFY(!QFile::exists("satwwwsave.tmp"));
        told.clear();
        windows::clockSeconds += 60 * 60;
        choose("fileUpdate", {from("http://127.0.0.1/x/visual.txt"), answer("see; reject", &told)});
        QVERIFY2(told.value(0).startsWith("This address was asked for elements 60 minutes ago."),
                 qPrintable(told.join('|')));
    }

private:
    static QByteArray configurationWith(const QMap<int, QByteArray>& changes)
    {
        QByteArrayList lines = dataFile("vienna.cfg").split('\n');
        for (auto change = changes.begin(); change != changes.end(); ++change)
            lines[change.key()] = change.value();
        return lines.join('\n');
    }
};

QTEST_MAIN(StartTest)
#include "start_test.moc"
