// Selecting satellites from an element file, and removing them.

#include <QTextEdit>

#include "app/record/files.h"
#include "app/record/text.h"
#include "app/record/winp_data.h"
#include "dialogs/dialog_helper.h"
#include "dialogs/st_rem_sat_dialog.h"
#include "dialogs/st_sel_sat_dialog.h"
#include "elements/selection.h"

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
    void init();
    void cleanup();
    void opensWithTheListAndWithoutResults();
    void opensWithTheLastSearch_data();
    void opensWithTheLastSearch();
    void findsWhatIsTypedBehindAClick();
    void tabWalksInTheOrderOfUse();
    void findsByNameAndGoesOnThroughTheMatches();
    void findsByNumberAndByDesignator();
    void saysWhatItDoesNotFind();
    void addsWhatItFound();
    void theEleventhReplacesTheTenth();
    void newSetEmptiesTheList();
    void modesExcludeEachOther();
    void filtersActAtOnce();
    void returnKeySearches();
    void badNumbersSearchForNumberZero();
    void removalShowsTheSelectedSatellites();
    void removalGivesTheMarkedSatellites();

private:
    FilePtr file;
};

void SelectionDialogsTest::init()
{
    setDefaults(indata);
    indata->mjd = 58138.5;  // 20 January 2018, the time of the element sets
    assignField(indata->tlename, "elements/visual.txt");
    file.reset(std::fopen(TEST_DATA "/elements/visual.txt", "r"));
    QVERIFY(file);
    satfle = file.get();
}

void SelectionDialogsTest::cleanup()
{
    satfle = nullptr;
    file.reset();
}

void SelectionDialogsTest::opensWithTheListAndWithoutResults()
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

void SelectionDialogsTest::opensWithTheLastSearch_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("label");
    QTest::addColumn<bool>("typesNumber");
    QTest::newRow("name") << 0 << "Satellite &Name:" << false;
    QTest::newRow("number") << 1 << "Satellite &Name:" << true;
    QTest::newRow("designator") << 2 << "Inter&national Launch#:" << false;
}

void SelectionDialogsTest::opensWithTheLastSearch()
{
    QFETCH(int, mode);
    QFETCH(QString, label);
    QFETCH(bool, typesNumber);
    assignField(indata->cfgname[workSlot], "hst");
    indata->norad[workSlot] = 20580;
    indata->srcmd = mode;
    indata->lowflg = 1;
    indata->recflg = 1;
    StSelSatDialog dialog;
    dialog.setParams();
    QCOMPARE(text(dialog, "satnameEdit"), QString("hst"));
    QCOMPARE(text(dialog, "noradEdit"), QString("20580"));
    QCOMPARE(button(dialog, "noradBox")->isChecked(), mode == 1);
    QCOMPARE(button(dialog, "idsnBox")->isChecked(), mode == 2);
    QCOMPARE(edit(dialog, "noradEdit")->isEnabled(), typesNumber);
    QCOMPARE(edit(dialog, "satnameEdit")->isEnabled(), !typesNumber);
    QCOMPARE(labelText(dialog, "nameLabel"), label);
    QVERIFY(button(dialog, "lowBox")->isChecked() && button(dialog, "recentBox")->isChecked());
    QCOMPARE(indata->lowflg, 1);  // opening changes nothing
    QCOMPARE(indata->recflg, 1);
}

void SelectionDialogsTest::findsWhatIsTypedBehindAClick()
{
    StSelSatDialog dialog;
    dialog.setParams();
    QVERIFY(opened(dialog));
    auto* name = edit(dialog, "satnameEdit");
    QCOMPARE(name->text(), QString());
    QTest::mouseClick(name, Qt::LeftButton);
    QTest::keyClicks(name, "hst");
    click(dialog, "findButton");
    QCOMPARE(name->text(), QString("hst"));
    QVERIFY(button(dialog, "selectButton")->isVisible());
}

void SelectionDialogsTest::tabWalksInTheOrderOfUse()
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
    QCOMPARE(walked.mid(0, 9).join(' '), QString("satnameEdit idsnBox noradBox lowBox recentBox newButton findButton "
                                                 "moreButton selectButton"));
    QCOMPARE(walked.at(9), QString("closeButton"));
}

void SelectionDialogsTest::findsByNameAndGoesOnThroughTheMatches()
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

void SelectionDialogsTest::findsByNumberAndByDesignator()
{
    StSelSatDialog dialog;
    dialog.setParams();
    QVERIFY(opened(dialog));
    click(dialog, "noradBox");
    type(dialog, "noradEdit", "733");
    click(dialog, "findButton");
    QVERIFY(report(dialog).startsWith("THOR AGENA D R/B"));
    click(dialog, "idsnBox");
    type(dialog, "satnameEdit", "1963-047A");
    click(dialog, "findButton");
    QVERIFY(report(dialog).startsWith("ATLAS CENTAUR 2"));
    QCOMPARE(text(dialog, "noradEdit"), QString("694"));
}

void SelectionDialogsTest::saysWhatItDoesNotFind()
{
    StSelSatDialog dialog;
    dialog.setParams();
    QVERIFY(opened(dialog));
    type(dialog, "satnameEdit", "hst");
    click(dialog, "findButton");
    QVERIFY(shown(dialog, "selectButton"));
    click(dialog, "noradBox");
    type(dialog, "noradEdit", "99999");
    click(dialog, "findButton");
    QVERIFY2(report(dialog).contains("+++ No match found for NORAD# 99999 +++"), qPrintable(report(dialog)));
    QVERIFY(hidden(dialog, "selectButton") && hidden(dialog, "moreButton"));
}

void SelectionDialogsTest::addsWhatItFound()
{
    StSelSatDialog dialog;
    dialog.setParams();
    QVERIFY(opened(dialog));
    type(dialog, "satnameEdit", "cosmos 15");
    click(dialog, "findButton");
    click(dialog, "selectButton");
    QCOMPARE(indata->satn, 1);
    QVERIFY(report(dialog).contains("\n  COSMOS 1500"));
    QVERIFY(hidden(dialog, "selectButton") && hidden(dialog, "newButton"));
    QVERIFY(shown(dialog, "moreButton"));
    click(dialog, "moreButton");
    QCOMPARE(indata->satn, 1);
    QVERIFY(shown(dialog, "selectButton"));
    click(dialog, "selectButton");
    QCOMPARE(indata->satn, 2);
    QVERIFY(report(dialog).contains("\n  COSMOS 1536"));
}

void SelectionDialogsTest::theEleventhReplacesTheTenth()
{
    selectSats(10);
    StSelSatDialog dialog;
    dialog.setParams();
    QVERIFY(opened(dialog));
    type(dialog, "satnameEdit", "hst");
    click(dialog, "findButton");
    click(dialog, "selectButton");
    QCOMPARE(indata->satn, 10);
    QVERIFY(vsSatName(10).startsWith("HST"));
    QCOMPARE(vsSatName(9), QString("SAT 9"));
}

void SelectionDialogsTest::newSetEmptiesTheList()
{
    selectSats(3);
    indata->prs = 2;
    StSelSatDialog dialog;
    dialog.setParams();
    QVERIFY(opened(dialog));
    click(dialog, "newButton");
    QCOMPARE(indata->satn, 0);
    QCOMPARE(indata->prs, 0);
    QVERIFY(hidden(dialog, "newButton"));
    QVERIFY(report(dialog).endsWith("*** No Satellites Selected ***"));
}

void SelectionDialogsTest::modesExcludeEachOther()
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

void SelectionDialogsTest::filtersActAtOnce()
{
    StSelSatDialog dialog;
    dialog.setParams();
    QVERIFY(opened(dialog));
    click(dialog, "lowBox");
    QCOMPARE(indata->lowflg, 1);
    QCOMPARE(indata->recflg, 0);
    click(dialog, "recentBox");
    click(dialog, "lowBox");
    QCOMPARE(indata->lowflg, 0);
    QCOMPARE(indata->recflg, 1);
}

void SelectionDialogsTest::returnKeySearches()
{
    selectSats(2);
    StSelSatDialog dialog;
    dialog.setParams();
    QVERIFY(opened(dialog));
    type(dialog, "satnameEdit", "hst");
    QTest::keyClick(edit(dialog, "satnameEdit"), Qt::Key_Return);
    QTRY_VERIFY(report(dialog).startsWith("HST"));
    QCOMPARE(indata->satn, 2);
}

void SelectionDialogsTest::badNumbersSearchForNumberZero()
{
    StSelSatDialog dialog;
    dialog.setParams();
    QVERIFY(opened(dialog));
    for (const BadText& c : badTexts) {
        button(dialog, "noradBox")->setChecked(true);
        type(dialog, "noradEdit", c.typed);
        click(dialog, "findButton");
        QVERIFY2(report(dialog).contains("NORAD# 0 "), qPrintable(report(dialog)));
    }
}

void SelectionDialogsTest::removalShowsTheSelectedSatellites()
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

void SelectionDialogsTest::removalGivesTheMarkedSatellites()
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

QTEST_MAIN(SelectionDialogsTest)
#include "selection_dialogs_test.moc"
