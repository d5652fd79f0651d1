// What is on show: reports and the rows of the pass table, the map behind them, and the frame of each map.

#include <memory>
#include <string>

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <QTest>

#include "record/wout_data.h"
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
    int width(QChar c) const { return painter.fontMetrics().horizontalAdvance(c); }

    /// A line side by side or in cells as wide as an M, from a column of these cells on.
    void write(int line, const QString& text, bool grid = false, int column = 0)
    {
        int x = 10 + column * width(u'M');
        for (const QChar c : text) {
            painter.drawText(x, line * ascent(), c);
            x += width(grid ? QChar(u'M') : c);
        }
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

class DisplayTest : public ViewTest
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
        for (const bool fixed : {true, false}) {
            Expected page;
            page.write(1, "Wide and i");
            page.write(2, "Wide and i", fixed);
            view->showtxt(fixed);
            QCOMPARE(view->textPixmap().toImage(), page.image());
            QCOMPARE(indata->dspmd, 0);
            QCOMPARE(dsplmd, int(filled::text));
        }
    }

    void aTabSnapsToTheColumnOfTheGrid()
    {
        PutNxtLn(outdata, "iii\tA\tB");
        Expected page;
        page.write(1, "iii");
        page.write(1, "A", false, 3);
        page.write(1, "B", false, 5);  // the column of the second tab, two characters on
        view->showtxt(false);
        QCOMPARE(view->textPixmap().toImage(), page.image());
    }

    void lettersBeyondAsciiTakeOneColumn()
    {
        const QString site = QStringLiteral("Z\u00fcrich\tH\u00f6he");
        PutNxtLn(outdata, site.toUtf8().constData());
        PutNxtLnT(outdata, site.left(6).toUtf8().constData());
        Expected page;
        page.write(1, site.left(6));
        page.write(1, site.mid(7), false, 6);
        page.write(2, site.left(6), true);
        view->showtxt(true);
        QCOMPARE(view->textPixmap().toImage(), page.image());
    }

    void thePassTableHidesTheMarkAndKnowsItsRows()
    {
        PutNxtLn(outdata, " Heading\tA");
        PutNxtLnT(outdata, "  Start   End");
        PutNxtLnT(outdata, ".JAN 20");
        PutSpace(outdata);
        PutNxtLnT(outdata, ".JAN 21");
        Expected page;
        page.write(1, "Heading");
        page.write(1, "A", false, 8);
        page.write(2, " Start   End", true);
        page.write(3, "JAN 20", true);
        page.write(5, "JAN 21", true);
        const int a = page.ascent();
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

    void theTextCommandTurnsToTheMapAndBack()
    {
        windows::select("ISS");
        view->vCalcAOS();
        for (const int text : {-1, 0}) {  // after a map has been drawn the table is plain text
            QCOMPARE(indata->dspmd, text);
            QCOMPARE(view->size(), QSize(860, 2500));
            QCOMPARE(view->cursor().shape(), Qt::ArrowCursor);
            view->vText();
            QCOMPARE(indata->dspmd, 1);
            QCOMPARE(view->size(), QSize(860, 501));
            QCOMPARE(view->cursor().shape(), Qt::CrossCursor);
            QCOMPARE(view->grab().toImage().copy(0, 0, 721, 501), mapImage());
            view->vText();
            QCOMPARE(indata->dspmd, text);
            view->vText();
            view->vRefresh();
            view->vText();
        }
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
            page.write(i + 1, std::string(lineText(*outdata, i)).c_str());
        QCOMPARE(view->textPixmap().toImage(), page.image());
        QCOMPARE(view->grab().toImage().copy(0, 0, 860, 501), view->textPixmap().toImage().copy(0, 0, 860, 501));
    }

    void theBackgroundHasTheChosenColour()
    {
        const QColor legend(0, 50, 200), beside(0, 0, 0);
        indata->mapprj = 1;  // the corners of a hemisphere map are empty
        for (const auto& [mgrey, level] : {std::pair{0, 255}, {1, 200}, {2, 0}}) {
            indata->mgrey = mgrey;
            const QImage map = drawnMap(), shown = shownImage();
            QCOMPARE(map.pixelColor(3, 3), QColor(level, level, level));
            QCOMPARE(map.pixelColor(5, 361), QColor(level, level, level));
            QCOMPARE(map.pixelColor(5, 362), legend);
            QCOMPARE(map.pixelColor(720, 500), legend);
            QCOMPARE(shown.copy(0, 0, 721, 501), map);
            QCOMPARE(shown.pixelColor(721, 100), beside);
            QCOMPARE(shown.pixelColor(859, 500), beside);
        }
    }

    void thePhysicalMapMovesWithTheCentralMeridian()
    {
        const QImage earth = QImage(":/satpearth.png").convertToFormat(QImage::Format_RGB32);
        indata->mapprj = 3;
        indata->mgrid = 1;
        // pixels to the left; a fraction is dropped
        for (const auto& [meridian, shift] :
             {std::pair{0.0, 0}, {30.9, 60}, {-30.0, 660}, {-181.0, 360}, {361.0, 0}, {1e300, 0}}) {
            indata->centmer = meridian;
            const QImage map = drawnMap().convertToFormat(QImage::Format_RGB32);
            int equal = 0, looked = 0;
            for (int y = 7; y < 355; y += 10) {
                for (int x = 7; x < 715; x += 10) {
                    ++looked;
                    equal += map.pixel(x, y) == earth.pixel((x + shift) % 720, y);
                }
            }
            // grid lines and the observer cover a few
            QVERIFY2(equal > 0.98 * looked, qPrintable(QString::number(meridian)));
        }
    }
};

QTEST_MAIN(DisplayTest)
#include "display_test.moc"
