// Commands around the selection and the files: lists, orbit tracks, elements, and files that cannot be written.

#include <map>

#include <QInputDialog>
#include <QTest>

#include "record/text.h"
#include "record/wout_data.h"
#include "view/table_rows.h"
#include "view/view_fixture.h"

using windows::acts;
using windows::answering;
using windows::press;
using windows::told;

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

    void namesOfFiles()
    {
        QCOMPARE(view->getTLEname(), QString("./visual.txt"));
        for (const auto& [name, held] : {std::pair<QString, QString>{"*", ""},
                                         {"/data/" + QString(200, 'n'), "/data/" + QString(98, 'n')},
                                         {"/data/tle/visual.txt", "/data/tle/visual.txt"}}) {
            view->setTLEname(name);
            QCOMPARE(view->getTLEname(), held);
        }
        QCOMPARE(view->getSaveName(), QString("/data/tle/satsave.txt"));
        QCOMPARE(view->getTSaveName(), QString("/data/tle/vorlix.tle"));
        indata->newsave = indata->newtle = 0;
        view->setSaveName("other.txt");
        view->setTSaveName("other.tle");
        QCOMPARE(view->getSaveName() + view->getTSaveName(), QString("other.txtother.tle"));
        QCOMPARE(indata->newsave + indata->newtle, 2);
    }

    void troublesAreTold()
    {
        const std::map<QString, std::function<void()>> commands{
            {"vSelectSat", [this] { view->vSelectSat(); }},   {"vAllSat", [this] { view->vAllSat(); }},
            {"vOrbitTrack", [this] { view->vOrbitTrack(); }}, {"vFileSave", [this] { view->vFileSave(); }},
            {"vTLESave", [this] { view->vTLESave(); }},       {"vDeltaV", [this] { view->vDeltaV(); }},
            {"vRendz", [this] { view->vRendz(); }},           {"vPlotNext", [this] { view->vPlotNext(); }},
            {"vPlotLast", [this] { view->vPlotLast(); }}};
        for (const TableRow& row : tableRows("troubles.txt")) {
            if (row[1] == "1" && indata->satn == 0)
                windows::select("ISS");
            view->setTLEname(row[2]);
            view->setSaveName(row[3]);
            view->setTSaveName(row[3]);
            QCOMPARE(told(commands.at(row[0])).replaceInStrings("\n", "/"), QStringList(row[4]));
            QCOMPARE(indata->tofile, 0);
            QFile::remove("list.txt");  // of the scan without elements
        }
        QCOMPARE(QDir().entryList(QDir::Files), QStringList("visual.txt"));
    }

    void savesWhatTheFormHolds()
    {
        windows::select("ISS");
        windows::select("HST");
        indata->norad[1] = 340123;
        const auto save = [this] { view->vTLESave(); };
        const auto answer = [](const QString& button) {
            return [button](QDialog* dialog) { press(dialog, button); };
        };
        const QStringList question = told(save);
        QVERIFY(question[0].contains("HST (340123)"));
        QVERIFY(!question[0].contains("ISS"));
        QFile::remove("vorlix.tle");
        QCOMPARE(told(save, {answer("No")}),
                 QStringList("Vorlix: TLE's saved on file ./vorlix.tle\n\nLeft out:\nHST (340123)"));
        QCOMPARE(place->read("vorlix.tle").count('\n'), 3);
        QCOMPARE(told(save, {answer("Yes")}), QStringList("Vorlix: TLE's saved on file ./vorlix.tle"));
        QVERIFY(place->read("vorlix.tle").contains("\n2 40123 "));
        view->setTSaveName("out.csv");
        indata->numflg[0] = 1;
        QCOMPARE(told(save), QStringList("Vorlix: TLE's saved on file out.csv\n\nLeft out:\nISS (ZARYA) (25544)"));
        QVERIFY(place->read("out.csv").contains(",340123,"));
        view->setTSaveName("out.csv");
        indata->numflg[1] = 1;
        const QByteArray before = place->read("out.csv");
        QVERIFY(told(save)[0].startsWith("TLE File Save: Nothing saved."));
        QCOMPARE(place->read("out.csv"), before);
    }

    void asksForTheNameOfAQuery()
    {
        view->setTLEname("/home/u/stations.txt");
        const QString query = "https://example.org/gp.php?GROUP=visual&FORMAT=csv";
        QString host, path, file, proposal;
        int result = 9;
        const auto update = [&] { result = view->vUpdate(host, path, file); };
        /// Notes what is proposed, and takes that or another text.
        const auto take = [&](const QString& other = {}) {
            return [&proposal, other](QDialog* dialog) {
                QCOMPARE(dialog->windowTitle(), QString("Online Update"));
                auto* const input = qobject_cast<QInputDialog*>(dialog);
                proposal = input->textValue();
                input->setTextValue(other.isEmpty() ? proposal : other);
                dialog->accept();
            };
        };
        answering(update, {take(query), take()});
        QCOMPARE(result, 0);
        QCOMPARE(proposal, QString("visual.csv"));
        QCOMPARE(host + path, query);
        QCOMPARE(host, QString("https://example.org"));
        QCOMPARE(file, QString("/home/u/visual.csv"));
        answering(update, {take(), take("mine.txt")});  // proposed again
        QCOMPARE(host + path, query);
        QCOMPARE(file, QString("/home/u/mine.txt"));
        QCOMPARE(told(update, {take(query), take("a/b")}),
                 QStringList("Online Update: No file can bear the name a/b."));
        QCOMPARE(result, 1);
        answering(update, {take("example.org/x?y")});  // no name
        QCOMPARE(result, 1);
        QCOMPARE(fieldQString(indata->url), query);
    }

    void anOrbitTrackReplacesTheFileAndAListReplacesTheTrack()
    {
        windows::select("ISS");
        QCOMPARE(told([this] { view->vOrbitTrack(); }), QStringList("Vorlix: Track saved on file ./satsave.txt"));
        const QByteArray track = place->read("satsave.txt");
        QVERIFY(track.startsWith("\n Year: 2018  +++> Timezone 0 <+++\n                     \n\nJAN 20  17:05:09"));
        QCOMPARE(indata->newsave, 1);
        answering([this] { view->vFileSave(); }, {});
        const QByteArray list = place->read("satsave.txt");
        QVERIFY(list.startsWith("\n\n\n Geographic"));
        answering([this] { view->vOrbitTrack(); }, {});
        QCOMPARE(place->read("satsave.txt"), track);
        answering([this] { view->vFileSave(); }, {});
        QCOMPARE(place->read("satsave.txt"), track + list);
    }

    void withoutIridiumElementsTheOldListStays()
    {
        const QByteArray old = "JAN 20  18:00:10 (254, 23)  Iridium Flare Front  ->S  mag  -5.0   IRIDIUM 8\n";
        place->write("iridiumf.doc", old);
        QCOMPARE(told([this] { view->vIridium(); }, {acts("magEdit=-2 okButton")}),
                 QStringList("All Passes: *** Problems with the input file"));
        QCOMPARE(place->read("iridiumf.doc"), old);
        QCOMPARE(outdata->nlines, 0);  // flares of an earlier search are not shown as those of this one
        QCOMPARE(indata->newsave, 1);
        QCOMPARE(QString(indata->tlename), QString("./visual.txt"));
    }
};

QTEST_MAIN(FilesTest)
#include "files_test.moc"
