// A plot paints what changed since the one before, and the pixels are those of painting all of it.

#include <QPaintEvent>
#include <QProcess>
#include <QScreen>
#include <QTest>

#include "view/map_kind.h"
#include "view/picture_helper.h"
#include "view/vorlix_view.h"
#include "view/window_helper.h"

namespace {

constexpr double januaryEvening = 58138.75;
constexpr double oneSecond = 1.0 / 86400.0;

constexpr MapKind mapKinds[] = {
    {"outline", 0, 0, 0, 0, false, 0, false},
    {"physical with night", 3, 0, 0, 1, false, 0, false},
    {"northern hemisphere", 1, 0, 0, 0, false, 0, false},
    {"southern hemisphere", 2, 0, 0, 0, false, 0, false},
    {"zenith sky", 0, 1, 0, 0, false, 0, false},
    {"azimuth sky", 0, 1, 3, 0, false, 0, false},
    {"sky from a satellite", 0, 1, 0, 0, true, 0, false},
    {"disk of the Moon", 0, 0, 0, 0, false, 2, true},
    {"transits on the map", 0, 0, 0, 0, false, 2, false},
};

/// What a person or a command changes between two plots.
struct Change
{
    const char* what;
    void (*make)();
};

const Change changes[] = {
    {"a second later", [] {}},
    {"names on", [] { indata->nmflg = 1; }},
    {"another prime satellite", [] { indata->prs = 2; }},
    {"letters that overlap", [] { indata->mfsz = 24; }},
    {"back to usual letters", [] { indata->mfsz = 10; }},
    {"no trails", [] { indata->mpnight = !indata->mpnight; }},
    {"fewer satellites", [] { indata->satn = 4; }},
    {"none", [] { indata->satn = 0; }},
    {"all again", [] { indata->satn = 10; }},
    {"no names", [] { indata->nmflg = 0; }},
    {"relative mode", [] { indata->rlm = 1; }},
    {"absolute again", [] { indata->rlm = 0; }},
};

constexpr const char* tenNames[] = {"ISS",   "HST",      "ENVISAT", "ALOS",        "AQUA",
                                    "TERRA", "SEASAT 1", "ERBS",    "COSMOS 1455", "SL-8 R/B"};

/// The region of each paint event of a widget.
class PaintedRegion : public QObject
{
public:
    explicit PaintedRegion(QWidget* widget) { widget->installEventFilter(this); }

    QRegion region;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint)
            region += static_cast<QPaintEvent*>(event)->region();
        return false;
    }
};

int pixelsIn(const QRegion& region)
{
    int count = 0;
    for (const QRect& part : region)
        count += part.width() * part.height();
    return count;
}

QImage onScreen(const VorlixView& view)
{
    return view.screen()->grabWindow(view.winId()).toImage();
}

}  // namespace

class ChangedPartsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void equalTheWhole_data();
    void equalTheWhole();
    void areAllThatIsPainted();
    void showBehindAText();
    void holdAtEveryScale_data();
    void holdAtEveryScale();

private:
    void show(const MapKind& kind);
    void plotOnScreen(VorlixView& view);

    windows::Workplace workplace;
};

void ChangedPartsTest::initTestCase()
{
    windows::stopTheClock();
}

void ChangedPartsTest::init()
{
    windows::observeAllFromVienna();
}

/// A map with ten satellites.
void ChangedPartsTest::show(const MapKind& kind)
{
    windows::observeAllFromVienna();
    indata->satn = 0;
    for (const char* name : tenNames)
        windows::select(name);
    QCOMPARE(indata->satn, 10);
    setMap(kind, *indata);
    indata->mjd = januaryEvening;
    indata->nmflg = 0;
    indata->rlm = 0;
    indata->prs = 0;
}

void ChangedPartsTest::plotOnScreen(VorlixView& view)
{
    show(mapKinds[0]);
    view.show();
    QVERIFY(QTest::qWaitForWindowExposed(&view));
    view.vRefresh();
    view.SatPlot(januaryEvening, 1);
}

void ChangedPartsTest::equalTheWhole_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<double>("step");
    for (int kind = 0; kind < static_cast<int>(std::size(mapKinds)); ++kind) {
        QTest::addRow("%s, seconds", mapKinds[kind].name) << kind << oneSecond;
        QTest::addRow("%s, minutes", mapKinds[kind].name) << kind << 60 * oneSecond;
    }
}

void ChangedPartsTest::equalTheWhole()
{
    QFETCH(int, kind);
    QFETCH(double, step);
    VorlixView whole;
    VorlixView parts;
    show(mapKinds[kind]);
    parts.show();
    QVERIFY(QTest::qWaitForWindowExposed(&parts));
    whole.vRefresh();
    parts.vRefresh();

    double t = januaryEvening;
    for (int circles : {1, 0}) {
        for (const Change& change : changes) {
            change.make();
            for (int i = 0; i < 4; ++i) {
                t += step;
                // both views see the same age of the map
                const double drawn = indata->mjdlast;
                parts.SatPlot(t, circles);
                const QImage seen = onScreen(parts);
                indata->mjdlast = drawn;
                whole.forgetPlot();
                whole.SatPlot(t, circles);
                QVERIFY2(parts.displayPixmap().toImage() == whole.displayPixmap().toImage(), change.what);
                QVERIFY2(parts.mapPixmap().toImage() == whole.mapPixmap().toImage(), change.what);
                parts.viewport()->repaint();
                QVERIFY2(seen == onScreen(parts), change.what);
            }
        }
    }
}

void ChangedPartsTest::areAllThatIsPainted()
{
    VorlixView view;
    plotOnScreen(view);
    PaintedRegion painted(view.viewport());

    view.SatPlot(januaryEvening + oneSecond, 1);
    QVERIFY(!painted.region.isEmpty());
    QVERIFY2(pixelsIn(painted.region) < displaySize.width() * displaySize.height() / 4,
             qPrintable(QString::number(pixelsIn(painted.region))));

    // nothing moves: the dots of the trail are under the markers
    view.SatPlot(januaryEvening + oneSecond, 1);
    painted.region = QRegion();
    view.SatPlot(januaryEvening + oneSecond, 1);
    QVERIFY(painted.region.isEmpty());
}

/// A tick that turns from the text to the map paints all of the map.
void ChangedPartsTest::showBehindAText()
{
    VorlixView view;
    plotOnScreen(view);
    view.vText();
    QCOMPARE(indata->dspmd, 0);
    view.RT_Plot();
    QCOMPARE(indata->dspmd, 1);
    const QImage seen = onScreen(view);
    view.viewport()->repaint();
    QVERIFY(seen == onScreen(view));
}

void ChangedPartsTest::holdAtEveryScale_data()
{
    QTest::addColumn<QString>("factor");
    for (const char* factor : {"1.25", "1.5", "2", "1.1"})
        QTest::addRow("%s", factor) << factor;
}

/// The scale of the screen belongs to a process: this program runs again for each.
void ChangedPartsTest::holdAtEveryScale()
{
    QFETCH(QString, factor);
    QProcess again;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("QT_SCALE_FACTOR", factor);
    again.setProcessEnvironment(environment);
    again.setProcessChannelMode(QProcess::MergedChannels);
    again.start(QCoreApplication::applicationFilePath(), {"equalTheWhole:outline, seconds", "showBehindAText"});
    QVERIFY(again.waitForFinished(120000));
    const QByteArray output = again.readAll();
    QVERIFY2(again.exitStatus() == QProcess::NormalExit && again.exitCode() == 0, output.constData());
}

QTEST_MAIN(ChangedPartsTest)
#include "changed_parts_test.moc"
