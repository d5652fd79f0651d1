// Commands around the selection and the files: lists, orbit tracks, elements, and files that cannot be written.

#include <QInputDialog>
#include <QMessageBox>
#include <QTest>

#include "app/record/text.h"
#include "app/record/wout_data.h"
#include "view/view_fixture.h"

using windows::answering;
using windows::Box;
using windows::click;
using windows::enter;
using windows::press;

namespace {

void searchFlares(QDialog* dialog)
{
    QCOMPARE(dialog->windowTitle(), QString("Iridium Flares"));
    enter(dialog, "magEdit", "-2");
    click(dialog, "okButton");
}

}  // namespace

class FilesTest : public ViewTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        open();
        windows::observeAllFromVienna();
        indata->dur = 0.1;
    }
    void cleanup() { close(); }

    void anUnreadableElementFileIsTold()
    {
        view->setTLEname("nowhere.txt");
        Box box;
        QCOMPARE(answering([&] { view->vSelectSat(); }, {box.read()}), 1);
        QCOMPARE(box.title, QString("Vorlix"));
        QCOMPARE(box.text, QString("Unable to open TLE file nowhere.txt"));
    }

    void namesOfFiles()
    {
        QCOMPARE(view->getTLEname(), QString("./visual.txt"));
        view->setTLEname("*");
        QCOMPARE(view->getTLEname(), QString());
        view->setTLEname("/data/tle/" + QString(200, 'n'));
        QCOMPARE(view->getTLEname().size(), 104);
        view->setTLEname("/data/tle/visual.txt");
        QCOMPARE(view->getSaveName(), QString("/data/tle/satsave.txt"));
        QCOMPARE(view->getTSaveName(), QString("/data/tle/vorlix.tle"));
        indata->newsave = indata->newtle = 0;
        view->setSaveName("other.txt");
        view->setTSaveName("other.tle");
        QCOMPARE(view->getSaveName(), QString("other.txt"));
        QCOMPARE(view->getTSaveName(), QString("other.tle"));
        QCOMPARE(indata->newsave, 1);
        QCOMPARE(indata->newtle, 1);
    }

    void savedElementsAreTold()
    {
        Box none, done, failed;
        answering([&] { view->vTLESave(); }, {none.read()});
        QCOMPARE(none.text, QString("*** No Satellite Selected ***"));
        windows::select("ISS");
        answering([&] { view->vTLESave(); }, {done.read()});
        QCOMPARE(done.text, QString("TLE's saved on file ./vorlix.tle"));
        QCOMPARE(place->read("vorlix.tle").count('\n'), 3);
        view->setTSaveName("no/such/folder.tle");
        answering([&] { view->vTLESave(); }, {failed.read()});
        QCOMPARE(failed.title, QString("TLE File Save"));
        QCOMPARE(failed.text, QString("*** ERROR *** while opening or writing TLE Save File"));
        QCOMPARE(indata->newtle, 0);
    }

    void aScanTellsItsTroubles()
    {
        Box output, input;
        view->setSaveName("no/such/folder.txt");
        answering([&] { view->vAllSat(); }, {output.read()});
        QCOMPARE(output.title, QString("All Passes"));
        QCOMPARE(output.text, QString("*** Problems with the output file"));
        view->setSaveName("list.txt");
        view->setTLEname("nowhere.txt");
        answering([&] { view->vAllSat(); }, {input.read()});
        QCOMPARE(input.text, QString("*** Problems with the input file"));
    }

    void savesWhatTheFormHolds()
    {
        windows::select("ISS");
        windows::select("HST");
        indata->norad[1] = 340123;
        QString question, done;
        const auto answer = [&](const QString& button) {
            return [&, button](QDialog* dialog) {
                question = qobject_cast<QMessageBox*>(dialog)->text();
                press(dialog, button);
            };
        };
        const auto read = [&](QDialog* dialog) { done = qobject_cast<QMessageBox*>(dialog)->text(); };
        answering([&] { view->vTLESave(); }, {answer("No"), read});
        QVERIFY(question.contains("HST (340123)"));
        QVERIFY(!question.contains("ISS"));
        QCOMPARE(done, QString("TLE's saved on file ./vorlix.tle\n\nLeft out:\nHST (340123)"));
        QCOMPARE(place->read("vorlix.tle").count('\n'), 3);
        answering([&] { view->vTLESave(); }, {answer("Yes"), read});
        QCOMPARE(done, QString("TLE's saved on file ./vorlix.tle"));
        QVERIFY(place->read("vorlix.tle").contains("\n2 40123 "));
        view->setTSaveName("out.csv");
        indata->numflg[0] = 1;
        QCOMPARE(answering([&] { view->vTLESave(); }, {read}), 1);
        QCOMPARE(done, QString("TLE's saved on file out.csv\n\nLeft out:\nISS (ZARYA) (25544)"));
        QVERIFY(place->read("out.csv").contains(",340123,"));
        view->setTSaveName("out.csv");
        indata->numflg[1] = 1;
        const QByteArray before = place->read("out.csv");
        answering([&] { view->vTLESave(); }, {read});
        QVERIFY(done.startsWith("Nothing saved."));
        QCOMPARE(place->read("out.csv"), before);
    }

    void asksForTheNameOfAQuery()
    {
        view->setTLEname("/home/u/stations.txt");
        const QString query = "https://example.org/gp.php?GROUP=visual&FORMAT=csv";
        QString host, path, file, proposal;
        int result = 9;
        const auto type = [](const QString& text) {
            return [text](QDialog* dialog) {
                qobject_cast<QInputDialog*>(dialog)->setTextValue(text);
                dialog->accept();
            };
        };
        const auto take = [&](QDialog* dialog) {
            proposal = qobject_cast<QInputDialog*>(dialog)->textValue();
            dialog->accept();
        };
        answering([&] { result = view->vUpdate(host, path, file); }, {type(query), take});
        QCOMPARE(result, 0);
        QCOMPARE(proposal, QString("visual.csv"));
        QCOMPARE(host, QString("https://example.org"));
        QCOMPARE(path, QString("/gp.php?GROUP=visual&FORMAT=csv"));
        QCOMPARE(file, QString("/home/u/visual.csv"));
        answering([&] { result = view->vUpdate(host, path, file); }, {take, type("mine.txt")});  // proposed again
        QCOMPARE(proposal, query);
        QCOMPARE(file, QString("/home/u/mine.txt"));
        QCOMPARE(answering([&] { result = view->vUpdate(host, path, file); }, {type(query), type("a/b")}), 3);
        QCOMPARE(result, 1);
        const QString url = fieldQString(indata->url);
        answering([&] { result = view->vUpdate(host, path, file); }, {type("example.org/x?y")});  // no name
        QCOMPARE(result, 1);
        QCOMPARE(fieldQString(indata->url), url);
    }

    void anOrbitTrackReplacesTheFileAndAListReplacesTheTrack()
    {
        windows::select("ISS");
        Box box;
        answering([&] { view->vOrbitTrack(); }, {box.read()});
        QCOMPARE(box.title, QString("Vorlix"));
        QCOMPARE(box.text, QString("Track saved on file ./satsave.txt"));
        const QByteArray track = place->read("satsave.txt");
        QVERIFY(track.startsWith("\n Year: 2018  +++> Timezone 0 <+++\n                     \n\nJAN 20  17:05:09"));
        QCOMPARE(indata->newsave, 1);
        answering([&] { view->vFileSave(); }, {});
        const QByteArray list = place->read("satsave.txt");
        QVERIFY(list.startsWith("\n\n\n Geographic"));
        answering([&] { view->vOrbitTrack(); }, {});
        QCOMPARE(place->read("satsave.txt"), track);
        answering([&] { view->vFileSave(); }, {});
        QCOMPARE(place->read("satsave.txt"), track + list);
    }

    void anOrbitTrackTellsItsTroubles()
    {
        windows::select("ISS");
        for (const char* name : {"no/such/folder.txt", "."}) {
            view->setSaveName(name);
            Box box;
            answering([&] { view->vOrbitTrack(); }, {box.read()});
            QCOMPARE(box.title, QString("Save Orbit Track"));
            QCOMPARE(box.text, QString("*** Problems with the output file"));
        }
    }

    void aListIsToldAsSavedWhateverHappened()
    {
        windows::select("ISS");
        for (const char* name : {"no/such/folder.txt", "/dev/full"}) {
            view->setSaveName(name);
            Box box;
            QCOMPARE(answering([&] { view->vFileSave(); }, {box.read()}), 1);
            QCOMPARE(box.text, "Saved on File " + QString(name));
            QCOMPARE(indata->tofile, 0);
        }
        QCOMPARE(QDir().entryList(QDir::Files), QStringList("visual.txt"));
    }

    void withoutIridiumElementsTheOldListStays()
    {
        const QByteArray old = "JAN 20  18:00:10 (254, 23)  Iridium Flare Front  ->S  mag  -5.0   IRIDIUM 8\n";
        place->write("iridiumf.doc", old);
        Box box;
        QCOMPARE(answering([&] { view->vIridium(); }, {searchFlares, box.read()}), 2);
        QCOMPARE(box.title, QString("All Passes"));
        QCOMPARE(box.text, QString("*** Problems with the input file"));
        QCOMPARE(place->read("iridiumf.doc"), old);
        QCOMPARE(outdata->nlines, 0);  // flares of an earlier search are not shown as those of this one
        QCOMPARE(indata->newsave, 1);
        QCOMPARE(QString(indata->tlename), QString("./visual.txt"));
    }
};

QTEST_MAIN(FilesTest)
#include "files_test.moc"
