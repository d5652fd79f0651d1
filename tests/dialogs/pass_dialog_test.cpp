// The window with the details of a pass.

#include <QMessageBox>
#include <QPushButton>
#include <QTextEdit>

#include "app/record/files.h"
#include "app/record/text.h"
#include "dialogs/dialog_helper.h"
#include "dialogs/st_pass_dialog.h"
#include "elements/reader.h"
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

    void hasTheOutlineOfTheOthers()
    {
        StPassDialog dialog;
        dialog.setParams(10);
        QVERIFY(opened(dialog));
        QCOMPARE(dialog.windowTitle(), QString("Pass Details"));
        QCOMPARE(dialog.size(), QSize(491, 477));
        const auto* text = child<QTextEdit>(dialog, "passEdit");
        QCOMPARE(text->geometry(), QRect(10, 10, 469, 419));
        QVERIFY(text->isReadOnly());
        QCOMPARE(text->font().pointSize(), 10);
        QCOMPARE(text->textCursor().position(), 0);
        const auto* close = child<QPushButton>(dialog, "closeButton");
        QVERIFY(close->isDefault());
        QVERIFY(close->hasFocus());
        QCOMPARE(button(dialog, "saveButton")->toolTip(),
                 QString("Saves the Pass Details information on the Vorlix Save-File."));
        QCOMPARE(button(dialog, "gtrackButton")->toolTip(), QString("Copy groundtrack on save file."));
        QCOMPARE(button(dialog, "gtrackButton")->text(), QString("&G-Track"));
    }

    void closesOnItsKeys_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("modifier");
        QTest::newRow("Alt+C") << static_cast<int>(Qt::Key_C) << static_cast<int>(Qt::AltModifier);
        QTest::newRow("Return") << static_cast<int>(Qt::Key_Return) << 0;
    }

    void closesOnItsKeys()
    {
        QFETCH(int, key);
        QFETCH(int, modifier);
        StPassDialog dialog;
        dialog.setParams(8);
        QVERIFY(opened(dialog));
        QTest::keyClick(&dialog, static_cast<Qt::Key>(key), Qt::KeyboardModifiers(modifier));
        QTRY_VERIFY(!dialog.isVisible());  // a shortcut shows the button pressed for a moment
        QCOMPARE(dialog.result(), static_cast<int>(QDialog::Accepted));
    }

    void listsThePassAndItsPole()
    {
        StPassDialog dialog;
        dialog.setParams(10);
        // the display form has the columns of the file with four digits, but no blank lines in front
        const QByteArray saved = QByteArray::fromStdString(expected("pass_details.txt"));
        QCOMPARE(shownText(dialog), QString::fromLatin1(saved.mid(3)));
    }

    void endsAtItsLimit()
    {
        indata->satel = -90.0;  // a pass without end
        indata->tmstep = 0.1 / 86400.0;
        StPassDialog dialog;
        dialog.setParams(10);
        constexpr int headingLines = 5, poleLines = 3;
        QCOMPARE(shownText(dialog).count('\n') + 1, headingLines + 6250 + poleLines);
    }

    void showsAPoleAloneForAPassThatHasGone()
    {
        indata->aostm[0] = 58138.3;
        StPassDialog dialog;
        dialog.setParams(10);
        QVERIFY(shownText(dialog).startsWith("\n\nApparent Pole of orbit"));
    }

    void savesAsOftenAsItIsAsked()
    {
        indata->newsave = 1;
        StPassDialog dialog;
        dialog.setParams(10);
        QVERIFY(opened(dialog));
        QString told;
        const auto answer = [&told](QDialog& box) {
            told = box.windowTitle() + ": " + qobject_cast<QMessageBox*>(&box)->text();
            box.reject();
        };
        for (const char* which : {"saveButton", "gtrackButton", "saveButton"}) {
            told.clear();
            whenDialogOpens(answer);
            click(dialog, which);
            QCOMPARE(told, QString("Vorlix: Saved on File list.txt"));
        }
        const std::string listed = expected("pass_details.txt");
        const std::string file = ScratchDir::read("list.txt");
        QCOMPARE(file.substr(0, listed.size()), listed);
        QVERIFY(file.size() > 2 * listed.size());
        QCOMPARE(file.substr(file.size() - listed.size()), listed);
        QVERIFY(dialog.isVisible());
    }

    void isSilentAboutAFileThatCannotBeOpened()
    {
        assignField(indata->savename, "/no/such/directory/list.txt");
        StPassDialog dialog;
        dialog.setParams(10);
        QVERIFY(opened(dialog));
        click(dialog, "saveButton");  // a box would block here
        click(dialog, "gtrackButton");
        QVERIFY(dialog.isVisible());
    }

    void cleanup() { folder.reset(); }

private:
    static std::string expected(const char* name)
    {
        QFile file(QStringLiteral(TEST_DATA "/reports/") + QString::fromLatin1(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
    }

    std::unique_ptr<ScratchDir> folder;
};

QTEST_MAIN(PassDialogTest)
#include "pass_dialog_test.moc"
