// Selecting satellites from an element file, and removing them.

#include <QTextEdit>
#include <array>

#include "dialogs/dialog_helper.h"
#include "dialogs/st_rem_sat_dialog.h"
#include "dialogs/st_sel_sat_dialog.h"
#include "elements/selection.h"
#include "record/files.h"
#include "record/text.h"
#include "record/winp_data.h"

namespace {

QString report(const QDialog& dialog)
{
    return child<QTextEdit>(dialog, "satinfEdit")->toPlainText();
}

void selectSats(int count)
{
    indata->satn = count;
    for (int i = 0; i < count; ++i)
        assignField(indata->fsname[i], QString("SAT %1").arg(i + 1).toStdString());
}

}  // namespace

class SelectionDialogsTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        setDefaults(indata);
        indata->mjd = 58138.5;  // 20 January 2018, the time of the element sets
        assignField(indata->tlename, "elements/visual.txt");
        file.reset(std::fopen(TEST_DATA "/elements/visual.txt", "r"));
        QVERIFY(file);
        satfle = file.get();
    }

    void cleanup()
    {
        satfle = nullptr;
        file.reset();
    }

    void opensWithTheListAndWithoutResults()
    {
        for (const int count : {0, 2}) {
            selectSats(count);
            StSelSatDialog dialog;
            dialog.setParams();
            QCOMPARE(shown(dialog, "newButton"), count > 0);
            QCOMPARE(hidden(dialog, "newButton"), count == 0);
            QVERIFY(hidden(dialog, "moreButton") && hidden(dialog, "selectButton"));
            QVERIFY(shown(dialog, "findButton") && shown(dialog, "closeButton"));
            const QString list =
                count == 0 ? "\n\n*** No Satellites Selected ***" : "\n\nSelected Satellites:\n\n  SAT 1\n  SAT 2";
            QCOMPARE(report(dialog), "TLE filename: elements/visual.txt" + list);
            QVERIFY(child<QTextEdit>(dialog, "satinfEdit")->isReadOnly());
        }
    }

    void opensWithTheSearchOfTheLastTime()
    {
        indata->srcmd = 2;
        indata->lowflg = indata->recflg = 1;
        assignField(indata->cfgname[10], "1998-067A");
        StSelSatDialog dialog;
        dialog.setParams();
        QCOMPARE(text(dialog, "satnameEdit"), QString("1998-067A"));
        QCOMPARE(labelText(dialog, "nameLabel"), QString("Inter&national Launch#:"));
        for (const char* box : {"idsnBox", "lowBox", "recentBox"})
            QVERIFY2(button(dialog, box)->isChecked(), box);
        QVERIFY(opened(dialog));
        click(dialog, "lowBox");
        QCOMPARE((std::array{indata->lowflg, indata->recflg}), (std::array{0, 1}));
        click(dialog, "lowBox");
        click(dialog, "recentBox");
        QCOMPARE((std::array{indata->lowflg, indata->recflg}), (std::array{1, 0}));
    }

    void tabWalksInTheOrderOfUse()
    {
        selectSats(1);
        StSelSatDialog dialog;
        dialog.setParams();
        QVERIFY(opened(dialog));
        QVERIFY(edit(dialog, "satnameEdit")->hasFocus());
        type(dialog, "satnameEdit", "cosmos");
        click(dialog, "findButton");
        edit(dialog, "satnameEdit")->setFocus();
        QStringList walked;
        for (int i = 0; i < 11; ++i) {
            walked.append(dialog.focusWidget()->objectName());
            QTest::keyClick(dialog.focusWidget(), Qt::Key_Tab);
        }
        // noradEdit is disabled, and a text that is only read takes no tab
        QCOMPARE(walked.mid(0, 9).join(' '),
                 QString("satnameEdit idsnBox noradBox lowBox recentBox newButton findButton "
                         "moreButton selectButton"));
        QCOMPARE(walked.at(9), QString("closeButton"));
    }

    void findsByNameAndGoesOnThroughTheMatches()
    {
        StSelSatDialog dialog;
        dialog.setParams();
        QVERIFY(opened(dialog));
        type(dialog, "satnameEdit", "cosmos 1536");
        click(dialog, "findButton");
        QVERIFY(report(dialog).startsWith("COSMOS 1536"));
        QVERIFY(shown(dialog, "selectButton"));
        QVERIFY(hidden(dialog, "moreButton"));

        type(dialog, "satnameEdit", "cosmos 15");
        click(dialog, "findButton");
        QVERIFY(report(dialog).startsWith("COSMOS 1500"));
        QVERIFY(shown(dialog, "selectButton") && shown(dialog, "moreButton"));
        click(dialog, "moreButton");
        QVERIFY(report(dialog).startsWith("COSMOS 1536"));
        QCOMPARE(text(dialog, "noradEdit"), QString::number(indata->norad[workSlot]));
        click(dialog, "findButton");  // from the start again
        QVERIFY(report(dialog).startsWith("COSMOS 1500"));
    }

    void modesExcludeEachOther()
    {
        StSelSatDialog dialog;
        dialog.setParams();
        QVERIFY(opened(dialog));
        click(dialog, "noradBox");
        QVERIFY(edit(dialog, "noradEdit")->isEnabled() && !edit(dialog, "satnameEdit")->isEnabled());
        click(dialog, "idsnBox");
        QVERIFY(!button(dialog, "noradBox")->isChecked());
        QVERIFY(!edit(dialog, "noradEdit")->isEnabled() && edit(dialog, "satnameEdit")->isEnabled());
        QCOMPARE(labelText(dialog, "nameLabel"), QString("Inter&national Launch#:"));
        click(dialog, "noradBox");
        QVERIFY(!button(dialog, "idsnBox")->isChecked());
        QCOMPARE(labelText(dialog, "nameLabel"), QString("Satellite &Name:"));
        QVERIFY(edit(dialog, "noradEdit")->isEnabled() && !edit(dialog, "satnameEdit")->isEnabled());
    }

    void removalShowsTheSelectedSatellites()
    {
        for (const int count : {1, 3, 10}) {
            selectSats(count);
            StRemSatDialog dialog;
            dialog.setParams(count);
            for (int i = 1; i <= 10; ++i) {
                const QByteArray box = QString("satBox%1").arg(i).toLatin1();
                const QByteArray name = QString("satEdit%1").arg(i).toLatin1();
                QCOMPARE(shown(dialog, box), i <= count);
                QCOMPARE(hidden(dialog, box), i > count);
                QCOMPARE(hidden(dialog, name), i > count);
                QCOMPARE(text(dialog, name), i <= count ? QString("SAT %1").arg(i) : QString());
                QCOMPARE(button(dialog, box)->shortcut(), QKeySequence(QString("Alt+%1").arg(i % 10)));
            }
        }
    }

    void removalGivesTheMarkedSatellites()
    {
        selectSats(3);
        StRemSatDialog dialog;
        dialog.setParams(3);
        QVERIFY(opened(dialog));
        click(dialog, "satBox2");
        bool marked[10];
        dialog.getParams(marked);
        for (int i = 0; i < 10; ++i)
            QCOMPARE(marked[i], i == 1);
        click(dialog, "allButton");
        QVERIFY(dialog.isVisible());  // OK is still to be pressed
        dialog.getParams(marked);
        for (int i = 0; i < 10; ++i)
            QCOMPARE(marked[i], i < 3);
    }

private:
    FilePtr file;
};

QTEST_MAIN(SelectionDialogsTest)
#include "selection_dialogs_test.moc"
