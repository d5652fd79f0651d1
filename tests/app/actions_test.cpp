// The command surface: every action with its texts, the menus, the tool bar, what the status bar says and which
// commands stop a running plot.

#include <memory>

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QTextEdit>
#include <QToolBar>

#include "app/vorlix_app.h"
#include "view/vorlix_view.h"
#include "view/window_helper.h"

using windows::answering;

namespace {

struct Row
{
    const char *name, *text, *shortcut, *icon, *tip, *message;
    bool stopsTheTimer;
};

// The order is that of the menus; a null name stands for a separator.
constexpr Row rows[] = {
    {"fileOpen", "&Open TLE File...", "Ctrl+F", "fileopen", "Opens a Two Line Element file", "Opening TLE file...",
     false},
    {"fileUpdate", "Onl&ine TLE Update", "Ctrl+I", "", "Download of TLE files", "Online TLE file update", false},
    {"fileSave", "&Save", "", "filesave", "Saves the result of the AOS calculation", "Saving AOS times...", true},
    {"fileSaveAs", "Save &as...", "", "", "Saves the result of the AOS calculations under a new filename",
     "Saving under new filename...", true},
    {"fileTLESave", "Save &TLE", "", "", "Saves the currently used orbit elements.", "Saving the TLE's on file...",
     true},
    {"fileTLESaveAs", "Save T&LE as...", "", "", "Saves the currently used orbit elements under a new filename",
     "Saving the TLE's under new filename...", true},
    {"filePicture", "&Picture...", "", "", "", "", true},
    {"fileQuit", "E&xit", "Ctrl+Q", "", "Quits Vorlix", "Exiting application...", true},
    {"inputSelectSat", "&Select Satellite", "Ctrl+S", "satpsels", "Select Satellite from TLE file.",
     "Select satellite...", false},
    {"inputRemoveSat", "&Remove Satellite", "Ctrl+Z", "", "Removes satellites from the list of selected satellites.",
     "Remove satellite...", false},
    {"inputNextSat", "&Next Satellites", "Ctrl+P", "satpnx4p",
     "Selects the next satellites which will pass the observation site.", "Next satellites to pass...", true},
    {"inputDate", "&Date", "Ctrl+D", "satpdate", "Input date and timezone", "Input the Date and Time...", false},
    {"inputLocation", "&Location", "Ctrl+C", "satploc", "Set the observation site.", "Input the location...", false},
    {"inputIers", "&IERS Parameters", "", "", "Set IERS Parameters", "Set IERS Parameters...", false},
    {"calcAOS", "&AOS", "Ctrl+A", "satppaos", "Calculate visibility times for passes.", "List satellite passes...",
     true},
    {"calcAllSats", "All Satellite &Passes", "", "", "Calculate visibility times for passes of all satellites.",
     "List all satellite passes...", true},
    {"calcOrbitTrack", "Write &Orbit Track", "Ctrl+O", "", "Write the orbit track on file.", "", true},
    {"calcIridium", "&Iridium Flares", "", "satpirid", "Calculate Iridium Flares.", "List Iridium Flares...", true},
    {"calcMatch", "&Find Matching Sats", "", "satpfind",
     "Find satellites which match a particular position and time.", "Find matching satellites...", true},
    {"manvEdit", "&Edit Orbit Elements", "Ctrl+E", "satpxorb", "Edit orbit elements of selected satellite.",
     "Edit orbit elements", true},
    {"manvDeltaV", "Delta-&V", "", "", "Perform a delta-v maneuver or continuous thrust of selected satellite.",
     "Delta-V maneuver", true},
    {"manvLaunch", "&Launch", "Ctrl+L", "", "Calculate a launch orbit.", "Launch orbit", true},
    {"manvRendz", "&Rendezvous", "", "", "Rendezvous Launch Orbit.", "Rendezvous Launch orbit", true},
    {"manvOrbDet", "&Orbit Determination", "", "", "Determine a circular orbit during a pass.", "Orbit determination",
     true},
    {"plotRT", "&Real Time", "Ctrl+R", "satprtim", "Plot Real Time positions of selected satellites.",
     "Real Time plot", true},
    {"plotDelta", "&Delta Time", "Ctrl+G", "satpdltm", "Plot satellite trajectory over a specified time interval.",
     "Delta Time plot", true},
    {"plotCurrent", "&Current Step", "Ctrl+U", "", "Current positions of selected satellites.",
     "Plot current position", true},
    {"plotNext", "&Next Pass", "", "satppass", "Jumps to the (maximum) position of the next pass.", "Next pass",
     true},
    {"plotLast", "&Last Pass", "", "", "Jumps to the (maximum) position of the last pass.", "Last pass", true},
    {"plotForward", "Step &Forward", "", "", "Moves one time step forward.", "Step forward", true},
    {"plotBackward", "Step &Backward", "", "", "Moves one time step backward.", "Step backward", true},
    {"viewRefresh", "&Refresh", "", "satprefr", "Refresh the screen display", "Refresh screen", false},
    {"viewSwitch", "S&witch", "Ctrl+W", "satpswss", "Switch satellites", "Switch prime satellite", false},
    {"viewMap", "Ma&p View/Sky Map", "Ctrl+Y", "satpsmap", "Specify world map or sky map parameters.",
     "Select world map or sky map parameters.", false},
    {"viewText", "Show Last Te&xt", "Ctrl+X", "", "Switch to the last text display", "Show last text display.", true},
    {"viewNames", "Show &Names", "Ctrl+N", "", "Show satellites names next to their respective positions.",
     "Show satellite names.", false},
    {"viewPicture", "Show Pict&ure", "", "", "Show loaded picture.", "Show loaded picture.", true},
    {"viewVisibility", "&Visibility", "Ctrl+V", "satpvisb",
     "Sets the visibility parameters for AOS calculations etc.", "Set visibility parameters.", false},
    {"viewStep", "&Time Step", "Ctrl+T", "satptstp", "Specify the time step used for the delta time calculations",
     "Change time step.", false},
    {"viewMagnitude", "&Magnitude", "Ctrl+M", "",
     "Specify the parameter for the apparent magnitude of the satellite.", "Set apparent magnitude parameter.",
     false},
    {"viewFontSize", "Font Si&ze", "", "", "Set the font size for the screen display", "Specify the font size...",
     false},
    {"viewLeft", "Enable &Left Button", "", "", "Enable left mouse button clicks for map and pass details.",
     "Enable left mouse button.", false},
    {"size25", "Set Picture Size &25%", "", "", "", "", false},
    {"size50", "Set Picture Size &50%", "", "", "", "", false},
    {"normalSize", "Norm&al Size", "", "", "", "", false},
    {"viewToolBar", "Tool&bar", "", "", "Enables/disables the toolbar", "Toggle toolbar...", false},
    {"viewStatusBar", "&Statusbar", "", "", "Enables/disables the statusbar", "Toggle statusbar...", false},
    {"settSysConf", "&Configure System", "", "", "Configure System Parameters", "Set system parameters.", false},
    {"helpAbout", "&About...", "", "", "About the application", "", false},
    {"helpAboutQt", "About &Qt", "", "", "Show the Qt library's About box", "", false},
    {"helpQuick", "&Help...", "", "", "Quick help", "Provide general help with Vorlix", false},
};

const char* const menus[][2] = {
    {"&File", "fileOpen fileUpdate | fileSave fileSaveAs | fileTLESave fileTLESaveAs | filePicture | fileQuit"},
    {"&Input", "inputSelectSat inputRemoveSat inputNextSat | inputDate inputLocation | inputIers"},
    {"&Calculate", "calcAOS calcAllSats calcOrbitTrack | calcIridium | calcMatch"},
    {"&Maneuver", "manvEdit | manvDeltaV manvLaunch manvRendz | manvOrbDet"},
    {"&Plot", "plotRT plotDelta plotCurrent | plotNext plotLast | plotForward plotBackward"},
    {"&View", "viewRefresh viewSwitch | viewMap viewText viewNames viewPicture | viewVisibility viewStep "
              "viewMagnitude | viewFontSize viewLeft | size25 size50 normalSize | viewToolBar viewStatusBar"},
    {"&Settings", "settSysConf"},
    {"&Help", "helpAbout helpAboutQt | helpQuick | whatsThis"},
};

constexpr const char* toolBarEntries =
    "fileOpen fileSave | inputSelectSat inputNextSat inputDate inputLocation | manvEdit | calcAOS calcIridium "
    "calcMatch | viewVisibility viewStep viewSwitch | plotRT plotDelta plotNext | viewMap viewRefresh | | whatsThis";

QString namesOf(const QWidget* bar)
{
    QStringList names;
    for (const QAction* action : bar->actions())
        names << (action->isSeparator() ? QStringLiteral("|") : action->objectName());
    return names.join(QLatin1Char(' '));
}

}  // namespace

class ActionsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        windows::stopTheClock();
        place = std::make_unique<windows::Workplace>();
        app = std::make_unique<VorlixApp>();
    }

    void cleanup()
    {
        app.reset();
        place.reset();
    }

    void everyActionHasItsTexts()
    {
        for (const Row& row : rows) {
            const QAction* a = action(row.name);
            QVERIFY2(a, row.name);
            QCOMPARE(a->text(), QString(row.text));
            QCOMPARE(a->shortcut(), QKeySequence(row.shortcut));
            QCOMPARE(a->statusTip(), QString(row.tip));
            const QImage drawn = a->icon().pixmap(22, 22).toImage();
            const QString file = *row.icon ? QStringLiteral(":/%1.png").arg(row.icon) : QString();
            QVERIFY2(drawn.isNull() == file.isEmpty(), row.name);
            if (!file.isEmpty()) {
                QCOMPARE(drawn.size(), QSize(22, 22));
                const auto form = QImage::Format_ARGB32_Premultiplied;
                QCOMPARE(drawn.convertToFormat(form), QImage(file).convertToFormat(form));
            }
            const QStringList help = a->whatsThis().split("\n\n");
            QVERIFY2(help.size() == 2 && help[1].size() > 20 && help[1].endsWith('.'), row.name);
            QVERIFY2(!help[0].contains('&') && !help[0].endsWith('.'), row.name);
        }
        QCOMPARE(action("whatsThis")->statusTip(), QString("What's This?"));
        QCOMPARE(app->windowIcon().actualSize({32, 32}), QSize(32, 32));
    }

    void everyEntryExplainsItself()
    {
        int entries = 0;
        for (const QAction* menu : app->menuBar()->actions()) {
            for (const QAction* a : menu->menu()->actions()) {
                const QStringList help = a->whatsThis().split("\n\n");
                QVERIFY2(a->isSeparator() || (help.size() == 2 && help[1].size() > 20), qPrintable(a->text()));
                entries += a->isSeparator() ? 0 : 1;
            }
        }
        QCOMPARE(entries, static_cast<int>(std::size(rows)) + 1);  // and the entry that asks for the explanations
    }

    void actionsStandInTheirMenus()
    {
        const QList<QAction*> bar = app->menuBar()->actions();
        QCOMPARE(bar.size(), qsizetype(std::size(menus)));
        for (qsizetype i = 0; i < bar.size(); ++i) {
            QCOMPARE(bar[i]->text(), QString(menus[i][0]));
            QCOMPARE(namesOf(bar[i]->menu()), QString(menus[i][1]));
        }
        QCOMPARE(namesOf(app->findChild<QToolBar*>("toolBar")), QString(toolBarEntries));
    }

    void theStatusBarNamesTheOperation()
    {
        indata->satel = 91.0;  // no next satellites
        indata->dur = 0.01;
        for (const Row& row : rows) {
            QAction* a = action(row.name);
            if (QLatin1String(row.name) == QLatin1String("fileQuit") || !a->isEnabled())
                continue;
            QStringList said;
            const auto listening =
                connect(app->statusBar(), &QStatusBar::messageChanged, [&](const QString& text) { said << text; });
            answering([&] { a->trigger(); }, {});
            disconnect(listening);
            if (*row.message)
                QCOMPARE(said.value(0), QString(row.message));
            app->slotStopTime();
            static const QHash<QString, QString> endings{
                {"fileOpen", "*** TLE file not selected ***"},
                {"fileSaveAs", "*** Save file not selected ***"},
                {"fileTLESaveAs", "*** TLE Save File not selected ***"},
                {"inputNextSat", "Failed to find next satellites."},
                {"inputDate", "Input cancelled."},
                {"inputLocation", "Input cancelled."},
                {"fileUpdate", "Online TLE file update"},
            };
            if (*row.message)
                QCOMPARE(app->statusBar()->currentMessage(), endings.value(row.name, "Ready."));
        }
    }

    void commandsThatCalculateStopARunningPlot()
    {
        const auto* timer = app->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
        QVERIFY(timer);
        indata->satel = 91.0;  // else the next satellites start a plot of their own
        indata->dur = 0.01;
        for (const Row& row : rows) {
            QAction* a = action(row.name);
            if (QLatin1String(row.name) == QLatin1String("fileQuit") ||
                QLatin1String(row.name).startsWith(QLatin1String("plotRT")) ||
                QLatin1String(row.name) == QLatin1String("plotDelta"))
                continue;
            a->setEnabled(true);
            app->slotStopTime();
            app->slotPlotRT();
            QVERIFY(timer->isActive());
            QCOMPARE(timer->interval(), 980);
            answering([&] { a->trigger(); }, {});
            QVERIFY2(timer->isActive() != row.stopsTheTimer, row.name);
        }
    }

    void aPlotCommandStopsAPlotOfEitherKind()
    {
        const auto* timer = app->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
        for (QAction* first : {action("plotRT"), action("plotDelta")}) {
            for (QAction* second : {action("plotRT"), action("plotDelta")}) {
                first->trigger();
                QVERIFY(timer->isActive());
                QCOMPARE(indata->rtflg, first == action("plotRT") ? 1 : 0);
                second->trigger();
                QVERIFY(!timer->isActive());
                QCOMPARE(indata->rtflg, 0);
            }
        }
    }

    void theTimerDrivesAPlot()
    {
        action("plotDelta")->trigger();
        const double begin = indata->mjd;
        QTRY_VERIFY(indata->mjd > begin + 10 * indata->tmstep);
        indata->dur = 0.001;
        app->slotStopTime();
        action("plotDelta")->trigger();
        const auto* timer = app->findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
        QTRY_VERIFY(!timer->isActive());  // it ends by itself
        QVERIFY(indata->mjd <= begin + 0.001);
        QVERIFY(indata->mjd > begin + 0.001 - indata->tmstep);
    }

    void pictureActionsWaitForAPicture()
    {
        for (const char* name : {"viewPicture", "size25", "size50", "normalSize"})
            QVERIFY2(!action(name)->isEnabled(), name);
        for (const char* name : {"viewNames", "viewPicture", "viewLeft", "viewToolBar", "viewStatusBar"}) {
            QVERIFY2(action(name)->isCheckable(), name);
            QVERIFY2(!action(name)->isChecked(), name);
        }
    }

    void theBarsShowAndHide()
    {
        app->show();
        const auto* bar = app->findChild<QToolBar*>("toolBar");
        QVERIFY(bar->isVisible());
        QVERIFY(!app->statusBar()->isVisible());
        action("viewToolBar")->trigger();  // checked: stays as it was
        QVERIFY(bar->isVisible());
        action("viewToolBar")->trigger();
        QVERIFY(!bar->isVisible());
        action("viewStatusBar")->trigger();
        QVERIFY(app->statusBar()->isVisible());
    }

    void theAboutBoxTellsTheVersion()
    {
        QString title, text;
        answering([&] { action("helpAbout")->trigger(); }, {[&](QDialog* dialog) {
                      title = dialog->windowTitle();
                      text = qobject_cast<QMessageBox*>(dialog)->text();
                      dialog->accept();
                  }});
        QCOMPARE(title, QString("About..."));
        QCOMPARE(text, QString("Vorlix\nVersion 11.8"));
    }

    void theManualHasItsChapters()
    {
        QString manual, title;
        int cursor = -1;
        answering([&] { action("helpQuick")->trigger(); }, {[&](QDialog* dialog) {
                      title = dialog->windowTitle();
                      const auto* text = dialog->findChild<QTextEdit*>("textEdit1");
                      QVERIFY(text && text->isReadOnly());
                      manual = text->toPlainText();
                      cursor = text->textCursor().position();
                      windows::click(dialog, "okButton");
                  }});
        QCOMPARE(title, QString("Quick Help"));
        QCOMPARE(cursor, 0);
        QFile file(":/vorlixHelp.txt");
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(manual, QString::fromUtf8(file.readAll()));
        qsizetype from = 0;
        for (const char* chapter :
             {"0. List of Hot Keys", "1. Select an Orbit Element File",
              "2. Selecting Satellites, Dates and Observing Site", "3. Calculating Contact Times and Iridium Flares",
              "4. Groundtrack / Sky Map Display", "5. Switch between Satellites / Relative Satellite Mode",
              "6. Time Step, Visibility Conditions, Flares, Occultations", "7. Display Magnitude",
              "8. Edit Orbit Elements / Launch Orbit / Delta-V", "9. Orbit Determination / Find Matching Satellites",
              "10.Astrometry of Satellite Trail Pictures", "11.Saving Data on File / Online TLE Update",
              "12.Numeric Orbit Propagation / System Parameters"}) {
            from = manual.indexOf(QString("\n\n\n%1\n\n").arg(chapter), from);
            QVERIFY2(from >= 0, chapter);
        }
    }

private:
    QAction* action(const char* name) const { return app->findChild<QAction*>(QLatin1String(name)); }

    std::unique_ptr<windows::Workplace> place;
    std::unique_ptr<VorlixApp> app;
};

QTEST_MAIN(ActionsTest)
#include "actions_test.moc"
