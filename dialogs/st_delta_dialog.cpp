#include "dialogs/st_delta_dialog.h"

#include <tuple>

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "dialogs/form.h"

StDeltaDialog::StDeltaDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Delta-V Maneuver"));
    auto* rows = new QFormLayout;
    deltavEdit = form::addEdit(rows, "deltavEdit", tr("&Delta-V (m/sec):"),
                               {tr("Note that the velocity change is in m/sec."), tr("Size of the velocity change")});
    const QString pointing =
        tr("To point to the delta-v direction first yaw (positive if right) then pitch (positive "
           "if up).");
    yawEdit = form::addEdit(rows, "yawEdit", tr("&Yaw (deg.):"), {pointing, tr("Yaw angle")});
    pitchEdit = form::addEdit(rows, "pitchEdit", tr("&Pitch (deg.):"), {pointing, tr("Pitch angle")});
    ionBox = form::addBox(rows, "ionBox", tr("Continuous &Thrust "), nullptr,
                          {tr("Continuous acceleration (e.g. solar electric propulsion)."), tr("Continuous thrust")});
    sunBox = form::addBox(rows, "sunBox", tr("&Sunshine required"), nullptr,
                          {tr("This will typically be marked for solar electric propulsion."),
                           tr("Continuous thrust only when S/C in sunshine.")});
    epuBox = form::addBox(rows, "epuBox", tr("&Update Epoch State"), nullptr,
                          {tr("If you update the state vector at epoch after each step the changes due to the "
                              "continuous thrust will be kept. If this box is not marked you can go back to the "
                              "original state vector before the continuous thrust was performed. "),
                           tr("Update Epoch State Vector after each step.")});
    auto* buttons = new QHBoxLayout;
    auto* executeButton = form::addButton(buttons, "executeButton", tr("&Execute"), nullptr,
                                          {tr("Performs the maneuver, or switches the thrust on or off.")});
    executeButton->setDefault(true);
    auto* cancelButton = form::addButton(buttons, "cancelButton", tr("&Cancel"), nullptr,
                                         {tr("Closes the dialog. No maneuver takes place.")});
    form::finish(this, rows, buttons);
    form::labelOf(deltavEdit)
        ->setWhatsThis(
            tr("Delta-V (in m/s) for impulsive maneuver or acceleration (in mm/s^2) for continuous thrust."));
    connect(executeButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancelButton, &QPushButton::clicked, this, &QDialog::reject);
    connect(ionBox, &QCheckBox::toggled, this, &StDeltaDialog::ionSlot);
}

void StDeltaDialog::setValues(const Maneuver& maneuver, bool numeric)
{
    form::setNumber(deltavEdit, maneuver.deltv);
    form::setNumber(yawEdit, maneuver.yaw);
    form::setNumber(pitchEdit, maneuver.pitch);
    ionBox->setChecked(maneuver.ionf);
    sunBox->setChecked(maneuver.suns);
    epuBox->setChecked(maneuver.epu);
    if (numeric) {
        ionSlot();
        return;
    }
    form::labelOf(deltavEdit)->setText(tr("&Delta-V (m/sec):"));
    for (QCheckBox* box : {ionBox, sunBox, epuBox})
        form::setShown(box, false);
}

Maneuver StDeltaDialog::values() const
{
    return {form::number(deltavEdit), form::number(yawEdit), form::number(pitchEdit),
            ionBox->isChecked(),      sunBox->isChecked(),   epuBox->isChecked()};
}

void StDeltaDialog::setParams(double deltv, double yaw, double pitch, bool ionf, bool suns, bool nmflg, bool epu)
{
    setValues({deltv, yaw, pitch, ionf, suns, epu}, nmflg);
}

void StDeltaDialog::getParams(double& deltv, double& yaw, double& pitch, bool& ionf, bool& suns, bool& epu)
{
    const Maneuver m = values();
    std::tie(deltv, yaw, pitch, ionf, suns, epu) = std::tuple(m.deltv, m.yaw, m.pitch, m.ionf, m.suns, m.epu);
}

void StDeltaDialog::ionSlot()
{
    const bool thrust = ionBox->isChecked();
    form::labelOf(deltavEdit)->setText(thrust ? tr("&Acceleration (mm/s^2):") : tr("&Delta-V (m/sec):"));
    form::setShown(sunBox, thrust);
    form::setShown(epuBox, thrust);
}
