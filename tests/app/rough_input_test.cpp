// What a careless person and damaged files do to the window: absurd numbers in every field of the dialogs, files that
// hold no elements, configurations that are none.

#include <cmath>

#include <unistd.h>

#include <QAction>
#include <QMessageBox>
#include <QTextEdit>

#include "app/record/text.h"
#include "app/record/wout_data.h"
#include "app/road_helper.h"
#include "view/vorlix_view.h"

using road::Configuration;
using road::entering;
using road::mark;
using road::report;
using road::Session;

namespace {

const QStringList absurdTexts{"", "abc", "1e300", "-1e300", "nan", "inf", "1e-300", "2147483647"};

/// A dialog, and what must hold for all its fields to be on show.
struct Form
{
    const char* action;
    const char* what;
    void (*prepare)(WinpData&);
};

constexpr Form forms[] = {
    {"inputDate", "fixed zone", [](WinpData& in) { in.tzauto = 0; }},
    {"inputLocation", "degrees", [](WinpData& in) { in.ddmm = 0; }},
    {"inputLocation", "packed", [](WinpData& in) { in.ddmm = 1; }},
    {"inputIers", "own", [](WinpData& in) { in.IERSflg = true; }},
    {"viewStep", "plain", [](WinpData&) {}},
    {"viewVisibility", "plain", [](WinpData&) {}},
    {"viewVisibility", "occultation", [](WinpData& in) { in.occflg = 3; }},
    {"viewVisibility", "surface",
     [](WinpData& in) {
         in.flarflg = 1;
         in.flarmod = 1;
         in.flrmgf = true;
     }},
    {"viewVisibility", "cylinder",
     [](WinpData& in) {
         in.flarflg = 1;
         in.flarmod = -1;
         in.cylflg = true;
     }},
    {"viewMap", "world", [](WinpData& in) { in.skymap = 0; }},
    {"viewMap", "sky",
     [](WinpData& in) {
         in.skymap = 1;
         in.skyprj = 5;
     }},
    {"settSysConf", "plain", [](WinpData&) {}},
    {"viewMagnitude", "plain", [](WinpData&) {}},
};

QLineEdit* fieldOf(QDialog* dialog, int number)
{
    int k = 0;
    for (auto* edit : dialog->findChildren<QLineEdit*>()) {
        if (edit->isVisible() && edit->isEnabled() && k++ == number)
            return edit;
    }
    return nullptr;
}

/// Presses the button that accepts, whatever its name.
void accept(QDialog* dialog)
{
    for (auto* button : dialog->findChildren<QAbstractButton*>()) {
        if (button->text().remove('&') == "OK") {
            QTest::mouseClick(button, Qt::LeftButton);
            return;
        }
    }
    QFAIL(qPrintable("no OK in " + dialog->windowTitle()));
}

/// All commands that calculate with what the record now holds. Questions and warnings are answered.
void calculate(Session& session)
{
    const std::vector<std::function<void(QDialog*)>> answers(2, [](QDialog* dialog) { dialog->accept(); });
    for (const char* command : {"calcAOS", "plotCurrent", "plotForward", "plotBackward", "plotNext", "plotLast"}) {
        const int came = windows::answering([&] { session.action(command)->trigger(); }, answers);
        QVERIFY2(came <= 1, command);
        if (command != std::string_view("calcAOS"))
            continue;
        QVERIFY(outdata->nlines > 3);
        // details of the first pass
        const QPoint row(50, epos[0] + 6);
        const int details = windows::answering(
            [&] { QTest::mouseClick(session.app->canvas()->viewport(), Qt::RightButton, {}, row); }, answers);
        QCOMPARE(details, indata->naos > 0 ? 1 : 0);
    }
    if (!indata->skymap)
        session.press(Qt::Key_Space, answers);  // place and local details
    indata->skymap = !indata->skymap;
    session.action("viewRefresh")->trigger();
    indata->skymap = !indata->skymap;
}

bool allPlacesFinite()
{
    return std::isfinite(indata->lat) && std::isfinite(indata->lng) && std::isfinite(indata->height) &&
           std::isfinite(indata->tzone) && std::isfinite(indata->dur) && std::isfinite(indata->tmstep) &&
           std::isfinite(indata->sunel) && std::isfinite(indata->satel) && std::isfinite(indata->occra) &&
           std::isfinite(indata->occdec) && std::isfinite(indata->centmer) && std::isfinite(indata->skaz) &&
           std::isfinite(indata->frequ) && std::isfinite(indata->chlen) && std::isfinite(indata->rtoff);
}

QByteArray sampleFile(const char* name = "visual_2018.txt")
{
    QFile file(QStringLiteral(TEST_DATA "/elements/") + name);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The three lines of the station.
QByteArray station()
{
    const QByteArray all = sampleFile();
    const qsizetype begin = all.indexOf("ISS (ZARYA)");
    qsizetype end = begin;
    for (int line = 0; line < 3; ++line)
        end = all.indexOf('\n', end) + 1;
    return all.mid(begin, end - begin);
}

QByteArray noise(int bytes)
{
    QByteArray all;
    std::uint32_t state = 12345;
    for (int i = 0; i < bytes; ++i) {
        state = state * 1664525u + 1013904223u;
        all += static_cast<char>(state >> 24);
    }
    return all;
}

struct ElementFile
{
    const char* what;
    QByteArray bytes;
    bool holdsStation;
};

QList<ElementFile> elementFiles()
{
    const QByteArray iss = station();
    const QByteArray longLine = QByteArray(10000, 'x') + '\n';
    const QByteArray longElements = iss.split('\n')[1] + QByteArray(10000, ' ') + '\n';
    return {
        {"whole", iss, true},
        {"empty", "", false},
        {"binary", noise(200000), false},
        {"binary before and behind", noise(5000) + '\n' + iss + noise(5000), true},
        {"long lines", longLine + iss + longLine, true},
        {"long element line", longElements + longElements, false},
        {"CR LF", QByteArray(iss).replace("\n", "\r\n"), true},
        {"NUL bytes", QByteArray(300, '\0') + '\n' + iss + QByteArray(300, '\0'), true},
        {"cut off", iss.left(iss.size() - 40), false},
    };
}

Configuration emptySelection(const QByteArray& elementFile)
{
    Configuration configuration;
    configuration.lines[8] = elementFile;
    configuration.lines = configuration.lines.mid(0, 19) << "0 ";
    return configuration;
}

QStringList welcome(const QStringList& notice, const QStringList& values, const QStringList& satellites)
{
    QStringList lines{"   *** Welcome to Vorlix Version 11.8 ***", " "};
    lines += notice;
    lines += {"The startup input values are:", " "};
    lines += values;
    lines += satellites;
    return lines;
}

const QStringList problem{"Problems reading Configuration File. Using defaults instead.", " "};

QStringList defaultValues()
{
    return {"Timezone: 0",
            "Geographic Location:",
            "Default",
            QString::asprintf("Lat.: %g  Long.: %g  Height: %g", 0.0, 0.0, 0.0),
            " ",
            "Name of the Orbit Element File:",
            "./visual.txt",
            " ",
            "Maximum Sun Elev.: -6",
            "Minimum Sat Elev.: 10",
            "Only visible passes",
            " ",
            "Map background: Black   No coordinate grid",
            " ",
            "Epoch for R.A./Dec.: 2000"};
}

QStringList ownValues()
{
    return {"Timezone: 0",
            "Geographic Location:",
            "Vienna",
            "Lat.: 48.25  Long.: 16.37  Height: 171.5",
            " ",
            "Name of the Orbit Element File:",
            "./visual.txt",
            " ",
            "Maximum Sun Elev.: -6.25",
            "Minimum Sat Elev.: 10.5",
            "All passes",
            " ",
            "Map background: Grey   10 deg coordinate grid",
            " ",
            "Epoch for R.A./Dec.: 2000"};
}

QStringList selection(const QStringList& names)
{
    return names.empty() ? QStringList() : QStringList{" ", "Selected Satellites:", " "} + names;
}

/// The report with the blanks at the end of the names taken away.
QStringList trimmedReport()
{
    QStringList lines;
    for (QString& line : report()) {
        while (line.size() > 1 && line.endsWith(' '))
            line.chop(1);
        lines << line;
    }
    return lines;
}

void expectWelcome(Session& session, const QStringList& expected)
{
    session.start();
    QVERIFY(session.app->isVisible());
    QCOMPARE(trimmedReport(), expected);
    session.press(Qt::Key_U);  // the map still draws
}

struct Mutation
{
    const char* what;
    int line;  // of the configuration file, counted from 1
    QByteArray text;
    bool damaged;   // the defaults stand
    int reportRow;  // of the values, -1 if the report does not show the field
    QString shown;
};

const Mutation mutations[] = {
    {"zone out of range", 1, "15.5", false, 0, "Timezone: 0"},
    {"zone in words", 1, "Vienna", false, 0, "Timezone: 0"},
    {"another zone", 1, "-3.5", false, 0, "Timezone: -3.5 *** Timezone different from set system time! ***"},
    {"latitude in words", 2, "north", false, 3, "Lat.: 0  Long.: 16.37  Height: 171.5"},
    {"latitude no number", 2, "nan", false, 3, "Lat.: 0  Long.: 16.37  Height: 171.5"},
    {"huge longitude", 3, "1e300", false, 3, "Lat.: 48.25  Long.: 1e+300  Height: 171.5"},
    {"endless height", 4, "-inf", false, 3, "Lat.: 48.25  Long.: 16.37  Height: 0"},
    {"no name", 5, "", false, 2, "Default"},
    {"long name", 5, QByteArray(10000, 'x'), false, 2, QString(30, 'x')},
    {"font", 6, "99999999999999999999", false, -1, {}},
    {"grid", 7, "-1", false, 12, "Map background: Grey   30 deg coordinate grid"},
    {"background", 8, "3", false, 12, "Map background: White   10 deg coordinate grid"},
    {"light", 10, "nonsense", false, 10, "All passes"},
    {"Sun", 11, "", false, 8, "Maximum Sun Elev.: 0"},
    {"elevation", 12, "-1e300", false, 9, "Minimum Sat Elev.: -1e+300"},
    {"epoch", 13, "1899", false, 14, "Epoch for R.A./Dec.: 0"},
    {"legend font", 14, "-2147483648", false, -1, {}},
    {"address", 17, QByteArray(10000, 'u'), false, -1, {}},
    {"three numbers", 18, "2.5 150 150", true, 0, "Timezone: 0"},
    {"endless duration", 18, "inf 1e300 -1e300 nan", false, -1, {}},
    {"two numbers", 19, "2.2 1.2", true, 0, "Timezone: 0"},
    {"NUL in a number", 2, QByteArray("48\0.25", 6), false, 3, "Lat.: 0  Long.: 16.37  Height: 171.5"},
};

}  // namespace

class RoughInputTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void absurdNumbersInDialogsHarmNothing()
    {
        Session session;
        session.start();
        QCOMPARE(indata->satn, 2);
        indata->dur = 1.0;
        const auto kept = std::make_unique<WinpData>(*indata);
        int typed = 0;
        for (const Form& form : forms) {
            int fields = 1;
            for (int k = 0; k < fields; ++k) {
                for (const QString& text : absurdTexts) {
                    *indata = *kept;
                    form.prepare(*indata);
                    QString name;
                    session.choose(form.action, {[&](QDialog* dialog) {
                                       for (fields = 0; fieldOf(dialog, fields); ++fields) {}
                                       QLineEdit* field = fieldOf(dialog, k);
                                       name = field->objectName();
                                       QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
                                       QTest::keyClick(field, Qt::Key_Delete);
                                       QTest::keyClicks(field, text);
                                       accept(dialog);
                                   }});
                    QVERIFY(allPlacesFinite());
                    if (std::abs(indata->dur) > 20.0)
                        continue;  // listed below
                    calculate(session);
                    if (QTest::currentTestFailed())
                        QFAIL(qPrintable(QString("%1 (%2), %3 = \"%4\"").arg(form.action, form.what, name, text)));
                    ++typed;
                }
            }
        }
        QVERIFY2(typed > 250, qPrintable(QString::number(typed)));
    }

    void anAbsurdSpanIsHeldAndTold()
    {
        Session session;
        session.start();
        for (const char* span : {"1e300", "-1e300", "100001"}) {
            session.choose("inputDate", {[&](QDialog* dialog) {
                               mark(dialog, "systemBox", false);
                               // no pass so far from the epoch of the elements, and no step of the search
                               entering({{"durEdit", span}, {"tzoneEdit", "1e300"}})(dialog);
                           }});
            session.choose("calcAOS");
            QVERIFY2(report().contains(" *** Time span held to 100000 days ***"), span);
        }
    }

    void damagedElementFilesHoldWhatCanBeRead()
    {
        for (const ElementFile& file : elementFiles()) {
            Session session(emptySelection("./rough.txt").text());
            session.place.write("rough.txt", file.bytes);
            session.start();
            session.command(Qt::Key_S, {[&](QDialog* dialog) {
                                mark(dialog, "noradBox", true);
                                windows::enter(dialog, "noradEdit", "25544");
                                windows::click(dialog, "findButton");
                                const auto* select = dialog->findChild<QAbstractButton*>("selectButton");
                                QCOMPARE(select->isVisible(), file.holdsStation);
                                if (file.holdsStation)
                                    windows::click(dialog, "selectButton");
                                else
                                    QVERIFY(dialog->findChild<QTextEdit*>("satinfEdit")
                                                ->toPlainText()
                                                .contains("+++ No match found for NORAD# 25544 +++"));
                                windows::click(dialog, "closeButton");
                            }});
            QCOMPARE(indata->satn, file.holdsStation ? 1 : 0);
            session.command(Qt::Key_A);
            const QStringList lines = report();
            if (file.holdsStation) {
                QCOMPARE(lines[3].trimmed(), QString("Satellite: ISS (ZARYA)"));
                QVERIFY2(lines.filter(".JAN 2").size() >= 10, file.what);
            } else {
                QCOMPARE(lines[1], QString(" *** No satellite has been selected ***"));
            }
            // every entry of a file, however odd
            session.command(Qt::Key_S, {[&](QDialog* dialog) {
                                mark(dialog, "noradBox", false);
                                windows::enter(dialog, "satnameEdit", "*");
                                windows::click(dialog, "findButton");
                                const auto* more = dialog->findChild<QAbstractButton*>("moreButton");
                                for (int k = 0; k < 2000 && more->isVisible(); ++k)
                                    windows::click(dialog, "moreButton");
                                windows::click(dialog, "closeButton");
                            }});
            if (QTest::currentTestFailed())
                QFAIL(file.what);
        }
    }

    void filesThatCannotBeReadAreToldAtStart()
    {
        for (const char* what : {"a directory", "missing", "unreadable"}) {
            Session session(emptySelection("./rough.txt").text());
            if (what == std::string_view("a directory"))
                QVERIFY(QDir().mkdir(session.place.path("rough.txt")));
            if (what == std::string_view("unreadable")) {
                session.place.write("rough.txt", station());
                QFile::setPermissions(session.place.path("rough.txt"), {});
                if (::access("rough.txt", R_OK) == 0)
                    continue;  // the administrator reads everything
            }
            session.start();
            QVERIFY2(report().contains("*** No valid TLE file selected ***"), what);
            QString text;
            session.command(Qt::Key_S, {[&](QDialog* dialog) {
                                text = qobject_cast<QMessageBox*>(dialog)->text();
                                QCOMPARE(dialog->windowTitle(), QString("Vorlix"));
                                windows::press(dialog, "Quit");
                            }});
            QCOMPARE(text, QString("Unable to open TLE file *"));
        }
    }

    void aMissingConfigurationIsNotMentioned()
    {
        Session session;
        QVERIFY(QFile::remove(session.place.path("vorlix.cfg")));
        expectWelcome(session, welcome({}, defaultValues(), {}));
    }

    void aWholeConfigurationIsShown()
    {
        Session session;
        expectWelcome(session, welcome({}, ownValues(), selection({"HST", "ENVISAT"})));
    }

    void aCutConfigurationLeavesTheDefaults()
    {
        const QByteArray whole = Configuration().text();
        for (int lines = 0; lines < 20; ++lines) {
            Session session(lines == 0 ? QByteArray() : Configuration().lines.mid(0, lines).join('\n') + '\n');
            expectWelcome(session, welcome(problem, defaultValues(), {}));
            if (QTest::currentTestFailed())
                QFAIL(qPrintable(QString("cut behind line %1").arg(lines)));
        }
        Session names(whole.left(whole.indexOf("HST\n") + 4));
        expectWelcome(names, welcome({}, ownValues(), selection({"HST"})));
    }

    void garbageForAConfigurationLeavesTheDefaults()
    {
        for (const QByteArray& bytes : {noise(100000), QByteArray(100000, '\0'), QByteArray(100000, '\n'),
                                        QByteArray(1000000, '9'), QByteArray("\xff\xfe")}) {
            Session session(bytes);
            expectWelcome(session, welcome(problem, defaultValues(), {}));
        }
    }

    void eachLineOfTheConfigurationMayBeWrong()
    {
        for (const Mutation& mutation : mutations) {
            Configuration configuration;
            configuration.lines[mutation.line - 1] = mutation.text;
            Session session(configuration.text());
            QStringList values = mutation.damaged ? defaultValues() : ownValues();
            if (mutation.reportRow >= 0)
                values[mutation.reportRow] = mutation.shown;
            expectWelcome(session, welcome(mutation.damaged ? problem : QStringList(), values,
                                           mutation.damaged ? QStringList() : selection({"HST", "ENVISAT"})));
            calculate(session);
            if (QTest::currentTestFailed())
                QFAIL(mutation.what);
        }
    }
};

QTEST_MAIN(RoughInputTest)
#include "rough_input_test.moc"
