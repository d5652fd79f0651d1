// The first road of a newcomer: place, date and conditions are set, three satellites are selected, their passes are
// listed and stand against those of another program.

#include <cmath>

#include <QRegularExpression>

#include "app/app_helper.h"

namespace {

constexpr double firstDay = 58138.0;  // 2018-01-20
constexpr double zoneHours = 5.5;

struct Instant
{
    double seconds = 0;  // from 2018-01-20 0h, civil time
    double angle = 0;    // azimuth or longitude, degrees
    double height = 0;   // elevation or latitude
};
using PassTimes = QList<Instant>;

/// The passes under a heading line of the file of figures.
QList<PassTimes> reference(const QString& heading)
{
    QList<PassTimes> passes;
    bool here = false;
    for (const QString& line : QString(dataFile("../passes/first_road_2018.txt")).split('\n', Qt::SkipEmptyParts)) {
        const QStringList fields = line.split(' ');
        if (line[0].isLetter())
            here = line == heading;
        if (!here || !line[0].isDigit())
            continue;
        passes.emplace_back();
        for (qsizetype i = 0; i + 2 < fields.size(); i += 3)
            passes.last() << Instant{(fields[i].toDouble() - firstDay) * 86400.0 + zoneHours * 3600.0,
                                     fields[i + 1].toDouble(), fields[i + 2].toDouble()};
    }
    return passes;
}

/// The times of a table line, each as in " 05:14:32 (123, 45)"; a line has one date.
PassTimes readLine(const QString& line)
{
    static const QRegularExpression form(R"((\d+):(\d+):(\d+) \( *(-?\d+), *(-?\d+)\))");
    PassTimes instants;
    for (const QRegularExpressionMatch& match : form.globalMatch(line)) {
        const auto number = [&](int k) { return match.captured(k).toDouble(); };
        double seconds = 86400.0 * (line.mid(5, 2).toInt() - 20) + 3600.0 * number(1) + 60.0 * number(2) + number(3);
        if (!instants.empty() && seconds < instants.last().seconds)
            seconds += 86400.0;  // over midnight
        instants << Instant{seconds, number(4), number(5)};
    }
    return instants;
}

/// The ends are found to 0.94 s and printed to the second; angles are printed to the degree.
void compareTable(const QString& heading)
{
    const QList<PassTimes> expected = reference(heading);
    const QStringList lines = report().filter(QRegularExpression("^\\."));
    QCOMPARE(lines.size(), expected.size());
    QCOMPARE(report().contains(" *** No suitable pass found within time interval ***"), expected.empty());
    for (qsizetype i = 0; i < expected.size(); ++i) {
        QVERIFY2(lines[i].startsWith(".JAN "), qPrintable(lines[i]));
        const PassTimes found = readLine(lines[i]);
        QCOMPARE(found.size(), expected[i].size());
        for (qsizetype k = 0; k < found.size(); ++k) {
            const Instant& other = expected[i][k];
            QVERIFY2(std::abs(found[k].seconds - other.seconds) <= 2.0,
                     qPrintable(lines[i] + QString(" against %1 s").arg(other.seconds, 0, 'f', 2)));
            QVERIFY2(std::abs(found[k].height - other.height) <= 1.0, qPrintable(lines[i]));
            // degrees of azimuth mean little near the zenith
            const double turn = std::remainder(found[k].angle - other.angle, 360.0);
            QVERIFY2(std::abs(turn) * std::cos(other.height * M_PI / 180.0) <= 1.0, qPrintable(lines[i]));
        }
    }
}

}  // namespace

class FirstRoadTest : public AppTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        open(dataFile("vienna.cfg"));
        follow(R"(
            Ctrl+S
            | satnameEdit = iss; findButton; selectButton; noradBox on; noradEdit = 27386; findButton; selectButton; \
              idsnBox on; satnameEdit = 1990-037B; findButton; selectButton; closeButton
            Ctrl+C
            | latEdit = 28.61; lngEdit = 77.21; heightEdit = 220; locEdit = Delhi; okButton
            Ctrl+D
            | date 20 0:00:00 5.5 2.5)");
        QCOMPARE(indata->satn, 3);
    }
    void cleanup() { close(); }

    void passesAreThoseOfAnotherProgram_data()
    {
        QTest::addColumn<QString>("answers");
        QTest::addColumn<QString>("conditions");
        QTest::newRow("plain") << "visBox off; sunelEdit = -6; okButton"
                               << " min.Sat.Elev.: 10   max.Sun Elev.: -6";
        QTest::newRow("visible") << "visBox on; sunelEdit = -6; okButton"
                                 << " min.Sat.Elev.: 10   max.Sun Elev.: -6   visible passes only";
        QTest::newRow("all") << "visBox off; sunelEdit = 90; okButton"
                             << " min.Sat.Elev.: 10   max.Sun Elev.: 90";
    }
    void passesAreThoseOfAnotherProgram()
    {
        QFETCH(const QString, answers);
        QFETCH(const QString, conditions);
        choose("Ctrl+V", {answer(answers)});
        const QStringList satellites{"25544 ISS (ZARYA)", "27386 ENVISAT", "20580 HST"};
        for (int k = 0; k < 3; ++k) {
            choose("Ctrl+W", {answer(QString("satButton%1; closeButton").arg(k + 1))});
            choose("Ctrl+A");
            const QStringList lines = report();
            QCOMPARE(lines.mid(0, 3),
                     QStringList({" Geographic Location: Delhi", " Lat.: 28.61   Long.: 77.21   Height: 220", " "}));
            QCOMPARE(lines[3].trimmed(), "Satellite: " + satellites[k].mid(6));
            QCOMPARE(lines[5], conditions);
            QCOMPARE(lines[6], QString(" Year: 2018  +++ Timezone: 5.5 +++"));
            compareTable(QString("list ") + QTest::currentDataTag() + ' ' + satellites[k].left(5));
            QVERIFY2(!QTest::currentTestFailed(), qPrintable(satellites[k]));
        }
    }

    void contactsOfTwoSatellitesAreThoseOfAnotherProgram()
    {
        follow(R"(
            Ctrl+V
            | visBox off; okButton
            Ctrl+D
            | date 20 0:00:00 5.5 2.3
            Ctrl+W
            | satButton1; relativeBox on; closeButton
            Ctrl+A)");
        QCOMPARE(report()[4], QString(" ENVISAT").leftJustified(report()[4].size()));
        QVERIFY(report().contains("       Start (Long.,Lat.)     End (Long.,Lat.)"));
        compareTable("contact 25544 27386");
    }
};

QTEST_MAIN(FirstRoadTest)
#include "first_road_test.moc"
