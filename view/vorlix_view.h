// The canvas of the main window: the last text report, a map of the world, the sky or a disk, or a loaded picture;
// and the commands `v...` that run the dialogs, call the engine and show what comes of it.
//
// The class is large by nature. Its files by subject: frame, text display, plot clock, satellite plot, mouse picks,
// selection, files, searches, orbits, settings, what is taken along, what is spoken; and the drawing: world map, sky
// map, satellite overlay, map legend, disk plot, picture.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <QColor>
#include <QHash>
#include <QPixmap>
#include <QPoint>
#include <QPointer>
#include <QRegion>
#include <QScrollArea>
#include <QString>

#include "dialogs/st_brightest_dialog.h"
#include "engine/element_age.h"
#include "engine/pass_search.h"
#include "imaging/sky_picture.h"
#include "record/winp_data.h"
#include "record/wout_data.h"
#include "view/changed_tiles.h"
#include "view/colours.h"
#include "view/drawn_legend.h"
#include "view/marks.h"

class QImage;
class QPagedPaintDevice;
class QPainter;
class StPassDialog;
enum class ListForm : int;
struct DiskFrame;
struct ExposedPicture;
struct FollowTask;
struct PictureTrail;
struct Streak;
struct MapFrame;
struct SatPosData;
struct SkyFrame;

/// What last filled the display, values of `dsplmd`.
namespace filled {
enum By
{
    nothing = 0,
    text = 1,
    passTable = 2,
    map = 3
};
}

extern int dsplmd;     // what last filled or refreshed the display
extern int fsz;        // point size of the text display as the view knows it
extern int epos[120];  // pixel positions of the selectable rows of the pass table, from the top of the text

/// How a report is painted.
struct ReportStyle
{
    bool fixed = false;     // table lines stand on a grid of character cells
    std::size_t first = 0;  // character of a line; with 1 the one before is a mark for rows that can be clicked
};

/// What the stages of one plot hand on; made anew by each `SatPlot`.
struct PlotScene
{
    double t = 0;           // MJD, UTC
    int circles = 0;        // not 0: visibility circles are wanted
    bool relative = false;  // the plot shows the second satellite as seen against the prime one
    bool disk = false;      // the map is a plot of the Sun's or the Moon's disk
    int year = 0;           // civil date of t
    int month = 0;
    int day = 0;
    double hours = 0;  // civil time of t within the day
    MapColours colours;
};

/// What a report on show lists.
enum class Listed
{
    passes,        // or events or contacts, of the prime satellite
    mirrorFlares,  // of the whole file
    matches        // with a sighting
};

class VorlixView final : public QScrollArea
{
    Q_OBJECT

public:
    /// Brings the records up with `swelcm`, paints the welcome text and draws the map once behind it.
    explicit VorlixView(QWidget* parent = nullptr);

    /// A synchronous repaint, not a queued one: every plot ends in it. Behind a plot on a map it repaints what the plot
    /// changed, otherwise all.
    virtual void update();

    // --- frame
    int getLeft() const;
    int getFsz() const;
    void setFont(int size);
    void goHome();
    /// The digit key n, 1 to 10: makes that satellite the prime one, if so many are selected.
    void keyPress(int n);
    /// Steps back in time for a dx above 0 and on for one below; otherwise scrolls by dy, not beyond top and bottom.
    void scrollDsp(int dx, int dy);
    /// Draws the background anew and puts the map on show; markers come back with the next plot.
    void vRefresh();
    /// The same, and a plot of the current time if a satellite is selected.
    void vRefreshP();
    /// Brings a background drawn anew to the screen, with satellites and legend if `plot`; a running plot brings them
    /// by itself.
    void showNewMap(bool plot);
    /// Turns from the map to the last text or back.
    void vText();
    /// Names beside the markers; replots unless a real-time plot runs.
    void vNames(bool on);
    void vLeft(bool on);
    /// Draws everything so many times as large, from 1 to `largestZoom`; what does not fit is scrolled.
    void vZoom(double factor);
    double zoomFactor() const { return zoom; }
    /// The zoom at which a map fills so much room.
    static double zoomFor(const QSize& room);
    static constexpr double largestZoom = 3.0;
    /// The second set of colours, with what it adds to a map. Plots again if a map with satellites is on show.
    void vReadable(bool on);
    /// All drawings light on black, whatever the background chosen. Paper stays white.
    void vNight(bool on);

    /// Whether lists of passes hold every interval, see `findNextInterval`.
    void vThorough(bool on) { thorough = on; }
    /// Elements on show: those of the prime satellite at the time on show, of a table at its worst line.
    struct AgeOnShow
    {
        QString name;
        ElementAge age;
    };
    /// Nothing without a satellite.
    std::optional<AgeOnShow> ageOnShow() const;
    /// Whether commands tell what the age of elements may spoil, and how sure the decay rate is, see `errorAlongTrack`.
    void vAges(bool on, double decayUncertainty);
    /// Takes the horizon from the file that vorlix.ini names. @return  why there is none; empty if none is wanted
    QString restoreHorizon();
    void vPicSwitch(bool on);
    void vQuit();

    // --- text display
    /// Paints the report and puts it on show; `fixed` gives table lines a grid of character cells.
    void showtxt(bool fixed);
    /// Paints the report as the pass table whose rows can be clicked; the caller sets `dspmd`.
    void showSattxt();
    /// Opens the details of the row at the height y of the pass table.
    void showPassDetails(int y);
    /// Whether a pass table is on show whose rows can be chosen.
    bool hasRows() const;
    /// Marks the row so many below the marked one, or the first or last. @return  its place on the widget
    QRect markNextRow(int rows);
    /// The same details of the marked row.
    void openMarkedRow();

    // --- plot clock
    // the first three take a text to the map, but leave a pass table on show
    void vCurrent();
    void vForward();
    void vBackward();
    /// Plots the next pass of the prime satellite, or warns if `dur` days hold none.
    void vPlotNext();
    /// The same with the one before.
    void vPlotLast();
    /// One tick of a real-time plot; skipped while a pick dialog is open.
    void RT_Plot();
    /// One tick of a delta plot. @return  not 0: the plot is over and nothing was plotted
    int PlotDelta();
    /// Takes up the new state of the timer: 0 none, 1 real time, 2 delta time.
    void vTmCheck(int mode);
    /// Asks with which mount the prime satellite is to be followed; nothing if the user cancelled.
    std::optional<FollowTask> vFollow();
    /// Shows the state at the MJD t. `circles` not 0 draws the circles of visibility.
    void SatPlot(double t, int circles);

    // --- picks
    // none of them changes the place of the observer; ticks of the timer wait until they are over
    /// Tells what is to be known of the place or the point of the sky under a pixel.
    void getMapPos(int x, int y);
    /// Asks for a place and tells the same of it; does nothing on a sky map.
    void vLocalInf();
    /// Tells it of what the record holds.
    void vLocalPass();

    // --- selection and files
    void vSelectSat();
    void vRemoveSat();
    /// @return  number of satellites now selected, 0 for none, -1 if the element file cannot be opened,
    ///          `calculationCancelled`
    int vNextSat();
    QString getTLEname() const;
    void setTLEname(const QString& name);
    // a name never chosen is completed when it is asked for: it lies beside the element file
    QString getSaveName();
    void setSaveName(const QString& name);
    QString getTSaveName();
    void setTSaveName(const QString& name);
    void vFileSave();
    void vTLESave();
    /// Asks for an address and splits it. @return  0 the three texts are set, 1 cancelled
    int vUpdate(QString& host, QString& path, QString& file);

    // --- searches and tables
    void vCalcAOS();
    /// @return  true if the list was written
    bool vAllSat();
    void vOrbitTrack();
    /// Writes the report on show into a file, in the form of its ending: a table of passes in any, other reports as text
    /// or CSV. @return  false after a message
    bool vExport(const QString& name);
    /// The report on show to the clipboard, as text and as CSV.
    void vCopy();
    void vIridium();
    void CmIridium();
    void vMatch();
    /// Lists the brightest passes of the element file.
    void vBrightest();
    /// Asks where magnitudes of satellites come from.
    void vMagnitudes();
    /// Asks for the address of the next update, from a list that is kept.
    void vElementSources();

    // --- orbits
    void vEditOrb();
    void vDeltaV();
    void vLaunch();
    void vRendz();
    void vOrbDet();

    // --- observers
    /// Asks for number and accuracies of the station; the observer's place becomes the station's.
    void vStation();
    /// Asks for the file with the horizon of the place.
    void vHorizon();
    /// Adds an observation to a file of reports.
    void vSaveObservation();
    /// Corrects elements by observations; the new ones become a further satellite.
    void vFitElements();
    /// Lists the satellites of the element file that cross a field of the sky.
    void vFieldPasses();

    // --- settings; those with a result give 1 if the user cancelled
    int vInputDate();
    int vInputLocation();
    void vSetIERS();
    void vVisibility();
    void vStep();
    void vMag();
    void vSwitch();
    /// @return  true if the map has been drawn anew, for `showNewMap`
    bool vMapDialog();
    void vSysConf();
    void vModels();

    // --- world map
    /// Degrees to pixels. A point that cannot be shown gets an x beyond `mapw`.
    QPoint PxCoord(double lat, double lng) const;
    /// Pixels to degrees; latitude -100 marks a position outside a hemisphere.
    void CoordPx(const QPoint& p, double& lat, double& lng) const;
    void MapLand(QPainter& painter);
    void PlotWorld(QPainter& painter);

    // --- sky map
    /// Elevation and azimuth in degrees to pixels. A point that cannot be shown gets an x beyond `mapw`.
    QPoint PxSky(double el, double az) const;
    /// Pixels to the pick fields `az1`, `el1`, `az2`, `el2`; `el1` -100 marks a position outside the sky.
    void SkyPx(const QPoint& p);
    void PltSky(QPainter& painter);

    // --- disk plot
    void PltSunM(QPainter& painter);
    QPoint PxCdSun(int i, int occflg) const;

    // --- picture
    /// Opens a picture file with what it says of itself. @return  false with a reason, which may be empty, and the former
    /// picture stays
    bool openPicture(const QString& name, QString& why);
    /// Draws the satellites of the element file that cross the picture on it, and makes a report of them.
    void vPictureSatellites();
    /// Takes up a picture in the size chosen last. Its transparent parts become black.
    void vPicture(const QImage& image);
    /// Shows the picture at full size (0), half (2) or a quarter (3) and begins its measurement anew.
    void vImage(int code);
    /// A click on the picture: the next star of the measurement or, behind the third, a point of a trail.
    void astroEvent(int x, int y, bool left);
    /// Plots the satellites on a measured picture; does nothing before its three stars are marked.
    void PicPlot(double t);

    // --- what is on show, in words
    bool showsText() const;
    /// Which display it is.
    QString spokenName() const;
    /// The lines of the report, or one sentence on the prime satellite.
    QString spokenText() const;
    /// Of the pass table, 0 if none is on show.
    int rowCount() const;
    QString rowText(int row) const;
    QRect rowRect(int row) const;
    int markedRow() const { return hasRows() ? pointedRow : -1; }
    void openRow(int row);

    // --- what is on show, to take along
    /// Text up to its last line, a map with its legend, or the loaded picture, in pixels of the screen.
    QImage pictureOnShow() const;
    void vCopyPicture();
    /// As SVG if the name ends so, else as PNG. @return  false after a message
    bool vSavePicture(const QString& name);
    /// @return  false after a message
    bool vPrintToPdf(const QString& name);
    /// A report in lines, on as many pages as it takes; all else on one. Each page tells place, satellite and epoch.
    /// The device has `paperDotsPerInch`. A device that cannot be used is told.
    void vPrint(QPagedPaintDevice& device);
    static constexpr int paperDotsPerInch = 96;  // as on the screen: letters have the sizes of its layout

    // --- what is on show, for tests that look at pixels
    /// The next plot paints all of its legend and display, not only what differs from the plot before.
    void forgetPlot();
    const QPixmap& textPixmap() const { return txtPix; }
    const QPixmap& mapPixmap() const { return mapPix; }
    const QPixmap& displayPixmap() const { return dspPix; }
    const QPixmap& picturePixmap() const { return picDsp; }

Q_SIGNALS:
    /// What the next click on a picture that is measured means; empty where none is awaited.
    void nextClickMeans(const QString& text);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    // frame
    bool physicalWanted() const;
    MapColours colours() const;
    void makePixmaps();
    void takeScale();
    bool diskWanted() const;
    void chooseScales(bool disk);
    void redrawMap();
    void redrawBehindPlot();
    /// The background, and the plot if a map with satellites is on show.
    void drawAnew();
    void drawBackground();
    void paintBackground(QPainter& painter);
    void paintMap(QPainter& painter);
    void paintTrails(QPainter& painter) const;
    void drawPhysicalMap(QPainter& painter);
    void copyMap(QPainter& painter, const QRect& part) const;
    void copyMapToDisplay();
    const QPixmap& pixmapOnShow() const;
    QSize sizeOnShow() const;
    QSize zoomed(const QSize& size) const;
    QRegion zoomed(const QRegion& region) const;
    QSize pageSize() const;
    QSize reportSize() const;
    void paintLines(QPainter& painter, int first, int end, const QColor& ink = Qt::black) const;
    void printHeader(QPainter& painter) const;
    void printReport(QPainter& painter, QPagedPaintDevice& device, const QRect& body);
    void printPicture(QPainter& painter, const QRect& body);
    void drawPicture(QPainter& painter, const QSize& size);
    QByteArray svgOnShow();
    int lowestScroll() const;

    // settings
    int askDate(const QString& event);

    // text display
    void paintReport(const ReportStyle& style);
    void paintPage();
    void pointAtRow(int row, const QPoint& pointer);
    void markRow(int row);
    QString spokenPlot() const;
    void announce();
    QRect rowOnShow(int row) const;
    void openPassDetails();
    void runPassDetails(StPassDialog& dialog, const std::shared_ptr<const HorizonLine>& line);

    // searches and tables
    bool askDistance();
    bool listPasses(std::string* why = nullptr);
    void saveListInForm(ListForm form);
    int listAllInForm(ListForm form, std::string& why);
    void noteListed(Listed what = Listed::passes);
    bool reportIsTable() const;
    std::optional<std::string> tableInForm(ListForm form);
    int listAll();
    void listMatches();

    // orbits
    bool askEventDate(const QString& event);

    // plot clock
    void showMapIfText();
    void jumpToPass(bool forward);
    double centredOn(double t);
    void showPassAt(double t);
    void warnOfOldElements();
    std::optional<BrightList> searchBrightest(const StBrightestDialog::Values& values);
    bool readSatelliteOf(const BrightPass& pass);
    void showBrightDetails(const BrightPass& pass);

    // satellite plot
    void refreshIfAged(double t);
    void showIfDrawnAnew();
    void observeFromPrime();
    PlotScene sceneOf(double t, int circles) const;
    void drawTrails(const PlotScene& scene);
    /// The five columns under the map, into `mapPix`.
    void drawLegend(const PlotScene& scene);
    void writeLegend(QPainter& painter, const DrawnLegend& drawn, const QRegion& region) const;
    void showMarks(const PlotScene& scene);
    Marks marksOf(const PlotScene& scene);
    Mark markOf(int slot, const PlotScene& scene);
    QPoint markerOf(int slot, bool disk) const;
    std::vector<QPoint> circleOf(int slot) const;
    QPainterPath areaOf(int slot) const;

    // the drawing as the geometry sees it: record and scales
    MapFrame mapFrame() const;
    SkyFrame skyFrame() const;
    DiskFrame diskFrame() const;

    // world map
    void drawNight(QPainter& painter);
    void drawGrid(QPainter& painter);
    void drawObserver(QPainter& painter);
    std::vector<MapLabel> labelsOfGrid() const;

    // picture
    void tellNextClick();
    void makePicture();
    bool markStar(int x, int y);
    void markTrailPoint(int x, int y);
    void measureByPlate();
    /// Packed coordinates of a pixel on show by the solution of the picture; false without one.
    bool plateAt(int x, int y, double& ra, double& dec) const;
    /// Tells the place in the sky under a pixel, if the picture has a solution.
    void tellPlace(const QPoint& p);
    PicturePoint platePixel(double x, double y) const;
    QPointF shownPoint(const PicturePoint& p) const;
    std::vector<Streak> streaksOfPicture() const;
    bool askExposure(ExposedPicture& picture);
    void solveLoadedPicture();
    void drawPictureTrails(const ExposedPicture& picture, const std::vector<PictureTrail>& all);
    /// Where the first line of text stands: at the top of the part of the picture that is in sight.
    QPoint textOrigin(const QPainter& painter) const;
    void drawPictureTexts(QPainter& painter, const PlotScene& scene) const;
    void drawPictureMarkers(QPainter& painter, const PlotScene& scene);

    bool readable = false;   // the second set of colours
    bool inTheDark = false;  // light on black
    double zoom = 1;
    double scale = 1;  // of screen and zoom: pixels of the screen along one of the pictures, as they were made
    int cenx = 0;      // pixel of the map centre
    int ceny = 0;
    double xscale = 0;  // scale of the current map
    double yscale = 0;
    double dtend = 0;       // MJD at which the running delta plot ends
    int toldStep = 0;       // of the measurement, when `nextClickMeans` was sent last
    bool pickbusy = false;  // a pick dialog is open: timer ticks must not plot
    int lastx[10] = {};     // pixel of the last marker of each satellite
    int lasty[10] = {};
    QPixmap txtPix;                          // text display
    QPixmap mapPix;                          // map background with the legend; trails accumulate here
    QPixmap earthPix;                        // physical map
    QPixmap dspPix;                          // mapPix with the current markers
    QPixmap legendPix;                       // background of the legend
    QPixmap picPix;                          // the picture as loaded,
    QPixmap picBase;                         // at the chosen size,
    QPixmap picDsp;                          // and with plots on it
    QSize picSize;                           // of these two
    std::unique_ptr<SkyPicture> skyPicture;  // what it says of itself

    WoutData shownReport;  // in txtPix
    ReportStyle shownStyle;
    int lineHeight = 0;     // of it
    int pointedRow = -1;    // of the pass table, under the pointer or chosen by keys
    bool rowsTold = false;  // by a tool tip, that they can be clicked

    QString toldName, toldText;  // to assistive programs

    std::unique_ptr<WinpData> listedRecord;  // that the last table was made with,
    std::string listedText;                  // and its lines
    Listed listed = Listed::passes;          // and what it lists
    bool thorough = false;                   // how lists of passes are searched
    QPointer<StBrightestDialog> brightest;   // keeps its list
    bool agesTold = false;                   // boxes about the age of elements come
    bool oldElementsTold = false;            // the one for transits has come
    double uncertainty = usualDecayUncertainty;
    bool listedThorough = false;                       // how the last table was
    std::shared_ptr<const HorizonLine> horizon;        // of the place; null: a plain one
    std::shared_ptr<const HorizonLine> listedHorizon;  // of the last table
    SearchStyle searchStyle() const { return {thorough, horizon.get()}; }

    // what of a plot need not be painted again by the next one
    std::optional<DrawnLegend> legend;  // in mapPix
    Marks marks;                        // in dspPix
    QHash<QPoint, QRgb> trails;         // in mapPix, since the background was made
    ChangedTiles stale;                 // where dspPix differs from mapPix with the marks on it
    std::optional<QRegion> unseen;      // where the screen differs from dspPix; all of it may if there is none
    const QPixmap* onScreen = nullptr;  // painted last
    bool scaleAsked = false;            // `takeScale` is on its way
};

/// The row of the pass table that a click at the height y of the text means, -1 above the first; `rows` are in use.
int passRowAt(int y, int rows);

/// Whether visibility lets a satellite be marked on the sky or on a picture: in sunlight, in moonlight, or all.
bool isMarkedOnSky(const WinpData& in, const SatPosData& sp, int slot);
