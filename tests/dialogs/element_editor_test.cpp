// The element editor with the dialogs behind its buttons.

#include <QDoubleSpinBox>
#include <QTextEdit>

#include "app/record/winp_data.h"
#include "astro/calendar.h"
#include "astro/time_scales.h"
#include "dialogs/dialog_helper.h"
#include "dialogs/st_edit_orb_dialog.h"
#include "dialogs/st_state_dialog.h"
#include "orbit/conversions.h"
#include "orbit/mean_motion.h"

namespace {

struct Elements
{
    double a = 0, ra = 0, aper = 0, inc = 0, ecc = 0, m0 = 0, n0 = 0, adot = 0, ndot = 0, n6dot = 0, bstar = 0;
};

Elements read(StEditOrbDialog& dialog)
{
    Elements e;
    dialog.getParam2(e.a, e.ra, e.aper, e.inc, e.ecc, e.m0, e.n0, e.adot, e.ndot, e.n6dot, e.bstar);
    return e;
}

constexpr double epoch = 58138.25;  // 20 January 2018, 6 h
constexpr int sgp4 = 1;
constexpr int kepler = 0;

void fill(StEditOrbDialog& dialog, const Elements& e, int model, int byHeights = 0, int numeric = 0, int launch = 0)
{
    dialog.setParam1("ISS (ZARYA)", 25544, model, byHeights, epoch, launch);
    dialog.setParam2(e.a, e.ra, e.aper, e.inc, e.ecc, e.m0, e.n0, e.adot, e.ndot, e.n6dot, e.bstar);
    dialog.setParam3("1998-067A", numeric);
}

/// Like a space station, with an axis that belongs to the mean motion.
Elements station(int model)
{
    Elements e;
    e.n0 = 15.54212345;
    e.ecc = 0.0102345;
    e.inc = 51.6412;
    e.a = getsax(model, e.n0, e.ecc, e.inc);
    e.ra = 123.4567;
    e.aper = 200.1234;
    e.m0 = 12.3456;
    e.ndot = 0.00012345;
    e.adot = -4.0 / 3.0 * e.a * e.ndot / e.n0;
    e.n6dot = 1.5e-6;
    e.bstar = 1.2345e-5;
    return e;
}

Elements flyby()
{
    Elements e = station(kepler);
    e.ecc = 1.5;
    e.n0 = 7000.0;
    e.a = -14000.0;
    return e;
}

double shownValue(const QDialog& dialog, const char* name)
{
    return text(dialog, name).trimmed().toDouble();
}

bool near(double x, double y, double tolerance)
{
    if (std::abs(x - y) <= tolerance)
        return true;
    qWarning("%.12g is not %.12g", x, y);
    return false;
}

}  // namespace

class ElementEditorTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { setDefaults(indata); }
    void showsEachElementInItsFormat();
    void okWithoutAnEditKeepsTheElements_data();
    void okWithoutAnEditKeepsTheElements();
    void refreshFollowsTheLastEdit_data();
    void refreshFollowsTheLastEdit();
    void fieldsOfTheModelAreEnabled();
    void fieldsOfTheHeightsAreEnabled();
    void launchLocksWhatItComputes();
    void aTypedHyperbolaSwitchesTheModelOff();
    void aHyperbolaShowsNoHeights();
    void meanMotionStaysInItsRange();
    void badTextsGiveFiniteElements();
    void newAcceptsAndTells();
    void geoStandsAtItsLongitude();
    void editTimeRewritesTheEpoch();
    void adjustmentIsStoredOnOk();
    void stateIsThatOfTheElements();
    void stateReturnsTheElementsFromEveryFrame();
    void stateOfANumericSatelliteIsTheStoredOne();
    void stateKeepsItsNumbersWithoutReset();
    void stateOfAHyperbolaGivesThePerigeeTime();
    void stateWithSgp4GivesMeanElements();
    void stateReadsBadTexts();
};

void ElementEditorTest::showsEachElementInItsFormat()
{
    StEditOrbDialog dialog;
    Elements e = station(sgp4);
    e.a = 6783.1234;
    fill(dialog, e, sgp4);
    const struct
    {
        const char *name, *shown;
    } cases[] = {
        {"nameEdit", "ISS (ZARYA)"},  {"noradEdit", "25544"},        {"idsnEdit", "1998-067A"},
        {"yearEdit", "2018"},         {"dayEdit", " 20.2500000000"}, {"raEdit", " 123.4567"},
        {"aperEdit", " 200.1234"},    {"incEdit", "  51.6412"},      {"m0Edit", "  12.3456"},
        {"eccEdit", "0.0102345"},     {"n0Edit", " 15.54212345"},    {"aEdit", "   6783.1234"},
        {"ndotEdit", "  0.00012345"}, {"n2dotEdit", "1.5000e-06"},   {"bstarEdit", "1.2345e-05"},
        {"periEdit", "    335.5615"}, {"apoEdit", "    474.4053"},
    };
    for (const auto& c : cases)
        QCOMPARE(text(dialog, c.name), QString(c.shown));
}

void ElementEditorTest::okWithoutAnEditKeepsTheElements_data()
{
    QTest::addColumn<int>("model");
    QTest::addColumn<bool>("hyperbola");
    QTest::newRow("SGP4") << sgp4 << false;
    QTest::newRow("Kepler") << kepler << false;
    QTest::newRow("hyperbola") << kepler << true;
}

void ElementEditorTest::okWithoutAnEditKeepsTheElements()
{
    QFETCH(int, model);
    QFETCH(bool, hyperbola);
    const Elements e = hyperbola ? flyby() : station(model);
    StEditOrbDialog dialog;
    fill(dialog, e, model);
    const Elements back = read(dialog);
    // half of the last digit on show
    QVERIFY(near(back.n0, e.n0, hyperbola ? 0.5e-4 : 0.5e-8));
    QVERIFY(near(back.a, e.a, 0.5e-4));
    QVERIFY(near(back.ecc, e.ecc, 0.5e-7));
    QVERIFY(near(back.inc, e.inc, 0.5e-4));
    QVERIFY(near(back.ra, e.ra, 0.5e-4));
    QVERIFY(near(back.aper, e.aper, 0.5e-4));
    QVERIFY(near(back.m0, e.m0, 0.5e-4));
    QVERIFY(near(back.ndot, e.ndot, 0.5e-8));
    QVERIFY(near(back.adot, e.adot, 0.5e-4));
    QVERIFY(near(back.n6dot, e.n6dot, 0.5e-10));
    QVERIFY(near(back.bstar, e.bstar, 0.5e-9));
    QString name, designator;
    int norad = 0, aflg = -1, paflg = -1, numflg = -1;
    double year = 0, day = 0;
    bool further = true;
    dialog.getParam1(name, norad, aflg, paflg, year, day);
    dialog.getParam3(designator, numflg, further);
    QCOMPARE(name + designator, QString("ISS (ZARYA)1998-067A"));
    QCOMPARE(norad, 25544);
    QCOMPARE(aflg, model);
    QCOMPARE(paflg, 0);
    QCOMPARE(numflg, 0);
    QVERIFY(!further);
    QCOMPARE(year, 2018.0);
    QVERIFY(near(day, 20.25, 0.5e-10));
}

void ElementEditorTest::refreshFollowsTheLastEdit_data()
{
    QTest::addColumn<QString>("edits");  // "field=text" one after the other
    QTest::addColumn<QString>("field");
    QTest::addColumn<double>("value");
    QTest::addColumn<double>("tolerance");
    const Elements e = station(kepler);
    // from Kepler's third law, without the flattening of the Earth
    QTest::newRow("axis to mean motion") << "aEdit=7000"
                                         << "n0Edit" << 14.8239 << 0.02;
    QTest::newRow("mean motion to axis") << "n0Edit=14"
                                         << "aEdit" << 7271.9 << 8.0;
    QTest::newRow("the later one counts") << "n0Edit=14;aEdit=7000"
                                          << "aEdit" << 7000.0 << 1e-4;
    QTest::newRow("and the reverse") << "aEdit=7000;n0Edit=14"
                                     << "n0Edit" << 14.0 << 1e-8;
    QTest::newRow("inclination takes the flag of mean motion") << "n0Edit=14;incEdit=60"
                                                               << "n0Edit" << e.n0 << 1e-8;
    QTest::newRow("and leaves the axis") << "n0Edit=14;incEdit=60"
                                         << "aEdit" << e.a << 1e-4;
    QTest::newRow("eccentricity moves the heights") << "eccEdit=0.02"
                                                    << "apoEdit" << 1.02 * e.a - 6378.14 << 1e-3;
    QTest::newRow("eccentricity keeps the mean motion") << "eccEdit=0.02"
                                                        << "n0Edit" << e.n0 << 1e-8;
    QTest::newRow("tiny mean motion gives way") << "aEdit=7000;n0Edit=0.00005"
                                                << "aEdit" << 7000.0 << 1e-4;
    QTest::newRow("negative axis gives way") << "incEdit=60;aEdit=-7000;incEdit=61"
                                             << "aEdit" << -7000.0 << 1e-4;
    QTest::newRow("ndot to adot") << "ndotEdit=0.0003"
                                  << "adotEdit" << -4.0 / 3.0 * e.a * 0.0003 / e.n0 << 1e-4;
    QTest::newRow("adot to ndot") << "adotEdit=-0.5"
                                  << "ndotEdit" << 0.75 * e.n0 * 0.5 / e.a << 1e-8;
    // the axis on show has four decimals, and the two formulas are each other's inverse to the first order
    QTest::newRow("unreadable mean motion") << "n0Edit=abc"
                                            << "n0Edit" << e.n0 << 1e-6;
}

void ElementEditorTest::refreshFollowsTheLastEdit()
{
    QFETCH(QString, edits);
    QFETCH(QString, field);
    QFETCH(double, value);
    QFETCH(double, tolerance);
    StEditOrbDialog dialog;
    fill(dialog, station(kepler), kepler);
    QVERIFY(opened(dialog));
    click(dialog, "refreshButton");
    for (const QString& one : edits.split(';')) {
        const QStringList parts = one.split('=');
        type(dialog, parts[0].toLatin1(), parts[1]);
    }
    click(dialog, "refreshButton");
    QVERIFY(near(shownValue(dialog, field.toLatin1()), value, tolerance));
}

void ElementEditorTest::fieldsOfTheModelAreEnabled()
{
    StEditOrbDialog dialog;
    fill(dialog, station(sgp4), sgp4);
    QVERIFY(opened(dialog));
    for (const bool model : {true, false, true}) {
        QCOMPARE(button(dialog, "spg4Box")->isChecked(), model);
        for (const char* name : {"ndotEdit", "adotEdit", "n2dotEdit"})
            QCOMPARE(edit(dialog, name)->isEnabled(), !model);
        QCOMPARE(edit(dialog, "bstarEdit")->isEnabled(), model);
        click(dialog, "spg4Box");
    }
}

void ElementEditorTest::fieldsOfTheHeightsAreEnabled()
{
    StEditOrbDialog dialog;
    fill(dialog, station(kepler), kepler, 1);
    QVERIFY(opened(dialog));
    for (const bool heights : {true, false, true}) {
        for (const char* name : {"periEdit", "apoEdit"})
            QCOMPARE(edit(dialog, name)->isEnabled(), heights);
        for (const char* name : {"eccEdit", "n0Edit", "aEdit"})
            QCOMPARE(edit(dialog, name)->isEnabled(), !heights);
        click(dialog, "perapBox");
    }
    click(dialog, "perapBox");
    type(dialog, "periEdit", "800");
    type(dialog, "apoEdit", "400");  // the wrong way round
    click(dialog, "refreshButton");
    QVERIFY(near(shownValue(dialog, "aEdit"), 6978.14, 1e-4));
    QVERIFY(near(shownValue(dialog, "eccEdit"), 200.0 / 6978.14, 1e-7));
}

void ElementEditorTest::launchLocksWhatItComputes()
{
    for (const int launch : {0, 1}) {
        StEditOrbDialog dialog;
        fill(dialog, station(kepler), kepler, 0, 0, launch);
        for (const char* name : {"yearEdit", "dayEdit", "raEdit", "aperEdit", "m0Edit"})
            QCOMPARE(edit(dialog, name)->isEnabled(), launch == 0);
        QVERIFY(edit(dialog, "incEdit")->isEnabled() && edit(dialog, "eccEdit")->isEnabled());
    }
}

void ElementEditorTest::aTypedHyperbolaSwitchesTheModelOff()
{
    StEditOrbDialog dialog;
    fill(dialog, station(sgp4), sgp4);
    QVERIFY(opened(dialog));
    type(dialog, "eccEdit", "1.2");
    QVERIFY(!button(dialog, "spg4Box")->isChecked());
    for (const char* name : {"ndotEdit", "adotEdit", "n2dotEdit", "bstarEdit"})
        QVERIFY2(!edit(dialog, name)->isEnabled(), name);
    type(dialog, "n0Edit", "7000");
    click(dialog, "refreshButton");
    QCOMPARE(text(dialog, "periEdit").trimmed(), QString("0.0000"));
    QCOMPARE(text(dialog, "apoEdit").trimmed(), QString("0.0000"));
    QCOMPARE(text(dialog, "n0Edit"), QString("   7000.0000"));
    QVERIFY(near(shownValue(dialog, "aEdit"), -35000.0, 1e-3));
    QVERIFY(near(read(dialog).n0, 7000.0, 1e-9));
}

void ElementEditorTest::aHyperbolaShowsNoHeights()
{
    StEditOrbDialog dialog;
    fill(dialog, flyby(), kepler, 1);
    QCOMPARE(text(dialog, "periEdit"), QString("0.0"));
    QCOMPARE(text(dialog, "apoEdit"), QString("0.0"));
    QVERIFY(!button(dialog, "perapBox")->isChecked());
    QCOMPARE(text(dialog, "eccEdit"), QString("  1.5000000"));
}

void ElementEditorTest::meanMotionStaysInItsRange()
{
    const struct
    {
        const char *typed, *ecc;
        double n0;
    } cases[] = {{"500", "0.01", 100.0}, {"0.0005", "0.01", 0.001}, {"500", "1.5", 500.0}};
    for (const auto& c : cases) {
        StEditOrbDialog dialog;
        fill(dialog, station(kepler), kepler);
        QVERIFY(opened(dialog));
        type(dialog, "eccEdit", c.ecc);
        type(dialog, "n0Edit", c.typed);
        QVERIFY(near(read(dialog).n0, c.n0, 1e-12));
    }
}

void ElementEditorTest::badTextsGiveFiniteElements()
{
    const char* const names[] = {"yearEdit", "dayEdit",   "raEdit",    "aperEdit", "incEdit",
                                 "m0Edit",   "eccEdit",   "n0Edit",    "aEdit",    "adotEdit",
                                 "ndotEdit", "n2dotEdit", "bstarEdit", "periEdit", "apoEdit"};
    for (const int byHeights : {0, 1}) {
        for (const BadText& c : badTexts) {
            StEditOrbDialog dialog;
            fill(dialog, station(kepler), kepler, byHeights);
            for (const char* name : names)
                edit(dialog, name)->setText(c.typed);
            const Elements e = read(dialog);
            for (const double x : {e.a, e.ra, e.aper, e.inc, e.ecc, e.m0, e.n0, e.adot, e.ndot, e.n6dot, e.bstar})
                QVERIFY2(std::isfinite(x), c.typed);
            QVERIFY(e.n0 >= 0.001);
        }
    }
}

void ElementEditorTest::newAcceptsAndTells()
{
    StEditOrbDialog dialog;
    fill(dialog, station(kepler), kepler);
    QVERIFY(opened(dialog));
    click(dialog, "nwsButton");
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QString designator;
    int numflg = 0;
    bool further = false;
    dialog.getParam3(designator, numflg, further);
    QVERIFY(further);
    fill(dialog, station(kepler), kepler);  // the same dialog for the further one
    dialog.getParam3(designator, numflg, further);
    QVERIFY(!further);
}

void ElementEditorTest::geoStandsAtItsLongitude()
{
    StEditOrbDialog dialog;
    fill(dialog, station(sgp4), sgp4, 1, 0);
    QVERIFY(opened(dialog));
    whenDialogOpens([](QDialog& input) {
        QCOMPARE(input.windowTitle(), QString("GEO orbit"));
        input.findChild<QDoubleSpinBox*>()->setValue(19.2);
        input.accept();
    });
    click(dialog, "geoButton");
    for (const char* name : {"spg4Box", "perapBox", "numBox"})
        QVERIFY2(!button(dialog, name)->isChecked(), name);
    const Elements e = read(dialog);
    QVERIFY(near(e.n0, 1.0027, 0.0002));
    QVERIFY(near(e.a, 42164.2, 3.0));
    QCOMPARE(e.ecc + e.aper + e.m0 + e.adot + e.ndot + e.n6dot + e.bstar, 0.0);
    QVERIFY(near(e.inc, 0.001, 1e-12));
    // above the given longitude: the node, and the satellite in it, culminates there
    const double above = std::remainder(e.ra - 15.0 * lsidtim(epoch, 0.0, 0.0), 360.0);
    QVERIFY(near(above, 19.2, 1e-4));
    QVERIFY(e.ra >= 0.0);
}

void ElementEditorTest::editTimeRewritesTheEpoch()
{
    StEditOrbDialog dialog;
    fill(dialog, station(kepler), kepler);
    QVERIFY(opened(dialog));
    whenDialogOpens([](QDialog& date) {
        const struct
        {
            const char *name, *shown;
        } fields[] = {{"yearEdit", "2018"}, {"monthEdit", "1"}, {"dayEdit", "20"}, {"hourEdit", "6"},
                      {"minEdit", "0"},     {"secEdit", "0"},   {"tzoneEdit", "0"}};
        for (const auto& f : fields)
            QCOMPARE(text(date, f.name), QString(f.shown));
        QVERIFY(!edit(date, "durEdit")->isEnabled());
        type(date, "yearEdit", "2020");
        type(date, "monthEdit", "3");
        type(date, "dayEdit", "1");
        type(date, "hourEdit", "14");
        type(date, "tzoneEdit", "2");
        click(date, "okButton");
    });
    click(dialog, "timeButton");
    QCOMPARE(text(dialog, "yearEdit"), QString("2020"));
    QCOMPARE(text(dialog, "dayEdit"), QString(" 61.5000000000"));  // a leap year
}

void ElementEditorTest::adjustmentIsStoredOnOk()
{
    for (const bool ok : {false, true}) {
        StEditOrbDialog dialog;
        fill(dialog, station(kepler), kepler);
        QVERIFY(opened(dialog));
        indata->sgpsat = 0;
        whenDialogOpens([ok](QDialog& adjust) {
            click(adjust, "adjBox");
            type(adjust, "n0Edit", "14.34215");
            click(adjust, ok ? "okButton" : "cancelButton");
        });
        click(dialog, "adjButton");
        QCOMPARE(indata->adjflg, ok);
        QCOMPARE(indata->adjn0, ok ? 14.34215 : 0.0);
        QCOMPARE(indata->sgpsat, ok ? noSlot : 0);
    }
}

void ElementEditorTest::stateIsThatOfTheElements()
{
    indata->stref = frame::meanOfDate;
    Elements e = station(kepler);
    e.a = 7000.0;
    e.inc = 90.0;
    e.ecc = e.ra = e.aper = e.m0 = 0.0;
    StEditOrbDialog dialog;
    fill(dialog, e, kepler);
    QVERIFY(opened(dialog));
    whenDialogOpens([](QDialog& state) {
        // GM of the JGM-3 field; a circle over the poles, at the node: 7000 km and sqrt(398600.4415 / 7000) km/s
        const double values[] = {7000.0, 0.0, 0.0, 0.0, 0.0, std::sqrt(398600.4415 / 7000.0)};
        const char* const names[] = {"rxEdit", "ryEdit", "rzEdit", "vxEdit", "vyEdit", "vzEdit"};
        for (int i = 0; i < 6; ++i)
            QVERIFY2(near(shownValue(state, names[i]), values[i], 1e-8), names[i]);
        for (const char* name : {"f107Edit", "fb107Edit", "kpEdit", "amEdit", "cdEdit", "crEdit", "cstateBox"})
            QVERIFY2(hidden(state, name), name);
        QVERIFY(button(state, "mdateButton")->isChecked());
        QCOMPARE(text(state, "yearEdit"), QString("2018"));
        click(state, "cancelButton");
    });
    click(dialog, "stateButton");
    QCOMPARE(indata->epr0[0], 0.0);  // cancelled
}

void ElementEditorTest::stateReturnsTheElementsFromEveryFrame()
{
    for (const char* name : {"todButton", "mdateButton", "j2000Button", "efixButton"}) {
        Elements e = station(kepler);
        e.a = 7000.0;
        StEditOrbDialog dialog;
        fill(dialog, e, kepler);
        QVERIFY(opened(dialog));
        whenDialogOpens([name](QDialog& state) {
            click(state, name);
            click(state, "okButton");
        });
        click(dialog, "stateButton");
        const Elements back = read(dialog);
        QVERIFY(near(back.a, e.a, 0.5e-4));
        QVERIFY(near(back.ecc, e.ecc, 0.5e-7));
        QVERIFY(near(back.inc, e.inc, 0.5e-4));
        QVERIFY(near(back.ra, e.ra, 0.5e-4));
        QVERIFY(near(back.aper, e.aper, 1e-4));
        QVERIFY(near(back.m0, e.m0, 1e-4));
        QVERIFY(near(back.n0, getn0(e.a, e.ecc, e.inc), 1e-6));
        const double radius = std::hypot(indata->epr0[0], indata->epr1[0], indata->epr2[0]);
        QVERIFY(near(radius, 7000e3 * (1.0 - e.ecc * std::cos(12.3456 * 0.0174533)), 5e3));
        QVERIFY(near(indata->mjdep[0], epoch, 1e-8));
    }
    QCOMPARE(indata->stref, int(frame::earthFixed));
}

void ElementEditorTest::stateOfANumericSatelliteIsTheStoredOne()
{
    indata->stref = frame::meanOfDate;
    indata->satn = 1;
    indata->mjdep[0] = epoch;
    indata->epr0[0] = 8000e3;
    indata->epv1[0] = 7000.0;
    indata->epv2[0] = 500.0;
    indata->F107[0] = 151.0;
    indata->Am[0] = 0.0125;
    StEditOrbDialog dialog;
    fill(dialog, station(kepler), kepler, 0, 1);
    QVERIFY(opened(dialog));
    whenDialogOpens([](QDialog& state) {
        QVERIFY(near(shownValue(state, "rxEdit"), 8000.0, 1e-9));
        QVERIFY(near(shownValue(state, "vyEdit"), 7.0, 1e-12));
        QCOMPARE(text(state, "f107Edit"), QString("151"));
        QCOMPARE(text(state, "amEdit"), QString("0.0125"));
        QVERIFY(button(state, "cstateBox")->isChecked());
        QVERIFY(shown(state, "kpEdit") && shown(state, "kpLabel"));
        type(state, "kpEdit", "4.5");
        type(state, "rxEdit", "8100");
        click(state, "okButton");
    });
    click(dialog, "stateButton");
    QCOMPARE(indata->epr0[0], 8100e3);
    QCOMPARE(indata->csr0[0], 8100e3);
    QCOMPARE(indata->Kp[0], 4.5);
    QCOMPARE(indata->F107[0], 151.0);
}

void ElementEditorTest::stateKeepsItsNumbersWithoutReset()
{
    indata->stref = frame::meanOfDate;
    indata->mjdep[0] = epoch;
    indata->epr0[0] = 8000e3;
    indata->epv1[0] = 7000.0;
    indata->epv2[0] = 500.0;
    indata->csr0[0] = 1.0;
    for (const bool reset : {true, false}) {
        StStateDialog state;
        state.setParams(true, 2018, 20.25, 0, 0, 0, 0, 0, 0, 0.1);
        QVERIFY(opened(state));
        if (!reset)
            click(state, "cstateBox");
        const QString before = text(state, "rxEdit");
        click(state, "efixButton");
        QCOMPARE(text(state, "rxEdit") == before, !reset);
        if (reset) {
            click(state, "mdateButton");  // and back again
            QVERIFY(near(shownValue(state, "rxEdit"), 8000.0, 1e-8));
            continue;
        }
        double year = 0, day = 0, r[3] = {}, v[3] = {};
        state.getParams(year, day, r[0], r[1], r[2], v[0], v[1], v[2]);
        QCOMPARE(indata->stref, int(frame::earthFixed));
        QCOMPARE(indata->csr0[0], 1.0);
        QVERIFY(std::abs(r[0] - 8000.0) > 1.0);  // the same digits in another frame
    }
}

void ElementEditorTest::stateOfAHyperbolaGivesThePerigeeTime()
{
    Elements e = flyby();
    indata->stref = frame::meanOfDate;
    StEditOrbDialog dialog;
    fill(dialog, e, kepler);
    QVERIFY(opened(dialog));
    whenDialogOpens([](QDialog& state) { click(state, "okButton"); });
    click(dialog, "stateButton");
    const Elements back = read(dialog);
    QVERIFY(near(back.ecc, 1.5, 1e-6));
    QVERIFY(near(back.n0, 7000.0, 1e-2));
    QVERIFY(near(back.a, -14000.0, 1e-2));
    QCOMPARE(back.m0, 0.0);
    QVERIFY(near(shownValue(dialog, "dayEdit"), 20.25, 1e-6));  // the state was that of the perigee
}

void ElementEditorTest::stateWithSgp4GivesMeanElements()
{
    const Elements e = station(sgp4);
    indata->stref = frame::meanOfDate;
    StEditOrbDialog dialog;
    fill(dialog, e, sgp4, 1);
    QVERIFY(opened(dialog));
    whenDialogOpens([](QDialog& state) { click(state, "okButton"); });
    click(dialog, "stateButton");
    double inc = 0, ra = 0, ecc = 0, aper = 0, m0 = 0, n0 = 0;
    cvSGP4(inc, ra, ecc, aper, m0, n0);
    const Elements back = read(dialog);
    QVERIFY(near(back.inc, inc, 0.5e-4));
    QVERIFY(near(back.ra, ra, 0.5e-4));
    QVERIFY(near(back.m0, m0, 0.5e-4));
    QVERIFY(button(dialog, "perapBox")->isChecked());
    QVERIFY(button(dialog, "spg4Box")->isChecked());
    // osculating elements were shown, so the mean motion moves by the periodic terms, some 0.1 percent
    QVERIFY(std::abs(back.n0 - n0) < 1e-6);
    QVERIFY(std::abs(back.n0 - e.n0) > 1e-4);
}

void ElementEditorTest::stateReadsBadTexts()
{
    const char* const names[] = {"yearEdit", "dayEdit", "rxEdit", "ryEdit",   "rzEdit",
                                 "vxEdit",   "vyEdit",  "vzEdit", "f107Edit", "kpEdit"};
    indata->stref = frame::j2000;
    for (const BadText& c : badTexts) {
        StEditOrbDialog dialog;
        fill(dialog, station(sgp4), sgp4, 0, 1);
        QVERIFY(opened(dialog));
        whenDialogOpens([&](QDialog& state) {
            for (const char* name : names)
                type(state, name, c.typed);
            click(state, "efixButton");
            click(state, "okButton");
        });
        click(dialog, "stateButton");
        const Elements e = read(dialog);
        for (const double x : {e.a, e.ra, e.aper, e.inc, e.ecc, e.m0, e.n0, e.adot, e.ndot})
            QVERIFY2(std::isfinite(x), c.typed);
    }
}

QTEST_MAIN(ElementEditorTest)
#include "element_editor_test.moc"
