// Details that a person asks for by a click: a pass of the table, a place on the map, a point of the sky.

#include <QRegularExpression>
#include <QTest>
#include <QTextEdit>

#include "app/record/text.h"
#include "app/record/wout_data.h"
#include "engine/position.h"
#include "view/view_fixture.h"

using windows::answering;
using windows::click;

namespace {

/// What a window with a read-only text shows; leaves it by its Close button.
struct Page
{
    QString title, text;

    std::function<void(QDialog*)> read()
    {
        return [this](QDialog* dialog) {
            title = dialog->windowTitle();
            if (const auto* edit = dialog->findChild<QTextEdit*>())
                text = edit->toPlainText();
            click(dialog, "closeButton");
        };
    }
};

/// The number behind a label.
double after(const QString& text, const QString& label)
{
    const auto at = text.indexOf(label);
    return at < 0 ? NAN
                  : text.mid(at + label.size()).simplified().section(QRegularExpression("[ ,]"), 0, 0).toDouble();
}

/// Line of the pass table by its number among the rows that can be clicked.
QString tableRow(int row)
{
    for (int k = 0; k < outdata->nlines; ++k) {
        const QString line = textQString(lineText(*outdata, k));
        if (line.startsWith('.') && row-- == 0)
            return line;
    }
    return {};
}

}  // namespace

class DetailsTest : public ViewTest
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
        indata->leftbtn = true;
    }

    void cleanup() { close(); }

    void aClickOnARowListsItsPass()
    {
        view->vCalcAOS();
        QVERIFY(indata->naos > 12);
        // the last letter of the row above, the top of the row itself, and the gap of the groups
        for (int row : {0, 3, 9, 10, 12}) {
            Page page;
            const int windowsSeen = answering([&] { clickAt(60, epos[row] + 1, Qt::RightButton); }, {page.read()});
            QCOMPARE(windowsSeen, 1);
            QCOMPARE(indata->aossel, row);
            QCOMPARE(page.title, QString("Pass Details"));
            const QStringList lines = page.text.split('\n');
            QVERIFY(lines[0].startsWith("ISS (ZARYA)"));
            QCOMPARE(lines[4].simplified(), QString("Azim. Elev. R.A. Decl"));
            // the first full minute of the pass
            const QTime start = QTime::fromString(tableRow(row).mid(9, 8).trimmed(), "h:mm:ss");
            QCOMPARE(lines[5].mid(7, 6).trimmed(), start.addSecs(60 - start.second()).toString("h:mm"));
            QVERIFY(page.text.contains("\n\nApparent Pole of orbit"));
        }
    }

    void aClickOnTheWorldTellsItsView()
    {
        for (const auto& [lat, lng] : {std::pair{48.0, 16.5}, {-33.0, 151.0}, {10.0, -120.0}}) {
            view->vRefresh();
            const QPoint p = view->PxCoord(lat, lng);
            Page page;
            QCOMPARE(answering([&] { clickAt(p.x(), p.y(), Qt::RightButton); }, {page.read()}), 1);
            QCOMPARE(page.title, QString("Local Details"));
            constexpr double pixelDegrees = 0.51;
            QVERIFY(std::abs(after(page.text, "Lat: ") - lat) < pixelDegrees);
            QVERIFY(std::abs(after(page.text, "Long: ") - lng) < pixelDegrees);
            QVERIFY(page.text.contains("\n\tState Vector in km and km/s\nx\t"));
            QCOMPARE(indata->lat + indata->lng + indata->height, 48.25 + 16.5 + 200.0);
        }
        indata->mapprj = 1;
        view->vRefresh();
        Page page;
        answering([&] { clickAt(3, 3, Qt::RightButton); }, {page.read()});
        QCOMPARE(page.text, QString("\n\n   *** Cursor outside Map ***"));
    }

    void aClickOnTheSkyTellsItsPoint()
    {
        indata->skymap = 1;
        view->vRefresh();
        const QPoint p = view->PxSky(40.0, 130.0);
        Page page;
        answering([&] { clickAt(p.x(), p.y(), Qt::RightButton); }, {page.read()});
        QVERIFY2(std::abs(after(page.text, "Azimuth (deg.):") - 130.0) < 1.0, qPrintable(page.text));
        QVERIFY(std::abs(after(page.text, "Elevation (deg):") - 40.0) < 1.0);
        QVERIFY(page.text.contains("\n\nISS (ZARYA)"));
        answering([&] { clickAt(2, 2, Qt::RightButton); }, {page.read()});
        QCOMPARE(page.text, QString("\n\n   *** Cursor outside Map ***"));
        QCOMPARE(indata->az1, 0.0);
        QCOMPARE(indata->el1, 0.0);
    }

    void theSpaceBarAsksForThePlace()
    {
        view->vRefresh();
        Page page;
        const QString name = fieldQString(indata->geoname);
        const int seen = answering([&] { view->vLocalInf(); }, {[](QDialog* dialog) {
                                                                    windows::enter(dialog, "latEdit", "-10");
                                                                    windows::enter(dialog, "lngEdit", "30");
                                                                    click(dialog, "okButton");
                                                                },
                                                                page.read()});
        QCOMPARE(seen, 2);
        QVERIFY(page.text.startsWith("Lat: -10,  Long: 30,   SunElev:"));
        QCOMPARE(indata->lat, 48.25);
        QCOMPARE(indata->lng, 16.5);
        QCOMPARE(fieldQString(indata->geoname), name);
        QCOMPARE(answering([&] { view->vLocalInf(); }, {[](QDialog* dialog) { dialog->reject(); }, page.read()}), 2);
        QVERIFY2(page.text.startsWith("Lat: 48.25,  Long: 16.5,"), "cancelled: the place of the record");
        indata->skymap = 1;
        QCOMPARE(answering([&] { view->vLocalInf(); }, {}), 0);
    }

private:
    void clickAt(int x, int y, Qt::MouseButton which)
    {
        QTest::mouseClick(view->viewport(), which, Qt::NoModifier, QPoint(x, y));
    }
};

QTEST_MAIN(DetailsTest)
#include "details_test.moc"
