// The painters of the report and the rows of the pass table.

#include <memory>
#include <string>

#include <QFontMetrics>
#include <QPainter>
#include <QTest>

#include "app/record/wout_data.h"
#include "view/view_fixture.h"

namespace {

/// A report as it must look: each character at its own place.
class Expected
{
public:
    Expected() : page(860, 2500)
    {
        page.fill(Qt::white);
        painter.begin(&page);
        painter.setFont(QFont("helvetica", fsz));
        painter.setPen(Qt::black);
    }

    int ascent() const { return painter.fontMetrics().ascent(); }
    int cell() const { return painter.fontMetrics().horizontalAdvance(QLatin1Char('M')); }
    int width(char c) const { return painter.fontMetrics().horizontalAdvance(QLatin1Char(c)); }
    void at(int x, int y, char c) { painter.drawText(x, y, QString(QLatin1Char(c))); }

    void sideBySide(int y, const char* text)
    {
        int x = 10;
        for (; *text; ++text) {
            at(x, y, *text);
            x += width(*text);
        }
    }

    void onGrid(int y, const char* text)
    {
        for (int i = 0; text[i]; ++i)
            at(10 + i * cell(), y, text[i]);
    }

    QImage image()
    {
        painter.end();
        return page.toImage();
    }

private:
    QPixmap page;
    QPainter painter;
};

}  // namespace

class TextDisplayTest : public ViewTest
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        open();
        outdata->nlines = 0;
    }

    void cleanup() { close(); }

    void tableLinesStandOnAGridOnlyWhenFixed()
    {
        PutNxtLn(outdata, "Wide and i");
        PutNxtLnT(outdata, "Wide and i");
        Expected fixed;
        fixed.sideBySide(fixed.ascent(), "Wide and i");
        fixed.onGrid(2 * fixed.ascent(), "Wide and i");
        view->showtxt(true);
        QCOMPARE(view->textPixmap().toImage(), fixed.image());

        Expected running;
        running.sideBySide(running.ascent(), "Wide and i");
        running.sideBySide(2 * running.ascent(), "Wide and i");
        view->showtxt(false);
        QCOMPARE(view->textPixmap().toImage(), running.image());
        QCOMPARE(indata->dspmd, 0);
        QCOMPARE(dsplmd, int(filled::text));
    }

    void aTabSnapsToTheColumnOfTheGrid()
    {
        PutNxtLn(outdata, "iii\tA\tB");
        Expected page;
        const int y = page.ascent();
        page.sideBySide(y, "iii");
        page.at(10 + 3 * page.cell(), y, 'A');
        // the column of the second tab, two characters on
        page.at(10 + 5 * page.cell(), y, 'B');
        view->showtxt(false);
        QCOMPARE(view->textPixmap().toImage(), page.image());
    }

    void thePassTableHidesTheMarkAndKnowsItsRows()
    {
        PutNxtLn(outdata, " Heading");
        PutNxtLnT(outdata, "  Start   End");
        PutNxtLnT(outdata, ".JAN 20");
        PutSpace(outdata);
        PutNxtLnT(outdata, ".JAN 21");
        Expected page;
        const int a = page.ascent();
        page.sideBySide(a, "Heading");
        page.onGrid(2 * a, " Start   End");
        page.onGrid(3 * a, "JAN 20");
        page.onGrid(5 * a, "JAN 21");
        indata->dspmd = -1;
        view->showSattxt();
        QCOMPARE(view->textPixmap().toImage(), page.image());
        QCOMPARE(dsplmd, int(filled::passTable));
        QCOMPARE(indata->dspmd, -1);
        QCOMPARE(epos[0], 3 * a - a - 2);
        QCOMPARE(epos[1], 5 * a - a - 2);
    }

    void aRowReachesFromItsTopToTheNext()
    {
        for (int i = 0; i < 3; ++i)
            PutNxtLnT(outdata, ".row");
        view->showSattxt();
        QCOMPARE(passRowAt(epos[0], 3), -1);  // above, not at
        QCOMPARE(passRowAt(epos[0] + 1, 3), 0);
        QCOMPARE(passRowAt(epos[1], 3), 0);
        QCOMPARE(passRowAt(epos[1] + 1, 3), 1);
        QCOMPARE(passRowAt(2499, 3), 2);
        QCOMPARE(passRowAt(2499, 1), 0);
    }

    void rowsAnswerUntilAMapHasBeenDrawn()
    {
        windows::select("ISS");
        view->vCalcAOS();
        QCOMPARE(indata->dspmd, -1);
        QCOMPARE(view->size(), QSize(860, 2500));
        view->vText();  // to the map, which stood ready
        QCOMPARE(indata->dspmd, 1);
        QCOMPARE(view->size(), QSize(860, 501));
        view->vText();
        QCOMPARE(indata->dspmd, -1);
        view->vText();
        view->vRefresh();
        view->vText();
        QCOMPARE(indata->dspmd, 0);  // plain text now
    }

    void startsWithTheWelcomeTextAndTheMapBehindIt()
    {
        // cleared by init(), so made anew
        view = std::make_unique<VorlixView>();
        QCOMPARE(indata->dspmd, 0);
        QCOMPARE(dsplmd, int(filled::map));
        QVERIFY(outdata->nlines > 10);
        Expected page;
        for (int i = 0; i < outdata->nlines; ++i)
            page.sideBySide((i + 1) * page.ascent(), std::string(lineText(*outdata, i)).c_str());
        QCOMPARE(view->textPixmap().toImage(), page.image());
        QCOMPARE(view->grab().toImage().copy(0, 0, 860, 501), view->textPixmap().toImage().copy(0, 0, 860, 501));
    }
};

QTEST_MAIN(TextDisplayTest)
#include "text_display_test.moc"
