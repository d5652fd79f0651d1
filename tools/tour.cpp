// The tour of the README, as a person takes it with mouse and keys: satellites of the sample file are selected, their
// passes are listed, the maps are plotted. Pictures of the window are left in the folder named first on the command
// line. With the README named second, each line that it shows must be one that came up, in the same order. The tour
// runs in a folder of its own with fresh sample files, so that it always starts alike and the person's configuration
// stays as it is.

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <vector>

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QDir>
#include <QDoubleSpinBox>
#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QTextEdit>
#include <QTimer>

#include "app/vorlix_app.h"
#include "astro/calendar.h"
#include "engine/satpos_data.h"
#include "record/text.h"
#include "record/wout_data.h"
#include "view/legend_text.h"
#include "view/vorlix_view.h"

namespace {

/// What a person does in the dialog that a command opens.
using InDialog = std::function<void(QDialog*)>;

int faults = 0;

void fault(const QString& what)
{
    std::fprintf(stderr, "tour: %s\n", qPrintable(what));
    ++faults;
}

template <class Widget>
Widget* find(QWidget* in, const char* name)
{
    auto* widget = in->findChild<Widget*>(QLatin1String(name));
    if (!widget)
        fault(QStringLiteral("no widget %1 in \"%2\"").arg(QLatin1String(name), in->windowTitle()));
    return widget;
}

void click(QWidget* in, const char* button)
{
    if (auto* widget = find<QAbstractButton>(in, button))
        widget->click();
}

void enter(QWidget* in, const char* edit, const QString& text)
{
    if (auto* widget = find<QLineEdit>(in, edit)) {
        widget->selectAll();
        QTest::keyClicks(widget, text);
    }
}

/// The lines of the report on show.
QStringList report()
{
    QStringList lines;
    for (int i = 0; i < outdata->nlines; ++i)
        lines << textQString(lineText(*outdata, i));
    return lines;
}

/// The legend of the map, a line for each of its columns.
QStringList legend()
{
    PlotScene scene;
    scene.t = indata->mjd;
    caldat(scene.t + indata->tzone / 24.0, scene.day, scene.month, scene.year, scene.hours);
    std::vector<LegendText> texts = legendTexts(indata, satps, scene);
    std::stable_sort(texts.begin(), texts.end(),
                     [](const LegendText& a, const LegendText& b) { return a.row < b.row; });
    std::array<QStringList, 5> columns;
    for (const LegendText& text : texts)
        columns[static_cast<std::size_t>(text.column)] << text.text.simplified();
    QStringList lines;
    for (const QStringList& column : columns)
        lines << column.join(QStringLiteral("  "));
    return lines;
}

class Tour
{
public:
    Tour(VorlixApp& window, const QString& pictureFolder) : app(window), pictures(pictureFolder) {}

    void picture(const char* name, QWidget* of = nullptr)
    {
        QWidget* widget = of ? of : &app;
        QTest::qWait(100);
        const QString file = pictures.filePath(QLatin1String(name) + QStringLiteral(".png"));
        if (!widget->grab().save(file))
            fault(QStringLiteral("cannot write %1").arg(file));
    }

    /// Notes what came up.
    void see(const QStringList& lines) { seen << lines; }
    void see(QDialog* dialog, const char* text)
    {
        if (auto* view = find<QTextEdit>(dialog, text))
            see(view->toPlainText().replace(QLatin1Char('\t'), QLatin1Char(' ')).split(QLatin1Char('\n')));
    }
    const QStringList& allSeen() const { return seen; }

    /// Presses a hot key. Each dialog that comes up is handed to a handler, which must close it.
    void key(Qt::Key which, const std::vector<InDialog>& handlers = {})
    {
        answer(
            QChar(int(which)), [&] { QTest::keyClick(&app, which); }, handlers);
    }

    /// The same for a command without a key.
    void choose(const char* action, const std::vector<InDialog>& handlers = {})
    {
        const auto trigger = [&] {
            if (auto* command = find<QAction>(&app, action))
                command->trigger();
        };
        answer(QLatin1String(action), trigger, handlers);
    }

    /// Opens the details of the first pass of the table by a click on its row.
    void clickFirstPass(const InDialog& inside)
    {
        const QPoint row(100, epos[0] + 6);
        answer(QStringLiteral("a click on the pass table"),
               [&] { QTest::mouseClick(app.canvas()->viewport(), Qt::RightButton, Qt::NoModifier, row); }, {inside});
    }

private:
    /// A dialog too few counts as a fault, and one too many, which is closed.
    static void answer(const QString& what, const std::function<void()>& command,
                       const std::vector<InDialog>& handlers)
    {
        constexpr int pollMilliseconds = 100;
        std::size_t served = 0;
        QTimer poll;
        QObject::connect(&poll, &QTimer::timeout, [&] { serve(what, handlers, served); });
        poll.start(pollMilliseconds);
        command();
        QTest::qWait(20);
        if (served < handlers.size())
            fault(what + QStringLiteral(" opened no dialog"));
    }

    static void serve(const QString& what, const std::vector<InDialog>& handlers, std::size_t& served)
    {
        constexpr const char* mark = "served";
        const QPointer<QDialog> dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog || dialog->property(mark).toBool())
            return;
        dialog->setProperty(mark, true);
        const QString title = dialog->windowTitle();
        if (served < handlers.size())
            handlers[served](dialog);
        else
            fault(QStringLiteral("%1: unexpected dialog \"%2\"").arg(what, title));
        ++served;
        if (dialog && dialog->isVisible()) {
            if (served <= handlers.size())
                fault(QStringLiteral("the dialog \"%1\" stayed open").arg(title));
            dialog->reject();
        }
    }

    VorlixApp& app;
    QDir pictures;
    QStringList seen;
};

void mark(QDialog* dialog, const char* box, bool on)
{
    if (auto* widget = find<QCheckBox>(dialog, box))
        widget->setChecked(on);
}

void setPlaceAndDate(Tour& tour)
{
    tour.key(Qt::Key_C, {[](QDialog* dialog) {
                 enter(dialog, "latEdit", QStringLiteral("48.2"));
                 enter(dialog, "lngEdit", QStringLiteral("16.37"));
                 enter(dialog, "heightEdit", QStringLiteral("200"));
                 enter(dialog, "locEdit", QStringLiteral("Vienna"));
                 click(dialog, "okButton");
             }});
    tour.key(Qt::Key_D, {[&](QDialog* dialog) {
                 enter(dialog, "yearEdit", QStringLiteral("2018"));
                 enter(dialog, "monthEdit", QStringLiteral("1"));
                 enter(dialog, "dayEdit", QStringLiteral("20"));
                 enter(dialog, "hourEdit", QStringLiteral("12"));
                 enter(dialog, "minEdit", QStringLiteral("0"));
                 enter(dialog, "secEdit", QStringLiteral("0"));
                 mark(dialog, "systemBox", false);
                 enter(dialog, "tzoneEdit", QStringLiteral("1"));
                 enter(dialog, "durEdit", QStringLiteral("1"));
                 tour.picture("02-date", dialog);
                 click(dialog, "okButton");
             }});
}

void selectSatellites(Tour& tour)
{
    tour.key(Qt::Key_S, {[&](QDialog* dialog) {
                 for (const char* name : {"SEASAT", "ENVISAT", "TERRA"}) {
                     enter(dialog, "satnameEdit", QLatin1String(name));
                     click(dialog, "findButton");
                     if (QLatin1String(name) == QLatin1String("SEASAT")) {
                         tour.see(dialog, "satinfEdit");
                         tour.picture("03-select", dialog);
                     }
                     click(dialog, "selectButton");
                 }
                 click(dialog, "closeButton");
             }});
}

void listPasses(Tour& tour)
{
    tour.key(Qt::Key_A);
    QStringList table = report();
    for (QString& line : table)
        line.remove(0, 1);  // the mark of a row is not painted
    tour.see(table);
    tour.picture("04-passes");
    tour.clickFirstPass([&](QDialog* dialog) {
        tour.see(dialog, "passEdit");
        tour.picture("05-pass-details", dialog);
        click(dialog, "closeButton");
    });
}

/// Chooses buttons of the map dialog and accepts it.
void chooseMap(Tour& tour, std::initializer_list<const char*> buttons, bool sky)
{
    tour.key(Qt::Key_Y, {[&](QDialog* dialog) {
                 mark(dialog, "skyBox", sky);
                 for (const char* button : buttons)
                     click(dialog, button);
                 click(dialog, "okButton");
             }});
}

void stepForward(Tour& tour, int steps)
{
    for (int step = 0; step < steps; ++step)
        tour.key(Qt::Key_Right);
}

void plotMaps(Tour& tour)
{
    tour.key(Qt::Key_PageDown);
    tour.see(legend());
    stepForward(tour, 40);
    tour.see(legend());
    tour.picture("06-map");
    chooseMap(tour, {"g30Button", "pnorthButton"}, false);
    tour.key(Qt::Key_U);
    tour.picture("07-hemisphere");
    chooseMap(tour, {"zenithButton"}, true);
    tour.key(Qt::Key_PageUp);
    tour.see(legend());
    stepForward(tour, 15);
    tour.picture("08-sky");
    chooseMap(tour, {"southButton"}, true);
    tour.key(Qt::Key_U);
    tour.picture("09-sky-south");
    chooseMap(tour, {"ppwmButton"}, false);
}

/// How bright ENVISAT becomes, the flares of the night, and what it was that was seen.
void askForMore(Tour& tour)
{
    tour.key(Qt::Key_D, {[](QDialog* dialog) { click(dialog, "okButton"); }});
    tour.key(Qt::Key_2);
    tour.key(Qt::Key_M, {[](QDialog* dialog) {
                 if (auto* length = dialog->findChild<QDoubleSpinBox*>())
                     length->setValue(10.0);
                 dialog->accept();
             }});
    tour.key(Qt::Key_PageDown);
    tour.see(legend());
    tour.choose("calcIridium", {[&](QDialog* dialog) { click(dialog, "okButton"); }});
    tour.see(report());
    const InDialog when = [](QDialog* dialog) {
        enter(dialog, "hourEdit", QStringLiteral("18"));
        enter(dialog, "minEdit", QStringLiteral("0"));
        enter(dialog, "secEdit", QStringLiteral("0"));
        click(dialog, "okButton");
    };
    const InDialog where = [&](QDialog* dialog) {
        mark(dialog, "raBox", false);
        enter(dialog, "azEdit", QStringLiteral("250"));
        enter(dialog, "elEdit", QStringLiteral("23"));
        tour.picture("10-match", dialog);
        click(dialog, "okButton");
    };
    tour.choose("calcMatch", {when, where});
    tour.see(report());
}

void openEditor(Tour& tour)
{
    tour.key(Qt::Key_1);
    tour.key(Qt::Key_E, {[&](QDialog* dialog) {
                 tour.picture("11-editor", dialog);
                 click(dialog, "cancelButton");
             }});
}

/// Switches the transit mode of the Sun with its disk plot on or off.
void sunDisk(Tour& tour, bool on)
{
    tour.key(Qt::Key_V, {[&](QDialog* dialog) {
                 mark(dialog, "occBox", on);
                 if (on) {
                     click(dialog, "sunButton");
                     mark(dialog, "smplotBox", true);
                     tour.picture("12-visibility", dialog);
                 }
                 click(dialog, "okButton");
             }});
}

QStringList walk(VorlixApp& app, const QString& pictureFolder)
{
    Tour tour(app, pictureFolder);
    tour.see(report());
    tour.picture("01-welcome");
    setPlaceAndDate(tour);
    selectSatellites(tour);
    listPasses(tour);
    plotMaps(tour);
    askForMore(tour);
    openEditor(tour);
    sunDisk(tour, true);
    tour.key(Qt::Key_U);
    tour.picture("13-disk");
    return tour.allSeen();
}

/// What the README shows of the tour: the lines between its bars of three backquotes.
QStringList shownInReadme(const QString& name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        fault(QStringLiteral("cannot read %1").arg(name));
    QStringList lines;
    bool here = false;
    bool shown = false;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String("## ")))
            here = line.contains(QLatin1String("Ten minutes"));
        const bool bar = line.trimmed().startsWith(QLatin1String("```"));
        shown = shown != bar;
        if (here && shown && !bar)
            lines << line.simplified();
    }
    return lines;
}

/// Blanks do not count, because an indented list has its own.
void compare(const QStringList& shown, const QStringList& seen)
{
    if (shown.isEmpty())
        fault(QStringLiteral("the README shows nothing of the tour"));
    auto from = seen.begin();
    for (const QString& line : shown) {
        const auto found = std::find_if(from, seen.end(), [&](const QString& s) { return s.simplified() == line; });
        if (found == seen.end())
            fault(QStringLiteral("the README shows \"%1\", which does not come up there").arg(line));
        else
            from = found + 1;
    }
}

bool prepareFolder(const QString& folder)
{
    const QDir samples(QCoreApplication::applicationDirPath());
    for (const char* name : {"visual.txt", "iridium.txt"}) {
        if (!QFile::copy(samples.filePath(QLatin1String(name)), folder + QLatin1Char('/') + QLatin1String(name)))
            return false;
    }
    return QDir::setCurrent(folder);
}

}  // namespace

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    QApplication::setFont(QFont(QStringLiteral("helvetica"), 10));
    const QString pictures = QDir(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral(".")).absolutePath();
    const QString readme = argc > 2 ? QFileInfo(QFile::decodeName(argv[2])).absoluteFilePath() : QString();
    const QTemporaryDir folder;
    if (!folder.isValid() || !QDir().mkpath(pictures) || !prepareFolder(folder.path())) {
        std::fprintf(stderr, "tour: no folder to work in\n");
        return 1;
    }

    VorlixApp app;
    app.show();
    if (!QTest::qWaitForWindowExposed(&app))
        std::fprintf(stderr, "tour: the window does not show\n");
    const QStringList seen = walk(app, pictures);
    if (!readme.isEmpty())
        compare(shownInReadme(readme), seen);
    if (qEnvironmentVariableIsSet("VORLIX_TOUR_TELL"))
        std::printf("%s\n", qPrintable(seen.join(QLatin1Char('\n'))));
    return faults == 0 ? 0 : 1;
}
