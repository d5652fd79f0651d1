// The chart of a pass: its values against the engine, what the pointer reads, and its files.

#include <QAccessible>
#include <QFile>
#include <QLabel>
#include <QXmlStreamReader>

#include "dialogs/st_chart_dialog.h"
#include "engine/pass_search.h"
#include "engine/position.h"
#include "view/view_fixture.h"

class ChartTest : public ViewTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        open();
        view->show();
        windows::observeAllFromVienna();
        windows::select("ISS");
        indata->tmstep = 1.0 / 1440.0;
        indata->chlen = 30.0;
    }
    void cleanup() { close(); }

    /// Rise, highest point, set and shadow of each pass, by the engine's own searches and positions.
    void agreesWithTheSearch()
    {
        indata->satel = 0.0;
        windows::select("SL-16");  // high enough for shadow and light in one pass
        indata->prs = 1;
        double t = indata->mjd, tm[3], a[3], b[3];
        int shadows = 0;
        for (int pass = 0; pass < 12; ++pass) {
            QVERIFY(nextpass(indata, 1, t, t + 2.0, tm, a, b) == 1);
            t = tm[2] + 0.02;
            const PassChart chart = chartOfPass(*indata, tm[0] - 0.002);
            constexpr double second = 1.0 / 86400.0;
            QVERIFY(std::abs(chart.points.front().mjd - tm[0]) < 1.5 * second);
            QVERIFY(std::abs(chart.points.back().mjd - tm[2]) < 1.5 * second);
            QVERIFY(std::abs(chart.points[chart.highest].mjd - tm[1]) < 3.0 * second);
            for (const PassChart::Point& change : chart.changes) {
                ++shadows;
                GetSatPos(change.mjd - second, indata, satpos, 1, 0);
                const bool litBefore = satpos->sunel[1] >= 0.0;
                GetSatPos(change.mjd + second, indata, satpos, 1, 0);
                QVERIFY(litBefore != (satpos->sunel[1] >= 0.0));
                QCOMPARE(change.sunlit, !litBefore);
            }
        }
        QVERIFY(shadows > 0);
    }

    void isReadByPointerAndKeysAndSaved()
    {
        view->vCalcAOS();
        view->markNextRow(1);
        QString title, first, last, lastRead;
        const auto chart = [&](QDialog* dialog) {
            auto* plot = dialog->findChild<PassChartView*>();
            auto* label = dialog->findChild<QLabel*>("readingLabel");
            if (qEnvironmentVariableIsSet("VORLIX_PICTURES"))
                dialog->grab().save(qEnvironmentVariable("VORLIX_PICTURES") + "/chart.png");
            title = dialog->windowTitle();
            QTest::keyClick(plot, Qt::Key_Home);
            first = label->text();
            QTest::keyClick(plot, Qt::Key_End);
            last = label->text();
            const QPointF inGraph(plot->width() / 2.0, plot->height() - 60.0);
            QMouseEvent over(QEvent::MouseMove, inGraph, plot->mapToGlobal(inGraph), Qt::NoButton, {}, {});
            QApplication::sendEvent(plot, &over);
            lastRead = label->text();
        };
        const auto details = [&](QDialog* dialog) {
            QTimer::singleShot(100, dialog, [&] {
                auto* over = qobject_cast<QDialog*>(QApplication::activeModalWidget());
                chart(over);
                over->reject();
            });
            windows::click(dialog, "chartButton");
        };
        windows::answering([&] { view->openMarkedRow(); }, {details});
        QCOMPARE(title, "Chart");
        QVERIFY(first.contains("elevation 0") && last.contains("elevation 0") && first != last);
        QVERIFY(lastRead != last && lastRead.contains("range"));

        PassChart drawn = chartOfPass(*indata, indata->aostm[indata->aossel]);
        QString why;
        for (const char* name : {"pass.svg", "pass.png", "pass.pdf"})
            QVERIFY(QString(name).endsWith("pdf") ? StChartDialog::print(drawn, place->path(name), why)
                                                  : StChartDialog::save(drawn, place->path(name), why));
        QXmlStreamReader svg(place->read("pass.svg"));
        int paths = 0;
        while (!svg.atEnd())
            paths += svg.readNext() == QXmlStreamReader::StartElement && svg.name() == u"path";
        QVERIFY(!svg.hasError() && paths > 5);
        QCOMPARE(QImage(place->path("pass.png")).size(), passChartSize.toSize() * 2);
        QVERIFY(place->read("pass.pdf").startsWith("%PDF"));
        QVERIFY(!StChartDialog::save(drawn, place->path("none/pass.png"), why) && !why.isEmpty());
    }
};

QTEST_MAIN(ChartTest)
#include "chart_test.moc"
