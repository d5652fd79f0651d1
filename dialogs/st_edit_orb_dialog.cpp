#include "dialogs/st_edit_orb_dialog.h"

#include <cmath>

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "astro/calendar.h"
#include "astro/time_scales.h"
#include "astro/two_body.h"
#include "dialogs/epoch_edit.h"
#include "dialogs/form.h"
#include "dialogs/st_adj_dialog.h"
#include "dialogs/st_state_dialog.h"
#include "elements/reader.h"
#include "orbit/conversions.h"
#include "orbit/mean_motion.h"

namespace {

constexpr double gmKm3PerDay2 = 2975536351779840.0;
constexpr double secondsPerDay = 86400.0;
constexpr double geoMeanMotion = 1.00270065;  // rev/day
constexpr double geoInclinationDeg = 0.001;
constexpr double substituteAxisKm = -1000.0;  // of a hyperbola whose axis is not negative

constexpr const char* angleFormat = "%9.4lf";
constexpr const char* meanMotionFormat = "%12.8lf";
constexpr const char* lengthFormat = "%12.4lf";
constexpr const char* rateFormat = "%10.4le";

const char* eccentricityFormat(double ecc)
{
    return ecc < 1.0 ? "%9.7lf" : "%11.7lf";
}

}  // namespace

StEditOrbDialog::StEditOrbDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Edit Orbit Elements"));
    auto* left = new QFormLayout;
    addNames(left);
    addAngles(left);
    auto* right = new QFormLayout;
    addShape(right);
    addRates(right);

    auto* content = new QVBoxLayout;
    content->addLayout(form::columns(left, right));
    auto* models = new QHBoxLayout;
    addModels(models);
    content->addLayout(models);
    content->addStretch();
    auto* buttons = new QHBoxLayout;
    addCommands(buttons);
    form::addOkCancel(this, buttons);
    form::finish(this, content, buttons);
    connectEdits();
}

void StEditOrbDialog::addNames(QFormLayout* rows)
{
    nameEdit = form::addEdit(rows, "nameEdit", tr("&Satellite Name:"),
                             {tr("The name of the satellite. 20 characters are kept."), tr("Satellite name")});
    noradEdit = form::addEdit(rows, "noradEdit", tr("NORA&D#:"),
                              {tr("The number of the satellite in the catalogue."), tr("NORAD catalogue number")});
    idsnEdit = form::addEdit(
        rows, "idsnEdit", tr("International &Launch #:"),
        {tr("This should be entered in its full format e.g. 1998-067A ."), tr("International launch designator")});
    const QString epoch = tr("For hyperbolic orbits the epoch will be taken as the time of perigee.");
    yearEdit = form::addEdit(rows, "yearEdit", tr("&Year of epoch:"), {epoch, tr("Year of epoch")});
    dayEdit = form::addEdit(rows, "dayEdit", tr("Day of Year. &Fraction of day:"), {epoch, tr("Day of the year")});
}

void StEditOrbDialog::addAngles(QFormLayout* rows)
{
    raEdit = form::addEdit(rows, "raEdit", tr("Right &Ascension (deg):"),
                           {tr("Right ascension of the ascending node, where the satellite crosses the equator "
                               "northward."),
                            tr("Right ascension of the ascending node")});
    aperEdit = form::addEdit(
        rows, "aperEdit", tr("Arg.of &Perigee (deg):"),
        {tr("The angle from the ascending node to the perigee, along the orbit."), tr("Argument of perigee")});
    incEdit = form::addEdit(rows, "incEdit", tr("&Inclination (deg):"),
                            {tr("The angle between the orbit and the equator. Above 90 degrees the orbit is "
                                "retrograde."),
                             tr("Inclination")});
    m0Edit = form::addEdit(rows, "m0Edit", tr("&Mean Anomaly (deg):"),
                           {tr("The Mean Anomaly will be set to 0 for non-elliptic orbits."), tr("Mean anomaly")});
    eccEdit =
        form::addEdit(rows, "eccEdit", tr("&Eccentricity:"),
                      {tr("0 for a circle, below 1 for an ellipse, above 1 for a hyperbola."), tr("Eccentricity")});
}

void StEditOrbDialog::addShape(QFormLayout* rows)
{
    n0Edit =
        form::addEdit(rows, "n0Edit", tr("Mean Motio&n (rev/day):  ||  q (km):"),
                      {tr("Mean Motion for elliptic orbits. Perigee for hyperbolic orbits."), tr("Mean motion")});
    aEdit = form::addEdit(rows, "aEdit", tr("Semimajor A&xis (km):"),
                          {tr("The Semimajor Axis will be ignored for parabolic orbits."), tr("Semimajor axis")});
    const QString heights =
        tr("Used instead of eccentricity, axis and mean motion if Perigee/Apogee is marked. It is "
           "counted from the radius of the equator.");
    periEdit = form::addEdit(rows, "periEdit", tr("Perigee Height (km&):"), {heights, tr("Perigee height")});
    apoEdit = form::addEdit(rows, "apoEdit", tr("Apogee &Height (km):"), {heights, tr("Apogee height")});
}

void StEditOrbDialog::addRates(QFormLayout* rows)
{
    adotEdit = form::addEdit(rows, "adotEdit", tr("adot (&km/day):"),
                             {tr("The change of the semimajor axis in a day. It follows from ndot and the reverse."),
                              tr("Change of the semimajor axis")});
    ndotEdit = form::addEdit(rows, "ndotEdit", tr("ndot &(rev/day^2):"),
                             {tr("Half the change of the mean motion in a day, as element sets state it."),
                              tr("Change of the mean motion")});
    n2dotEdit = form::addEdit(rows, "n2dotEdit", tr("n&2dot (rev/day^3): "),
                              {tr("A sixth of the second derivative of the mean motion, as element sets state it."),
                               tr("Second derivative of the mean motion")});
    bstarEdit =
        form::addEdit(rows, "bstarEdit", tr("&BSTAR:"), {tr("The drag term of the SGP4 model."), tr("Drag term")});
}

void StEditOrbDialog::addModels(QBoxLayout* row)
{
    perapBox =
        form::addBox(row, "perapBox", tr("Perigee&/Apogee"), nullptr,
                     {tr("If marked, the heights of perigee and apogee can be typed, and eccentricity, axis and "
                         "mean motion follow from them."),
                      tr("Enter perigee and apogee")});
    spg4Box = form::addBox(row, "spg4Box", tr("SGP&4 Model"), nullptr,
                           {tr("Orbit model recommended for use with the Two Line Elements supplied by USSPACECOM. "
                               "Deselect this model if you perform Vorlix maneuver calculations."),
                            tr("Use the SGP4 model")});
    numBox = form::addBox(row, "numBox", tr("N&umeric Prop."), nullptr,
                          {tr("If marked the orbit will be integrated numerically. If unmarked the analytical SGP4 "
                              "model or the simple Keplerian orbit model will be used."),
                           tr("Numeric propagation")});
    row->addStretch();
}

QPushButton* StEditOrbDialog::command(QBoxLayout* row, const char* name, const QString& text, const QString& help,
                                      void (StEditOrbDialog::*slot)())
{
    QPushButton* button = form::addButton(row, name, text, nullptr, {help});
    connect(button, &QPushButton::clicked, this, slot);
    return button;
}

void StEditOrbDialog::addCommands(QBoxLayout* row)
{
    command(row, "refreshButton", tr("&Refresh"),
            tr("Update all elements in the table to be consistent after some elements have been modified. This will "
               "also be done automatically if you leave the dialog."),
            &StEditOrbDialog::refreshSlot)
        ->setToolTip(tr("Make the elements consistent"));
    command(row, "stateButton", tr("State &Vec."),
            tr("Shows the orbit as position and velocity, which can be changed. Force parameters of a numerically "
               "integrated orbit are changed here too."),
            &StEditOrbDialog::stateSlot)
        ->setToolTip(tr("Edit the state vector"));
    command(
        row, "adjButton", tr("Ad&just"),
        tr("Adjust the orbit elements which are read from an older TLE file to fit new observations. This could be "
           "useful for satellite constellations which are maintained but not for quickly decaying orbits."),
        &StEditOrbDialog::adjSlot)
        ->setToolTip(tr("Adjust elements read from a file"));
    command(row, "geoButton", tr("&GEO"),
            tr("Generates the orbit elements for a geostationary satellite of know geographic longitude."),
            &StEditOrbDialog::geoSlot)
        ->setToolTip(tr("Geostationary orbit"));
    command(row, "timeButton", tr("Edit &Time"),
            tr("Opens a dialog in which the epoch can be given as a date and a time in UT."),
            &StEditOrbDialog::timeSlot)
        ->setToolTip(tr("Edit the epoch as a date"));
    command(row, "nwsButton", tr("Ne&w"), tr("Stores this satellite and starts a new one with empty elements."),
            &StEditOrbDialog::nwsSlot)
        ->setToolTip(tr("New satellite"));
}

void StEditOrbDialog::connectEdits()
{
    connect(n0Edit, &QLineEdit::textChanged, this, &StEditOrbDialog::n0Slot);
    connect(aEdit, &QLineEdit::textChanged, this, &StEditOrbDialog::smaxSlot);
    connect(ndotEdit, &QLineEdit::textChanged, this, &StEditOrbDialog::ndotSlot);
    connect(adotEdit, &QLineEdit::textChanged, this, &StEditOrbDialog::adotSlot);
    connect(periEdit, &QLineEdit::textChanged, this, &StEditOrbDialog::perSlot);
    connect(apoEdit, &QLineEdit::textChanged, this, &StEditOrbDialog::apoSlot);
    connect(incEdit, &QLineEdit::textChanged, this, &StEditOrbDialog::eccincSlot);
    connect(eccEdit, &QLineEdit::textChanged, this, &StEditOrbDialog::eccSlot);
    connect(spg4Box, &QCheckBox::toggled, this, &StEditOrbDialog::spgSlot);
    connect(perapBox, &QCheckBox::toggled, this, &StEditOrbDialog::perapoSlot);
    connect(numBox, &QCheckBox::toggled, this, &StEditOrbDialog::numSlot);
}

void StEditOrbDialog::setParam1(const QString& fsname, int norad, int aflg, int paflg, double mjdep, int lcflg)
{
    form::setName(nameEdit, fsname);
    form::setNumber(noradEdit, norad);
    showEpoch(mjdep, dayFormat);
    spg4Box->setChecked(aflg != 0);
    perapBox->setChecked(paflg != 0);
    spgSlot();
    perapoSlot();
    for (QLineEdit* edit : {yearEdit, dayEdit, raEdit, aperEdit, m0Edit})
        form::setEditEnabled(edit, lcflg == 0);
    edits = {};
}

void StEditOrbDialog::setParam2(double a, double ra, double aper, double inc, double ecc, double m0, double n0,
                                double adot, double ndot, double n6dot, double bstar)
{
    orbit = {};
    orbit.n0 = n0;
    orbit.a = a;
    orbit.ecc = ecc;
    orbit.ndot = ndot;
    orbit.adot = adot;
    const bool ellipse = ecc < 1.0;
    if (ellipse)
        editor::setHeights(orbit);

    form::setPrinted(aEdit, lengthFormat, a);
    showAngles(inc, ra, aper, m0);
    form::setPrinted(eccEdit, eccentricityFormat(ecc), ecc);
    form::setPrinted(adotEdit, angleFormat, adot);
    form::setPrinted(ndotEdit, meanMotionFormat, ndot);
    form::setPrinted(n0Edit, ellipse ? meanMotionFormat : lengthFormat, n0);
    form::setPrinted(n2dotEdit, rateFormat, n6dot);
    form::setPrinted(bstarEdit, rateFormat, bstar);
    if (ellipse) {
        form::setPrinted(periEdit, lengthFormat, orbit.perigee);
        form::setPrinted(apoEdit, lengthFormat, orbit.apogee);
    } else {
        periEdit->setText("0.0");
        apoEdit->setText("0.0");
        perapBox->setChecked(false);
        eccSlot();
    }
    // a text that was there before has raised no flag
    edits = {1, 1, 2};
}

void StEditOrbDialog::setParam3(const QString& ldsn, int numflg)
{
    ednwsflg = false;
    form::setName(idsnEdit, ldsn);
    numBox->setChecked(numflg != 0);
    if (numflg == 0)
        return;
    double ecc = 0;
    double perigeeTime = 0;
    vsCkHyp(ecc, perigeeTime);
    if (ecc >= 1.0)
        showEpoch(perigeeTime, dayFormat);
}

void StEditOrbDialog::getParam1(QString& fsname, int& norad, int& aflg, int& paflg, double& year, double& day)
{
    fsname = nameEdit->text();
    norad = form::integer(noradEdit);
    aflg = spg4Box->isChecked() ? 1 : 0;
    paflg = perapBox->isChecked() ? 1 : 0;
    year = form::number(yearEdit);
    day = form::number(dayEdit);
}

void StEditOrbDialog::getParam2(double& a, double& ra, double& aper, double& inc, double& ecc, double& m0, double& n0,
                                double& adot, double& ndot, double& n6dot, double& bstar)
{
    refreshSlot();
    a = orbit.a;
    ra = form::number(raEdit);
    aper = form::number(aperEdit);
    inc = form::number(incEdit);
    ecc = orbit.ecc;
    m0 = form::number(m0Edit);
    n0 = editor::storedMeanMotion(orbit.n0, orbit.ecc);
    adot = orbit.adot;
    ndot = orbit.ndot;
    n6dot = form::number(n2dotEdit);
    bstar = form::number(bstarEdit);
}

void StEditOrbDialog::getParam3(QString& ldsn, int& numflg, bool& nwsflg)
{
    ldsn = idsnEdit->text();
    numflg = numBox->isChecked() ? 1 : 0;
    nwsflg = ednwsflg;
}

void StEditOrbDialog::refreshSlot()
{
    if (form::number(eccEdit) >= 1.0)
        spg4Box->setChecked(false);
    orbit = editor::refreshed(orbit, typedOrbit(), edits,
                              {form::number(incEdit), perapBox->isChecked(), spg4Box->isChecked()});
    showShape();
    edits = {};
}

editor::Orbit StEditOrbDialog::typedOrbit() const
{
    return {form::number(n0Edit),   form::number(aEdit),    form::number(eccEdit), form::number(ndotEdit),
            form::number(adotEdit), form::number(periEdit), form::number(apoEdit)};
}

double StEditOrbDialog::typedEpoch() const
{
    return epochOf({yearEdit, dayEdit});
}

void StEditOrbDialog::showEpoch(double mjd, const char* format)
{
    ::showEpoch({yearEdit, dayEdit}, mjd, format);
}

void StEditOrbDialog::showShape()
{
    form::setPrinted(n0Edit, orbit.ecc < 1.0 ? meanMotionFormat : lengthFormat, orbit.n0);
    form::setPrinted(aEdit, lengthFormat, orbit.a);
    form::setPrinted(eccEdit, eccentricityFormat(orbit.ecc), orbit.ecc);
    form::setPrinted(adotEdit, angleFormat, orbit.adot);
    form::setPrinted(ndotEdit, meanMotionFormat, orbit.ndot);
    form::setPrinted(periEdit, lengthFormat, orbit.perigee);
    form::setPrinted(apoEdit, lengthFormat, orbit.apogee);
}

void StEditOrbDialog::showAngles(double inc, double ra, double aper, double m0)
{
    form::setPrinted(incEdit, angleFormat, inc);
    form::setPrinted(raEdit, angleFormat, ra);
    form::setPrinted(aperEdit, angleFormat, aper);
    form::setPrinted(m0Edit, angleFormat, m0);
}

void StEditOrbDialog::allowForModel()
{
    const bool sgp4 = spg4Box->isChecked();
    for (QLineEdit* edit : {ndotEdit, adotEdit, n2dotEdit})
        form::setEditEnabled(edit, !sgp4);
    form::setEditEnabled(bstarEdit, sgp4);
}

void StEditOrbDialog::spgSlot()
{
    allowForModel();
    edits.n0c = 3;
}

void StEditOrbDialog::perapoSlot()
{
    const bool byHeights = perapBox->isChecked();
    for (QLineEdit* edit : {periEdit, apoEdit})
        form::setEditEnabled(edit, byHeights);
    for (QLineEdit* edit : {eccEdit, n0Edit, aEdit})
        form::setEditEnabled(edit, !byHeights);
}

void StEditOrbDialog::n0Slot()
{
    edits.n0c = 1;
}

void StEditOrbDialog::smaxSlot()
{
    edits.n0c = 2;
}

void StEditOrbDialog::ndotSlot()
{
    edits.ndc = 1;
}

void StEditOrbDialog::adotSlot()
{
    edits.ndc = 2;
}

void StEditOrbDialog::perSlot()
{
    edits.apc = 1;
}

void StEditOrbDialog::apoSlot()
{
    edits.apc = 2;
}

void StEditOrbDialog::eccincSlot()
{
    edits.apc = 3;
    if (edits.n0c == 1)
        edits.n0c = 0;
}

void StEditOrbDialog::eccSlot()
{
    if (form::number(eccEdit) < 1.0) {
        eccincSlot();
        allowForModel();
        return;
    }
    if (edits.n0c == 0)
        edits.n0c = 1;
    spg4Box->setChecked(false);
    for (QLineEdit* edit : {ndotEdit, adotEdit, n2dotEdit, bstarEdit})
        form::setEditEnabled(edit, false);
}

void StEditOrbDialog::timeSlot()
{
    editEpoch(this, {yearEdit, dayEdit});
}

void StEditOrbDialog::adjSlot()
{
    bool sdp4 = false;
    bool adjflg = false;
    double adjtim = 0;
    double adjn0 = 0;
    double adjra = 0;
    int wgs = 0;
    vsGetAdj(sdp4, adjflg, adjtim, adjn0, adjra, wgs);
    StAdjDialog dialog(this);
    dialog.setParams(sdp4, adjflg, adjtim, adjn0, adjra, wgs);
    if (dialog.exec() != QDialog::Accepted)
        return;
    dialog.getParams(sdp4, adjflg, adjtim, adjn0, adjra, wgs);
    vsPutAdj(sdp4, adjflg, adjtim, adjn0, adjra, wgs);
}

void StEditOrbDialog::geoSlot()
{
    bool accepted = false;
    const double longitude =
        QInputDialog::getDouble(this, tr("GEO orbit"), tr("Geogr.Longitude:"), 0.0, -180.0, 360.0, 2, &accepted);
    if (!accepted)
        return;
    const double ra = 15.0 * lsidtim(typedEpoch(), longitude, 0.0);
    showAngles(geoInclinationDeg, ra < 0.0 ? ra + 360.0 : ra, 0.0, 0.0);
    form::setPrinted(adotEdit, angleFormat, 0.0);
    form::setPrinted(eccEdit, eccentricityFormat(0.0), 0.0);
    form::setPrinted(n0Edit, meanMotionFormat, geoMeanMotion);
    form::setPrinted(aEdit, lengthFormat, getsax(0, geoMeanMotion, 0.0, geoInclinationDeg));
    form::setPrinted(n2dotEdit, rateFormat, 0.0);
    form::setPrinted(bstarEdit, rateFormat, 0.0);
    for (QCheckBox* box : {spg4Box, perapBox, numBox})
        box->setChecked(false);
    smaxSlot();
    adotSlot();
    refreshSlot();
}

void StEditOrbDialog::stateSlot()
{
    const double mjd = typedEpoch();
    const double ecc = form::number(eccEdit);
    double a = form::number(aEdit);
    double m0 = form::number(m0Edit);
    if (ecc >= 1.0) {
        m0 = 0.0;
        a = a < 0.0 ? a : substituteAxisKm;
    }
    Vec3 r{0, 0, 0};
    Vec3 v{0, 0, 0};
    kepler(gmKm3PerDay2, mjd, mjd, m0, a, ecc, form::number(raEdit), form::number(aperEdit), form::number(incEdit), r,
           v);

    double year = form::number(yearEdit);
    double day = form::number(dayEdit);
    StStateDialog dialog(this);
    dialog.setParams(numBox->isChecked(), year, day, r[0], r[1], r[2], v[0] / secondsPerDay, v[1] / secondsPerDay,
                     v[2] / secondsPerDay, ecc);
    if (dialog.exec() != QDialog::Accepted)
        return;
    dialog.getParams(year, day, r[0], r[1], r[2], v[0], v[1], v[2]);
    v *= secondsPerDay;
    takeState(year, day, r, v);
}

void StEditOrbDialog::takeState(double year, double day, const Vec3& r, const Vec3& v)
{
    const int wholeYear = truncToInt(year);
    const double mjd = editor::mjdOf(editor::YearDay{wholeYear, day});
    form::setNumber(yearEdit, wholeYear);
    form::setPrinted(dayEdit, "%12.8lf", day);

    double perigeeTime = 0, m0 = 0, a = 0, ecc = 0, ra = 0, aper = 0, inc = 0;
    oscelm(gmKm3PerDay2, mjd, r, v, perigeeTime, m0, a, ecc, ra, aper, inc);
    if (ecc >= 1.0)
        showEpoch(perigeeTime, dayFormat);
    form::setPrinted(aEdit, lengthFormat, a);
    showAngles(inc, ra, aper, m0);
    form::setPrinted(eccEdit, eccentricityFormat(ecc), ecc);
    if (ecc < 1.0 && spg4Box->isChecked())
        takeMeanElements();

    const bool byHeights = perapBox->isChecked();
    perapBox->setChecked(false);
    spg4Box->isChecked() ? n0Slot() : smaxSlot();
    refreshSlot();
    if (byHeights && ecc < 1.0) {
        perapBox->setChecked(true);
        refreshSlot();
    }
}

void StEditOrbDialog::takeMeanElements()
{
    double inc = 0, ra = 0, ecc = 0, aper = 0, m0 = 0, n0 = 0;
    cvSGP4(inc, ra, ecc, aper, m0, n0);
    form::setPrinted(n0Edit, meanMotionFormat, n0);
    showAngles(inc, ra, aper, m0);
    form::setPrinted(eccEdit, eccentricityFormat(ecc), ecc);
}

void StEditOrbDialog::numSlot()
{
    // no field depends on how the orbit is flown; a numeric state is changed in its own dialog only
}

void StEditOrbDialog::nwsSlot()
{
    ednwsflg = true;
    accept();
}
