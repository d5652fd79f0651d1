// Orbits by hand, through the menus: elements, state vectors, maneuvers, launches, rendezvous, two sightings.

#include <algorithm>
#include <cmath>
#include <cstring>

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QElapsedTimer>
#include <QInputDialog>
#include <QMessageBox>

#include "app/record/text.h"
#include "app/road_helper.h"
#include "astro/calendar.h"
#include "astro/vec3.h"
#include "engine/position.h"
#include "view/vorlix_view.h"

using road::Configuration;
using road::entering;
using road::mark;
using road::report;
using road::Session;
using windows::click;
using windows::enter;

namespace {

using Answer = std::function<void(QDialog*)>;

QString textOf(QDialog* dialog, const char* edit)
{
    return dialog->findChild<QLineEdit*>(QLatin1String(edit))->text();
}

/// The start date at Greenwich; a dialog of an event does not change the duration.
Answer dateIs(int day, int hour, int minute)
{
    return [=](QDialog* dialog) {
        mark(dialog, "systemBox", false);
        entering({{"yearEdit", "2018"},
                  {"monthEdit", "1"},
                  {"dayEdit", QString::number(day)},
                  {"hourEdit", QString::number(hour)},
                  {"minEdit", QString::number(minute)},
                  {"secEdit", "0"},
                  {"tzoneEdit", "0"}})(dialog);
    };
}

Answer accepting()
{
    return [](QDialog* dialog) { click(dialog, "okButton"); };
}

Answer cancelling()
{
    return [](QDialog* dialog) { dialog->reject(); };
}

/// A message box with this title and a text that holds `text`.
Answer told(const QString& title, const QString& text)
{
    return [=](QDialog* dialog) {
        auto* box = qobject_cast<QMessageBox*>(dialog);
        QVERIFY2(box, qPrintable(dialog->windowTitle()));
        QCOMPARE(box->windowTitle(), title);
        QVERIFY2(box->text().contains(text), qPrintable(box->text()));
        QCOMPARE(box->icon(), QMessageBox::Information);
        box->accept();
    };
}

/// The state vector dialog on top of the editor.
void answerState(QDialog* editor, const Answer& answer)
{
    QCOMPARE(windows::answering([=] { click(editor, "stateButton"); }, {answer}), 1);
}

/// Answers the editor by OK after a look at the state vector.
Answer byState(const Answer& answer)
{
    return [=](QDialog* editor) {
        answerState(editor, answer);
        click(editor, "okButton");
    };
}

/// An input dialog of one number.
Answer number(double value)
{
    return [=](QDialog* dialog) {
        QVERIFY(qobject_cast<QInputDialog*>(dialog));
        dialog->findChild<QDoubleSpinBox*>()->setValue(value);
        dialog->accept();
    };
}

Answer maneuver(const QString& deltv, const QString& yaw, const QString& pitch)
{
    return [=](QDialog* dialog) {
        enter(dialog, "deltavEdit", deltv);
        enter(dialog, "yawEdit", yaw);
        enter(dialog, "pitchEdit", pitch);
        click(dialog, "executeButton");
    };
}

/// An ellipse of the simple model: height of perigee and apogee, km, and inclination.
Answer orbit(const QString& name, double perigee, double apogee, double inc)
{
    return [=](QDialog* dialog) {
        mark(dialog, "spg4Box", false);
        mark(dialog, "perapBox", true);
        entering({{"nameEdit", name},
                  {"incEdit", QString::number(inc)},
                  {"periEdit", QString::number(perigee)},
                  {"apoEdit", QString::number(apogee)}})(dialog);
    };
}

Answer launchFrom(int site, const char* direction)
{
    return [=](QDialog* dialog) {
        auto* sites = dialog->findChild<QComboBox*>("siteBox");
        sites->setFocus();
        QTest::keyClick(sites, Qt::Key_Home);
        for (int k = 0; k < site; ++k)
            QTest::keyClick(sites, Qt::Key_Down);
        QCOMPARE(sites->currentIndex(), site);
        click(dialog, direction);
        click(dialog, "okButton");
    };
}

bool slotIsFinite(int k)
{
    const WinpData& in = *indata;
    for (const double x : {in.mjdep[k], in.a[k], in.ra[k], in.aper[k], in.inc[k], in.ecc[k], in.m0[k], in.n0[k],
                           in.adot[k], in.ndot[k], in.n6dot[k], in.bstar[k], in.epr0[k], in.epr1[k], in.epr2[k],
                           in.epv0[k], in.epv1[k], in.epv2[k]})
        if (!std::isfinite(x))
            return false;
    return true;
}

}  // namespace

class OrbitDesignTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { session.reset(); }

    void editingChangesTheOrbit();
    void okWithoutAnEditKeepsTheShownDigits();
    void cancelChangesNothing();
    void aNewSatelliteIsAddedOrTakenBack();
    void theFirstSatelliteNeedsNoFile();
    void stateVectorsReturnTheMeanElements();
    void aStateAtRestAboveTheEquatorIsGeostationary();
    void transferByTwoManeuvers();
    void escapeIsTold();
    void maneuverNeedsASatellite();
    void thrustIsSwitchedOnAndOff();
    void launchPassesOverItsSite();
    void launchCanBeCancelledAtEveryStep();
    void rendezvousFindsTheLaunchTime();
    void rendezvousNeedsATarget();
    void twoSightingsNameTheSatellite();
    void twoSightingsWithoutAFile();
    void badTextsInTheEditor_data() { badTexts(); }
    void badTextsInTheEditor();
    void badTextsElsewhere_data() { badTexts(); }
    void badTextsElsewhere();

private:
    void selectStation() { windows::select("ISS (ZARYA)"); }
    void badTexts();
    void plotsAndListsEnd();

    std::unique_ptr<Session> session;
};

void OrbitDesignTest::init()
{
    QByteArrayList lines = Configuration().lines;
    lines[19] = "0 ";
    session = std::make_unique<Session>(lines.join('\n') + '\n');
    session->start();
    QCOMPARE(indata->satn, 0);
    windows::observeAllFromVienna();
    indata->dur = 0.5;
}

void OrbitDesignTest::editingChangesTheOrbit()
{
    selectStation();
    session->choose("manvEdit", {[](QDialog* dialog) {
                        QCOMPARE(dialog->windowTitle(), QString("Edit Orbit Elements"));
                        QCOMPARE(textOf(dialog, "noradEdit"), QString("25544"));
                        QCOMPARE(textOf(dialog, "idsnEdit").trimmed(), QString("1998-067A"));
                        mark(dialog, "spg4Box", false);
                        entering({{"nameEdit", "A name of more than twenty characters"},
                                  {"noradEdit", "12345"},
                                  {"idsnEdit", "2018-123ABCDEF"},
                                  {"yearEdit", "2018"},
                                  {"dayEdit", "20.5"},
                                  {"incEdit", "60"},
                                  {"eccEdit", "0.1"},
                                  {"raEdit", "10"},
                                  {"aperEdit", "20"},
                                  {"m0Edit", "30"},
                                  {"aEdit", "8000"}})(dialog);
                    }});
    QCOMPARE(fieldQString(indata->fsname[0]), QString("A name of more than "));
    QCOMPARE(fieldQString(indata->ldsn[0]), QString("2018-123AB"));
    QCOMPARE(indata->norad[0], 12345);
    QCOMPARE(indata->aflg[0], 0);
    QCOMPARE(indata->mjdep[0], mjd(20, 1, 2018, 12.0));
    QCOMPARE(indata->inc[0], 60.0);
    QCOMPARE(indata->a[0], 8000.0);
    QCOMPARE(indata->ra[0] + indata->aper[0] + indata->m0[0], 60.0);
    // Kepler's third law, and the oblateness to a thousandth
    QVERIFY(std::abs(indata->n0[0] / (86400.0 / (2 * M_PI * std::sqrt(8000.0 * 8000 * 8000 / 398600.44))) - 1) <
            2e-3);
    // the epoch state is the new one
    const double radius = std::sqrt(indata->epr0[0] * indata->epr0[0] + indata->epr1[0] * indata->epr1[0] +
                                    indata->epr2[0] * indata->epr2[0]);
    QVERIFY(radius > 7200e3 && radius < 7400e3);
    plotsAndListsEnd();
}

void OrbitDesignTest::okWithoutAnEditKeepsTheShownDigits()
{
    for (const char* name : {"ISS (ZARYA)", "ENVISAT", "HST"})
        windows::select(name);
    for (const int slot : {0, 1, 2}) {
        indata->prs = slot;
        const auto before = std::make_unique<WinpData>(*indata);
        session->choose("manvEdit", {accepting()});
        const struct
        {
            double now, then, digit;
        } shown[] = {
            {indata->inc[slot], before->inc[slot], 1e-4},   {indata->ra[slot], before->ra[slot], 1e-4},
            {indata->aper[slot], before->aper[slot], 1e-4}, {indata->m0[slot], before->m0[slot], 1e-4},
            {indata->ecc[slot], before->ecc[slot], 1e-7},   {indata->n0[slot], before->n0[slot], 1e-8},
            {indata->a[slot], before->a[slot], 1e-4},       {indata->mjdep[slot], before->mjdep[slot], 1e-8},
            {indata->ndot[slot], before->ndot[slot], 1e-8}, {indata->bstar[slot], before->bstar[slot], 1e-8}};
        for (const auto& e : shown)
            QVERIFY2(std::abs(e.now - e.then) <= 0.5 * e.digit + 1e-9 * e.digit,
                     qPrintable(QString::number(e.now, 'g', 12)));
        QCOMPARE(indata->aflg[slot], before->aflg[slot]);
    }
}

void OrbitDesignTest::cancelChangesNothing()
{
    selectStation();
    indata->sgpsat = noSlot;
    const auto before = std::make_unique<WinpData>(*indata);
    session->choose("manvEdit", {[](QDialog* dialog) {
                        enter(dialog, "incEdit", "12");
                        enter(dialog, "nameEdit", "nobody");
                        click(dialog, "cancelButton");
                    }});
    QVERIFY(std::memcmp(before.get(), indata, sizeof(WinpData)) == 0);
}

void OrbitDesignTest::aNewSatelliteIsAddedOrTakenBack()
{
    selectStation();
    const Answer storeAndNew = [](QDialog* dialog) {
        enter(dialog, "nameEdit", "Changed");
        click(dialog, "nwsButton");
    };
    session->choose("manvEdit", {storeAndNew, cancelling()});
    QCOMPARE(indata->satn, 1);
    QCOMPARE(indata->prs, 0);
    QCOMPARE(fieldQString(indata->fsname[0]), QString("Changed"));

    session->choose("manvEdit", {storeAndNew, [](QDialog* dialog) {
                                     QCOMPARE(textOf(dialog, "nameEdit").trimmed(), QString());
                                     QCOMPARE(textOf(dialog, "noradEdit"), QString("0"));
                                     QVERIFY(!dialog->findChild<QCheckBox*>("spg4Box")->isChecked());
                                     orbit("Mine", 500, 600, 70)(dialog);
                                 }});
    QCOMPARE(indata->satn, 2);
    QCOMPARE(indata->prs, 1);
    QCOMPARE(fieldQString(indata->fsname[1]), QString("Mine"));
    QVERIFY(std::abs(indata->a[1] - 6928.14) < 1e-3);
    QVERIFY(std::abs(indata->ecc[1] - 50.0 / 6928.14) < 1e-7);
    QVERIFY(std::abs(indata->mjdep[1] - 58138.71191) < 1e-4);  // the clock of the test
    plotsAndListsEnd();
}

void OrbitDesignTest::theFirstSatelliteNeedsNoFile()
{
    session->choose("manvEdit", {cancelling()});
    QCOMPARE(indata->satn, 0);
    session->choose("manvEdit", {orbit("Mine", 400, 400, 51.6)});
    QCOMPARE(indata->satn, 1);
    QCOMPARE(indata->prs, 0);
    plotsAndListsEnd();
}

// The person flies a satellite numerically, so that the state on show is that of the model, looks at it in a frame and
// takes it over: the conversion gives inclination and mean motion back to the last digit shown; the node moves by the
// equation of the equinoxes of January 2018, -0.0028 degrees, and the eccentricity is the osculating one.
void OrbitDesignTest::stateVectorsReturnTheMeanElements()
{
    const char* const names[] = {"ISS (ZARYA)", "ENVISAT", "HST",  "ATLAS CENTAUR 2", "THOR AGENA D R/B", "OAO 2",
                                 "ISIS 1",      "SERT 2",  "ERBS", "SEASAT 1"};
    for (const char* name : names) {
        indata->satn = 0;
        indata->prs = 0;
        windows::select(name);
        const auto before = std::make_unique<WinpData>(*indata);
        for (const char* frame : {"todButton", "mdateButton", "j2000Button", "efixButton"}) {
            session->choose("manvEdit", {[=](QDialog* dialog) {
                                mark(dialog, "numBox", true);
                                byState([=](QDialog* state) {
                                    QCOMPARE(state->windowTitle(), QString("State Vector"));
                                    click(state, frame);
                                    click(state, "okButton");
                                })(dialog);
                            }});
            QCOMPARE(indata->aflg[0], 1);
            QVERIFY2(std::abs(indata->inc[0] - before->inc[0]) < 1.01e-4, name);
            QVERIFY2(std::abs(indata->ra[0] - before->ra[0] + 0.0028) < 1.01e-4, name);
            QVERIFY2(std::abs(indata->n0[0] - before->n0[0]) < 1.01e-8, name);
            QVERIFY2(std::abs(indata->ecc[0] - before->ecc[0]) < 2e-3, name);
            QVERIFY2(std::abs(indata->epr0[0] - before->epr0[0]) < 0.01, name);
            QVERIFY2(std::abs(indata->epv2[0] - before->epv2[0]) < 1e-5, name);
            QCOMPARE(indata->csr0[0], indata->epr0[0]);
        }
    }
}

// A point at rest above the equator, 42164 km from the centre: a geostationary satellite.
void OrbitDesignTest::aStateAtRestAboveTheEquatorIsGeostationary()
{
    session->choose("manvEdit", {[](QDialog* dialog) {
                        enter(dialog, "aEdit", "7000");
                        click(dialog, "refreshButton");
                        byState([](QDialog* state) {
                            click(state, "efixButton");
                            entering({{"rxEdit", "42164.0"},
                                      {"ryEdit", "0"},
                                      {"rzEdit", "0"},
                                      {"vxEdit", "0"},
                                      {"vyEdit", "0"},
                                      {"vzEdit", "0"}})(state);
                        })(dialog);
                    }});
    QCOMPARE(indata->satn, 1);
    QVERIFY(std::abs(indata->n0[0] - 1.0027) < 2e-4);
    QVERIFY(indata->ecc[0] < 1e-3 && indata->inc[0] < 0.1);
    GetSatPos(indata->mjdep[0] + 0.3, indata, satps, 0, 0);
    QVERIFY(std::abs(satps->lng[0]) < 0.1);
}

void OrbitDesignTest::transferByTwoManeuvers()
{
    session->choose("manvEdit", {orbit("Mine", 400, 400, 51.6)});
    session->choose("manvDeltaV", {dateIs(21, 0, 0), maneuver("109.12", "0", "0")});
    QVERIFY(std::abs(indata->mjdep[0] - 58139.0) < 1e-9);
    QCOMPARE(indata->deltv[0], 109.12);
    // apogee by the vis-viva equation: 109.12 and 107.56 m/s from 400 to 800 km
    QVERIFY(std::abs(indata->a[0] * (1 + indata->ecc[0]) - 7178.1) < 4.0);
    session->choose("manvDeltaV", {dateIs(21, 0, 48), [](QDialog* dialog) {
                                       QCOMPARE(textOf(dialog, "deltavEdit"), QString("109.12"));
                                       QVERIFY(!dialog->findChild<QWidget*>("ionBox")->isVisible());
                                       maneuver("107.56", "0", "0")(dialog);
                                   }});
    QVERIFY(std::abs(indata->a[0] - 7178.1) < 4.0);
    QVERIFY(indata->ecc[0] < 2e-3);
    const double a = indata->a[0];
    session->choose("manvDeltaV", {cancelling()});
    session->choose("manvDeltaV", {dateIs(22, 0, 0), cancelling()});
    QCOMPARE(indata->a[0], a);
    QCOMPARE(indata->mjd, 58140.0);  // the date was taken
    plotsAndListsEnd();
}

void OrbitDesignTest::escapeIsTold()
{
    selectStation();
    session->choose("manvDeltaV", {dateIs(20, 12, 0), maneuver("5000", "0", "0"),
                                   told("Vorlix", "Delta-V resulted in a hyperbolic orbit")});
    QVERIFY(indata->ecc[0] > 1.0);
    QCOMPARE(indata->aflg[0], 0);
    QVERIFY(std::abs(indata->n0[0] - 6780.0) < 30.0);
    session->choose("manvEdit", {[](QDialog* dialog) {
                        QCOMPARE(textOf(dialog, "periEdit"), QString("0.0"));
                        click(dialog, "okButton");
                    }});
    QVERIFY(std::abs(indata->n0[0] - 6780.0) < 30.0);
    plotsAndListsEnd();
}

void OrbitDesignTest::maneuverNeedsASatellite()
{
    session->choose("manvDeltaV", {told("Vorlix", "*** No Satellite Selected ***")});
}

void OrbitDesignTest::thrustIsSwitchedOnAndOff()
{
    session->choose("manvEdit", {[](QDialog* dialog) {
                        mark(dialog, "numBox", true);
                        orbit("Mine", 35786, 35786, 0.1)(dialog);
                    }});
    session->choose("manvEdit", {byState(entering({{"rxEdit", "42164"},
                                                   {"ryEdit", "0"},
                                                   {"rzEdit", "0"},
                                                   {"vxEdit", "0"},
                                                   {"vyEdit", "3.0747"},
                                                   {"vzEdit", "0"}}))});
    QCOMPARE(indata->numflg[0], 1);
    session->choose("manvDeltaV", {dateIs(21, 0, 0), [](QDialog* dialog) {
                                       mark(dialog, "ionBox", true);
                                       mark(dialog, "sunBox", false);
                                       mark(dialog, "epuBox", true);
                                       maneuver("0.5", "0", "0")(dialog);
                                   }});
    QVERIFY(indata->ionf[0] && indata->epu[0] && !indata->suns[0]);
    QCOMPARE(indata->deltv[0], 0.0005);
    session->choose("plotCurrent");
    const double a = indata->a[0];
    indata->mjd += 0.5;
    session->choose("plotForward");
    QVERIFY(indata->a[0] > a + 200.0);                    // 2 a f t / v
    session->choose("manvDeltaV", {[](QDialog* dialog) {  // thrust needs no date to be switched off
                        QCOMPARE(textOf(dialog, "deltavEdit"), QString("0.5"));
                        mark(dialog, "ionBox", false);
                        click(dialog, "executeButton");
                    }});
    QVERIFY(!indata->ionf[0] && !indata->epu[0]);
}

void OrbitDesignTest::launchPassesOverItsSite()
{
    session->choose("manvLaunch",
                    {dateIs(21, 6, 30),
                     [](QDialog* dialog) {
                         for (const char* locked : {"yearEdit", "dayEdit", "raEdit", "aperEdit", "m0Edit"})
                             QVERIFY2(!dialog->findChild<QLineEdit*>(locked)->isEnabled(), locked);
                         orbit("Launch", 200, 220, 51.64)(dialog);
                     },
                     launchFrom(2, "northButton"), told("Launch Orbit", "Launch Azimuth (deg):\n\t   62.75")});
    QCOMPARE(indata->lcflg, 0);
    QCOMPARE(indata->lsx, 2);
    QVERIFY(std::abs(indata->mjdep[0] - 58139.0 - 6.5 / 24) < 1e-9);
    double nearest = 180.0;
    for (double seconds = 0; seconds < 600; seconds += 5) {
        GetSatPos(indata->mjdep[0] + seconds / 86400, indata, satps, 0, 0);
        const double east = (satps->lng[0] - 63.3423) * std::cos(45.92 * M_PI / 180);
        const double north = satps->lat[0] - 45.92;
        nearest = std::min(nearest, std::sqrt(east * east + north * north));
    }
    QVERIFY2(nearest < 0.5, qPrintable(QString::number(nearest)));
    plotsAndListsEnd();
}

void OrbitDesignTest::launchCanBeCancelledAtEveryStep()
{
    selectStation();
    const double ra = indata->ra[0], epoch = indata->mjdep[0];
    session->choose("manvLaunch", {cancelling()});
    session->choose("manvLaunch", {dateIs(21, 6, 30), cancelling(), cancelling()});
    QCOMPARE(indata->lcflg, 0);
    QCOMPARE(indata->ra[0], ra);
    QCOMPARE(indata->mjdep[0], epoch);
    session->choose("manvLaunch", {dateIs(21, 6, 30), entering({{"incEdit", "60"}}), cancelling()});
    QCOMPARE(indata->inc[0], 60.0);  // the elements of the editor stand
    QCOMPARE(indata->mjdep[0], epoch);
}

void OrbitDesignTest::rendezvousFindsTheLaunchTime()
{
    selectStation();
    session->choose("manvRendz", {number(1.3), dateIs(21, 6, 30), orbit("Chaser", 220, 222, indata->inc[0]),
                                  launchFrom(2, "northButton"), [](QDialog* dialog) {
                                      const QString time = QString::asprintf(
                                          "Launch time: %4i-%2i-%2i  %2i:%2i:%2i", indata->year, indata->month,
                                          indata->day, indata->hour, indata->minute, indata->second);
                                      told("Rendezvous Launch", time)(dialog);
                                  }});
    QCOMPARE(indata->satn, 2);
    QCOMPARE(indata->prs, 1);
    QCOMPARE(indata->lsat, -1);
    QCOMPARE(fieldQString(indata->fsname[1]), QString("Chaser"));
    QCOMPARE(indata->mjd, indata->mjdep[1]);
    // the date fields show the launch, cut to the second
    const double shown =
        mjd(indata->day, indata->month, indata->year, indata->hour + indata->minute / 60.0 + indata->second / 3600.0);
    QVERIFY(indata->mjd - shown > -1e-8 && indata->mjd - shown < 1.0001 / 86400);
    QVERIFY(std::abs(indata->mjd - 58139.27) < 0.51);
    // both planes at the time of close approach
    Vec3 normals[2];
    for (const int slot : {0, 1}) {
        GetSatPos(indata->mjdep[1] + 1.3, indata, satps, slot, 0);
        normals[slot] = vnorm(Vec3(indata->csr0[slot], indata->csr1[slot], indata->csr2[slot]) *
                              Vec3(indata->csv0[slot], indata->csv1[slot], indata->csv2[slot]));
    }
    const double apart = std::acos(dot(normals[0], normals[1])) * 180.0 / M_PI;
    QVERIFY2(apart < 0.3, qPrintable(QString::number(apart)));
    plotsAndListsEnd();
}

void OrbitDesignTest::rendezvousNeedsATarget()
{
    session->choose("manvRendz", {told("Rendezvous Launch", "*** No target satellite selected ***")});
    selectStation();
    // each dialog cancelled: the flow goes on with the copy of the target
    session->choose("manvRendz", {cancelling(), cancelling(), told("Rendezvous Launch", "Launch time: ")});
    QCOMPARE(indata->satn, 2);
    QCOMPARE(indata->lsat, -1);
    QCOMPARE(indata->rztime, 1.3);
}

void OrbitDesignTest::twoSightingsNameTheSatellite()
{
    constexpr double seconds = 40.0;
    selectStation();
    int minute = 0;  // of 2018-01-20
    const auto look = [&](double after) {
        GetSatPos(58138.0 + minute / 1440.0 + after / 86400.0, indata, satps, 0, 0);
        return satps->el[0];
    };
    while (look(0) < 30.0 || look(seconds) < 30.0)
        QVERIFY(++minute < 1440);
    look(0);
    const double az1 = satps->az[0], el1 = satps->el[0], height = satps->hgt[0];
    look(seconds);
    const double az2 = satps->az[0], el2 = satps->el[0];
    indata->satn = 0;
    const Answer sightings = [=](QDialog* dialog) {
        QCOMPARE(dialog->windowTitle(), QString("Orbit Determination"));
        QVERIFY(!dialog->findChild<QWidget*>("picButton")->isVisible());
        mark(dialog, "obs1Box", false);
        mark(dialog, "obs2Box", false);
        mark(dialog, "matchBox", true);
        entering({{"az1Edit", QString::number(az1)},
                  {"el1Edit", QString::number(el1)},
                  {"az2Edit", QString::number(az2)},
                  {"el2Edit", QString::number(el2)},
                  {"deltmEdit", QString::number(seconds)}})(dialog);
    };
    session->choose("manvOrbDet", {dateIs(20, minute / 60, minute % 60), sightings, [](QDialog* dialog) {
                                       QCOMPARE(textOf(dialog, "nameEdit"), QString("New"));
                                       click(dialog, "okButton");
                                   }});
    QVERIFY(std::abs(indata->a[0] - 6371.0 - height) < 25.0);
    QVERIFY(std::abs(indata->inc[0] - 51.64) < 1.0);
    QVERIFY2(report().join('\n').contains("ISS (ZARYA)"), qPrintable(report().join('\n')));
    QCOMPARE(indata->dspmd, 0);  // the report is on show
    plotsAndListsEnd();
}

void OrbitDesignTest::twoSightingsWithoutAFile()
{
    session->app->canvas()->setTLEname("missing.txt");
    session->choose("manvOrbDet", {dateIs(20, 5, 0), cancelling()});
    QCOMPARE(indata->satn, 0);
    session->choose("manvOrbDet", {dateIs(20, 5, 0),
                                   [](QDialog* dialog) {
                                       mark(dialog, "matchBox", true);
                                       click(dialog, "okButton");
                                   },
                                   cancelling(), told("Find Matching Sats", "*** Unable to open TLE file ***")});
    QCOMPARE(indata->satn, 1);  // the slot stays
    QVERIFY(report().join('\n').contains("*** Unable to open TLE file ***"));
}

/// A map plot and a pass table, which have to come to an end.
void OrbitDesignTest::plotsAndListsEnd()
{
    constexpr qint64 patienceMs = 30000;
    QElapsedTimer clock;
    clock.start();
    for (int k = 0; k < indata->satn; ++k)
        QVERIFY(slotIsFinite(k));
    session->choose("viewRefresh");  // a pass table would stay on show
    session->choose("plotCurrent");
    QCOMPARE(indata->dspmd, 1);
    session->command(Qt::Key_A);
    QVERIFY(!report().isEmpty());
    QVERIFY2(clock.elapsed() < patienceMs, qPrintable(QString::number(clock.elapsed())));
}

void OrbitDesignTest::badTexts()
{
    QTest::addColumn<QString>("bad");
    for (const char* text : {"", "abc", "nan", "inf", "1e300", "-1e300", "-5"})
        QTest::newRow(*text ? text : "empty") << QString(text);
}

void OrbitDesignTest::badTextsInTheEditor()
{
    QFETCH(QString, bad);
    const char* const fields[] = {"yearEdit",  "dayEdit",  "raEdit",  "aperEdit", "incEdit",  "m0Edit",
                                  "eccEdit",   "n0Edit",   "aEdit",   "adotEdit", "ndotEdit", "n2dotEdit",
                                  "bstarEdit", "periEdit", "apoEdit", "noradEdit"};
    indata->dur = 0.1;
    for (const char* field : fields) {
        for (const bool sgp4 : {false, true}) {
            indata->satn = 0;
            selectStation();
            session->choose("manvEdit", {[&](QDialog* dialog) {
                                mark(dialog, "spg4Box", sgp4);
                                auto* line = dialog->findChild<QLineEdit*>(QLatin1String(field));
                                if (!line->isEnabled())
                                    mark(dialog, "perapBox", true);
                                if (line->isEnabled())
                                    enter(dialog, field, bad);
                                click(dialog, "okButton");
                            }});
            plotsAndListsEnd();
        }
    }
}

void OrbitDesignTest::badTextsElsewhere()
{
    QFETCH(QString, bad);
    indata->dur = 0.1;
    const auto everyEdit = [&](const char* button) {
        return [&bad, button](QDialog* dialog) {
            for (auto* line : dialog->findChildren<QLineEdit*>())
                if (line->isEnabled() && line->isVisible() && line->objectName().endsWith("Edit"))
                    enter(dialog, qPrintable(line->objectName()), bad);
            click(dialog, button);
        };
    };
    const Answer stay = [](QDialog* dialog) { dialog->accept(); };

    selectStation();
    windows::answering([&] { session->action("manvDeltaV")->trigger(); },
                       {dateIs(20, 12, 0), everyEdit("executeButton"), stay});
    plotsAndListsEnd();

    session->choose("manvEdit", {byState(everyEdit("okButton"))});
    plotsAndListsEnd();

    indata->satn = 0;
    selectStation();
    session->choose("manvEdit", {[&](QDialog* dialog) {
                        mark(dialog, "numBox", true);
                        byState(everyEdit("okButton"))(dialog);
                    }});
    plotsAndListsEnd();
    windows::answering([&] { session->action("manvDeltaV")->trigger(); }, {dateIs(20, 12, 0),
                                                                           [&](QDialog* dialog) {
                                                                               mark(dialog, "ionBox", true);
                                                                               everyEdit("executeButton")(dialog);
                                                                           },
                                                                           stay});
    plotsAndListsEnd();

    selectStation();
    session->choose("manvLaunch", {dateIs(20, 12, 0), accepting(), everyEdit("okButton"), stay});
    plotsAndListsEnd();

    session->choose("manvEdit", {[&](QDialog* dialog) {
                        for (const char* button : {"timeButton", "adjButton"}) {
                            windows::answering([=] { click(dialog, button); }, {[&](QDialog* on) {
                                                   if (on->findChild<QWidget*>("adjBox"))
                                                       mark(on, "adjBox", true);
                                                   everyEdit("okButton")(on);
                                               }});
                        }
                        click(dialog, "okButton");
                    }});
    windows::select("ENVISAT");  // the adjustment acts on what is read from now on
    plotsAndListsEnd();
    indata->adjflg = false;

    windows::select("HST");
    session->choose("manvRendz", {number(1000), dateIs(20, 12, 0), accepting(), everyEdit("okButton"), stay});
    plotsAndListsEnd();

    session->choose("manvOrbDet", {dateIs(20, 12, 0), everyEdit("okButton"), accepting()});
    plotsAndListsEnd();
}

QTEST_MAIN(OrbitDesignTest)
#include "orbit_design_test.moc"
