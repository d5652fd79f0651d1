// Time of the drawing: the background of each kind of map, and one plot of ten satellites on it.

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <benchmark/benchmark.h>

#include "elements/selection.h"
#include "record/files.h"
#include "record/keep.h"
#include "record/text.h"
#include "record_fields.h"
#include "view/vorlix_view.h"

namespace {

constexpr double januaryEvening = 58138.75;
constexpr double stepDays = 15.0 / 86400.0;

struct MapKind
{
    const char *name, *fields;
};

constexpr MapKind mapKinds[] = {
    {"outline", ""},
    {"outline_night", "mpnight=1"},
    {"physical", "mapprj=3"},
    {"physical_night", "mapprj=3 mpnight=1"},
    {"northern", "mapprj=1"},
    {"northern_night", "mapprj=1 mpnight=1"},
    {"sky_zenith", "skymap=1"},
    {"sky_azimuth", "skymap=1 skyprj=3"},
    {"sky_from_satellite", "skymap=1 satsky=1"},
    {"moon_disk", "occflg=2 sunmplt=1"},
};

void show(const MapKind& kind)
{
    setFields(*indata, "mapprj=0 skymap=0 skyprj=0 skaz=180 mpnight=0 satsky=0 occflg=0 sunmplt=0");
    setFields(*indata, kind.fields);
    indata->mjd = januaryEvening;
}

void background(benchmark::State& state, VorlixView* view, const MapKind& kind)
{
    show(kind);
    for (auto _ : state)
        view->vRefresh();
}

/// The steps of a delta run; they go back to the start before the background of the map ages.
void plot(benchmark::State& state, VorlixView* view, const MapKind& kind, int satellites, int circles)
{
    show(kind);
    indata->satn = satellites;
    view->vRefresh();
    int step = 0;
    for (auto _ : state)
        view->SatPlot(januaryEvening + stepDays * (step++ % 10), circles);
}

/// What a plot cannot do without: the display on the screen.
void repaint(benchmark::State& state, VorlixView* view)
{
    view->vRefresh();
    for (auto _ : state)
        view->update();
}

void selectFirstTen()
{
    const FilePtr file = openForReading(indata->tlename);
    const Keep shown(satfle, file.get());
    QString text = "*";
    int found = 0;
    vsFindSat(text, found, 0, 0, 0);
    while (found > 0 && indata->satn < maxSatellites) {
        vsSatSel();
        text = "*";
        vsReComp(text, found, 0, 1, 0, 0);
    }
}

void registerAll(VorlixView* view)
{
    benchmark::RegisterBenchmark("repaint", repaint, view)->Unit(benchmark::kMicrosecond);
    for (const MapKind& kind : mapKinds)
        benchmark::RegisterBenchmark((std::string("vRefresh/") + kind.name).c_str(), background, view, kind)
            ->Unit(benchmark::kMicrosecond);
    for (const MapKind& kind : mapKinds)
        benchmark::RegisterBenchmark((std::string("SatPlot_ten/") + kind.name).c_str(), plot, view, kind, 10, 1)
            ->Unit(benchmark::kMicrosecond);
    benchmark::RegisterBenchmark("delta_step_one/physical", plot, view, mapKinds[2], 1, 0)
        ->Unit(benchmark::kMicrosecond);
}

}  // namespace

int main(int argc, char* argv[])
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    QApplication::setFont(QFont("helvetica", 10));
    const QTemporaryDir folder;
    QDir::setCurrent(folder.path());
    QFile::copy(QStringLiteral(TEST_DATA "/elements/visual_2018.txt"), folder.filePath("visual.txt"));

    VorlixView view;
    selectFirstTen();
    view.show();
    registerAll(&view);
    benchmark::Initialize(&argc, argv);
    // a repaint paints only once the window is on the screen
    QTimer::singleShot(500, &application, [] {
        benchmark::RunSpecifiedBenchmarks();
        QApplication::quit();
    });
    return QApplication::exec();
}
