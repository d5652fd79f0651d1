// How the main window is built, and the helpers of its slots.

#include "app/vorlix_app.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QWhatsThis>

#include "app/age_strip.h"
#include "app/follow_control.h"
#include "app/red_light.h"
#include "app/scan_watch.h"
#include "elements/download.h"
#include "elements/element_sources.h"
#include "elements/kept_selection.h"
#include "record/further_settings.h"
#include "record/progress.h"
#include "record/text.h"
#include "view/vorlix_view.h"

QString APPDIR;
QString CFDIR;
QString TLEname;
int fntsz = 10;
int picsize = 0;

namespace {

constexpr int readyMilliseconds = 2000;

QIcon iconOf(const char* name)
{
    return QIcon(QStringLiteral(":/%1.png").arg(QLatin1String(name)));
}

/// A null pointer stands for a separator.
template <class Bar>
void fill(Bar* bar, std::initializer_list<QAction*> actions)
{
    for (QAction* action : actions) {
        if (action)
            bar->addAction(action);
        else
            bar->addSeparator();
    }
}

}  // namespace

VorlixApp::VorlixApp()
{
    APPDIR = QDir::currentPath();
    CFDIR = QDir::homePath();
    setFurtherSettingsFolder(APPDIR);  // the working directory may change below
    QLocale::setDefault(QLocale(QLocale::English, QLocale::AnyCountry));
    setWindowTitle(tr("Vorlix - 11.8"));
    setWindowIcon(iconOf("vorlix32"));
    QGuiApplication::setDesktopFileName("io.vorlix.Vorlix");  // by it a desktop finds launcher and icon of the window
    download = new Download(this);
    connect(download, &Download::finished, this, &VorlixApp::httpDone);

    follow = new FollowControl(this);
    connect(follow, &FollowControl::told, this, &VorlixApp::showStatus);
    connect(follow, &FollowControl::ended, this, &VorlixApp::followEnded);

    redLight = new RedLight(this);
    scanWatch = new ScanWatch(this);
    afterCalculation = new QTimer(scanWatch);
    afterCalculation->setSingleShot(true);
    connect(afterCalculation, &QTimer::timeout, this, &VorlixApp::calculationOver);

    initActions();
    initMenuBar();
    initToolBar();
    initStatusBar();
    resize(837, 560);
    initView();
    setFocus(Qt::OtherFocusReason);
    slotViewStatusBar(false);
    slotViewLeft(view->getLeft());
    viewLeft->setChecked(view->getLeft());
    restoreChoices();

    TLEname = view->getTLEname();
    if (TLEname.isEmpty())
        QDir::setCurrent(QDir::homePath());
    fntsz = view->getFsz();
    if (fntsz == 8)
        resize(744, 560);

    timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &VorlixApp::slotTmCheck);
    fileUpdateAtStart->setCheckable(true);
    fileUpdateAtStart->setChecked(startUpdate().on);
    connect(fileUpdateAtStart, &QAction::triggered, this, &VorlixApp::slotUpdateAtStart);
    QTimer::singleShot(0, this, [this] {
        offerLeftover(TLEname);
        updateAtStart();
    });

    const QStringList missing = missingAfterStart(*indata);
    if (!TLEname.isEmpty() && !missing.isEmpty())
        tellMissing(missing);
}

/// What vorlix.ini keeps of the menus.
void VorlixApp::restoreChoices()
{
    viewReadable->setChecked(openFurtherSettings().value(readableKey).toBool());
    const QSettings further = openFurtherSettings();
    viewAge->setCheckable(true);
    connect(viewAge, &QAction::triggered, this, &VorlixApp::slotViewAge);
    viewAge->setChecked(further.value(ageKey).toBool());
    showAges(viewAge->isChecked(), further.value(uncertaintyKey, usualDecayUncertainty).toDouble());
    viewRed->setChecked(openFurtherSettings().value(redKey).toBool());
    restoreSize();
    if (const QString why = view->restoreHorizon(); !why.isEmpty())
        tellAtStart(why);
    settThorough->setChecked(openFurtherSettings().value(thoroughKey).toBool());
}

void VorlixApp::tellMissing(const QStringList& names)
{
    tellAtStart(tr("Not found in the element file: %1").arg(names.join(QStringLiteral(", "))));
}

/// In the status bar, which shows itself for that.
void VorlixApp::tellAtStart(const QString& message)
{
    viewStatusBar->setChecked(true);
    statusBar()->showMessage(message);
}

VorlixApp::~VorlixApp()
{
    setProgressListener({});
    delete viewLabel;  // the scroll area owns the view, nobody else the label it was made with
}

void VorlixApp::makeAction(const ActionRow& row)
{
    auto* action = new QAction(tr(row.text), this);
    action->setObjectName(QLatin1String(row.name));
    action->setShortcut(QKeySequence(QLatin1String(row.shortcut)));
    if (*row.icon)
        action->setIcon(iconOf(row.icon));
    if (*row.tip)
        action->setStatusTip(tr(row.tip));
    action->setWhatsThis(tr(row.whatsThis));
    action->setCheckable(row.toggled != nullptr);
    if (row.toggled)
        connect(action, &QAction::toggled, this, row.toggled);
    if (row.triggered)
        connect(action, &QAction::triggered, this, [this, slot = row.triggered] { run(slot); });
    this->*row.action = action;
}

void VorlixApp::initActions()
{
    for (const ActionRow& row : actionRows())
        makeAction(row);
    connect(helpAboutQt, &QAction::triggered, qApp, &QApplication::aboutQt);
    whatsThis = QWhatsThis::createAction(this);
    whatsThis->setObjectName("whatsThis");
    whatsThis->setIcon(iconOf("satpwhat"));  // the library's own is a black pointer, lost on a dark tool bar
    whatsThis->setStatusTip(tr("What's This?"));
    whatsThis->setWhatsThis(tr("What's This?\n\nClick here, and then on a menu entry or a button, for a short "
                               "explanation. In a dialog Shift+F1 does the same for its fields."));
    for (QAction* picture : {viewPicture, viewSize25, viewSize50, viewNormalSize})
        picture->setEnabled(false);
}

QMenu* VorlixApp::makeMenu(const char* name, const QString& title, std::initializer_list<QAction*> actions)
{
    QMenu* menu = menuBar()->addMenu(title);
    menu->setObjectName(QLatin1String(name));
    fill(menu, actions);
    return menu;
}

void VorlixApp::initMenuBar()
{
    fileMenu =
        makeMenu("fileMenu", tr("&File"),
                 {fileOpen,        fileUpdate, nullptr,         fileSave,  fileSaveAs, nullptr, fileTLESave,
                  fileTLESaveAs,   nullptr,    filePicture,     nullptr,   fileQuit,   nullptr, fileExport,
                  fileObservation, nullptr,    fileSavePicture, filePrint, filePdf,    nullptr, fileUpdateAtStart});
    inputMenu = makeMenu("inputMenu", tr("&Input"),
                         {inputSelectSat, inputRemoveSat, inputNextSat, nullptr, inputDate, inputLocation, nullptr,
                          inputIers, inputStation, inputHorizon});
    calcMenu = makeMenu("calcMenu", tr("&Calculate"),
                        {calcAOS, calcAllSats, calcOrbitTrack, nullptr, calcIridium, nullptr, calcMatch, calcField,
                         calcPicture, calcBrightest});
    manvMenu = makeMenu("manvMenu", tr("&Maneuver"),
                        {manvEdit, nullptr, manvDeltaV, manvLaunch, manvRendz, nullptr, manvOrbDet, manvFit});
    plotMenu = makeMenu("plotMenu", tr("&Plot"),
                        {plotRT, plotDelta, plotCurrent, nullptr, plotNext, plotLast, nullptr, plotForward,
                         plotBackward, nullptr, plotFollow});
    viewMenu = makeMenu("viewMenu", tr("&View"),
                        {viewRefresh,  viewSwitch,  nullptr,          viewMap,    viewText,      viewNames,
                         viewPicture,  nullptr,     viewVisibility,   viewStep,   viewMagnitude, nullptr,
                         viewFontSize, viewLeft,    nullptr,          viewSize25, viewSize50,    viewNormalSize,
                         nullptr,      viewToolBar, viewStatusBar,    nullptr,    viewReadable,  nullptr,
                         viewLarger,   viewSmaller, viewOriginalSize, viewFit,    nullptr,       viewRed,
                         viewAge});
    settMenu =
        makeMenu("settMenu", tr("&Settings"), {settSysConf, settThorough, settMagnitudes, settSources, settModels});
    editMenu = makeMenu("editMenu", tr("&Edit"), {editCopy, editCopyPicture});
    helpMenu = makeMenu("helpMenu", tr("&Help"), {helpAbout, helpAboutQt, nullptr, helpQuick, nullptr, whatsThis});
}

void VorlixApp::initToolBar()
{
    toolBar = addToolBar(tr("operations"));
    toolBar->setObjectName("toolBar");
    fill(toolBar, {fileOpen,       fileSave, nullptr,     inputSelectSat, inputNextSat, inputDate, inputLocation,
                   nullptr,        manvEdit, nullptr,     calcAOS,        calcIridium,  calcMatch, nullptr,
                   viewVisibility, viewStep, viewSwitch,  nullptr,        plotRT,       plotDelta, plotNext,
                   nullptr,        viewMap,  viewRefresh, nullptr,        nullptr,      whatsThis});
    viewToolBar->setChecked(true);
    connect(toolBar->toggleViewAction(), &QAction::toggled, viewToolBar,
            &QAction::setChecked);  // hidden by its own menu
}

void VorlixApp::initStatusBar()
{
    statusBar()->showMessage(tr("Ready."), readyMilliseconds);
    setProgressListener([this](std::string_view name) { return calculationGoesOn(textQString(name).trimmed()); });
}

void VorlixApp::initView()
{
    viewLabel = new QLabel;
    viewLabel->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    viewLabel->setScaledContents(true);
    view = new VorlixView(viewLabel);
    scrollArea = new QScrollArea;
    scrollArea->setFocusPolicy(Qt::NoFocus);
    scrollArea->setWidget(view);
    setCentralWidget(scrollArea);
    scrollArea->installEventFilter(this);
    auto* nextClick = new QLabel;
    nextClick->setObjectName("nextClickLabel");
    nextClick->setTextFormat(Qt::PlainText);
    statusBar()->addPermanentWidget(nextClick);
    ageStrip = new AgeStrip(view, this);
    addToolBar(Qt::BottomToolBarArea, ageStrip);
    ageStrip->hide();
    connect(view, &VorlixView::nextClickMeans, nextClick, &QLabel::setText);
}

void VorlixApp::showStatus(const QString& message)
{
    statusBar()->showMessage(message);
}

/// A calculation that is over by the second time it tells has shown nothing and dropped no input.
bool VorlixApp::calculationGoesOn(const QString& what)
{
    if (!what.isEmpty() || timesTold == 0)
        showStatus(tr("Calculating: %1   (Escape ends it)").arg(what.isEmpty() ? tr("please wait") : what));
    afterCalculation->start(0);  // not before the command returns, or shows a dialog: timers wait
    if (++timesTold == 1)
        return true;
    if (statusBar()->isHidden()) {
        statusBar()->show();
        barShownMeanwhile = true;
    }
    statusBar()->repaint();
    endedByHand = !scanWatch->look();
    return !endedByHand;
}

void VorlixApp::calculationOver()
{
    timesTold = 0;
    if (barShownMeanwhile)
        statusBar()->hide();
    barShownMeanwhile = false;
    if (endedByHand) {
        slotStopTime();
        showStatus(tr("Ended before it was done. Nothing has changed."));
    }
    endedByHand = false;
}

/// Assistive programs reach an action past all input events.
void VorlixApp::run(void (VorlixApp::*slot)())
{
    if (!scanWatch->isLooking())
        (this->*slot)();
}

void VorlixApp::scrollHome()
{
    scrollArea->horizontalScrollBar()->setValue(0);
    scrollArea->verticalScrollBar()->setValue(0);
}
