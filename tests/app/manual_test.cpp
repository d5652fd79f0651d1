// The manual stays true: every example that it prints is done again at the real window, with the sample elements.

#include <algorithm>
#include <cmath>

#include <QImage>
#include <QMenu>
#include <QMenuBar>
#include <QTextEdit>

#include "app/app_helper.h"
#include "astro/calendar.h"
#include "astro/vec3.h"
#include "engine/position.h"
#include "engine/satpos_data.h"
#include "record/text.h"
#include "scratch_dir.h"
#include "view/legend_text.h"

namespace {

constexpr int mostColumns = 76;
constexpr int mostExampleColumns = 80;

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

/// The lines behind each heading "Example N", those that begin with `bar` or all.
QMap<QString, QStringList> examplesOf(const QString& text, const QString& bar = {})
{
    QMap<QString, QStringList> examples;
    QString number;
    for (const QString& line : text.split('\n')) {
        if (line.startsWith("Example "))
            number = line.section(' ', 1, 1);
        else if (line.startsWith(bar) && !number.isEmpty())
            examples[number] << withoutBlanksAtEnd(line.mid(bar.isEmpty() ? 0 : 2));
    }
    return examples;
}

/// The texts of a column of the legend, counted from 1.
QString legendColumn(int number)
{
    PlotScene scene;
    scene.t = indata->mjd;
    caldat(scene.t + indata->tzone / 24.0, scene.day, scene.month, scene.year, scene.hours);
    std::vector<LegendText> all = legendTexts(indata, satps, scene);
    std::ranges::stable_sort(all, {}, &LegendText::row);
    QStringList texts;
    for (const LegendText& text : all)
        if (text.column == number - 1)
            texts << text.text.trimmed();
    return texts.join(", ");
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

class ManualTest : public AppTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        if (!comma.present)
            qWarning("no locale with a decimal comma");
        keepers["legend"] = [](const QStringList& columns, QStringList& kept) {
            for (const QString& column : columns)
                kept << legendColumn(column.toInt());
        };
        // beside the launch time seen last
        keepers["planes"] = [](const QStringList& words, QStringList& kept) {
            const double days = words[0].toDouble();
            kept.last() = QString::asprintf("%4.1f days: ", days) + kept.last() +
                          QString::asprintf(", planes %.2f deg apart", planesApart(indata->mjdep[1] + days));
        };
        keepers["trail"] = [](const QStringList&, QStringList& kept) {
            for (const int k : {3, 4})
                kept << withAngle("R.A.:", 1, packedHours, indata->astra[k]) + ", " +
                            withAngle("Dec.:", 1, packedDegrees, indata->astdec[k]);
        };
    }

    void init()
    {
        open(dataFile("vienna.cfg"));
        place->write("street.txt", "# a house in the West\n210 12\n240 30\n270 30\n270 5\n360 5\n");
        QCOMPARE(indata->satn, 0);
    }
    void cleanup() { close(); }

    void itIsWhole()
    {
        QVERIFY2(manual.size() >= 45000, qPrintable(QString::number(manual.size())));
        for (const QString& line : manual.split('\n'))
            QVERIFY2(line.size() <= (line.startsWith('|') ? mostExampleColumns : mostColumns), qPrintable(line));
        QCOMPARE(printed.keys(), commands.keys());
        qsizetype from = 0;
        const QStringList chapters = QString(dataFile("chapters.txt")).split('\n', Qt::SkipEmptyParts).mid(1);
        QCOMPARE(chapters.size(), 13);
        for (const QString& chapter : chapters) {
            from = manual.indexOf("\n\n\n" + chapter + "\n\n", from);
            QVERIFY2(from >= 0, qPrintable(chapter));
        }
    }

    void itIsShownFromItsBeginning()
    {
        choose("helpQuick", {[&](QDialog* dialog) {
                   const auto* text = dialog->findChild<QTextEdit*>("textEdit1");
                   QVERIFY(text && text->isReadOnly() && text->textCursor().atStart());
                   QCOMPARE(text->toPlainText(), manual);
                   windows::click(dialog, "okButton");
               }});
    }

    void itTellsEveryCommand()
    {
        const QString text = manual.simplified();  // a line may end within a name
        for (const QAction* menu : app->menuBar()->actions()) {
            for (const QAction* action : menu->menu()->actions()) {
                const QString name = action->text().remove('&').remove("...");
                QVERIFY2(action->isSeparator() || text.contains('"' + name + '"'), qPrintable(name));
            }
        }
    }

    void itsExamplesAreTrue_data()
    {
        QTest::addColumn<QString>("number");
        for (const QString& number : commands.keys())
            QTest::addRow("%s", qPrintable(number)) << number;
    }

    void itsExamplesAreTrue()
    {
        QFETCH(QString, number);
        for (const char* name : {"visual.txt", "iridium.txt"}) {
            QFile::remove(place->path(name));
            QVERIFY(QFile::copy(SOURCE_DIR "/resources/elements/" + QString(name), place->path(name)));
        }
        QImage black(800, 600, QImage::Format_RGB32);
        black.fill(Qt::black);
        black.save(place->path("orion.png"));
        const bool leavesLinesOut = script.contains("Example " + number + " some\n");
        QStringList lines;
        for (const QString& line : follow(commands[number].join('\n'))) {
            const QString bare = withoutBlanksAtEnd(line);
            if (!isRule(bare) && (!leavesLinesOut || bare == printed[number].value(lines.size(), "(all)")))
                lines << bare;
        }
        if (printed[number] != lines)
            qInfo("the program gives\n| %s", qPrintable(lines.join("\n| ")));
        QCOMPARE(printed[number], lines);
    }

private:
    static QString resource(const QString& name)
    {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    const CommaLocale comma;  // which must be seen nowhere
    const QString manual = resource(":/vorlixHelp.txt");
    const QString script = dataFile("manual.txt");
    const QMap<QString, QStringList> printed = examplesOf(manual, "|");
    const QMap<QString, QStringList> commands = examplesOf(script);
};

QTEST_MAIN(ManualTest)
#include "manual_test.moc"
