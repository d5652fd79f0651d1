// Details that a person asks for by a click: a pass of the table, a place on the map, a point of the sky.

#include <QRegularExpression>
#include <QTest>
#include <QTextEdit>
#include <QToolTip>

#include "record/text.h"
#include "record/wout_data.h"
#include "record_fields.h"
#include "view/picture_helper.h"
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

/// The number behind a label, up to a comma or the end of the line.
double after(const QString& text, const QString& label)
{
    return text.section(label, 1, 1).section(QRegularExpression("[,\n]"), 0, 0).trimmed().toDouble();
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
        for (double* field : {&indata->az1, &indata->el1, &indata->az2, &indata->el2})
            *field = 11.0;
    }

    void cleanup()
    {
        // no click changes place and observations
        QCOMPARE(indata->lat + indata->lng + indata->height, 48.25 + 16.5 + 200.0);
        QCOMPARE(indata->az1 + indata->el1 + indata->az2 + indata->el2, 44.0);
        close();
    }

    void aClickOnARowListsItsPass()
    {
        view->vCalcAOS();
        QVERIFY(indata->naos > 12);
        QStringList rows;
        for (int k = 0; k < outdata->nlines; ++k)
            if (const auto line = lineText(*outdata, k); line.starts_with('.'))
                rows << textQString(line);
        // the last letter of the row above, the top of the row itself, and the gap of the groups
        for (int row : {3, 0, 9, 10, 12}) {
            Page page;
            QCOMPARE(clickAt({60, epos[row] + 1}, Qt::RightButton, page), 1);
            QCOMPARE(page.title, QString("Pass Details"));
            const QStringList lines = page.text.split('\n');
            QVERIFY(lines[0].startsWith("ISS (ZARYA)"));
            // the first full minute of the pass
            const QTime start = QTime::fromString(rows.value(row).mid(9, 8).trimmed(), "h:mm:ss");
            QCOMPARE(lines[5].mid(7, 6).trimmed(), start.addSecs(60 - start.second()).toString("h:mm"));
        }
    }

    void rowsSayThatTheyCanBeClicked()
    {
        view->vCalcAOS();
        const auto moveTo = [this](int y) { QTest::mouseMove(view->viewport(), {60, y}); };
        const auto page = [this] { return view->viewport()->grab().toImage(); };
        const QImage plain = page();
        const QRect row(0, epos[4], 860, epos[5] - epos[4]);
        moveTo(row.center().y());
        QTRY_COMPARE(view->cursor().shape(), Qt::PointingHandCursor);
        QVERIFY(QToolTip::text().contains("details of the pass"));
        QCOMPARE(pictures::differences(page(), plain, {0, 0, 860, 900}),
                 pictures::differences(page(), plain, row.translated(0, 4)));
        QVERIFY(page().copy(row) != plain.copy(row));
        QToolTip::hideText();
        QTRY_VERIFY(QToolTip::text().isEmpty());
        moveTo(epos[6] + 4);
        QTRY_VERIFY(page().copy(row) == plain.copy(row));
        QVERIFY(QToolTip::text().isEmpty());  // told once
        moveTo(epos[0] - 20);
        QTRY_COMPARE(view->cursor().shape(), Qt::ArrowCursor);
        QCOMPARE(page(), plain);
        view->vText();
        view->vText();  // the same table as plain text
        moveTo(row.center().y());
        QCoreApplication::processEvents();
        QCOMPARE(view->cursor().shape(), indata->dspmd == 0 ? Qt::ArrowCursor : Qt::PointingHandCursor);
    }

    void aClickOnTheWorldTellsItsView()
    {
        for (const auto& [lat, lng] : {std::pair{48.0, 16.5}, {-33.0, 151.0}, {10.0, -120.0}}) {
            view->vRefresh();
            Page page;
            view->vZoom(lat > 0 ? 1.5 : 1.0);
            QCOMPARE(clickAt(view->PxCoord(lat, lng), Qt::RightButton, page), 1);
            QCOMPARE(page.title, QString("Local Details"));
            constexpr double pixelDegrees = 0.51;
            QVERIFY(std::abs(after(page.text, "Lat: ") - lat) < pixelDegrees);
            QVERIFY(std::abs(after(page.text, "Long: ") - lng) < pixelDegrees);
            QVERIFY(page.text.contains("\n\tState Vector in km and km/s\nx\t"));
        }
        indata->mapprj = 1;
        view->vRefresh();
        Page page;
        clickAt({3, 3}, Qt::RightButton, page);
        QCOMPARE(page.text, QString("\n\n   *** Cursor outside Map ***"));
    }

    void aClickOnTheSkyTellsItsPoint()
    {
        for (const bool fromSatellite : {false, true}) {
            setFields(*indata, "skymap=1 mjd=58138.75");
            indata->satsky = fromSatellite;
            view->vRefreshP();
            Page page;
            clickAt(view->PxSky(40.0, 130.0), Qt::RightButton, page);
            QVERIFY2(std::abs(after(page.text, "Azimuth (deg.):") - 130.0) < 1.0, qPrintable(page.text));
            QVERIFY(std::abs(after(page.text, "Elevation (deg):") - 40.0) < 1.0);
            QVERIFY(page.text.contains("\n\nISS (ZARYA)"));
            // the sky on show is meant, also after another date was entered
            const QString equatorial = page.text.section('\n', 4, 4);
            QVERIFY(equatorial.startsWith(" R.A."));
            indata->mjd += 0.02;
            clickAt(view->PxSky(40.0, 130.0), Qt::RightButton, page);
            QCOMPARE(page.text.section('\n', 4, 4), equatorial);
            // 215 pixels from the zenith: below the horizon, but above the Earth as the satellite sees it
            clickAt({145, 180}, Qt::RightButton, page);
            QCOMPARE(page.text.contains("*** Cursor outside Map ***"), !fromSatellite);
        }
    }

    void aClickOpensDetailsOnMapsOnly()
    {
        for (const auto& [fields, button, windowsSeen] :
             {std::tuple{"dspmd=1 leftbtn=0", Qt::RightButton, 1},
              {"dspmd=1 leftbtn=0", Qt::LeftButton, 0},
              {"dspmd=1 leftbtn=1", Qt::LeftButton, 1},
              {"dspmd=0 leftbtn=1", Qt::RightButton, 0},
              {"dspmd=1 leftbtn=1 sunmplt=1 occflg=1", Qt::RightButton, 0},
              {"dspmd=0 picflg=1", Qt::RightButton, 0}}) {
            setFields(*indata, fields);
            view->vRefresh();
            setFields(*indata, fields);
            Page page;
            QVERIFY2(clickAt({300, 150}, button, page) == windowsSeen, fields);
        }
    }

    void theSpaceBarAsksForThePlace()
    {
        Page page;
        const QString name = fieldQString(indata->geoname);
        const auto space = [this] { view->vLocalInf(); };
        QCOMPARE(answering(space, {windows::acts("latEdit=-10 lngEdit=30 locEdit=There okButton"), page.read()}), 2);
        QVERIFY(page.text.startsWith("Lat: -10,  Long: 30,   SunElev:"));
        QCOMPARE(fieldQString(indata->geoname), name);
        QCOMPARE(answering(space, {windows::acts("cancelButton"), page.read()}), 2);
        QVERIFY2(page.text.startsWith("Lat: 48.25,  Long: 16.5,"), "cancelled: the place of the record");
        indata->skymap = 1;
        QCOMPARE(answering(space, {}), 0);
    }

    void noTickPlotsWhileAPickAsksForItsPlace()
    {
        indata->mjd = 58138.0;
        view->vTmCheck(2);
        const double before = indata->mjd;
        answering([&] { view->vLocalInf(); }, {[&](QDialog* dialog) {
                      view->RT_Plot();
                      QVERIFY(view->PlotDelta() != 0);
                      QCOMPARE(indata->mjd, before);
                      dialog->reject();
                  }});
        QCOMPARE(view->PlotDelta(), 0);
        QVERIFY(indata->mjd > before);
    }

private:
    int clickAt(const QPoint& p, Qt::MouseButton which, Page& page)
    {
        return answering([&] { QTest::mouseClick(view->viewport(), which, Qt::NoModifier, p * view->zoomFactor()); },
                         {page.read()});
    }
};

QTEST_MAIN(DetailsTest)
#include "details_test.moc"
