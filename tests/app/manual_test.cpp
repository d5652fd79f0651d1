// The manual stays true: every example that it prints is done again at the real window, with the sample elements.

#include <algorithm>
#include <cmath>

#include <QAction>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QTextEdit>

#include "app/record/text.h"
#include "app/record/wout_data.h"
#include "app/road_helper.h"
#include "astro/calendar.h"
#include "astro/vec3.h"
#include "dialogs/form.h"
#include "engine/position.h"
#include "engine/satpos_data.h"
#include "view/legend_text.h"
#include "view/vorlix_view.h"

using road::Configuration;
using road::ellipse;
using road::entering;
using road::Entry;
using road::launchFrom;
using road::mark;
using road::number;
using road::report;
using road::Session;
using windows::click;
using windows::enter;

namespace {

constexpr int mostColumns = 76;
constexpr int mostExampleColumns = 80;

using Answer = std::function<void(QDialog*)>;

/// The number of an example and the lines that follow it, each behind a bar.
using Examples = QMap<QString, QStringList>;

QString manual()
{
    QFile file(":/vorlixHelp.txt");
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString withoutBlanksAtEnd(QString line)
{
    while (!line.isEmpty() && line.back().isSpace())
        line.chop(1);
    return line;
}

/// A rule of "=", which the manual leaves out: it is wider than the help window.
bool isRule(const QString& line)
{
    return line.contains('=') && line.trimmed().count('=') == line.trimmed().size();
}

Examples examplesOf(const QString& text)
{
    constexpr QLatin1String heading("Example ");
    constexpr QLatin1String bar("| ");
    Examples examples;
    QString number;
    for (const QString& line : text.split('\n')) {
        if (line.startsWith(heading))
            number = line.section(' ', 1, 1);
        if (line.startsWith(bar) || line == QLatin1String("|"))
            examples[number] << withoutBlanksAtEnd(line.mid(bar.size()));
    }
    return examples;
}

QByteArray resource(const QString& name)
{
    QFile file(SOURCE_DIR "/resources/elements/" + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Vienna, winter time, the conditions of a new installation, no satellite.
QByteArray viennaConfiguration()
{
    QByteArrayList lines = Configuration().lines;
    const QByteArrayList first{"1.0", "48.2",         "16.37", "200.0", "Vienna", "10",    "2",
                               "0",   "./visual.txt", "1",     "-6.0",  "10.0",   "2000.0"};
    for (qsizetype i = 0; i < first.size(); ++i)
        lines[i] = first[i];
    lines[17] = "1 160.0 155.0 4.0";
    lines[18] = "2.3 1.3 0.01";
    return (lines.mid(0, 19) << "0").join('\n') + '\n';
}

QStringList linesOf(const QByteArray& text)
{
    return QString::fromUtf8(text).split('\n');
}

/// Those that leave room for the bar.
QStringList shortLines(const QByteArray& text)
{
    QStringList lines;
    for (const QString& line : linesOf(text))
        if (const QString bare = withoutBlanksAtEnd(line); bare.size() <= mostExampleColumns - 2)
            lines << bare;
    return lines;
}

Answer start(int hour, int minute, const QString& days, int second = 0)
{
    return [=](QDialog* dialog) {
        mark(dialog, "systemBox", false);
        std::vector<Entry> entries{{"yearEdit", "2018"},
                                   {"monthEdit", "1"},
                                   {"dayEdit", "20"},
                                   {"hourEdit", QString::number(hour)},
                                   {"minEdit", QString::number(minute)},
                                   {"secEdit", QString::number(second)},
                                   {"tzoneEdit", "1"}};
        if (!days.isEmpty())
            entries.push_back({"durEdit", days});
        entering(entries)(dialog);
    };
}

void accept(QDialog* dialog)
{
    dialog->accept();
}

void pressOk(QDialog* dialog)
{
    click(dialog, "okButton");
}

/// Accepts a message box and keeps its text.
Answer keeping(QStringList& lines)
{
    return [&lines](QDialog* dialog) {
        auto* box = qobject_cast<QMessageBox*>(dialog);
        QVERIFY2(box, qPrintable(dialog->windowTitle()));
        lines << box->text().replace('\t', ' ').split('\n');
        box->accept();
    };
}

/// Accepts a dialog and keeps the text that it shows.
Answer reading(const char* text, QStringList& lines)
{
    return [&lines, text](QDialog* dialog) {
        lines << dialog->findChild<QTextEdit*>(QLatin1String(text))->toPlainText().split('\n');
        dialog->accept();
    };
}

/// Presses a button of a dialog and answers the dialog that it opens.
void clickInto(QDialog* dialog, const char* button, const Answer& answer)
{
    constexpr int openingMilliseconds = 50;
    QTimer::singleShot(openingMilliseconds, dialog, [=] {
        const QPointer<QDialog> inner(qobject_cast<QDialog*>(QApplication::activeModalWidget()));
        QVERIFY2(inner && inner != dialog, button);
        answer(inner);
        if (inner && inner->isVisible())
            inner->reject();
    });
    click(dialog, button);
}

/// "Inclination (deg): 98.2044", for each of the fields.
QStringList fields(const QDialog* dialog, std::initializer_list<const char*> names)
{
    QStringList lines;
    for (const char* name : names) {
        const auto* edit = dialog->findChild<QLineEdit*>(QLatin1String(name));
        lines << form::labelOf(edit)->text().remove('&').trimmed() + ' ' + edit->text().trimmed();
    }
    return lines;
}

/// The legend, a line for each of its columns.
QStringList legend()
{
    PlotScene scene;
    scene.t = indata->mjd;
    caldat(scene.t + indata->tzone / 24.0, scene.day, scene.month, scene.year, scene.hours);
    constexpr int columns = 5;
    std::vector<LegendText> all = legendTexts(indata, satps, scene);
    std::stable_sort(all.begin(), all.end(), [](const LegendText& a, const LegendText& b) { return a.row < b.row; });
    QStringList texts[columns];
    for (const LegendText& text : all)
        texts[text.column] << text.text.trimmed();
    QStringList lines;
    for (const QStringList& column : texts)
        lines << column.join(", ");
    return lines;
}

/// The lines that are not empty, from the first that holds `from`.
QStringList filledFrom(const QStringList& lines, const QString& from, int count)
{
    QStringList found;
    bool here = false;
    for (const QString& line : lines) {
        here = here || line.contains(from);
        if (here && !line.trimmed().isEmpty() && found.size() < count)
            found << line;
    }
    return found;
}

/// The angle between the orbit planes of the first two satellites, degrees.
double planesApart(double t)
{
    Vec3 normals[2];
    for (const int slot : {0, 1}) {
        GetSatPos(t, indata, satps, slot, 0);
        normals[slot] = vnorm(Vec3(indata->csr0[slot], indata->csr1[slot], indata->csr2[slot]) *
                              Vec3(indata->csv0[slot], indata->csv1[slot], indata->csv2[slot]));
    }
    return std::acos(dot(normals[0], normals[1])) * 180.0 / M_PI;
}

}  // namespace

class ManualTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itIsWhole()
    {
        const QString text = manual();
        QVERIFY2(text.size() >= 45000, qPrintable(QString::number(text.size())));
        for (const QString& line : text.split('\n'))
            QVERIFY2(line.size() <= (line.startsWith('|') ? mostExampleColumns : mostColumns), qPrintable(line));
        QStringList shown = examplesOf(text).keys();
        QStringList known;
        for (const Example& example : examples)
            known << example.number;
        shown.sort();
        known.sort();
        QCOMPARE(shown, known);
    }

    void itTellsEveryCommand()
    {
        Session started(viennaConfiguration());
        started.start();
        const QString text = manual().simplified();  // a line may end within a name
        for (const QAction* menu : started.app->menuBar()->actions()) {
            for (const QAction* action : menu->menu()->actions()) {
                const QString name = action->text().remove('&').remove("...");
                QVERIFY2(action->isSeparator() || text.contains('"' + name + '"'), qPrintable(name));
            }
        }
    }

    void itsExamplesAreTrue_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < static_cast<int>(examples.size()); ++i)
            QTest::newRow(examples[i].number) << i;
    }

    void itsExamplesAreTrue()
    {
        QFETCH(int, index);
        session = std::make_unique<Session>(viennaConfiguration());
        session->place.write("visual.txt", resource("visual.txt"));
        session->place.write("iridium.txt", resource("iridium.txt"));
        session->start();
        QCOMPARE(indata->satn, 0);
        const Example& example = examples[index];
        QStringList lines = (this->*example.again)();
        for (QString& line : lines)
            line = withoutBlanksAtEnd(line);
        lines.removeIf(isRule);
        session.reset();
        const QStringList printed = examplesOf(manual()).value(example.number);
        QVERIFY2(!QTest::currentTestFailed(), example.number);
        if (printed != lines)
            qInfo("the program gives\n| %s", qPrintable(lines.join("\n| ")));
        QCOMPARE(printed, lines);
    }

private:
    struct Example
    {
        const char* number;
        QStringList (ManualTest::*again)();
    };
    static const std::vector<Example> examples;

    void run(const char* command, const std::vector<Answer>& answers = {}) { session->choose(command, answers); }
    void begin(int hour, int minute, const QString& days) { run("inputDate", {start(hour, minute, days)}); }

    /// The map at an instant of the day, local time.
    void plotAt(int hour, int minute)
    {
        begin(hour, minute, "1");
        run("plotCurrent");
    }

    /// A click with the right button on a line of the table.
    void clickOnPass(int index, const Answer& answer)
    {
        const QPoint row(50, epos[index] + 6);
        const int came = windows::answering(
            [&] { QTest::mouseClick(session->app->canvas()->viewport(), Qt::RightButton, {}, row); }, {answer});
        QCOMPARE(came, 1);
    }

    QStringList welcome() { return filledFrom(report(), "Geographic Location", 9); }

    QStringList selection()
    {
        QStringList lines;
        run("inputSelectSat", {[&](QDialog* dialog) {
                enter(dialog, "satnameEdit", "seasat");
                click(dialog, "findButton");
                reading("satinfEdit", lines)(dialog);
            }});
        for (QString& line : lines)
            line.replace('\t', ' ');
        lines.removeAll(QString());
        return lines;
    }

    QStringList siteForms()
    {
        QStringList lines;
        run("inputLocation", {[&](QDialog* dialog) {
                lines << fields(dialog, {"latEdit", "lngEdit"});
                click(dialog, "ddmmButton");
                lines << fields(dialog, {"latEdit", "lngEdit"});
                dialog->reject();
            }});
        return lines;
    }

    QStringList nextSatellites()
    {
        run("inputNextSat");
        session->app->slotStopTime();
        QStringList lines;
        run("inputSelectSat", {reading("satinfEdit", lines)});
        return filledFrom(lines, "Selected Satellites", 11);
    }

    QStringList passes()
    {
        windows::select("SEASAT 1");
        begin(12, 0, "1");
        run("calcAOS");
        return report();
    }

    QStringList passDetails()
    {
        passes();
        QStringList lines;
        run("viewStep", {entering({{"minEdit", "1"}, {"secEdit", "0"}})});
        clickOnPass(0, reading("passEdit", lines));
        return lines;
    }

    QStringList savedPassDetails()
    {
        passes();
        run("viewStep", {entering({{"minEdit", "1"}, {"secEdit", "0"}})});
        clickOnPass(0, [](QDialog* dialog) { clickInto(dialog, "gtrackButton", accept); });
        return linesOf(session->place.read("satsave.txt")).mid(0, 9);
    }

    QStringList allPasses()
    {
        begin(17, 0, "0.05");
        run("calcAllSats", {accept});
        return shortLines(session->place.read("satsave.txt")).mid(0, 16);
    }

    QStringList iridiumFlares()
    {
        begin(16, 0, "1");
        run("calcIridium", {pressOk});
        return report();
    }

    QStringList mapLegend()
    {
        windows::select("SEASAT 1");
        plotAt(18, 0);
        return legend();
    }

    QStringList localDetails()
    {
        windows::select("SEASAT 1");
        windows::select("TERRA");
        plotAt(18, 0);
        QStringList lines;
        session->press(
            Qt::Key_Space,
            {entering({{"latEdit", "52.52"}, {"lngEdit", "13.4"}, {"heightEdit", "40"}, {"locEdit", "Berlin"}}),
             reading("textEdit", lines)});
        for (QString& line : lines)
            line.replace('\t', ' ');
        return lines;
    }

    QStringList jumpToAPass()
    {
        windows::select("SEASAT 1");
        begin(12, 0, "1");
        QStringList lines;
        for (int i = 0; i < 2; ++i) {
            run("plotNext");
            lines << legend()[0] << legend()[3];
        }
        return lines;
    }

    QStringList contacts()
    {
        windows::select("SEASAT 1");
        windows::select("HST");
        begin(12, 0, "0.25");
        run("viewVisibility", {[](QDialog* dialog) {
                mark(dialog, "visBox", false);
                pressOk(dialog);
            }});
        run("viewSwitch", {[](QDialog* dialog) {
                mark(dialog, "relativeBox", true);
                dialog->accept();
            }});
        run("calcAOS");
        return report();
    }

    QStringList sunTransits()
    {
        run("viewVisibility", {[](QDialog* dialog) {
                mark(dialog, "visBox", false);
                mark(dialog, "occBox", true);
                click(dialog, "sunButton");
                pressOk(dialog);
            }});
        begin(0, 0, "1");
        run("calcAllSats", {number(50.0), accept});
        return linesOf(session->place.read("satsave.txt"));
    }

    QStringList starOccultation()
    {
        run("viewVisibility", {[](QDialog* dialog) {
                mark(dialog, "visBox", false);
                mark(dialog, "occBox", true);
                click(dialog, "radecButton");
                enter(dialog, "yawEdit", "5.5510");
                enter(dialog, "pitchEdit", "7.2425");
                pressOk(dialog);
            }});
        windows::select("COSMOS 1812");
        begin(12, 0, "1");
        run("calcAOS", {number(50.0)});
        return report();
    }

    QStringList knownSurface()
    {
        run("viewVisibility", {[](QDialog* dialog) {
                mark(dialog, "flarBox", true);
                mark(dialog, "knownBox", true);
                mark(dialog, "localBox", true);
                enter(dialog, "yawEdit", "0");
                enter(dialog, "pitchEdit", "-40");
                pressOk(dialog);
            }});
        begin(17, 0, "0.5");
        run("calcAllSats", {number(500.0), accept});
        return shortLines(session->place.read("satsave.txt"));
    }

    QStringList magnitude()
    {
        windows::select("ENVISAT");
        run("viewMagnitude", {number(10.0)});
        begin(12, 0, "1");
        run("plotNext");
        return legend();
    }

    QStringList doppler()
    {
        windows::select("SEASAT 1");
        run("viewMap", {entering({{"frequEdit", "137500000"}})});
        plotAt(18, 0);
        return legend().mid(4);
    }

    QStringList editor()
    {
        windows::select("SEASAT 1");
        QStringList lines;
        run("manvEdit", {[&](QDialog* dialog) {
                lines = fields(dialog, {"nameEdit", "noradEdit", "idsnEdit", "yearEdit", "dayEdit", "incEdit",
                                        "raEdit", "eccEdit", "aperEdit", "m0Edit", "n0Edit", "aEdit", "adotEdit",
                                        "ndotEdit", "n2dotEdit", "bstarEdit", "periEdit", "apoEdit"});
                dialog->reject();
            }});
        return lines;
    }

    QStringList editedHeights()
    {
        windows::select("SEASAT 1");
        QStringList lines;
        run("manvEdit", {[&](QDialog* dialog) {
                mark(dialog, "spg4Box", false);
                mark(dialog, "perapBox", true);
                enter(dialog, "periEdit", "300");
                enter(dialog, "apoEdit", "1200");
                click(dialog, "refreshButton");
                lines = fields(dialog, {"eccEdit", "n0Edit", "aEdit", "periEdit", "apoEdit"});
                dialog->reject();
            }});
        return lines;
    }

    QStringList geostationary()
    {
        QStringList lines;
        begin(18, 0, "1");
        run("manvEdit", {[&](QDialog* dialog) {
                enter(dialog, "nameEdit", "GEO 19.2 E");
                enter(dialog, "yearEdit", "2018");
                enter(dialog, "dayEdit", "20.75");
                clickInto(dialog, "geoButton", number(19.2));
                lines = fields(dialog, {"incEdit", "raEdit", "n0Edit", "aEdit"});
                pressOk(dialog);
            }});
        run("plotCurrent");
        return lines << legend()[1] << legend()[3];
    }

    QStringList stateVectors()
    {
        windows::select("ENVISAT");
        QStringList lines;
        const auto state = [&](QDialog* dialog) {
            for (const char* frame : {"todButton", "mdateButton", "j2000Button", "efixButton"}) {
                click(dialog, frame);
                lines << dialog->findChild<QAbstractButton*>(QLatin1String(frame))->text().remove('&')
                      << fields(dialog, {"rxEdit", "vxEdit"});
            }
            dialog->reject();
        };
        run("manvEdit", {[&](QDialog* dialog) {
                mark(dialog, "numBox", true);
                clickInto(dialog, "stateButton", state);
                dialog->reject();
            }});
        return lines;
    }

    QStringList transfer()
    {
        QStringList lines;
        const Answer heights = [&](QDialog* dialog) {
            lines << fields(dialog, {"periEdit", "apoEdit", "eccEdit"});
            dialog->reject();
        };
        const auto burn = [&](const QString& metresPerSecond, int hour, int minute, int second) {
            run("manvDeltaV", {start(hour, minute, "", second), [=](QDialog* dialog) {
                                   enter(dialog, "deltavEdit", metresPerSecond);
                                   enter(dialog, "yawEdit", "0");
                                   enter(dialog, "pitchEdit", "0");
                                   click(dialog, "executeButton");
                               }});
            run("manvEdit", {heights});
        };
        run("manvEdit",
            {ellipse("Transfer", 400, 400, {{"yearEdit", "2018"}, {"dayEdit", "20.5"}, {"incEdit", "51.6"}})});
        burn("109.1", 13, 0, 0);
        burn("107.6", 13, 48, 21);
        return lines;
    }

    QStringList launch()
    {
        QStringList lines;
        for (const char* direction : {"northButton", "southButton"})
            run("manvLaunch", {start(12, 0, ""), ellipse("Launch", 200, 250, {{"incEdit", "51.6"}}),
                               launchFrom(2, direction), keeping(lines)});
        return lines;
    }

    QStringList rendezvous()
    {
        QStringList lines;
        for (const double days : {0.0, 1.3, 5.0, 10.0}) {
            run("inputSelectSat", {[](QDialog* dialog) {
                    if (dialog->findChild<QWidget*>("newButton")->isVisible())
                        click(dialog, "newButton");
                    dialog->accept();
                }});
            windows::select("GENESIS 1");
            QStringList told;
            run("manvRendz", {number(days), start(12, 0, ""), ellipse("Chaser", 300, 302),
                              launchFrom(2, "northButton"), keeping(told)});
            lines << QString::asprintf("%4.1f days: ", days) + told.value(0) +
                         QString::asprintf(", planes %.2f deg apart", planesApart(indata->mjdep[1] + days));
        }
        return lines;
    }

    QStringList match()
    {
        begin(18, 0, "1");
        run("viewVisibility", {[](QDialog* dialog) {
                mark(dialog, "visBox", false);
                pressOk(dialog);
            }});
        run("calcMatch",
            {start(18, 0, ""), [](QDialog* dialog) {
                 mark(dialog, "raBox", false);
                 mark(dialog, "drfBox", false);
                 entering({{"azEdit", "250"}, {"elEdit", "23"}, {"mxaEdit", "2"}, {"tmEdit", "1"}})(dialog);
             }});
        return report();
    }

    QStringList orbitDetermination()
    {
        QStringList lines;
        run("manvOrbDet", {start(18, 0, ""),
                           [](QDialog* dialog) {
                               mark(dialog, "obs1Box", false);
                               mark(dialog, "obs2Box", false);
                               mark(dialog, "matchBox", true);
                               entering({{"az1Edit", "250.45"},
                                         {"el1Edit", "23.02"},
                                         {"az2Edit", "268.47"},
                                         {"el2Edit", "22.07"},
                                         {"deltmEdit", "60"}})(dialog);
                           },
                           [&](QDialog* dialog) {
                               lines << fields(dialog, {"nameEdit", "incEdit", "aEdit", "periEdit"});
                               pressOk(dialog);
                           }});
        return lines << report();
    }

    QStringList astrometry()
    {
        QImage picture(800, 600, QImage::Format_RGB32);
        picture.fill(Qt::black);
        session->app->canvas()->vPicture(picture);
        const auto pick = [&](int x, int y, const std::vector<Answer>& answers) {
            const int came = windows::answering(
                [&] { QTest::mouseClick(session->app->canvas()->viewport(), Qt::LeftButton, {}, QPoint(x, y)); },
                answers);
            QCOMPARE(came, static_cast<int>(answers.size()));
        };
        pick(200, 160, {entering({{"raEdit", "5.5510"}, {"decEdit", "7.2425"}})});
        pick(640, 200, {entering({{"raEdit", "5.2508"}, {"decEdit", "6.2059"}})});
        pick(400, 520, {entering({{"raEdit", "5.3613"}, {"decEdit", "-1.1207"}})});
        pick(300, 300, {});
        pick(450, 350, {});
        QStringList lines;
        for (const int k : {3, 4})
            lines << withAngle("R.A.:", 1, packedHours, indata->astra[k]) + ", " +
                         withAngle("Dec.:", 1, packedDegrees, indata->astdec[k]);
        return lines;
    }

    QStringList savedElements()
    {
        windows::select("SEASAT 1");
        windows::select("ENVISAT");
        run("viewSwitch", {[](QDialog* dialog) {
                click(dialog, "satButton2");
                dialog->accept();
            }});
        run("manvEdit", {[](QDialog* dialog) {
                mark(dialog, "numBox", true);
                pressOk(dialog);
            }});
        run("fileTLESave", {accept});
        return linesOf(session->place.read("vorlix.tle"));
    }

    QStringList orbitTrack()
    {
        windows::select("SEASAT 1");
        begin(18, 0, "0.01");
        run("viewStep", {entering({{"minEdit", "3"}, {"secEdit", "0"}})});
        run("calcOrbitTrack", {accept});
        return linesOf(session->place.read("satsave.txt"));
    }

    QStringList numericPasses()
    {
        windows::select("ENVISAT");
        begin(12, 0, "1");
        run("calcAOS");
        QStringList lines = report().filter("JAN");
        run("manvEdit", {[](QDialog* dialog) {
                mark(dialog, "numBox", true);
                pressOk(dialog);
            }});
        run("calcAOS");
        return lines << report().filter("JAN");
    }

    std::unique_ptr<Session> session;
};

const std::vector<ManualTest::Example> ManualTest::examples{
    {"1.1", &ManualTest::welcome},
    {"2.1", &ManualTest::selection},
    {"2.2", &ManualTest::nextSatellites},
    {"2.3", &ManualTest::siteForms},
    {"3.1", &ManualTest::passes},
    {"3.2", &ManualTest::passDetails},
    {"3.3", &ManualTest::savedPassDetails},
    {"3.4", &ManualTest::allPasses},
    {"3.5", &ManualTest::iridiumFlares},
    {"4.1", &ManualTest::jumpToAPass},
    {"4.2", &ManualTest::mapLegend},
    {"4.3", &ManualTest::localDetails},
    {"5.1", &ManualTest::contacts},
    {"6.1", &ManualTest::sunTransits},
    {"6.2", &ManualTest::starOccultation},
    {"6.3", &ManualTest::knownSurface},
    {"7.1", &ManualTest::magnitude},
    {"7.2", &ManualTest::doppler},
    {"8.1", &ManualTest::editor},
    {"8.2", &ManualTest::editedHeights},
    {"8.3", &ManualTest::geostationary},
    {"8.4", &ManualTest::stateVectors},
    {"8.5", &ManualTest::transfer},
    {"8.6", &ManualTest::launch},
    {"8.7", &ManualTest::rendezvous},
    {"9.1", &ManualTest::match},
    {"9.2", &ManualTest::orbitDetermination},
    {"10.1", &ManualTest::astrometry},
    {"11.1", &ManualTest::orbitTrack},
    {"11.2", &ManualTest::savedElements},
    {"12.1", &ManualTest::numericPasses},
};

QTEST_MAIN(ManualTest)
#include "manual_test.moc"
