// The commands that write the save file or the orbit track, and what they do with files that cannot be written.

#include <memory>

#include <QMessageBox>
#include <QTest>

#include "app/record/text.h"
#include "app/record/wout_data.h"
#include "view/vorlix_view.h"
#include "view/window_helper.h"

using windows::answering;
using windows::Box;
using windows::click;
using windows::enter;

namespace {

void searchFlares(QDialog* dialog)
{
    QCOMPARE(dialog->windowTitle(), QString("Iridium Flares"));
    enter(dialog, "magEdit", "-2");
    click(dialog, "okButton");
}

}  // namespace

class SaveFileTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        windows::stopTheClock();
        place = std::make_unique<windows::Workplace>();
        view = std::make_unique<VorlixView>();
        windows::observeAllFromVienna();
        indata->dur = 0.1;
    }

    void cleanup()
    {
        view.reset();
        place.reset();
    }

    void anOrbitTrackNeedsASatellite()
    {
        Box box;
        QCOMPARE(answering([&] { view->vOrbitTrack(); }, {box.read()}), 1);
        QCOMPARE(box.title, QString("Vorlix"));
        QCOMPARE(box.text, QString("*** No Satellite Selected ***"));
        QCOMPARE(QDir().entryList(QDir::Files), QStringList("visual.txt"));
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

    void anOrbitTrackIsSilentInFlareSearches()
    {
        windows::select("ISS");
        indata->iridflg = event::iridium;
        QCOMPARE(answering([&] { view->vOrbitTrack(); }, {}), 0);
        QVERIFY(place->read("satsave.txt").size() > 100);
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

    void aNameIsCutToTheLengthOfItsField()
    {
        windows::select("ISS");
        view->setSaveName(QString(300, 'n'));
        Box box;
        answering([&] { view->vOrbitTrack(); }, {box.read()});
        const QString kept(104, 'n');
        QCOMPARE(box.text, "Track saved on file " + kept);
        QVERIFY(place->read(kept).startsWith("\n Year: 2018"));
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

    void aFlareSearchIsSavedWithoutABox()
    {
        QFile::copy(QStringLiteral(TEST_DATA "/elements/iridium_2018.txt"), place->path("iridium.txt"));
        view->setTLEname("./iridium.txt");
        indata->iridflg = event::iridium;  // no satellite is needed
        QCOMPARE(answering([&] { view->vFileSave(); }, {searchFlares}), 1);
        QVERIFY(place->read("satsave.txt").startsWith("Geographic Location: "));
        QCOMPARE(indata->iridflg, 3);
        QCOMPARE(indata->tofile, 0);
        QCOMPARE(indata->newsave, 0);
    }

    void aFlareTableLeavesNoFile()
    {
        QFile::copy(QStringLiteral(TEST_DATA "/elements/iridium_2018.txt"), place->path("iridium.txt"));
        view->setTLEname("./iridium.txt");
        indata->iridflg = event::iridium;
        indata->newsave = 0;
        QCOMPARE(answering([&] { view->vCalcAOS(); }, {searchFlares}), 1);
        QCOMPARE(QDir().entryList(QDir::Files), QStringList({"iridium.txt", "visual.txt"}));
        QCOMPARE(fieldQString(indata->savename), QString("*satsave.txt"));
        QCOMPARE(indata->newsave, 0);
        QCOMPARE(indata->iridflg, 3);
        QCOMPARE(indata->dspmd, 0);
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

    void aCancelledFlareSearchWritesNothing()
    {
        const QStringList before = QDir().entryList(QDir::Files);
        QCOMPARE(answering([&] { view->vIridium(); }, {}), 1);
        QCOMPARE(QDir().entryList(QDir::Files), before);
        QCOMPARE(indata->irdrun, false);
    }

private:
    std::unique_ptr<windows::Workplace> place;
    std::unique_ptr<VorlixView> view;
};

QTEST_MAIN(SaveFileTest)
#include "save_file_test.moc"
