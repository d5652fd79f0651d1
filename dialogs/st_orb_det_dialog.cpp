#include "dialogs/st_orb_det_dialog.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
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

void StOrbDetDialog::setParams(double az1, double el1, double az2, double el2, double deltm, int az1flg, int az2flg,
                               bool odm, bool odp)
{
    form::setNumber(az1Edit, az1);
    form::setNumber(el1Edit, el1);
    form::setNumber(az2Edit, az2);
    form::setNumber(el2Edit, el2);
    form::setNumber(deltmEdit, deltm);
    obs1Box->setChecked(az1flg != 0);
    obs2Box->setChecked(az2flg != 0);
    matchBox->setChecked(odm);
    form::setShown(picButton, odp);
    obs1Slot();
    obs2Slot();
}

void StOrbDetDialog::getParams(double& az1, double& el1, double& az2, double& el2, double& deltm, int& az1flg,
                               int& az2flg, bool& odm)
{
    az1 = form::number(az1Edit);
    el1 = form::number(el1Edit);
    az2 = form::number(az2Edit);
    el2 = form::number(el2Edit);
    deltm = form::number(deltmEdit);
    az1flg = obs1Box->isChecked() ? 1 : 0;
    az2flg = obs2Box->isChecked() ? 1 : 0;
    odm = matchBox->isChecked();
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
    const QString az1 = az1Edit->text();
    const QString el1 = el1Edit->text();
    const bool obs1 = obs1Box->isChecked();
    az1Edit->setText(az2Edit->text());
    el1Edit->setText(el2Edit->text());
    obs1Box->setChecked(obs2Box->isChecked());
    az2Edit->setText(az1);
    el2Edit->setText(el1);
    obs2Box->setChecked(obs1);
}

void StOrbDetDialog::picSlot()
{
    double ra1 = 0;
    double dec1 = 0;
    double ra2 = 0;
    double dec2 = 0;
    vsGetPict(ra1, dec1, ra2, dec2);
    form::setNumber(az1Edit, ra1);
    form::setNumber(el1Edit, dec1);
    form::setNumber(az2Edit, ra2);
    form::setNumber(el2Edit, dec2);
    obs1Box->setChecked(true);
    obs2Box->setChecked(true);
    obs1Slot();
    obs2Slot();
}
