// The list of the brightest passes: groups, order, what is told and copied.

#include "dialogs/st_brightest_dialog.h"

#include "dialogs/dialog_helper.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest>

namespace {

BrightPass passOf(const char* name, const char* designator, double start, double magnitude)
{
    BrightPass pass;
    pass.name = name;
    pass.designator = designator;
    pass.norad = 7;
    pass.pass = {{start, start + 0.002, start + 0.004}, {10, 40, 10}, {90, 180, 270}};
    pass.best.magnitude = magnitude;
    pass.best.mjd = start + 0.001;
    pass.source = BrightnessSource::family;
    pass.family = "Balls";
    return pass;
}

BrightList threePasses()
{
    BrightList list;
    list.passes = {passOf("ONE", "2020-001A", 58138.5, 3.0), passOf("TWO", "2020-001B", 58138.504, -0.04),
                   passOf("OTHER", "1999-002A", 58138.6, 1.0)};
    list.fainter = 12;
    list.unknown = 3;
    return list;
}

}  // namespace

class BrightestDialogTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void joinsSortsTellsAndCopies()
    {
        StBrightestDialog dialog;
        QString opened;
        StBrightestDialog::Values asked;
        const StBrightestDialog::Setup setup{"a file", 1.0,
                                             [&](const StBrightestDialog::Values& values) {
                                                 asked = values;
                                                 return std::optional(threePasses());
                                             },
                                             [&](const BrightPass& pass) { opened = pass.name.c_str(); }};
        dialog.setUp(setup);
        QVERIFY(!dialog.chosen());
        dialog.setValues({2.5, false, true, true});
        click(dialog, "searchButton");
        QCOMPARE(asked.faintest, 2.5);
        QVERIFY(!asked.sky && asked.night);

        const auto* tree = child<QTreeWidget>(dialog, "passTree");
        QCOMPARE(tree->topLevelItemCount(), 2);
        const QTreeWidgetItem* launch = tree->topLevelItem(0);
        QCOMPARE(launch->text(5), QString("TWO and 1 more"));
        QCOMPARE(launch->text(3), QString("0.0 +-1.0"));
        QCOMPARE(launch->text(4), QString("Balls"));
        QCOMPARE(launch->text(0), QString("JAN 20  13:05:46 ( 90, 10)"));
        QCOMPARE(launch->child(0)->text(5), QString("ONE"));
        QVERIFY(
            child<QLabel>(dialog, "countLabel")->text().startsWith("3 passes. Left out: 12 fainter, 3 of objects"));
        QCOMPARE(dialog.chosen()->name, std::string("TWO"));
        click(dialog, "detailsButton");
        QCOMPARE(opened, QString("TWO"));

        child<QTreeWidget>(dialog, "passTree")->sortByColumn(0, Qt::DescendingOrder);
        QCOMPARE(tree->topLevelItem(0)->text(5), QString("OTHER"));
        const QStringList lines = QString::fromStdString(dialog.csv()).split("\r\n", Qt::SkipEmptyParts);
        QCOMPARE(lines.size(), 4);
        QVERIFY(lines[1].startsWith("OTHER,7,1999-002A,2018-01-20T14:24:00.000Z"));
        QVERIFY(lines[2].startsWith("TWO") && lines[3].startsWith("ONE"));

        child<QCheckBox>(dialog, "joinBox")->setChecked(false);
        QCOMPARE(tree->topLevelItemCount(), 3);
        click(dialog, "mapButton");
        QVERIFY(dialog.wanted() == StBrightestDialog::Wanted::map);

        dialog.setUp(setup);
        QCOMPARE(tree->topLevelItemCount(), 3);
        dialog.setUp({"another file", 1.0, setup.search, setup.details});
        QVERIFY(!dialog.chosen());
        QVERIFY(!child<QPushButton>(dialog, "skyButton")->isEnabled());
    }
};

QTEST_MAIN(BrightestDialogTest)
#include "brightest_dialog_test.moc"
