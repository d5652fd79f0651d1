// The element editor with the dialogs behind its buttons.

#include "astro/time_scales.h"
#include "dialogs/dialog_helper.h"
#include "dialogs/st_edit_orb_dialog.h"
#include "dialogs/st_state_dialog.h"
#include "orbit/mean_motion.h"
#include "orbit/prime_state.h"
#include "record/winp_data.h"

#include <QMessageBox>

namespace {

Elements read(StEditOrbDialog& dialog)
{
    Elements e;
    dialog.getParam2(e.a, e.ra, e.aper, e.inc, e.ecc, e.m0, e.n0, e.adot, e.ndot, e.n6dot, e.bstar);
    return e;
}

constexpr double epoch = 58138.25 + 1e-9;  // 20 January 2018, 6 h
constexpr int sgp4 = 1;
constexpr int kepler = 0;

void fill(StEditOrbDialog& dialog, const Elements& e, int model, int byHeights = 0, int numeric = 0, int launch = 0)
{
    dialog.setParam1("ISS (ZARYA)   ", 25544, model, byHeights, epoch, launch);
    dialog.setParam2(e.a, e.ra, e.aper, e.inc, e.ecc, e.m0, e.n0, e.adot, e.ndot, e.n6dot, e.bstar);
    dialog.setParam3("1998-067A", numeric);
}

/// Like a space station, with an axis that belongs to the mean motion.
Elements station(int model)
{
    Elements e;
    e.n0 = 15.5421234567;
    e.ecc = 0.01023456789;
    e.inc = 51.64123456;
    e.a = getsax(model, e.n0, e.ecc, e.inc);
    e.ra = 123.45671234;
    e.aper = 200.1234;
    e.m0 = 12.34561234;
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

/// All but the epoch.
bool sameElements(const Elements& x, const Elements& y)
{
    const auto numbers = [](const Elements& e) {
        return std::array{e.a, e.ra, e.aper, e.inc, e.ecc, e.m0, e.n0, e.adot, e.ndot, e.n6dot, e.bstar};
    };
    return numbers(x) == numbers(y);
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
    void init()
    {
        *indata = {};
        setDefaults(indata);
    }

    void whatIsNotTouchedKeepsEveryBit()
    {
        const struct
        {
            Elements elements;
            int model, byHeights;
        } cases[] = {{station(sgp4), sgp4, 0},
                     {station(kepler), kepler, 0},
                     {station(kepler), kepler, 1},
                     {flyby(), kepler, 0}};
        for (const auto& c : cases) {
            StEditOrbDialog dialog;
            fill(dialog, c.elements, c.model, c.byHeights);
            QVERIFY(opened(dialog));
            click(dialog, "refreshButton");
            QVERIFY(sameElements(read(dialog), c.elements));
            type(dialog, "nameEdit", "OTHER");
            type(dialog, "m0Edit", "33.5");
            Elements wanted = c.elements;
            wanted.m0 = 33.5;
            QVERIFY(sameElements(read(dialog), wanted));
            QString name, designator;
            int norad = 0, aflg = -1, paflg = -1, numflg = -1;
            double year = 0, day = 0;
            bool further = true;
            dialog.getParam1(name, norad, aflg, paflg, year, day);
            dialog.getParam3(designator, numflg, further);
            QCOMPARE(name + designator, QString("OTHER1998-067A"));
            QCOMPARE((std::array{norad, aflg, paflg, numflg, int(further)}),
                     (std::array{25544, c.model, c.byHeights, 0, 0}));
            QVERIFY(editor::mjdOf({static_cast<int>(year), day}) == epoch);
        }
    }

    void anEmptyOrbitGetsNumbersToWorkWith()
    {
        StEditOrbDialog dialog;
        fill(dialog, {}, kepler);
        QCOMPARE(read(dialog).n0, 100.0);  // the most that the record takes, for an axis of 0
    }

    void refreshFollowsTheLastEdit()
    {
        const Elements e = station(kepler);
        const struct
        {
            const char *what, *edits;  // "field=text" one after the other
            const char* field;
            double value, tolerance;
        } cases[] = {
            // from Kepler's third law, without the flattening of the Earth
            {"axis to mean motion", "aEdit=7000", "n0Edit", 14.8239, 0.02},
            {"mean motion to axis", "n0Edit=14", "aEdit", 7271.9, 8.0},
            {"the later one counts", "n0Edit=14;aEdit=7000", "aEdit", 7000.0, 1e-4},
            {"inclination takes the flag of mean motion", "n0Edit=14;incEdit=60", "n0Edit", e.n0, 1e-8},
            {"eccentricity moves the heights", "eccEdit=0.02", "apoEdit", 1.02 * e.a - 6378.14, 1e-3},
            {"tiny mean motion gives way", "aEdit=7000;n0Edit=0.00005", "aEdit", 7000.0, 1e-4},
            {"ndot to adot", "ndotEdit=0.0003", "adotEdit", -4.0 / 3.0 * e.a * 0.0003 / e.n0, 1e-4},
            {"adot to ndot", "adotEdit=-0.5", "ndotEdit", 0.75 * e.n0 * 0.5 / e.a, 1e-8},
            // the axis on show has four decimals, and the two formulas are each other's inverse to the first order
            {"unreadable mean motion", "n0Edit=abc", "n0Edit", e.n0, 1e-6},
        };
        for (const auto& c : cases) {
            StEditOrbDialog dialog;
            fill(dialog, e, kepler);
            QVERIFY(opened(dialog));
            click(dialog, "refreshButton");
            for (const QString& one : QString(c.edits).split(';'))
                type(dialog, one.section('=', 0, 0).toLatin1(), one.section('=', 1));
            click(dialog, "refreshButton");
            QVERIFY2(near(shownValue(dialog, c.field), c.value, c.tolerance), c.what);
        }
    }

    void fieldsOfTheHeightsAreEnabled()
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

    void aTypedHyperbolaSwitchesTheModelOff()
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

    void aNumericHyperbolaShowsItsTimeOfPerigee()
    {
        indata->mjdep[0] = epoch + 1.0;  // at the perigee, as position and velocity are at right angles
        indata->epr0[0] = 8000e3;
        indata->epv1[0] = 15e3;
        for (const bool numeric : {false, true}) {
            StEditOrbDialog dialog;
            fill(dialog, flyby(), kepler, 0, numeric);
            QVERIFY(near(shownValue(dialog, "dayEdit"), numeric ? 21.25 : 20.25, 1e-8));
        }
    }

    void editTimeRewritesTheEpoch()
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

    void aNameIsContinuedBehindItsLastLetter()
    {
        StEditOrbDialog dialog;
        fill(dialog, station(kepler), kepler);
        QTest::keyClicks(edit(dialog, "nameEdit"), " 2");
        QCOMPARE(text(dialog, "nameEdit"), QString("ISS (ZARYA) 2   "));
    }

    void adjustmentIsStoredOnOk()
    {
        for (const bool ok : {false, true}) {
            StEditOrbDialog dialog;
            fill(dialog, station(kepler), kepler);
            QVERIFY(opened(dialog));
            indata->sgpsat = 0;
            whenDialogOpens([ok](const QDialog& adjust) {
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

    void stateIsThatOfTheElements()
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

    void stateWithoutSgp4ElementsStaysKeplerian()
    {
        Elements e = station(sgp4);
        e.ecc = 0.98;
        e.inc = 28.5;
        e.a = 340000.0;
        StEditOrbDialog dialog;
        fill(dialog, e, sgp4);
        QVERIFY(opened(dialog));
        whenDialogOpens([](const QDialog& state) {
            whenDialogOpens([](const QDialog& box) { QVERIFY(qobject_cast<const QMessageBox*>(&box) != nullptr); });
            type(state, "rxEdit", QString::number(shownValue(state, "rxEdit") + 1e-6, 'g', 17));
            click(state, "okButton");
        });
        click(dialog, "stateButton");
        QVERIFY(!button(dialog, "spg4Box")->isChecked());
        QVERIFY(near(read(dialog).a, e.a, 1.0));
    }

    void stateReturnsTheElementsFromEveryFrame()
    {
        for (const char* name : {"todButton", "mdateButton", "j2000Button", "efixButton"}) {
            for (const bool edited : {false, true}) {
                Elements e = station(kepler);
                e.a = 7000.0;
                indata->epr0[0] = 1.0;
                StEditOrbDialog dialog;
                fill(dialog, e, kepler);
                QVERIFY(opened(dialog));
                whenDialogOpens([=](const QDialog& state) {
                    click(state, name);
                    if (edited)  // a millimetre
                        type(state, "rxEdit", QString::number(shownValue(state, "rxEdit") + 1e-6, 'g', 17));
                    click(state, "okButton");
                });
                click(dialog, "stateButton");
                const Elements back = read(dialog);
                if (!edited) {
                    QVERIFY(sameElements(back, e));
                    QCOMPARE(indata->epr0[0], 1.0);
                    continue;
                }
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
        }
        QCOMPARE(indata->stref, int(frame::earthFixed));
    }

    // The same numbers in other axes are another state.
    void aFrameThatTurnsTheStateIsAnEdit()
    {
        StStateDialog dialog;
        dialog.setValues({true, {2018, 20.25}, {7000, 0, 0, 0, 5, 5}, {}, frame::meanOfDate, true});
        QVERIFY(opened(dialog));
        click(dialog, "j2000Button");
        click(dialog, "mdateButton");
        QVERIFY(!dialog.isEdited());
        click(dialog, "cstateBox");
        click(dialog, "efixButton");
        QVERIFY(dialog.isEdited());
        QVERIFY(near(shownValue(dialog, "rxEdit"), 7000.0, 0.0));
        QVERIFY(std::abs(dialog.values().state[0] - 7000.0) > 1.0);
    }

    void anUneditedNumericStateOnlyReturnsToItsEpoch()
    {
        indata->epr0[0] = 8000e3 / 3.0;
        indata->csr0[0] = 1.0;
        for (const bool reset : {false, true}) {
            StEditOrbDialog dialog;
            fill(dialog, station(kepler), kepler, 0, 1);
            QVERIFY(opened(dialog));
            whenDialogOpens([reset](const QDialog& state) {
                if (!reset)
                    click(state, "cstateBox");
                click(state, "okButton");
            });
            click(dialog, "stateButton");
            QVERIFY(indata->epr0[0] == 8000e3 / 3.0);
            QCOMPARE(indata->csr0[0], reset ? 8000e3 / 3.0 : 1.0);
        }
    }

    void aNumericSatelliteWithoutAStateShowsThatOfItsElements()
    {
        StEditOrbDialog dialog;
        fill(dialog, station(kepler), kepler, 0, 1);
        QVERIFY(opened(dialog));
        whenDialogOpens([](const QDialog& state) { QVERIFY(std::abs(shownValue(state, "rzEdit")) > 1000.0); });
        click(dialog, "stateButton");
    }

    void stateOfANumericSatelliteIsTheStoredOne()
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
            type(state, "ryEdit", "300");
            type(state, "rzEdit", "-400");
            click(state, "okButton");
        });
        click(dialog, "stateButton");
        QCOMPARE(indata->epr0[0], 8100e3);
        QCOMPARE(indata->csr0[0], 8100e3);
        QCOMPARE(indata->epr1[0], 300e3);
        const double radius = std::sqrt(8100.0 * 8100.0 + 300.0 * 300.0 + 400.0 * 400.0);
        QVERIFY(near(read(dialog).a, 1.0 / (2.0 / radius - 49.25 / 398600.4415), 1e-3));  // the vis-viva equation
        QCOMPARE(indata->Kp[0], 4.5);
        QCOMPARE(indata->F107[0], 151.0);
    }
};

QTEST_MAIN(ElementEditorTest)
#include "element_editor_test.moc"
