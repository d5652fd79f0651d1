// Commands around the selection and the files.

#include <memory>

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QInputDialog>
#include <QMessageBox>
#include <QTest>

#include "app/record/text.h"
#include "view/vorlix_view.h"
#include "view/window_helper.h"

using windows::answering;
using windows::Box;
using windows::click;
using windows::enter;

class FilesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        windows::stopTheClock();
        place = std::make_unique<windows::Workplace>();
        view = std::make_unique<VorlixView>();
    }

    void cleanup()
    {
        view.reset();
        place.reset();
    }

    void selectsByNameNumberAndDesignator()
    {
        answering([&] { view->vSelectSat(); }, {[](QDialog* dialog) {
                      enter(dialog, "satnameEdit", "hst");
                      click(dialog, "findButton");
                      click(dialog, "selectButton");
                      click(dialog, "noradBox");
                      enter(dialog, "noradEdit", "25544");
                      click(dialog, "findButton");
                      click(dialog, "selectButton");
                      click(dialog, "idsnBox");
                      enter(dialog, "satnameEdit", "1963-047A");  // ATLAS CENTAUR 2
                      click(dialog, "findButton");
                      click(dialog, "selectButton");
                      click(dialog, "closeButton");
                  }});
        QCOMPARE(indata->satn, 3);
        QCOMPARE(indata->norad[0], 20580);
        QCOMPARE(indata->norad[1], 25544);
        QCOMPARE(indata->norad[2], 694);
        QVERIFY(!satfle);
    }

    void anUnreadableElementFileIsTold()
    {
        view->setTLEname("nowhere.txt");
        Box box;
        QCOMPARE(answering([&] { view->vSelectSat(); }, {box.read()}), 1);
        QCOMPARE(box.title, QString("Vorlix"));
        QCOMPARE(box.text, QString("Unable to open TLE file nowhere.txt"));
    }

    void removesTheMarkedSatellites()
    {
        QCOMPARE(answering([&] { view->vRemoveSat(); }, {}), 0);  // nothing to remove, no dialog
        windows::select("ISS");
        windows::select("HST");
        windows::select("SERT 2");
        indata->prs = 1;
        answering([&] { view->vRemoveSat(); }, {[](QDialog* dialog) {
                      QVERIFY(dialog->findChildren<QCheckBox*>().size() == 10);
                      dialog->findChildren<QCheckBox*>().at(1)->click();
                      click(dialog, "okButton");
                  }});
        QCOMPARE(indata->satn, 2);
        QCOMPARE(indata->prs, 0);
        QCOMPARE(indata->norad[1], 4327);
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

    void savingNeedsASatellite()
    {
        Box list, elements;
        answering([&] { view->vFileSave(); }, {list.read()});
        answering([&] { view->vTLESave(); }, {elements.read()});
        QCOMPARE(list.text, QString("*** No Satellite Selected ***"));
        QCOMPARE(elements.text, QString("*** No Satellite Selected ***"));
        QCOMPARE(QDir().entryList(QDir::Files), QStringList("visual.txt"));
    }

    void savedListsFollowOneAnother()
    {
        windows::observeAllFromVienna();
        windows::select("ISS");
        indata->dspmd = 1;
        Box box;
        answering([&] { view->vFileSave(); }, {box.read()});
        QCOMPARE(box.text, QString("Saved on File ./satsave.txt"));
        QCOMPARE(indata->dspmd, 1);  // nothing on the screen
        QCOMPARE(indata->tofile, 0);
        const QByteArray once = place->read("satsave.txt");
        QVERIFY(once.startsWith("\n\n\n Geographic Location: Default\n"));
        QVERIFY(once.count("\n.JAN 2") > 3);
        answering([&] { view->vFileSave(); }, {});
        QCOMPARE(place->read("satsave.txt"), once + once);
        view->setSaveName("satsave.txt");
        answering([&] { view->vFileSave(); }, {});
        QCOMPARE(place->read("satsave.txt"), once);
    }

    void savedElementsAreTold()
    {
        windows::select("ISS");
        Box done, failed;
        answering([&] { view->vTLESave(); }, {done.read()});
        QCOMPARE(done.text, QString("TLE's saved on file ./vorlix.tle"));
        QCOMPARE(place->read("vorlix.tle").count('\n'), 3);
        view->setTSaveName("no/such/folder.tle");
        answering([&] { view->vTLESave(); }, {failed.read()});
        QCOMPARE(failed.title, QString("TLE File Save"));
        QCOMPARE(failed.text, QString("*** ERROR *** while opening or writing TLE Save File"));
        QCOMPARE(indata->newtle, 0);
    }

    void aTransitListAsksForItsDistance()
    {
        windows::select("ISS");
        indata->occflg = 2;
        answering([&] { view->vCalcAOS(); }, {[](QDialog* dialog) {
                      QCOMPARE(dialog->windowTitle(), QString("Transit/Flares"));
                      auto* spin = dialog->findChild<QDoubleSpinBox*>();
                      QCOMPARE(spin->maximum(), 50000.0);
                      QCOMPARE(spin->decimals(), 1);
                      spin->setValue(20);
                      dialog->accept();
                  }});
        QCOMPARE(indata->maxdst, 20.0);
        QCOMPARE(indata->iridflg, 0);
        QCOMPARE(indata->dspmd, -1);
        indata->dspmd = 1;
        answering([&] { view->vCalcAOS(); }, {});  // cancelled
        QCOMPARE(indata->dspmd, 1);
        QCOMPARE(indata->iridflg, 0);
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

    void theScanSavesAllPasses()
    {
        const QByteArray whole = place->read("visual.txt");
        const qsizetype first = whole.indexOf("THOR AGENA D R/B");
        place->write("two.txt", whole.mid(first, whole.indexOf("SL-8 R/B") - first));
        view->setTLEname("./two.txt");
        windows::observeAllFromVienna();
        indata->dur = 1.0;
        Box box;
        answering([&] { view->vAllSat(); }, {box.read()});
        QCOMPARE(box.title, QString("Vorlix"));
        QCOMPARE(box.text, QString("List of passes saved on file ./satsave.txt"));
        const QByteArray list = place->read("satsave.txt");
        QVERIFY(list.contains("THOR AGENA D R/B"));
        QVERIFY(list.contains("SL-3 R/B"));
        QVERIFY(!list.contains("SL-8 R/B"));
        QCOMPARE(indata->satn, 0);
    }

    void theFlareSearchComesBackWithTheSettingsItFound()
    {
        QFile::copy(QStringLiteral(TEST_DATA "/elements/iridium_2018.txt"), place->path("iridium.txt"));
        indata->dur = 0.05;
        indata->chlen = 2.0;
        int asked = answering([&] { view->vIridium(); }, {[](QDialog* dialog) {
                                  QCOMPARE(dialog->windowTitle(), QString("Iridium Flares"));
                                  enter(dialog, "magEdit", "-1");
                                  click(dialog, "okButton");
                              }});
        QCOMPARE(asked, 1);
        QCOMPARE(indata->irmag, -1.0);
        QCOMPARE(indata->iridflg, 0);
        QCOMPARE(indata->flarflg, 0);
        QCOMPARE(indata->chlen, 2.0);
        QCOMPARE(QString(indata->tlename), QString("./visual.txt"));
        QCOMPARE(QString(indata->savename), QString("*satsave.txt"));
        QVERIFY(place->read("iridiumf.doc").contains("Geographic Location:"));
        QCOMPARE(indata->dspmd, 0);
    }

    void theAddressOfAnUpdateIsSplit()
    {
        view->setTLEname("/home/u/stations.txt");
        QString host, path, file, proposal;
        int result = 9;
        answering([&] { result = view->vUpdate(host, path, file); }, {[&](QDialog* dialog) {
                      QCOMPARE(dialog->windowTitle(), QString("Online Update"));
                      proposal = qobject_cast<QInputDialog*>(dialog)->textValue();
                      qobject_cast<QInputDialog*>(dialog)->setTextValue("example.org/tle/new.txt");
                      dialog->accept();
                  }});
        QCOMPARE(result, 0);
        QVERIFY(proposal.endsWith("/stations.txt"));
        QCOMPARE(host, QString("example.org"));
        QCOMPARE(path, QString("/tle/new.txt"));
        QCOMPARE(file, QString("/home/u/new.txt"));
        answering([&] { result = view->vUpdate(host, path, file); }, {});
        QCOMPARE(result, 1);
    }

private:
    std::unique_ptr<windows::Workplace> place;
    std::unique_ptr<VorlixView> view;
};

QTEST_MAIN(FilesTest)
#include "files_test.moc"
