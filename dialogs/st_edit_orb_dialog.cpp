#include "dialogs/st_edit_orb_dialog.h"

#include <tuple>

#include <QCheckBox>
#include <QInputDialog>

#include "astro/calendar.h"
#include "dialogs/epoch_edit.h"
#include "dialogs/st_adj_dialog.h"
#include "dialogs/st_state_dialog.h"
#include "elements/reader.h"
#include "orbit/prime_state.h"

namespace {

constexpr const char* angleFormat = "%9.4lf";
constexpr const char* meanMotionFormat = "%12.8lf";
constexpr const char* lengthFormat = "%12.4lf";
constexpr const char* rateFormat = "%10.4le";

const char* eccentricityFormat(double ecc)
{
    return ecc < 1.0 ? "%9.7lf" : "%11.7lf";
}

}  // namespace

void StEditOrbDialog::setValues(const Values& values, bool launch)
{
    showSatellite(values, launch);
    showElements(values.elements);
    showFlight(values);
}

StEditOrbDialog::Values StEditOrbDialog::takeValues()
{
    refreshSlot();
    Values v;
    v.name = nameEdit->text();
    v.designator = idsnEdit->text();
    v.norad = form::integer(noradEdit);
    v.sgp4 = spg4Box->isChecked();
    v.byHeights = perapBox->isChecked();
    v.numeric = numBox->isChecked();
    v.elements = typedElements();
    v.elements.n0 = editor::storedMeanMotion(v.elements.n0, v.elements.ecc);
    return v;
}

void StEditOrbDialog::setParam1(const QString& fsname, int norad, int aflg, int paflg, double mjdep, int lcflg)
{
    Values v;
    v.elements.epoch = mjdep;
    std::tie(v.name, v.norad, v.sgp4, v.byHeights) = std::tuple(fsname, norad, aflg != 0, paflg != 0);
    showSatellite(v, lcflg != 0);
}

void StEditOrbDialog::setParam2(double a, double ra, double aper, double inc, double ecc, double m0, double n0,
                                double adot, double ndot, double n6dot, double bstar)
{
    showElements({0.0, a, ra, aper, inc, ecc, m0, n0, adot, ndot, n6dot, bstar});
}

void StEditOrbDialog::setParam3(const QString& ldsn, int numflg)
{
    Values v;
    std::tie(v.designator, v.numeric) = std::tuple(ldsn, numflg != 0);
    showFlight(v);
}

void StEditOrbDialog::getParam1(QString& fsname, int& norad, int& aflg, int& paflg, double& year, double& day)
{
    std::tie(fsname, norad) = std::tuple(nameEdit->text(), form::integer(noradEdit));
    std::tie(aflg, paflg) = std::tuple(spg4Box->isChecked() ? 1 : 0, perapBox->isChecked() ? 1 : 0);
    std::tie(year, day) = std::tuple(form::number(yearEdit), form::number(dayEdit));
}

void StEditOrbDialog::getParam2(double& a, double& ra, double& aper, double& inc, double& ecc, double& m0, double& n0,
                                double& adot, double& ndot, double& n6dot, double& bstar)
{
    const Elements e = takeValues().elements;
    std::tie(a, ra, aper, inc, ecc, m0) = std::tuple(e.a, e.ra, e.aper, e.inc, e.ecc, e.m0);
    std::tie(n0, adot, ndot, n6dot, bstar) = std::tuple(e.n0, e.adot, e.ndot, e.n6dot, e.bstar);
}

void StEditOrbDialog::getParam3(QString& ldsn, int& numflg, bool& nwsflg)
{
    std::tie(ldsn, numflg, nwsflg) = std::tuple(idsnEdit->text(), numBox->isChecked() ? 1 : 0, ednwsflg);
}

void StEditOrbDialog::showSatellite(const Values& values, bool launch)
{
    form::setName(nameEdit, values.name);
    form::setNumber(noradEdit, values.norad);
    showEpoch(values.elements.epoch);
    spg4Box->setChecked(values.sgp4);
    perapBox->setChecked(values.byHeights);
    spgSlot();
    perapoSlot();
    for (Field* field : {yearEdit, dayEdit, raEdit, aperEdit, m0Edit})
        form::setEditEnabled(field, !launch);
}

void StEditOrbDialog::showElements(const Elements& elements)
{
    const bool ellipse = elements.ecc < 1.0;
    shape = {elements.n0, elements.a, elements.ecc, elements.ndot, elements.adot, 0.0, 0.0};
    if (ellipse)
        editor::setHeights(shape);
    showShape();
    showAngles(elements);
    form::setPrinted(n2dotEdit, rateFormat, elements.n6dot);
    form::setPrinted(bstarEdit, rateFormat, elements.bstar);
    if (!ellipse) {
        for (Field* field : {periEdit, apoEdit})
            field->showValue(0.0, "0.0");
        perapBox->setChecked(false);
        eccSlot();
    }
    edits = {};  // nobody has edited anything yet
}

void StEditOrbDialog::showFlight(const Values& values)
{
    ednwsflg = false;
    form::setName(idsnEdit, values.designator);
    numBox->setChecked(values.numeric);
    if (!values.numeric)
        return;
    double ecc = 0;
    double perigeeTime = 0;
    vsCkHyp(ecc, perigeeTime);
    if (ecc >= 1.0)
        showEpoch(perigeeTime);
}

void StEditOrbDialog::showShape()
{
    form::setPrinted(n0Edit, shape.ecc < 1.0 ? meanMotionFormat : lengthFormat, shape.n0);
    form::setPrinted(aEdit, lengthFormat, shape.a);
    form::setPrinted(eccEdit, eccentricityFormat(shape.ecc), shape.ecc);
    form::setPrinted(adotEdit, angleFormat, shape.adot);
    form::setPrinted(ndotEdit, meanMotionFormat, shape.ndot);
    form::setPrinted(periEdit, lengthFormat, shape.perigee);
    form::setPrinted(apoEdit, lengthFormat, shape.apogee);
}

void StEditOrbDialog::showAngles(const Elements& elements)
{
    form::setPrinted(incEdit, angleFormat, elements.inc);
    form::setPrinted(raEdit, angleFormat, elements.ra);
    form::setPrinted(aperEdit, angleFormat, elements.aper);
    form::setPrinted(m0Edit, angleFormat, elements.m0);
}

void StEditOrbDialog::showEpoch(double mjd)
{
    ::showEpoch({yearEdit, dayEdit}, mjd, dayFormat);
}

Elements StEditOrbDialog::typedElements() const
{
    Elements e;
    e.epoch = epochOf({yearEdit, dayEdit});
    e.a = form::number(aEdit);
    e.ra = form::number(raEdit);
    e.aper = form::number(aperEdit);
    e.inc = form::number(incEdit);
    e.ecc = form::number(eccEdit);
    e.m0 = form::number(m0Edit);
    e.n0 = form::number(n0Edit);
    e.adot = form::number(adotEdit);
    e.ndot = form::number(ndotEdit);
    e.n6dot = form::number(n2dotEdit);
    e.bstar = form::number(bstarEdit);
    return e;
}

editor::Shape StEditOrbDialog::typedShape() const
{
    const Elements e = typedElements();
    return {e.n0, e.a, e.ecc, e.ndot, e.adot, form::number(periEdit), form::number(apoEdit)};
}

void StEditOrbDialog::refreshSlot()
{
    if (form::number(eccEdit) >= 1.0)
        spg4Box->setChecked(false);
    const editor::Setting setting{form::number(incEdit), perapBox->isChecked(), spg4Box->isChecked()};
    shape = editor::refreshed(shape, typedShape(), edits, setting);
    showShape();
    edits = {};
}

void StEditOrbDialog::allowForModel()
{
    const bool sgp4 = spg4Box->isChecked();
    for (Field* field : {ndotEdit, adotEdit, n2dotEdit})
        form::setEditEnabled(field, !sgp4);
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
    for (Field* field : {periEdit, apoEdit})
        form::setEditEnabled(field, byHeights);
    for (Field* field : {eccEdit, n0Edit, aEdit})
        form::setEditEnabled(field, !byHeights);
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
    for (Field* field : {ndotEdit, adotEdit, n2dotEdit, bstarEdit})
        form::setEditEnabled(field, false);
}

void StEditOrbDialog::timeSlot()
{
    editEpoch(this, {yearEdit, dayEdit});
}

void StEditOrbDialog::adjSlot()
{
    StAdjDialog::Values v;
    int wgs = 0;
    vsGetAdj(v.sdp4, v.adjflg, v.adjtim, v.adjn0, v.adjra, wgs);
    v.wgs84 = wgs == 1;
    StAdjDialog dialog(this);
    dialog.setValues(v);
    if (dialog.exec() != QDialog::Accepted)
        return;
    v = dialog.values();
    vsPutAdj(v.sdp4, v.adjflg, v.adjtim, v.adjn0, v.adjra, v.wgs84 ? 1 : 0);
}

void StEditOrbDialog::geoSlot()
{
    bool accepted = false;
    const double longitude =
        QInputDialog::getDouble(this, tr("GEO orbit"), tr("Geogr.Longitude:"), 0.0, -180.0, 360.0, 2, &accepted);
    if (!accepted)
        return;
    const Elements e = editor::geostationary(longitude, epochOf({yearEdit, dayEdit}));
    for (QCheckBox* box : {spg4Box, perapBox, numBox})
        box->setChecked(false);
    showElements(e);
    smaxSlot();
    adotSlot();
    refreshSlot();
}

void StEditOrbDialog::stateSlot()
{
    const Elements e = typedElements();
    const editor::State shown = editor::stateOf(e);
    StStateDialog dialog(this);
    dialog.setParams(numBox->isChecked(), form::number(yearEdit), form::number(dayEdit), shown.r[0], shown.r[1],
                     shown.r[2], shown.v[0], shown.v[1], shown.v[2], e.ecc);
    if (dialog.exec() != QDialog::Accepted)
        return;
    if (!dialog.isEdited()) {
        dialog.storeUnedited();
        return;
    }
    double year = 0;
    double day = 0;
    editor::State state;
    dialog.getParams(year, day, state.r[0], state.r[1], state.r[2], state.v[0], state.v[1], state.v[2]);
    takeState(state, {truncToInt(year), day});
}

void StEditOrbDialog::takeState(const editor::State& state, const editor::YearDay& epoch)
{
    const Elements e =
        editor::elementsOf(state, editor::mjdOf(epoch), spg4Box->isChecked(), analyticModelOf(*indata));
    const bool ellipse = e.ecc < 1.0;
    if (spg4Box->isChecked() && ellipse && !editor::hasSgp4Elements(state)) {
        spg4Box->setChecked(false);
        sayNoSgp4Elements(this);
    }
    form::setNumber(yearEdit, epoch.year);
    form::setPrinted(dayEdit, "%12.8lf", epoch.day);
    if (!ellipse)
        showEpoch(e.epoch);
    form::setPrinted(aEdit, lengthFormat, e.a);
    form::setPrinted(n0Edit, meanMotionFormat, e.n0);
    form::setPrinted(eccEdit, eccentricityFormat(e.ecc), e.ecc);
    showAngles(e);

    const bool byHeights = perapBox->isChecked();
    perapBox->setChecked(false);
    spg4Box->isChecked() ? n0Slot() : smaxSlot();
    refreshSlot();
    perapBox->setChecked(byHeights && ellipse);
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

void sayNoSgp4Elements(QWidget* parent)
{
    form::say(parent, StEditOrbDialog::tr("This orbit has no SGP4 elements.\nIt stays numeric or Keplerian."));
}
