// What files that hold no elements, configurations that are none and absurd numbers do to the window.

#include <QMessageBox>

#include "app/road_helper.h"
#include "view/vorlix_view.h"

using road::Configuration;
using road::entering;
using road::mark;
using road::report;
using road::Session;

namespace {

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

}  // namespace

class RoughInputTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
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

    void elementFilesThatCannotBeReadAreToldAtStart()
    {
        for (const bool directory : {false, true}) {
            Configuration configuration;
            configuration.lines[8] = "./rough.txt";
            Session session(configuration.text());
            if (directory)
                QVERIFY(QDir().mkdir(session.place.path("rough.txt")));
            session.start();
            QVERIFY(report().contains("*** No valid TLE file selected ***"));
            QString text;
            session.command(Qt::Key_S, {[&](QDialog* dialog) {
                                text = qobject_cast<QMessageBox*>(dialog)->text();
                                windows::press(dialog, "Quit");
                            }});
            QCOMPARE(text, QString("Unable to open TLE file *"));
        }
    }

    void elementsInsideOfNoiseAreFound()
    {
        Session session;
        const QByteArray sample = session.place.read("visual.txt");
        session.place.write("visual.txt", noise(5000) + '\n' + sample + QByteArray(10000, 'x') + noise(5000));
        session.start();
        QCOMPARE(indata->satn, 2);
        QCOMPARE(indata->norad[0], 20580);
        QCOMPARE(indata->norad[1], 27386);
    }

    void damagedConfigurationsLeaveTheDefaults()
    {
        const QByteArray cut = Configuration().lines.mid(0, 10).join('\n') + '\n';
        for (const QByteArray& bytes : {noise(100000), QByteArray(100000, '\0'), QByteArray(1000000, '9'), cut}) {
            Session session(bytes);
            session.start();
            QVERIFY(session.app->isVisible());
            QVERIFY(report().contains("Problems reading Configuration File. Using defaults instead."));
            QVERIFY(report().contains("Maximum Sun Elev.: -6"));
            session.press(Qt::Key_U);  // the map still draws
        }
    }

    void absurdNumbersOfAConfigurationHarmNothing()
    {
        Configuration configuration;
        for (const int line : {0, 1, 2, 3, 5, 6, 7, 10, 11, 12, 13})
            configuration.lines[line] = "-1e300";
        configuration.lines[4] = QByteArray(10000, 'x');
        configuration.lines[17] = "inf 1e300 -1e300 nan";
        Session session(configuration.text());
        session.start();
        QVERIFY(report().contains(QString(30, 'x')));
        QVERIFY(report().contains("Minimum Sat Elev.: -1e+300"));
        for (const char* command : {"calcAOS", "viewRefresh", "plotForward"})
            session.choose(command);
        QCOMPARE(indata->dspmd, 1);
    }
};

QTEST_MAIN(RoughInputTest)
#include "rough_input_test.moc"
