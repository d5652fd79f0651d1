#include "dialogs/st_orb_det_dialog.h"

#include <tuple>

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "design/astrometry.h"
#include "dialogs/form.h"

StOrbDetDialog::StOrbDetDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Orbit Determination"));
    auto* rows = new QFormLayout;
    const QString along =
        tr("The azimuth from North through East in degrees, or the right ascension in hours, minutes "
           "and seconds.");
    const QString up = tr("The elevation above the horizon in degrees, or the declination in degrees, minutes and "
                          "seconds.");
    az1Edit = form::addEdit(rows, "az1Edit", tr("Azimuth &1 (deg):"), {along, tr("First observation")});
    el1Edit = form::addEdit(rows, "el1Edit", tr("Elevation 1 (deg):"), {up, tr("First observation")});
    az2Edit = form::addEdit(rows, "az2Edit", tr("Azimuth &2 (deg):"), {along, tr("Second observation")});
    el2Edit = form::addEdit(rows, "el2Edit", tr("Elevation 2 (deg):"), {up, tr("Second observation")});
    deltmEdit = form::addEdit(
        rows, "deltmEdit", tr("&Delta Time (sec):"),
        {tr("The time from the first to the second observation in seconds."), tr("Time between the observations")});
    addBoxes(rows);

    auto* buttons = new QHBoxLayout;
    auto* reverseButton = form::addButton(
        buttons, "reverseButton", tr("&Reverse"), nullptr,
        {tr("Interchanges the two positions to reverse the direction of movement."), tr("Reverse Direction")});
    picButton = form::addButton(buttons, "picButton", tr("&Picture"), nullptr,
                                {tr("The last two coordinates marked on the loaded sky picture will be used as "
                                    "observation points. "),
                                 tr("Use picture coordinates.")});
    form::addOkCancel(this, buttons);
    form::finish(this, rows, buttons);
    connect(reverseButton, &QPushButton::clicked, this, &StOrbDetDialog::revSlot);
    connect(picButton, &QPushButton::clicked, this, &StOrbDetDialog::picSlot);
    connect(obs1Box, &QCheckBox::toggled, this, &StOrbDetDialog::obs1Slot);
    connect(obs2Box, &QCheckBox::toggled, this, &StOrbDetDialog::obs2Slot);
}

void StOrbDetDialog::addBoxes(QFormLayout* rows)
{
    const QString packed = tr("If marked, this observation is given as right ascension and declination, otherwise as "
                              "azimuth and elevation.");
    obs1Box =
        form::addBox(rows, "obs1Box", tr("Obs1 as RA/Dec."), nullptr, {packed, tr("Form of the first observation")});
    obs2Box =
        form::addBox(rows, "obs2Box", tr("Obs2 as RA/Dec."), nullptr, {packed, tr("Form of the second observation")});
    matchBox =
        form::addBox(rows, "matchBox", tr("&Match Satellite."), nullptr,
                     {tr("Checks the presently active TLE file for possible matches using the margins as set in "
                         "the Match Satellite dialog."),
                      tr("Try to match satellite.")});
}

void StOrbDetDialog::setValues(const Values& values, bool picture)
{
    showSightings(values.first, values.second);
    form::setNumber(deltmEdit, values.deltm);
    matchBox->setChecked(values.match);
    form::setShown(picButton, picture);
}

void StOrbDetDialog::showSightings(const Sighting& first, const Sighting& second)
{
    form::setNumber(az1Edit, first.az);
    form::setNumber(el1Edit, first.el);
    form::setNumber(az2Edit, second.az);
    form::setNumber(el2Edit, second.el);
    obs1Box->setChecked(first.celestial);
    obs2Box->setChecked(second.celestial);
    obs1Slot();
    obs2Slot();
}

StOrbDetDialog::Values StOrbDetDialog::values() const
{
    return {{form::number(az1Edit), form::number(el1Edit), obs1Box->isChecked()},
            {form::number(az2Edit), form::number(el2Edit), obs2Box->isChecked()},
            form::number(deltmEdit),
            matchBox->isChecked()};
}

void StOrbDetDialog::setParams(double az1, double el1, double az2, double el2, double deltm, int az1flg, int az2flg,
                               bool odm, bool odp)
{
    setValues({{az1, el1, az1flg != 0}, {az2, el2, az2flg != 0}, deltm, odm}, odp);
}

void StOrbDetDialog::getParams(double& az1, double& el1, double& az2, double& el2, double& deltm, int& az1flg,
                               int& az2flg, bool& odm)
{
    const Values v = values();
    std::tie(az1, el1, az1flg) = std::tuple(v.first.az, v.first.el, v.first.celestial ? 1 : 0);
    std::tie(az2, el2, az2flg) = std::tuple(v.second.az, v.second.el, v.second.celestial ? 1 : 0);
    std::tie(deltm, odm) = std::tuple(v.deltm, v.match);
}

void StOrbDetDialog::obs1Slot()
{
    const bool packed = obs1Box->isChecked();
    form::labelOf(az1Edit)->setText(packed ? tr("R.A.&1 (HH.MMSS):") : tr("Azimuth &1 (deg):"));
    form::labelOf(el1Edit)->setText(packed ? tr("Dec.1 (DD.MMSS):") : tr("Elevation 1 (deg):"));
}

void StOrbDetDialog::obs2Slot()
{
    const bool packed = obs2Box->isChecked();
    form::labelOf(az2Edit)->setText(packed ? tr("R.A.&2 (HH.MMSS):") : tr("Azimuth &2 (deg):"));
    form::labelOf(el2Edit)->setText(packed ? tr("Dec.2 (DD.MMSS):") : tr("Elevation 2 (deg):"));
}

void StOrbDetDialog::revSlot()
{
    const Values v = values();
    showSightings(v.second, v.first);
}

void StOrbDetDialog::picSlot()
{
    Sighting first{0, 0, true};
    Sighting second{0, 0, true};
    vsGetPict(first.az, first.el, second.az, second.el);
    showSightings(first, second);
}
