// The window with the details of a pass.

#include <QMessageBox>
#include <QTextEdit>

#include "dialogs/dialog_helper.h"
#include "dialogs/st_pass_dialog.h"
#include "elements/reader.h"
#include "record/files.h"
#include "record/text.h"
#include "scratch_dir.h"

namespace {

constexpr double secondPass = 58138.06773;  // of the station over Vienna

void selectStation()
{
    const FilePtr file = openForReading(indata->tlename);
    char report[entryTextRoom];
    indata->srcmd = 1;
    indata->norad[workSlot] = 25544;
    QVERIFY(tleread(indata, file.get(), report, 0) > 0);
    ShiftElm(indata, 0, workSlot);
    indata->satn = 1;
}

QString shownText(const QDialog& dialog)
{
    return child<QTextEdit>(dialog, "passEdit")->toPlainText();
}

}  // namespace

class PassDialogTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        folder = std::make_unique<ScratchDir>();
        *indata = WinpData{};
        setDefaults(indata);
        indata->lat = 48.25;
        indata->lng = 16.5;
        indata->height = 200.0;
        indata->tzone = 1.0;
        indata->visflg = 0;
        indata->sunel = 90.0;
        indata->yrepoch = 0.0;
        indata->ra4d = 1;
        indata->tmstep = 1.0 / 1440.0;
        assignField(indata->tlename, TEST_DATA "/elements/visual_2018.txt");
        assignField(indata->savename, "list.txt");
        selectStation();
        indata->naos = 1;
        indata->aostm[0] = secondPass;
    }

    void listsThePassAndItsPole()
    {
        StPassDialog dialog;
        dialog.setParams(10);
        // the display form has the columns of the file with four digits, but no blank lines in front
        const QByteArray saved = QByteArray::fromStdString(expected("pass_details.txt"));
        QCOMPARE(shownText(dialog), QString::fromLatin1(saved.mid(3)));
    }

    void savesAsOftenAsItIsAsked()
    {
        indata->newsave = 1;
        StPassDialog dialog;
        dialog.setParams(10);
        QVERIFY(opened(dialog));
        for (const char* which : {"saveButton", "gtrackButton", "saveButton"})
            QCOMPARE(told(dialog, which), QString("Vorlix: Saved on File list.txt"));
        const std::string listed = expected("pass_details.txt");
        const std::string file = ScratchDir::read("list.txt");
        QCOMPARE(file.substr(0, listed.size()), listed);
        QVERIFY(file.size() > 2 * listed.size());
        QCOMPARE(file.substr(file.size() - listed.size()), listed);
        QVERIFY(dialog.isVisible());
    }

    void saysWhyAFileCannotBeWritten()
    {
        assignField(indata->savename, "/dev/full");
        StPassDialog dialog;
        dialog.setParams(10);
        QVERIFY(opened(dialog));
        for (const char* which : {"saveButton", "gtrackButton"})
            QCOMPARE(told(dialog, which),
                     QString("Vorlix: Nothing was written to /dev/full\nNo space left on device"));
    }

    void cleanup() { folder.reset(); }

private:
    /// What the box says that a button brings.
    static QString told(StPassDialog& dialog, const char* button)
    {
        QString text;
        whenDialogOpens([&text](QDialog& box) {
            text = box.windowTitle() + ": " + qobject_cast<QMessageBox*>(&box)->text();
            box.reject();
        });
        click(dialog, button);
        return text;
    }

    static std::string expected(const char* name)
    {
        QFile file(QStringLiteral(TEST_DATA "/reports/") + QString::fromLatin1(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
    }

    std::unique_ptr<ScratchDir> folder;
};

QTEST_MAIN(PassDialogTest)
#include "pass_dialog_test.moc"
