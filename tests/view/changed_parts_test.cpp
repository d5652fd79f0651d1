// A plot paints what changed since the one before, and the pixels are those of painting all of it.

#include <QPaintEvent>
#include <QProcess>
#include <QScreen>
#include <QTest>
#include <QWindow>
#include <cmath>

#include "record_fields.h"
#include "view/vorlix_view.h"
#include "view/window_helper.h"

namespace {

constexpr double januaryEvening = 58138.75;
constexpr double oneSecond = 1.0 / 86400.0;

/// Name and fields of a map.
constexpr std::pair<const char*, const char*> mapKinds[] = {
    {"outline", ""},
    {"physical with night", "mapprj=3 mpnight=1"},
    {"northern hemisphere", "mapprj=1"},
    {"southern hemisphere", "mapprj=2"},
    {"zenith sky", "skymap=1"},
    {"azimuth sky", "skymap=1 skyprj=3"},
    {"sky from a satellite", "skymap=1 satsky=1"},
    {"disk of the Moon", "occflg=2 sunmplt=1"},
    {"transits on the map", "occflg=2"},
};

/// What a person or a command changes between two plots.
constexpr std::pair<const char*, const char*> changes[] = {
    {"a second later", ""},
    {"names on", "nmflg=1"},
    {"another prime satellite", "prs=2"},
    {"letters that overlap", "mfsz=24"},
    {"back to usual letters", "mfsz=10"},
    {"trails or none", "mpnight=0"},
    {"fewer satellites", "satn=4"},
    {"none", "satn=0"},
    {"all again", "satn=10"},
    {"no names", "nmflg=0"},
    {"relative mode", "rlm=1"},
    {"absolute again", "rlm=0"},
    {"night", "mpnight=1"},
};

constexpr const char* tenNames[] = {"ISS",   "HST",      "ENVISAT", "ALOS",        "AQUA",
                                    "TERRA", "SEASAT 1", "ERBS",    "COSMOS 1455", "SL-8 R/B"};

/// The region of each paint event of a widget.
class PaintedRegion : public QObject
{
public:
    explicit PaintedRegion(QWidget* widget) { widget->installEventFilter(this); }

    QRegion region;
    int times = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) {
            region += static_cast<QPaintEvent*>(event)->region();
            ++times;
        }
        return false;
    }
};

QImage onScreen(const VorlixView& view)
{
    return view.screen()->grabWindow(view.winId()).toImage();
}

}  // namespace

class ChangedPartsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { windows::stopTheClock(); }

    void equalTheWhole_data()
    {
        QTest::addColumn<int>("kind");
        QTest::addColumn<double>("step");
        QTest::addColumn<double>("zoom");
        for (int kind = 0; kind < static_cast<int>(std::size(mapKinds)); ++kind) {
            QTest::addRow("%s, seconds", mapKinds[kind].first) << kind << oneSecond << 1.0;
            QTest::addRow("%s, minutes", mapKinds[kind].first) << kind << 60 * oneSecond << 1.0;
        }
        for (const double zoom : {1.5, 2.0, 1.37})
            QTest::addRow("enlarged, %g", zoom) << 1 << oneSecond << zoom;
    }
    void equalTheWhole()
    {
        QFETCH(int, kind);
        QFETCH(double, step);
        QFETCH(double, zoom);
        VorlixView whole, parts;
        show(parts, mapKinds[kind].second);
        parts.vZoom(zoom);
        whole.vZoom(zoom);
        whole.vRefresh();
        parts.vRefresh();
        double t = januaryEvening;
        int round = 0;
        for (const auto& [what, fields] : changes) {
            setFields(*indata, fields);
            const int circles = ++round % 3 != 0;
            for (int i = 0; i < 4; ++i) {
                t += step;
                // both views see the same age of the map
                const double drawn = indata->mjdlast;
                parts.SatPlot(t, circles);
                const QImage seen = onScreen(parts);
                indata->mjdlast = drawn;
                whole.forgetPlot();
                whole.SatPlot(t, circles);
                QVERIFY2(parts.displayPixmap().toImage() == whole.displayPixmap().toImage(), what);
                QVERIFY2(parts.mapPixmap().toImage() == whole.mapPixmap().toImage(), what);
                parts.viewport()->repaint();
                QVERIFY2(seen == onScreen(parts), what);
            }
        }
    }

    void areAllThatIsPainted()
    {
        VorlixView view;
        show(view);
        view.vRefresh();
        view.SatPlot(januaryEvening, 1);
        PaintedRegion painted(view.viewport());
        view.SatPlot(januaryEvening + oneSecond, 1);
        QVERIFY(!painted.region.isEmpty());
        int pixels = 0;
        for (const QRect& part : painted.region)
            pixels += part.width() * part.height();
        QVERIFY2(pixels < displaySize.width() * displaySize.height() / 4, qPrintable(QString::number(pixels)));

        // nothing moves: the dots of the trail are under the markers
        view.SatPlot(januaryEvening + oneSecond, 1);
        painted.region = QRegion();
        view.SatPlot(januaryEvening + oneSecond, 1);
        QVERIFY(painted.region.isEmpty());
    }

    /// A background that a plot draws anew is not seen without legend and satellites.
    void bringANewBackgroundAtOnce()
    {
        VorlixView view;
        show(view, "skymap=1 satsky=1");
        view.vRefresh();
        PaintedRegion painted(view.viewport());
        view.SatPlot(januaryEvening, 1);
        view.SatPlot(januaryEvening + 60 * oneSecond, 0);
        view.vRefreshP();
        view.vText();
        painted.times -= 1;
        view.vForward();
        view.vPlotNext();
        QCOMPARE(painted.times, 5);
        const QImage seen = onScreen(view);
        view.viewport()->repaint();
        QVERIFY(seen == onScreen(view));
    }

    /// A tick that turns from the text to the map paints all of the map.
    void showBehindAText()
    {
        VorlixView view;
        show(view);
        view.vRefresh();
        view.SatPlot(januaryEvening, 1);
        view.vText();
        view.RT_Plot();
        const QImage seen = onScreen(view);
        view.viewport()->repaint();
        QVERIFY(seen == onScreen(view));
    }

    void holdAtEveryScale_data()
    {
        QTest::addColumn<QString>("factor");
        for (const char* factor : {"1.25", "1.5", "2", "1.1"})
            QTest::addRow("%s", factor) << factor;
    }
    /// The scale of the screen belongs to a process: this program runs again for each.
    void holdAtEveryScale()
    {
        QFETCH(QString, factor);
        runAgain("QT_SCALE_FACTOR", factor,
                 {"equalTheWhole:outline, seconds", "equalTheWhole:enlarged, 1.5", "showBehindAText",
                  "areDrawnForTheScreen"});
    }

    /// No picture is blown up: all have the pixels of the screen, and the letters use them.
    void areDrawnForTheScreen()
    {
        VorlixView view;
        show(view);
        view.vPicture(QImage(31, 20, QImage::Format_RGB32));
        const double scale = view.devicePixelRatioF();
        const auto pixels = [scale](int side) { return static_cast<int>(std::ceil(side * scale)); };
        QCOMPARE(view.textPixmap().size(), QSize(pixels(860), pixels(2500)));
        QCOMPARE(view.mapPixmap().size(), QSize(pixels(721), pixels(501)));
        QCOMPARE(view.displayPixmap().size(), QSize(pixels(860), pixels(501)));
        QCOMPARE(view.picturePixmap().size(), QSize(pixels(31), pixels(20)));
        QCOMPARE(view.size(), QSize(31, 20));

        const QImage text = view.textPixmap().toImage();
        const QImage enlarged = text.scaled(860, 2500).scaled(text.size());
        QCOMPARE(text.convertToFormat(QImage::Format_RGB32) == enlarged.convertToFormat(QImage::Format_RGB32),
                 scale == 1.0);
    }

    /// A window that is moved to a screen of another scale shows the last plot as that screen would have it.
    void followTheScreen()
    {
        if (QGuiApplication::screens().size() < 2) {
            workplace.write("screens.json", R"({"screens": [
                {"name": "one", "x": 0, "y": 0, "width": 1000, "height": 800, "dpr": 1},
                {"name": "two", "x": 1000, "y": 0, "width": 1000, "height": 800, "dpr": 2}]})");
            runAgain("QT_QPA_PLATFORM", "offscreen:configfile=" + workplace.path("screens.json"),
                     {"followTheScreen"});
            return;
        }
        for (const auto& kind : mapKinds) {
            VorlixView view;
            show(view, kind.second);
            view.vRefresh();
            view.SatPlot(januaryEvening - 60 * oneSecond, 1);
            view.SatPlot(januaryEvening, 1);
            QCOMPARE(view.displayPixmap().devicePixelRatio(), 1.0);
            view.windowHandle()->setScreen(QGuiApplication::screens().at(1));
            view.viewport()->repaint();
            QTRY_COMPARE(view.displayPixmap().devicePixelRatio(), 2.0);
            const QImage text = view.textPixmap().toImage(), moved = view.displayPixmap().toImage();
            view.vRefresh();
            view.SatPlot(januaryEvening - 60 * oneSecond, 1);
            view.SatPlot(januaryEvening, 1);
            QVERIFY2(moved == view.displayPixmap().toImage(), kind.first);
            VorlixView other;
            QCOMPARE(other.devicePixelRatioF(), 1.0);
            QCOMPARE(text.size(), other.textPixmap().size() * 2);
        }
    }

private:
    static void runAgain(const QString& variable, const QString& value, const QStringList& tests)
    {
        QProcess again;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(variable, value);
        again.setProcessEnvironment(environment);
        again.setProcessChannelMode(QProcess::MergedChannels);
        again.start(QCoreApplication::applicationFilePath(), tests);
        QVERIFY(again.waitForFinished(120000));
        const QByteArray output = again.readAll();
        QVERIFY2(again.exitStatus() == QProcess::NormalExit && again.exitCode() == 0, output.constData());
    }

    /// A window with a map and ten satellites.
    void show(VorlixView& view, const char* fields = "")
    {
        windows::observeAllFromVienna();
        indata->satn = 0;
        for (const char* name : tenNames)
            windows::select(name);
        QCOMPARE(indata->satn, 10);
        setFields(*indata, "mjd=58138.75 mapprj=0 skymap=0 skyprj=0 skaz=180 mpnight=0 satsky=0 occflg=0 sunmplt=0 "
                           "nmflg=0 rlm=0 prs=0");
        setFields(*indata, fields);
        view.show();
        QVERIFY(QTest::qWaitForWindowExposed(&view));
    }

    windows::Workplace workplace;
};

QTEST_MAIN(ChangedPartsTest)
#include "changed_parts_test.moc"
