// "What was that satellite?": a sighting typed into the dialogs of the command, and the satellites that it finds.

#include <memory>

#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>

#include "app/record/text.h"
#include "app/road_helper.h"
#include "engine/pass_search.h"
#include "view/vorlix_view.h"

using road::entering;
using road::mark;
using road::report;
using road::Session;
using windows::click;

namespace {

// ENVISAT over Vienna at 18:46:00 UTC of 20 January 2018, from its elements in visual_2018.txt by python3-sgp4 and ERFA:
// azimuth 229.15, elevation 53.52, moving up and to the right at 64 degrees; of date 1h58m02.4s, +19 55 49.
// Here it is half a degree off.
constexpr const char* seenAzimuth = "229.9";
constexpr const char* seenElevation = "53.2";
constexpr const char* envisat = " NORAD#: 27386  Int.Launch#: 02009A    ENVISAT";

}  // namespace

class MatchTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        session = std::make_unique<Session>();
        session->start();
        windows::observeAllFromVienna();
        indata->satn = 0;
        atDate = entering({{"hourEdit", "18"}, {"minEdit", "46"}, {"secEdit", "0"}});
    }

    void cleanup() { session.reset(); }

    void namesTheSatelliteSeen()
    {
        const double span = indata->dur;
        search({[&](QDialog* dialog) {
                    QVERIFY(!dialog->findChild<QLineEdit*>("durEdit")->isEnabled());  // the time of one event
                    atDate(dialog);
                },
                [](QDialog* dialog) {
                    mark(dialog, "raBox", false);
                    entering(
                        {{"azEdit", seenAzimuth}, {"elEdit", seenElevation}, {"mxaEdit", "1"}, {"tmEdit", "-0.5"}})(
                        dialog);
                }});
        QCOMPARE(report().mid(0, 2), QStringList({" ", " Possible matches on TLE-file: ./visual.txt"}));
        QCOMPARE(report().filter(" NORAD#:").size(), 1);
        QVERIFY2(report().filter(" NORAD#:")[0].startsWith(envisat), qPrintable(report().filter(" NORAD#:")[0]));
        QVERIFY(report().contains(" Number of satellites checked: 145"));
        QVERIFY(report().contains(" Number of possible matches  : 1"));
        QCOMPARE(indata->satn, 1);
        QCOMPARE(indata->norad[0], 27386);
        QCOMPARE(indata->tm, 0.5);
        QCOMPARE(indata->dur, span);
        QCOMPARE(indata->dspmd, 0);
        QCOMPARE(session->app->canvas()->size(), session->app->canvas()->textPixmap().size());
    }

    void asksForTheRightDirection()
    {
        for (const auto& [direction, matches] : {std::pair{"40", 1}, std::pair{"-116", 0}}) {
            search({atDate, [&, way = direction](QDialog* dialog) {
                        mark(dialog, "raBox", false);
                        mark(dialog, "drfBox", true);
                        entering({{"azEdit", seenAzimuth},
                                  {"elEdit", seenElevation},
                                  {"mxaEdit", "1"},
                                  {"draEdit", way},
                                  {"tmEdit", "0.5"}})(dialog);
                    }});
            QCOMPARE(report().filter(envisat).size(), matches);
            QCOMPARE(report().filter("*** No matches found on TLE file ***").size(), 1 - matches);
        }
    }

    void takesRightAscensionAndDeclination()
    {
        search(
            {atDate, [](QDialog* dialog) {
                 mark(dialog, "raBox", true);
                 QCOMPARE(dialog->findChild<QLabel*>("raLabel")->text(), QString("R.&A. (HH.MMSS):"));
                 entering({{"azEdit", "1.5802"}, {"elEdit", "20.20"}, {"mxaEdit", "1"}, {"tmEdit", "0.5"}})(dialog);
             }});
        QCOMPARE(report().filter(envisat).size(), 1);
        QCOMPARE(indata->rdf, 1);
    }

    void ignoresTheKindOfEvents()
    {
        indata->iridflg = event::iridium;
        indata->occra = 12.34;  // the search for flares would clear it
        search({atDate, sighting()});
        QCOMPARE(report().filter(envisat).size(), 1);
        QCOMPARE(indata->iridflg, static_cast<int>(event::iridium));
        QCOMPARE(indata->occra, 12.34);
    }

    void cancellingChangesNothing()
    {
        const QStringList before = report();
        search({[](QDialog* dialog) { click(dialog, "cancelButton"); }});
        search({atDate, [](QDialog* dialog) {
                    windows::enter(dialog, "azEdit", "77");
                    click(dialog, "cancelButton");
                }});
        QCOMPARE(indata->az, 0.0);
        QCOMPARE(indata->satn, 0);
        QCOMPARE(report(), before);
    }

    void tellsOfAMissingFile()
    {
        assignField(indata->tlename, "gone.txt");
        QString text;
        search({atDate, sighting(), [&](QDialog* dialog) {
                    text = dialog->windowTitle();
                    text += ": " + qobject_cast<QMessageBox*>(dialog)->text();
                    dialog->accept();
                }});
        QCOMPARE(text, QString("Find Matching Sats: *** Unable to open TLE file ***"));
        QCOMPARE(report(), QStringList({" ", " *** Unable to open TLE file ***", "gone.txt", " ",
                                        " Select a valid TLE file first.", " "}));
        QCOMPARE(indata->dspmd, 0);
    }

    void readsWhatIsNoNumberAsZero()
    {
        search({atDate, entering({{"azEdit", "west"},
                                  {"elEdit", "nan"},
                                  {"mxaEdit", "1e999"},
                                  {"draEdit", ""},
                                  {"tmEdit", "-inf"}})});
        QCOMPARE(report().filter("*** No matches found on TLE file ***").size(), 1);
    }

private:
    static std::function<void(QDialog*)> sighting()
    {
        return [](QDialog* dialog) {
            mark(dialog, "raBox", false);
            entering({{"azEdit", seenAzimuth}, {"elEdit", seenElevation}, {"mxaEdit", "1"}, {"tmEdit", "0.5"}})(
                dialog);
        };
    }

    /// Chooses the command with the mouse; each dialog is answered by one handler.
    void search(const std::vector<std::function<void(QDialog*)>>& handlers)
    {
        QMenuBar* bar = session->app->menuBar();
        auto* menu = session->app->findChild<QMenu*>("calcMenu");
        const int came = windows::answering(
            [&] {
                QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(menu->menuAction()).center());
                QTest::mouseClick(menu, Qt::LeftButton, {},
                                  menu->actionGeometry(session->action("calcMatch")).center());
            },
            handlers);
        QCOMPARE(came, static_cast<int>(handlers.size()));
    }

    std::unique_ptr<Session> session;
    std::function<void(QDialog*)> atDate;
};

QTEST_MAIN(MatchTest)
#include "match_test.moc"
