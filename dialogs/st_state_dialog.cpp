#include "dialogs/st_state_dialog.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "astro/calendar.h"
#include "dialogs/epoch_edit.h"
#include "dialogs/form.h"
#include "orbit/conversions.h"

int stdtmje = frame::meanOfDate;
bool stdnmflg = false;

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

void StStateDialog::setParams(bool nmflg, double year, double day, double r0, double r1, double r2, double v0,
                              double v1, double v2, double ecc)
{
    stdnmflg = nmflg;
    State state{r0, r1, r2, v0, v1, v2};
    double f107 = 0, fb107 = 0, kp = 0, cr = 0, cd = 0, am = 0, storedEpoch = 0;
    vsGetState(nmflg, f107, fb107, kp, stdtmje, cr, cd, am, state.x, state.y, state.z, state.vx, state.vy, state.vz,
               storedEpoch);
    if (stdtmje < frame::trueOfDate || stdtmje > frame::earthFixed)
        stdtmje = frame::trueOfDate;
    form::setNumber(f107Edit, f107);
    form::setNumber(fb107Edit, fb107);
    form::setNumber(kpEdit, kp);
    form::setNumber(crEdit, cr);
    form::setNumber(cdEdit, cd);
    form::setNumber(amEdit, am);
    cstateBox->setChecked(true);
    showForces(nmflg);

    form::setNumber(yearEdit, truncToInt(year));
    form::setPrinted(dayEdit, dayFormat, day);
    if (nmflg && ecc >= 1.0)
        showEpoch({yearEdit, dayEdit}, storedEpoch, dayFormat);
    if (stdtmje != frame::meanOfDate)
        vsRefState(frame::meanOfDate, stdtmje, epoch(), state.x, state.y, state.z, state.vx, state.vy, state.vz);
    showState(state);
    frameButtons[static_cast<std::size_t>(stdtmje)]->setChecked(true);
}

void StStateDialog::getParams(double& year, double& day, double& r0, double& r1, double& r2, double& v0, double& v1,
                              double& v2)
{
    State state = typedState();
    if (stdtmje != frame::meanOfDate)
        vsRefState(stdtmje, frame::meanOfDate, epoch(), state.x, state.y, state.z, state.vx, state.vy, state.vz);
    year = form::number(yearEdit);
    day = form::number(dayEdit);
    vsPutState(stdnmflg, truncToInt(year), day, form::number(f107Edit), form::number(fb107Edit), form::number(kpEdit),
               stdtmje, form::number(crEdit), form::number(cdEdit), form::number(amEdit), state.x, state.y, state.z,
               state.vx, state.vy, state.vz, cstateBox->isChecked());
    r0 = state.x;
    r1 = state.y;
    r2 = state.z;
    v0 = state.vx;
    v1 = state.vy;
    v2 = state.vz;
}

void StStateDialog::timeSlot()
{
    editEpoch(this, {yearEdit, dayEdit});
}

void StStateDialog::refSlot()
{
    const int before = stdtmje;
    stdtmje = checkedFrame();
    if (stdtmje == before || !cstateBox->isChecked())
        return;
    State state = typedState();
    vsRefState(before, stdtmje, epoch(), state.x, state.y, state.z, state.vx, state.vy, state.vz);
    showState(state);
}

void StStateDialog::showForces(bool shown)
{
    form::setShown(cstateBox, shown);
    for (QLineEdit* edit : {f107Edit, fb107Edit, kpEdit, amEdit, cdEdit, crEdit})
        form::setShown(edit, shown);
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
    return {form::number(stateEdits[0]), form::number(stateEdits[1]), form::number(stateEdits[2]),
            form::number(stateEdits[3]), form::number(stateEdits[4]), form::number(stateEdits[5])};
}

void StStateDialog::showState(const State& state)
{
    const double values[] = {state.x, state.y, state.z, state.vx, state.vy, state.vz};
    for (std::size_t i = 0; i < stateEdits.size(); ++i)
        form::setPrinted(stateEdits[i], "%20.12le", values[i]);
}
