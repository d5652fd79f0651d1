// The legend under a map: its texts and pens in every mode, and how they stand in the picture.

#include <QPainter>
#include <QTest>
#include <map>

#include "engine/satpos_data.h"
#include "record/text.h"
#include "record_fields.h"
#include "view/legend_text.h"
#include "view/table_rows.h"
#include "view/view_fixture.h"

namespace {

const std::map<QString, QColor> pens{{"white", {255, 255, 255}},
                                     {"black", {0, 0, 0}},
                                     {"yellow", {255, 255, 0}},
                                     {"red", {255, 0, 0}},
                                     {"blue", {0, 0, 255}}};

constexpr int prime = 1;

const std::map<QString, double (SatPosData::*)[slotCount]> positionFields{
    {"lat", &SatPosData::lat},       {"lng", &SatPosData::lng},     {"hgt", &SatPosData::hgt},
    {"ra", &SatPosData::ra},         {"dec", &SatPosData::dec},     {"az", &SatPosData::az},
    {"el", &SatPosData::el},         {"dst", &SatPosData::dst},     {"sunel", &SatPosData::sunel},
    {"moonel", &SatPosData::moonel}, {"rrate", &SatPosData::rrate}, {"occlat", &SatPosData::occlat},
    {"occlng", &SatPosData::occlng}};

/// A record and positions with a figure of its own in every field that the legend reads.
struct Scene
{
    Scene()
    {
        setDefaults(&in);
        assignField(in.fsname[0], "ALPHA");
        assignField(in.fsname[1], "BETA SATELLITE NUMBER");
        assignField(in.fsname[2], "GAMMA GAMMA GAM");
        scene.year = 2018;
        scene.month = 1;
        scene.day = 21;
        scene.colours = coloursOf(2);
        sp.osunel = -51.3;
        set("satn=3 prs=1 tmstep=1.736e-4 tzone=1.5 flarmod=1 refrc=0 flrang=12.345 smang=0.2567 eclmag=0.98765 "
            "eclpow=0.12345 plot.hours=20.916667 sp.lat=-12.5 sp.lng=123.4567 sp.hgt=408.64 sp.ra=13.5612 "
            "sp.dec=-0.3912 sp.az=68.974 sp.el=18.69 sp.dst=1143.24 sp.sunel=22.44 sp.moonel=5 sp.rrate=6.5534 "
            "sp.occlat=100 sp.occlng=-77.25 sp.mag=3.27");
    }

    void set(const QString& fields)
    {
        for (const QString& field : fields.split(' ', Qt::SkipEmptyParts)) {
            const QString name = field.section('=', 0, 0);
            const double value = field.section('=', 1).toDouble();
            if (name == "plot.hours")
                scene.hours = value;
            else if (name == "plot.relative")
                scene.relative = value != 0;
            else if (name == "sp.mag")
                sp.mag = value;
            else if (name.startsWith("sp."))
                (sp.*positionFields.at(name.mid(3)))[prime] = value;
            else
                setFields(in, field.toStdString());
        }
    }

    WinpData in;
    SatPosData sp;
    PlotScene scene;
};

}  // namespace

class LegendTest : public ViewTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyModeHasItsTexts()
    {
        for (const TableRow& row : tableRows("legend.txt")) {
            const auto s = std::make_unique<Scene>();
            s->set(row[1]);
            if (s->in.prs != prime)  // the other slots are at the same place
                for (const auto& [name, field] : positionFields)
                    (s->sp.*field)[s->in.prs] = (s->sp.*field)[prime];
            QString shown = "nothing " + pens.at("white").name();
            for (const LegendText& text : legendTexts(&s->in, &s->sp, s->scene))
                if (QString("%1 %2").arg(text.column).arg(text.row) == row[2])
                    shown = '"' + text.text + "\" " + text.colour.name();
            QCOMPARE(row[0] + ": " + shown, row[0] + ": " + row[3] + ' ' + pens.at(row[4]).name());
        }
    }

    // The ISS over Vienna at 20:43:00.48 UT of 21 January 2018 from SGP4 and ERFA: latitude 48.284852, longitude
    // 18.234994, 407.84 km; 87.6291, 71.3551, 428.757 km, 2.0672 km/s; 7h 41m 14s, 45 44 45; Sun -49.63 and -30.89.
    void theLegendStandsInThePicture()
    {
        const QString columns[][3] = {{"JAN 21  20:43:00", "TimeZone: 0", "Year: 2018"},
                                      {"Lat  :  48.28", "Lng :  18.23", "Height:   407.8 km"},
                                      {"R.A.:   7h41", "Dec.:  45\u00b045", "SatSun:  -30.9"},
                                      {"Azim.:  87.63", "Elev.:  71.36", "Range:   428.8 km"},
                                      {"ISS (ZARYA)     ", "ObsSun:  -49.6", "Rate:  2.067 km/s"}};
        constexpr int left[] = {10, 150, 300, 430, 590}, top[] = {367, 389, 411};
        const QRect legend(0, 362, 721, 139);
        open();
        windows::observeAllFromVienna();
        windows::select("ISS");
        indata->tzone = 0;
        indata->mapprj = 0;
        for (const auto& [size, bold, mgrey] : {std::tuple{10, true, 2}, {12, false, 0}, {12, true, 1}}) {
            indata->mgrey = mgrey;
            indata->mfsz = size;
            indata->bf = bold;
            view->vRefresh();
            view->SatPlot(58139.8632, 1);

            QPixmap reference(721, 501);
            reference.fill(QColor(0, 50, 200));
            QPainter painter(&reference);
            painter.setFont(QFont("Helvetica", size, bold ? QFont::Bold : QFont::Normal));
            painter.setBackground(mgrey == 2 ? Qt::black : Qt::white);
            for (int column = 0; column < 5; ++column) {
                for (int row = 0; row < 3; ++row) {
                    const bool name = column == 4 && row == 0;
                    painter.setBackgroundMode(name ? Qt::OpaqueMode : Qt::TransparentMode);
                    painter.setPen((name ? mgrey == 2 : column != 2) ? Qt::white : Qt::black);
                    painter.drawText(left[column], painter.fontMetrics().ascent() + top[row], columns[column][row]);
                }
            }
            painter.end();
            QCOMPARE(mapImage().copy(legend), reference.toImage().copy(legend));
            QCOMPARE(shownImage().copy(legend), reference.toImage().copy(legend));
        }
        assignField(indata->fsname[0], "WIDE WIDE WIDE W");
        indata->mfsz = 24;
        for (const bool wide : {false, true}) {
            assignField(indata->fsname[0], wide ? "WIDE WIDE WIDE W" : "WI");
            view->SatPlot(58139.8632, 1);
            const QFontMetrics letters(QFont("Helvetica", 24, QFont::Bold));
            const QString shown = wide ? letters.elidedText("WIDE WIDE WIDE ", Qt::ElideRight, 131) : "WI";
            QCOMPARE(letters.horizontalAdvance(shown) < 131, true);
            QPixmap part(131, 40);
            part.fill(QColor(0, 50, 200));
            QPainter painter(&part);
            painter.setFont(QFont("Helvetica", 24, QFont::Bold));
            painter.setBackground(Qt::white);
            painter.setBackgroundMode(Qt::OpaqueMode);
            painter.drawText(0, letters.ascent() + 5, shown);
            painter.end();
            QCOMPARE(mapImage().copy(590, 362, 131, 20), part.toImage().copy(0, 0, 131, 20));
        }
        indata->satn = 0;
        for (const int size : {0, -5, 2000000000}) {  // a damaged font size leaves a legend
            indata->mfsz = size;
            view->SatPlot(58139.8632, 1);
            QCOMPARE(mapImage().pixelColor(715, 495), QColor(0, 50, 200));
        }
        close();
    }
};

QTEST_MAIN(LegendTest)
#include "legend_test.moc"
