// Saving elements in the form that the person chooses.

#include <memory>

#include <QAction>
#include <QFileDialog>
#include <QMessageBox>

#include "app/vorlix_app.h"
#include "view/vorlix_view.h"
#include "view/window_helper.h"

using windows::answering;
using windows::press;

class OmmSaveTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFormOmmCsvGivesTheNameItsEnding()
    {
        windows::stopTheClock();
        const windows::Workplace place;
        VorlixApp app;
        windows::select("ISS");
        QStringList filters;
        QString question, done;
        const auto choose = [&](QDialog* dialog) {
            auto* files = qobject_cast<QFileDialog*>(dialog);
            QVERIFY(files);
            filters = files->nameFilters();
            files->selectNameFilter("OMM CSV (*.csv)");
            auto* name = files->findChild<QLineEdit*>("fileNameEdit");
            name->setText(place.path("mine"));
            QTest::keyClick(name, Qt::Key_Return);
        };
        const auto read = [&](QDialog* dialog) { done = qobject_cast<QMessageBox*>(dialog)->text(); };
        const auto answer = [&](const QString& button) {
            return [&, button](QDialog* dialog) {
                question = qobject_cast<QMessageBox*>(dialog)->text();
                press(dialog, button);
            };
        };
        auto* action = app.findChild<QAction*>("fileTLESaveAs");
        QVERIFY(action);
        answering([&] { action->trigger(); }, {choose, read});
        QCOMPARE(filters, QStringList({"TLE files (*.txt *.TXT *.tle *.TLE)", "OMM CSV (*.csv)", "all files (*.*)"}));
        QCOMPARE(done, "TLE's saved on file " + place.path("mine.csv"));
        const QByteArray saved = place.read("mine.csv");
        QVERIFY(saved.startsWith("OBJECT_NAME,OBJECT_ID,EPOCH,"));
        QVERIFY(saved.contains("\r\nISS (ZARYA),1998-067A,"));
        QVERIFY(!QFile::exists(place.path("mine")));

        place.write("mine.csv", "precious");
        answering([&] { action->trigger(); }, {choose, answer("No")});
        QVERIFY(question.contains("mine.csv"));
        QCOMPARE(place.read("mine.csv"), QByteArray("precious"));
        answering([&] { action->trigger(); }, {choose, answer("Yes"), read});
        QCOMPARE(place.read("mine.csv"), saved);
    }
};

QTEST_MAIN(OmmSaveTest)
#include "omm_save_test.moc"
