// The legend under a map: its texts and pens in every mode, and how they stand in the picture.

#include <QPainter>
#include <QTest>
#include <functional>

#include "app/record/text.h"
#include "engine/satpos_data.h"
#include "view/legend_text.h"
#include "view/vorlix_view.h"
#include "view/window_helper.h"

namespace {

const QColor white(255, 255, 255), black(0, 0, 0), yellow(255, 255, 0), red(255, 0, 0), blue(0, 0, 255);

/// A record and positions with a figure of its own in every field that the legend reads.
struct Scene
{
    Scene()
    {
        setDefaults(&in);
        in.satn = 3;
        in.prs = 1;
        in.tmstep = 15.0 / 86400.0;
        in.tzone = 1.5;
        in.flarmod = 1;
        in.refrc = false;
        in.flrang = 12.345;
        in.smang = 0.2567;
        in.eclmag = 0.98765;
        in.eclpow = 0.12345;
        assignField(in.fsname[0], "ALPHA");
        assignField(in.fsname[1], "BETA SATELLITE NUMBER");
        assignField(in.fsname[2], "GAMMA GAMMA GAM");
        sp.lat[1] = -12.5;
        sp.lng[1] = 123.4567;
        sp.hgt[1] = 408.64;
        sp.ra[1] = 13.5612;
        sp.dec[1] = -0.3912;
        sp.az[1] = 68.974;
        sp.el[1] = 18.69;
        sp.dst[1] = 1143.24;
        sp.sunel[1] = 22.44;
        sp.moonel[1] = 5.0;
        sp.rrate[1] = 6.5534;
        sp.occlat[1] = noGroundPoint;
        sp.occlng[1] = -77.25;
        sp.osunel = -51.3;
        sp.mag = 3.27;
        scene.day = 21;
        scene.month = 1;
        scene.year = 2018;
        scene.hours = 20.0 + 55.0 / 60.0;
        scene.colours = satelliteColours(2);
    }

    WinpData in;
    SatPosData sp;
    PlotScene scene;
};

/// "text|pen" of a place in the legend, empty if nothing stands there.
QString shownAt(Scene& s, int column, int row)
{
    for (const LegendText& text : legendTexts(&s.in, &s.sp, s.scene))
        if (text.column == column && text.row == row)
            return text.text + "|" + text.colour.name();
    return {};
}

struct LegendCase
{
    const char* what;
    std::function<void(Scene&)> set;
    int column, row;
    QString text;
    QColor pen;
};

void groundPoint(Scene& s)
{
    s.sp.occlat[1] = 45.5;
}

void relative(Scene& s)
{
    s.scene.relative = true;
}

const QString degree = QString(QChar(0xb0));

const LegendCase legendCases[] = {
    {"time", [](Scene&) {}, 0, 0, "JAN 21  20:55:00", white},
    {"zone", [](Scene&) {}, 0, 1, "TimeZone: 1.5", white},
    {"year", [](Scene&) {}, 0, 2, "Year: 2018", white},
    {"real time", [](Scene& s) { s.in.rtflg = 1; }, 0, 2, "R/T", white},
    {"latitude", [](Scene&) {}, 1, 0, "Lat  : -12.50", white},
    {"longitude", [](Scene&) {}, 1, 1, "Lng : 123.46", white},
    {"latitude, packed", [](Scene& s) { s.in.ddmm = 1; }, 1, 0, "Lat  : -12" + degree + "30", white},
    {"longitude, long and packed", [](Scene& s) { s.in.ra4d = s.in.ddmm = 1; }, 1, 1, "Lng : 123" + degree + "2724",
     white},
    {"height", [](Scene&) {}, 1, 2, "Height:   408.6 km", white},
    {"right ascension", [](Scene&) {}, 2, 0, "R.A.:  13h56", white},
    {"Sun", [](Scene&) {}, 2, 2, "SatSun:   22.4", white},
    {"azimuth", [](Scene&) {}, 3, 0, "Azim.:  68.97", white},
    {"elevation", [](Scene&) {}, 3, 1, "Elev.:  18.69", white},
    {"range", [](Scene&) {}, 3, 2, "Range:  1143.2 km", white},
    {"rate", [](Scene&) {}, 4, 2, "Rate:  6.553 km/s", white},
    {"name, cut", [](Scene&) {}, 4, 0, "BETA SATELLITE  ", red},
    {"name, short", [](Scene& s) { s.in.prs = 0; }, 4, 0, "ALPHA", white},

    {"seconds carry", [](Scene& s) { s.scene.hours += 59.7 / 3600; }, 0, 0, "JAN 21  20:56:00", white},
    {"minute 59 raises the hour", [](Scene& s) { s.scene.hours = 9 + 59 / 60.0 + 59.7 / 3600; }, 0, 0,
     "JAN 21  10:00:00", white},
    {"the day does not end", [](Scene& s) { s.scene.hours = 23 + 59 / 60.0 + 59.6 / 3600; }, 0, 0, "JAN 21  24:00:00",
     white},
    {"tenths", [](Scene& s) { s.in.tmstep = 1e-6, s.scene.hours += 7.26 / 3600; }, 0, 0, "JAN 21  20:55: 7.3", white},

    {"below the ground: height", [](Scene& s) { s.sp.hgt[1] = -1; }, 1, 2, "Height:    -1.0 km", black},

    {"in shadow", [](Scene& s) { s.sp.sunel[1] = -3; }, 2, 0, "R.A.:  13h56", black},
    {"in moonlight", [](Scene& s) { s.sp.sunel[1] = -3, s.in.moonflg = 1; }, 2, 0, "R.A.:  13h56", yellow},
    {"under the horizon", [](Scene& s) { s.sp.el[1] = -3; }, 3, 1, "Elev.:  -3.00", black},

    {"magnitude", [](Scene& s) { s.in.chlen = 10; }, 4, 2, "Mag: 3.3", white},
    {"magnitude before Doppler", [](Scene& s) { s.in.chlen = 10, s.in.frequ = 1e8; }, 4, 2, "Mag: 3.3", white},
    {"Doppler", [](Scene& s) { s.in.frequ = 145.8e6; }, 4, 2, "Hz: -3187.12", white},
    {"Doppler, absurd", [](Scene& s) { s.in.frequ = 1e300; }, 4, 2, "Hz: -2.18596e+295", white},

    {"relative: latitude", relative, 2, 0, "Lat :  13.56", white},
    {"relative: second name", relative, 4, 1, "GAMMA GAMMA GAM ", blue},
    {"relative: rate, not magnitude", [](Scene& s) { relative(s), s.in.chlen = 10; }, 4, 2, "Rate:  6.553 km/s",
     white},

    {"transit, no point", [](Scene& s) { s.in.occflg = 1; }, 2, 0, "No Intersection", white},
    {"transit", [](Scene& s) { groundPoint(s), s.in.occflg = 2; }, 2, 0, "Lat :  45.50", white},
    {"transit: distance", [](Scene& s) { groundPoint(s), s.in.occflg = 2, s.sp.mag = 1611.44; }, 4, 2,
     "dst:  1611.4 km", white},
    {"occultation", [](Scene& s) { groundPoint(s), s.in.occflg = 3; }, 2, 2, "Occultation", red},

    {"known surface", [](Scene& s) { groundPoint(s), s.in.flarflg = 1; }, 2, 0, "Lat :  45.50", white},
    {"known surface: mode", [](Scene& s) { groundPoint(s), s.in.flarflg = 1; }, 2, 2, "Flare Location", red},
    {"known surface: magnitude",
     [](Scene& s) { groundPoint(s), s.in.flarflg = 1, s.in.flrmgf = true, s.in.chlen = 10; }, 4, 2, "Mag: 3.3",
     white},
    {"unknown surface: mode", [](Scene& s) { s.in.flarflg = 1, s.in.flarmod = -1; }, 2, 2, "Flare Angle", red},
    {"unknown surface, inertial",
     [](Scene& s) { s.sp.occlat[1] = 99, s.in.flarflg = 1, s.in.flarmod = -2, s.in.occra = 5.4321; }, 2, 0,
     "R.A.:   5h43", white},
    {"cylinder", [](Scene& s) { s.sp.occlat[1] = 99, s.in.flarflg = 1, s.in.flarmod = -1, s.in.cylflg = true; }, 4, 2,
     "CylAng:  12.35", white},

    {"no eclipse", [](Scene& s) { s.in.eclflg = true; }, 2, 2, "No Eclipse", red},
    {"partial", [](Scene& s) { s.in.eclflg = true, s.in.ecltyp = 1; }, 2, 2, "Partial Ecl.", red},
    {"eclipse magnitude", [](Scene& s) { s.in.eclflg = true, s.in.ecltyp = 1; }, 2, 1, "Ecl.Mag.:  0.988", white},
    {"eclipse power", [](Scene& s) { s.in.eclflg = true, s.in.ecltyp = 1, s.in.chlen = 5; }, 2, 1, "Ecl.Pow: 12.35%",
     white},
    {"an event before an eclipse", [](Scene& s) { s.in.eclflg = true, s.in.occflg = 1; }, 2, 2, "Sun Transit", red},
};

}  // namespace

class LegendTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyModeHasItsTexts()
    {
        for (const LegendCase& c : legendCases) {
            Scene s;
            c.set(s);
            const QString expected = c.text.isEmpty() ? QString() : c.text + "|" + c.pen.name();
            const QString shown = shownAt(s, c.column, c.row);
            QVERIFY2(shown == expected, qPrintable(QString(c.what) + ": " + shown));
        }
    }

    void relativeSatellitesThatDoNotSeeEachOtherAreBlack()
    {
        Scene s;
        s.scene.relative = true;
        s.in.rlm = 1;
        s.in.visflg = 0;
        s.sp.el[1] = -20;  // nothing to do with it
        s.sp.hgt[1] = s.sp.sunel[1] = 800;
        s.sp.ra[1] = s.sp.lat[1];
        s.sp.dec[1] = s.sp.lng[1] + 10;
        QVERIFY(shownAt(s, 3, 1).endsWith(white.name()));
        s.sp.dec[1] = s.sp.lng[1] + 120;  // the Earth between them
        QVERIFY(shownAt(s, 3, 1).endsWith(black.name()));
    }

    void refractionLiftsTheElevation()
    {
        Scene s;
        s.in.refrc = true;
        s.sp.el[1] = 0.0;
        QCOMPARE(shownAt(s, 3, 1), QString("Elev.:   0.57|#ffffff"));  // 3.5689 x 0.1594 degrees
    }

    void theDopplerShiftIsHeld()
    {
        QCOMPARE(dopplerShift(1e6, 0.0), 0.0);
        QVERIFY(dopplerShift(1e6, -5.0) > 0);
        // beyond 0.99 of the speed of light both ways
        const double limit = 1e6 * std::sqrt(0.01 / 1.99) - 1e6;
        QVERIFY(std::abs(dopplerShift(1e6, 4e5) - limit) < 1e-6);
        QVERIFY(std::abs(dopplerShift(1e6, -4e5) - limit) < 1e-6);
    }

    // The ISS over Vienna at 20:43:00.48 UT of 21 January 2018 from SGP4 and ERFA: latitude 48.284852, longitude
    // 18.234994, 407.84 km; 87.6291, 71.3551, 428.757 km, 2.0672 km/s; 7h 41m 14s, 45 44 45; Sun -49.63 and -30.89.
    void theLegendStandsInThePicture()
    {
        const QString columns[][3] = {{"JAN 21  20:43:00", "TimeZone: 0", "Year: 2018"},
                                      {"Lat  :  48.28", "Lng :  18.23", "Height:   407.8 km"},
                                      {"R.A.:   7h41", "Dec.:  45" + degree + "45", "SatSun:  -30.9"},
                                      {"Azim.:  87.63", "Elev.:  71.36", "Range:   428.8 km"},
                                      {"ISS (ZARYA)     ", "ObsSun:  -49.6", "Rate:  2.067 km/s"}};
        constexpr int left[] = {10, 150, 300, 430, 590}, top[] = {367, 389, 411};
        const QRect legend(0, 362, 721, 139);
        const windows::Workplace place;
        windows::stopTheClock();
        VorlixView view;
        windows::observeAllFromVienna();
        windows::select("ISS");
        indata->tzone = 0;
        indata->mapprj = 0;
        for (const auto& [size, bold, mgrey] : {std::tuple{10, true, 2}, {12, false, 0}, {12, true, 1}}) {
            indata->mgrey = mgrey;
            indata->mfsz = size;
            indata->bf = bold;
            view.vRefresh();
            view.SatPlot(58139.8632, 1);

            QPixmap reference(721, 501);
            reference.fill(QColor(0, 50, 200));
            QPainter painter(&reference);
            painter.setFont(QFont("Helvetica", size, bold ? QFont::Bold : QFont::Normal));
            painter.setBackground(mgrey == 2 ? black : white);
            for (int column = 0; column < 5; ++column) {
                for (int row = 0; row < 3; ++row) {
                    const bool name = column == 4 && row == 0;
                    painter.setBackgroundMode(name ? Qt::OpaqueMode : Qt::TransparentMode);
                    painter.setPen(name ? (mgrey == 2 ? white : black) : column == 2 ? black : white);
                    painter.drawText(left[column], painter.fontMetrics().ascent() + top[row], columns[column][row]);
                }
            }
            painter.end();
            QCOMPARE(view.mapPixmap().toImage().copy(legend), reference.toImage().copy(legend));
            QCOMPARE(view.displayPixmap().toImage().copy(legend), reference.toImage().copy(legend));
        }
        indata->satn = 0;
        for (const int size : {0, -5, 2000000000}) {  // a damaged font size leaves a legend
            indata->mfsz = size;
            view.SatPlot(58139.8632, 1);
            QCOMPARE(view.mapPixmap().toImage().pixelColor(715, 495), QColor(0, 50, 200));
        }
    }
};

QTEST_MAIN(LegendTest)
#include "legend_test.moc"
