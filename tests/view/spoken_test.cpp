// What assistive programs are told: the report as text, the rows of a table, a map as a sentence.

#include <QAccessible>
#include <QTest>

#include "record_fields.h"
#include "view/view_fixture.h"

class SpokenTest : public ViewTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        open();
        view->show();
        windows::observeAllFromVienna();
        windows::select("ISS");
        canvas = QAccessible::queryAccessibleInterface(view.get());
    }
    void cleanup() { close(); }

    void aPassTableHasRowsThatCanBePressed()
    {
        view->vCalcAOS();
        QCOMPARE(canvas->role(), QAccessible::Table);
        QCOMPARE(canvas->text(QAccessible::Name), QString("Table of passes"));
        auto* const table = canvas->tableInterface();
        QCOMPARE(table->rowCount(), indata->naos);
        QAccessibleInterface* const row = table->cellAt(2, 0);
        QVERIFY2(row->text(QAccessible::Name).startsWith("JAN 20 23:08:38 (288, 10)"),
                 qPrintable(row->text(QAccessible::Name)));
        QCOMPARE(canvas->childAt(row->rect().center().x(), row->rect().center().y()), row);
        QString opened;
        windows::answering([&] { row->actionInterface()->doAction(QAccessibleActionInterface::pressAction()); },
                           {[&](QDialog* dialog) { opened = dialog->windowTitle(); }});
        QCOMPARE(opened, QString("Pass Details"));
        QCOMPARE(indata->aossel, 2);
        QVERIFY(row->state().selected && table->isRowSelected(2) && !table->isRowSelected(1));
        QVERIFY(canvas->textInterface()->text(0, 10000).contains("Satellite: ISS (ZARYA)\n"));
        view->vText();
        QCOMPARE(canvas->childCount(), 0);
        QVERIFY(!canvas->tableInterface());
    }

    // the figures of the legend's test: SGP4 and ERFA
    void aMapIsASentence()
    {
        for (const auto& [fields, name] : {std::pair{"skymap=0 mapprj=0", "World map"}, {"skymap=1", "Sky map"}}) {
            setFields(*indata, fields);
            view->vRefresh();
            view->SatPlot(58139.8632, 1);
            QCOMPARE(canvas->text(QAccessible::Name), QString(name));
            QCOMPARE(
                canvas->text(QAccessible::Description),
                QString("ISS (ZARYA), azimuth 87.6, elevation 71.4, range 428.8 km, latitude 48.3, longitude 18.2, "
                        "height 407.8 km, in shadow, JAN 21 20:43:00"));
        }
        indata->satn = 0;
        view->SatPlot(58139.8632, 1);
        QCOMPARE(canvas->text(QAccessible::Description), QString("JAN 21 20:43:00, no satellite"));
        view->showtxt(true);
        QCOMPARE(canvas->role(), QAccessible::Document);
        QCOMPARE(canvas->text(QAccessible::Name), QString("Report"));
    }

private:
    QAccessibleInterface* canvas = nullptr;
};

QTEST_MAIN(SpokenTest)
#include "spoken_test.moc"
