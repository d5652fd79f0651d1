// The commands around element files of today, through the windows.

#include <memory>

#include <QCheckBox>
#include <QInputDialog>
#include <QMessageBox>
#include <QTest>
#include <QTextEdit>

#include "app/record/text.h"
#include "omm_catalogue.h"
#include "view/vorlix_view.h"
#include "view/window_helper.h"

using windows::answering;
using windows::click;
using windows::enter;
using windows::press;

class OmmFilesTest : public QObject
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

    /// The file that was called visual.txt holds messages now: nothing looks different.
    void selectsFromMessages()
    {
        std::vector<omm::Message> all = omm::messages(place->read("visual.txt").toStdString());
        for (omm::Message& message : all)
            for (auto& [keyword, value] : message)
                value = keyword == "NORAD_CAT_ID" && value == "20580" ? "799500580" : value;
        for (omm::Message& message : all)
            message.push_back({"TIME_SYSTEM", &message == &all[0] ? "TAI" : "UTC"});
        for (const omm::Form& form : omm::forms) {
            place->write("visual.txt", QByteArray::fromStdString(form.write(all)));
            QString refusal;
            const QString refused = QString::fromStdString(all[0].at(0).second);
            answering([&] { view->vSelectSat(); }, {[&](QDialog* dialog) {
                          if (indata->satn > 0)
                              click(dialog, "newButton");
                          if (dialog->findChild<QCheckBox*>("noradBox")->isChecked())
                              click(dialog, "noradBox");
                          enter(dialog, "satnameEdit", refused);
                          click(dialog, "findButton");
                          refusal = dialog->findChild<QTextEdit*>("satinfEdit")->toPlainText();
                          enter(dialog, "satnameEdit", "iss");
                          click(dialog, "findButton");
                          click(dialog, "selectButton");
                          click(dialog, "noradBox");
                          enter(dialog, "noradEdit", "799500580");
                          click(dialog, "findButton");
                          click(dialog, "selectButton");
                          click(dialog, "closeButton");
                      }});
            QVERIFY2(refusal.contains("+++ Not used: TIME_SYSTEM is TAI, not UTC +++"), qPrintable(refusal));
            QCOMPARE(indata->satn, 2);
            QCOMPARE(indata->norad[0], 25544);
            QCOMPARE(indata->norad[1], 799500580);
            QCOMPARE(vsSatName(2).trimmed(), QString("HST"));
        }
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

private:
    std::unique_ptr<windows::Workplace> place;
    std::unique_ptr<VorlixView> view;
};

QTEST_MAIN(OmmFilesTest)
#include "omm_files_test.moc"
