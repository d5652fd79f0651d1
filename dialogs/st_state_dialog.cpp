#include "dialogs/st_state_dialog.h"

#include <algorithm>
#include <tuple>

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "astro/calendar.h"
#include "design/satellite_slots.h"
#include "dialogs/epoch_edit.h"
#include "dialogs/form.h"
#include "record/field_numbers.h"
#include "record/winp_data.h"

int stdtmje = frame::meanOfDate;
bool stdnmflg = false;

namespace {

StStateDialog::State turned(StStateDialog::State s, int from, int to, double mjd)
{
    if (from != to)
        vsRefState(from, to, mjd, s[0], s[1], s[2], s[3], s[4], s[5]);
    return s;
}

/// The numbers of the texts on show. Another frame is computed from these, so that its digits can be worked by hand.
StStateDialog::State numbersIn(const std::array<Field*, 6>& fields)
{
    StStateDialog::State numbers{};
    std::ranges::transform(fields, numbers.begin(), [](const Field* field) { return typedNumber(field->text()); });
    return numbers;
}

}  // namespace

StStateDialog::StStateDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("State Vector"));
    auto* rows = new QFormLayout;
    addEpoch(rows);
    addState(rows);
    auto* left = new QVBoxLayout;
    left->addLayout(rows);
    addFrames(left);
    left->addStretch();
    auto* right = new QVBoxLayout;
    addForces(right);
    right->addStretch();
    auto* buttons = new QHBoxLayout;
    auto* timeButton =
        form::addButton(buttons, "timeButton", tr("Edit &Time"), nullptr,
                        {tr("Opens a dialog in which the epoch can be given as a date and a time in UT."),
                         tr("Edit the epoch as a date")});
    form::addOkCancel(this, buttons);
    form::finish(this, form::columns(left, right), buttons);

    frameButtons[frame::meanOfDate]->setChecked(true);
    cstateBox->setChecked(true);
    connect(timeButton, &QPushButton::clicked, this, &StStateDialog::timeSlot);
    for (QRadioButton* button : frameButtons)
        connect(button, &QRadioButton::toggled, this, &StStateDialog::refSlot);
}

void StStateDialog::addEpoch(QFormLayout* rows)
{
    yearEdit = form::addEdit(rows, "yearEdit", tr("&Year of epoch:"),
                             {tr("The year of the state vector's time in UTC."), tr("Year of epoch")});
    dayEdit = form::addEdit(
        rows, "dayEdit", tr("Day of Year. &Fraction of day:"),
        {tr("The day of the year with its fraction in UTC; 1.0 is the start of January 1."), tr("Day of the year")});
    doubtEpoch({yearEdit, dayEdit});
}

void StStateDialog::addState(QFormLayout* rows)
{
    struct Row
    {
        const char* name;
        QString label;
        QString help;
    };
    const Row coordinates[] = {
        {"rxEdit", tr("&x (km):"), tr("The x coordinate of the position in the reference system chosen below.")},
        {"ryEdit", tr("y (km):"), tr("The y coordinate of the position in the reference system chosen below.")},
        {"rzEdit", tr("&z (km):"), tr("The z coordinate of the position in the reference system chosen below.")},
        {"vxEdit", tr("&Vx (km/s):"), tr("The x component of the velocity in the reference system chosen below.")},
        {"vyEdit", tr("Vy (km/s):"), tr("The y component of the velocity in the reference system chosen below.")},
        {"vzEdit", tr("Vz (km/s):"), tr("The z component of the velocity in the reference system chosen below.")},
    };
    for (std::size_t i = 0; i < stateEdits.size(); ++i) {
        const Row& row = coordinates[i];
        stateEdits[i] = form::addEdit(rows, row.name, row.label, {row.help});
        stateEdits[i]->setMinimumWidth(stateEdits[i]->fontMetrics().horizontalAdvance("-0.000000000000e+000000"));
    }
}

void StStateDialog::addFrames(QVBoxLayout* column)
{
    auto* frames = new QVBoxLayout;
    frameButtons[frame::trueOfDate] = form::addRadio(frames, "todButton", tr("Tr&ue of Date"), nullptr,
                                                     {tr("The true equator and equinox at the epoch.")});
    frameButtons[frame::meanOfDate] = form::addRadio(frames, "mdateButton", tr("&Mean Equator of Date"), nullptr,
                                                     {tr("The mean equator and equinox at the epoch.")});
    frameButtons[frame::j2000] = form::addRadio(frames, "j2000Button", tr("&J2000 (J2K Cartesian)"), nullptr,
                                                {tr("The mean equator and equinox of the year 2000.")});
    frameButtons[frame::earthFixed] =
        form::addRadio(frames, "efixButton", tr("Eart&h Fixed"), nullptr,
                       {tr("Axes that turn with the Earth: x through Greenwich, z through "
                           "the North pole.")});
    form::addGroup(
        column, "frameGroup", tr("Reference System"), frames,
        {tr("The axes to which the state vector refers. The numbers change when another system is chosen.")});
}

void StStateDialog::addForces(QVBoxLayout* column)
{
    cstateBox =
        form::addBox(column, "cstateBox", tr("Reset Curre&nt State Vector"), nullptr,
                     {tr("Mark this if you want to start again with the integration close to the epoch with the "
                         "new epoch vector as given above. If you want to continue your integration at the "
                         "current spot (maybe you only changed the flux values) unmark this box. Temporarily "
                         "unmark this box if you want to change the reference system without correspondingly "
                         "changing the elements."),
                      tr("Set the current state vector to the epoch state.")});
    auto* rows = new QFormLayout;
    f107Edit = form::addEdit(
        rows, "f107Edit", tr("Daily Solar Flux (F&10.7):"),
        {tr("Typical values are 70 for solar minimum and 330 for maximum."), tr("Daily F10.7 solar flux")});
    fb107Edit =
        form::addEdit(rows, "fb107Edit", tr("Average Solar Flux (F10.&7):"),
                      {tr("90 day average of the F10.7 solar flux. Typical values are 70 for solar minimum and "
                          "240 for maximum."),
                       tr("Average F10.7 solar flux")});
    kpEdit = form::addEdit(rows, "kpEdit", tr("Geomagnetic &Kp Index:"),
                           {tr("Typical values are 0 for minimum and 8 for maximum."), tr("Geomagnetic index")});
    amEdit = form::addEdit(rows, "amEdit", tr("&Area/Mass (m^2/kg):"),
                           {tr("Cross-sectional area divided by S/C mass."), tr("Area to mass ratio")});
    cdEdit = form::addEdit(rows, "cdEdit", tr("&Drag Coefficient:"),
                           {tr("Typical values are 1.5 to 3"), tr("Drag coefficient CD")});
    crEdit = form::addEdit(rows, "crEdit", tr("&Radiation Pressure:"),
                           {tr("Typical values are 1.2 to 1.9."), tr("Radiation pressure coefficient CR")});
    column->addLayout(rows);
}

void StStateDialog::setValues(const Values& values)
{
    const bool known = values.frame >= frame::trueOfDate && values.frame <= frame::earthFixed;
    given = values;
    state = values.state;
    stdnmflg = values.numeric;
    stdtmje = known ? values.frame : frame::trueOfDate;
    showForces(values);
    cstateBox->setChecked(values.reset);
    form::setNumber(yearEdit, values.epoch.year);
    form::setPrinted(dayEdit, dayFormat, values.epoch.day);
    showState(turned(state, frame::meanOfDate, stdtmje, epoch()));
    frameButtons[static_cast<std::size_t>(stdtmje)]->setChecked(true);
}

StStateDialog::Values StStateDialog::values() const
{
    const Forces forces{form::number(f107Edit), form::number(fb107Edit), form::number(kpEdit),
                        form::number(crEdit),   form::number(cdEdit),    form::number(amEdit)};
    return {stdnmflg,    {truncToInt(form::number(yearEdit)), form::number(dayEdit)},
            meanState(), forces,
            stdtmje,     cstateBox->isChecked()};
}

bool StStateDialog::isEdited() const
{
    const Values now = values();
    return now.epoch != given.epoch || now.state != given.state || now.forces != given.forces;
}

void StStateDialog::storeUnedited() const
{
    indata->stref = stdtmje;
    if (stdnmflg && cstateBox->isChecked() && hasState(*indata, indata->prs))
        returnToEpoch(indata, indata->prs);
}

void StStateDialog::setParams(bool nmflg, double year, double day, double r0, double r1, double r2, double v0,
                              double v1, double v2, double ecc)
{
    Values v{nmflg, {truncToInt(year), day}, {r0, r1, r2, v0, v1, v2}, {}, stdtmje, true};
    State& s = v.state;
    Forces& f = v.forces;
    double storedEpoch = 0;
    const bool stored = nmflg && hasState(*indata, indata->prs);
    vsGetState(stored, f.F107, f.FB107, f.Kp, v.frame, f.Cr, f.Cd, f.Am, s[0], s[1], s[2], s[3], s[4], s[5],
               storedEpoch);
    if (stored && ecc >= 1.0)
        v.epoch = editor::yearDay(storedEpoch);
    setValues(v);
}

void StStateDialog::getParams(double& year, double& day, double& r0, double& r1, double& r2, double& v0, double& v1,
                              double& v2)
{
    const Values v = values();
    const State& s = v.state;
    const Forces& f = v.forces;
    const bool reset = v.reset || !hasState(*indata, indata->prs);
    vsPutState(v.numeric, v.epoch.year, v.epoch.day, f.F107, f.FB107, f.Kp, v.frame, f.Cr, f.Cd, f.Am, s[0], s[1],
               s[2], s[3], s[4], s[5], reset);
    indata->sgpsat = noSlot;
    std::tie(year, day) = std::tuple(v.epoch.year, v.epoch.day);
    std::tie(r0, r1, r2, v0, v1, v2) = std::tuple(s[0], s[1], s[2], s[3], s[4], s[5]);
}

void StStateDialog::timeSlot()
{
    editEpoch(this, {yearEdit, dayEdit});
}

void StStateDialog::refSlot()
{
    const int chosen = checkedFrame();
    if (chosen == stdtmje)
        return;
    if (cstateBox->isChecked()) {
        state = meanState();
        const State digits = turned(numbersIn(stateEdits), stdtmje, chosen, epoch());
        stdtmje = chosen;
        showState(digits);
        return;
    }
    stdtmje = chosen;
    shownState = typedState();
    shownEpoch = epoch();
    state = turned(shownState, stdtmje, frame::meanOfDate, shownEpoch);
}

void StStateDialog::showForces(const Values& values)
{
    form::setNumber(f107Edit, values.forces.F107);
    form::setNumber(fb107Edit, values.forces.FB107);
    form::setNumber(kpEdit, values.forces.Kp);
    form::setNumber(crEdit, values.forces.Cr);
    form::setNumber(cdEdit, values.forces.Cd);
    form::setNumber(amEdit, values.forces.Am);
    form::setShown(cstateBox, values.numeric);
    for (Field* edit : {f107Edit, fb107Edit, kpEdit, amEdit, cdEdit, crEdit})
        form::setShown(edit, values.numeric);
}

void StStateDialog::showState(const State& numbers)
{
    shownEpoch = epoch();
    shownState = numbers;
    for (std::size_t i = 0; i < stateEdits.size(); ++i)
        form::setPrinted(stateEdits[i], "%20.12le", shownState[i]);
}

double StStateDialog::epoch() const
{
    return epochOf({yearEdit, dayEdit});
}

int StStateDialog::checkedFrame() const
{
    for (int code = frame::trueOfDate; code <= frame::earthFixed; ++code)
        if (frameButtons[static_cast<std::size_t>(code)]->isChecked())
            return code;
    return stdtmje;
}

StStateDialog::State StStateDialog::typedState() const
{
    State typed{};
    std::ranges::transform(stateEdits, typed.begin(), form::number);
    return typed;
}

/// The state in the mean equator of date: to the last bit as it was while nobody has typed over it.
StStateDialog::State StStateDialog::meanState() const
{
    if (typedState() == shownState && epoch() == shownEpoch)
        return state;
    return turned(typedState(), stdtmje, frame::meanOfDate, epoch());
}
