// The main window: actions, menus, tool bar, keys, the timer of the plots and the download. It holds nothing of the
// domain; every command ends in a method `v...` of the view.
#pragma once

#include <initializer_list>
#include <span>

#include <QMainWindow>
#include <QString>

class AgeStrip;
class Download;
struct AddressParts;
class FollowControl;
class QAction;
class QLabel;
class QMenu;
class QScrollArea;
class QTimer;
class QToolBar;
class RedLight;
class ScanWatch;
class VorlixView;

extern QString APPDIR;   // working directory at start-up, where the configuration lies
extern QString CFDIR;    // where the picture dialog starts
extern QString TLEname;  // where the element file dialog starts; empty: no valid file was configured
extern int fntsz;        // point size of the text display as the main window knows it
extern int picsize;      // reduction of the picture: 0 full, 2 half, 3 quarter

/// In vorlix.ini: whether lists of passes leave nothing out.
constexpr char thoroughKey[] = "search/thorough";
/// Whether the second set of colours is chosen.
constexpr char readableKey[] = "view/readableColours";
/// Whether all is shown in red, and how bright the brightest is, 40 to 255.
constexpr char redKey[] = "view/redLight";
constexpr char redLevelKey[] = "view/redLightLevel";
/// Whether the age of elements is told, and how sure decay rates are, a share.
constexpr char ageKey[] = "view/ageOfElements";
constexpr char uncertaintyKey[] = "view/decayUncertainty";
/// How large everything is drawn, and whether that follows the window.
constexpr char zoomKey[] = "view/percent";
constexpr char fitKey[] = "view/fitToWindow";

class VorlixApp : public QMainWindow
{
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(VorlixApp)

public:
    /// Builds the window. The working directory must be that of the configuration.
    VorlixApp();
    ~VorlixApp() override;

    VorlixView* canvas() const { return view; }

public Q_SLOTS:
    void slotFileOpen();
    void slotFileUpdate();
    void slotUpdateAtStart(bool on);
    void slotSettSources();
    void slotFileSave();
    void slotFileSaveAs();
    void slotFileTLESave();
    void slotFileTLESaveAs();
    void slotFilePicture();
    void slotFileQuit();
    void slotFileExport();
    void slotFileObservation();
    void slotEditCopy();

    void slotInputSelectSat();
    void slotInputRemoveSat();
    void slotInputNextSat();
    void slotInputDate();
    void slotInputLocation();
    void slotInputIers();
    void slotInputStation();
    void slotInputHorizon();

    void slotCalcAOS();
    void slotCalcAllSats();
    void slotCalcOrbitTrack();
    void slotCalcIridium();
    void slotCalcMatch();

    void slotManvEdit();
    void slotManvDeltaV();
    void slotManvLaunch();
    void slotManvRendz();
    void slotManvOrbDet();
    void slotManvFit();
    void slotCalcField();
    void slotCalcBrightest();
    void slotSettMagnitudes();
    void slotCalcPicture();

    void slotPlotRT();
    void slotPlotDelta();
    void slotPlotCurrent();
    void slotPlotNext();
    void slotPlotLast();
    void slotPlotForward();
    void slotPlotBackward();
    void slotPlotFollow();

    void slotViewRefresh();
    void slotViewSwitch();
    void slotViewMap();
    void slotViewText();
    void slotViewNames(bool on);
    void slotFileSavePicture();
    void slotFilePrint();
    void slotFilePdf();
    void slotEditCopyPicture();
    void slotViewReadable(bool on);
    void slotViewRed(bool on);
    void slotViewAge(bool on);
    void slotViewLarger();
    void slotViewSmaller();
    void slotViewOriginalSize();
    void slotViewFit(bool on);
    void slotViewPicture(bool on);
    void slotViewVisibility();
    void slotViewStep();
    void slotViewMagnitude();
    void slotViewFontSize();
    void slotViewLeft(bool on);
    void slotSettThorough(bool on);
    void slotSettModels();
    void size25();
    void size50();
    void normalSize();
    void slotViewToolBar(bool toggle);
    void slotViewStatusBar(bool toggle);

    void slotSettSysConf();

    void slotHelpAbout();
    void slotQuickHelp();

    void slotTmCheck();
    void slotStopTime();
    void httpDone(bool error);
    void offerLeftover(const QString& elementFile);
    void tellMissing(const QStringList& names);
    bool maybeAskAgain(const QString& address);
    void fetch(const AddressParts& parts, bool byItself);
    void updateAtStart();
    void showAges(bool on, double uncertainty);
    void restoreChoices();
    void tellAtStart(const QString& message);
    void followEnded(const QString& name, const QString& why);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// A row of the action table.
    struct ActionRow
    {
        QAction* VorlixApp::*action;
        const char* name;
        const char* text;
        const char* shortcut;
        const char* icon;
        const char* tip;
        const char* whatsThis;
        void (VorlixApp::*triggered)();
        void (VorlixApp::*toggled)(bool);
    };
    static std::span<const ActionRow> actionRows();

    void initActions();
    void initMenuBar();
    void initToolBar();
    void initStatusBar();
    void initView();

    void makeAction(const ActionRow& row);
    QMenu* makeMenu(const char* name, const QString& title, std::initializer_list<QAction*> actions);
    void showStatus(const QString& message);
    bool calculationGoesOn(const QString& what);
    void calculationOver();
    void run(void (VorlixApp::*slot)());
    QString withEnding(const QString& name, const QString& ending, const QString& caption);
    QString askForElementSaveName();
    QString askForExportName();
    void startOrStop(int mode, int milliseconds);
    void scrollHome();
    bool letterKey(int key);
    bool otherKey(int key);
    bool rowKey(int key);
    bool arrowKey(int key);
    bool digitKey(int key);
    void setPictureSize(int code);
    QString askForPictureName(const QString& caption, const QString& name, const QString& ending);
    void chooseSize(double factor);
    void tellSize();
    void restoreSize();
    void fitToWindow();
    bool eventFilter(QObject* watched, QEvent* event) override;

    VorlixView* view = nullptr;
    QLabel* viewLabel = nullptr;
    AgeStrip* ageStrip = nullptr;
    QScrollArea* scrollArea = nullptr;

    QMenu* fileMenu = nullptr;
    QMenu* inputMenu = nullptr;
    QMenu* calcMenu = nullptr;
    QMenu* manvMenu = nullptr;
    QMenu* plotMenu = nullptr;
    QMenu* viewMenu = nullptr;
    QMenu* settMenu = nullptr;
    QMenu* editMenu = nullptr;
    QMenu* helpMenu = nullptr;
    QToolBar* toolBar = nullptr;

    QAction* fileOpen = nullptr;
    QAction* fileUpdate = nullptr;
    QAction* fileSave = nullptr;
    QAction* fileSaveAs = nullptr;
    QAction* fileTLESave = nullptr;
    QAction* fileTLESaveAs = nullptr;
    QAction* filePicture = nullptr;
    QAction* fileQuit = nullptr;
    QAction* fileExport = nullptr;
    QAction* fileObservation = nullptr;
    QAction* fileSavePicture = nullptr;
    QAction* filePrint = nullptr;
    QAction* filePdf = nullptr;
    QAction* editCopy = nullptr;
    QAction* editCopyPicture = nullptr;
    QAction* inputSelectSat = nullptr;
    QAction* inputRemoveSat = nullptr;
    QAction* inputNextSat = nullptr;
    QAction* inputDate = nullptr;
    QAction* inputLocation = nullptr;
    QAction* inputIers = nullptr;
    QAction* inputStation = nullptr;
    QAction* inputHorizon = nullptr;
    QAction* calcAOS = nullptr;
    QAction* calcOrbitTrack = nullptr;
    QAction* calcAllSats = nullptr;
    QAction* calcIridium = nullptr;
    QAction* calcMatch = nullptr;
    QAction* manvEdit = nullptr;
    QAction* manvDeltaV = nullptr;
    QAction* manvLaunch = nullptr;
    QAction* manvRendz = nullptr;
    QAction* manvOrbDet = nullptr;
    QAction* manvFit = nullptr;
    QAction* calcField = nullptr;
    QAction* calcBrightest = nullptr;
    QAction* settMagnitudes = nullptr;
    QAction* settSources = nullptr;
    QAction* fileUpdateAtStart = nullptr;
    QAction* calcPicture = nullptr;
    QAction* plotRT = nullptr;
    QAction* plotDelta = nullptr;
    QAction* plotCurrent = nullptr;
    QAction* plotNext = nullptr;
    QAction* plotLast = nullptr;
    QAction* plotForward = nullptr;
    QAction* plotBackward = nullptr;
    QAction* plotFollow = nullptr;
    QAction* viewRefresh = nullptr;
    QAction* viewSwitch = nullptr;
    QAction* viewMap = nullptr;
    QAction* viewText = nullptr;
    QAction* viewNames = nullptr;
    QAction* viewPicture = nullptr;
    QAction* viewVisibility = nullptr;
    QAction* viewStep = nullptr;
    QAction* viewMagnitude = nullptr;
    QAction* viewFontSize = nullptr;
    QAction* viewLeft = nullptr;
    QAction* viewSize25 = nullptr;
    QAction* viewSize50 = nullptr;
    QAction* viewNormalSize = nullptr;
    QAction* viewToolBar = nullptr;
    QAction* viewStatusBar = nullptr;
    QAction* viewReadable = nullptr;
    QAction* viewLarger = nullptr;
    QAction* viewSmaller = nullptr;
    QAction* viewOriginalSize = nullptr;
    QAction* viewFit = nullptr;
    QAction* viewRed = nullptr;
    QAction* viewAge = nullptr;
    QAction* settSysConf = nullptr;
    QAction* settThorough = nullptr;
    QString askedAddress;        // of the update under way,
    bool askedByItself = false;  // and whether nobody asked for it
    QAction* settModels = nullptr;
    QAction* helpAbout = nullptr;
    QAction* helpAboutQt = nullptr;
    QAction* helpQuick = nullptr;
    QAction* whatsThis = nullptr;

    ScanWatch* scanWatch = nullptr;
    QTimer* afterCalculation = nullptr;
    int timesTold = 0;  // of the calculation under way
    bool barShownMeanwhile = false;
    bool endedByHand = false;
    QTimer* timer = nullptr;
    Download* download = nullptr;
    FollowControl* follow = nullptr;
    RedLight* redLight = nullptr;
    int tmmode = 0;  // 0 no timer, 1 real time, 2 delta time
};
