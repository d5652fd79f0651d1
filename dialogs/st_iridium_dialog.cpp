#include "dialogs/st_iridium_dialog.h"

#include <tuple>

#include <QCheckBox>
#include <QFormLayout>

#include "dialogs/form.h"

StIridiumDialog::StIridiumDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Iridium Flares"));
    auto* rows = new QFormLayout;
    magEdit = form::addEdit(rows, "magEdit", tr("&Minimum Magnitude:"),
                            {tr("Flares are listed if they reach this magnitude. Brighter flares have smaller "
                                "numbers.")});
    opsBox = form::addBox(rows, "opsBox", tr("O&perational Orbits Only"), "Alt+P",
                          {tr("If marked, satellites that have left the operational orbits are passed over, as their "
                              "attitude is not known.")});
    solpBox =
        form::addBox(rows, "solpBox", tr("Include &Solar Panel Flares"), "Alt+S",
                     {tr("If marked, flares from the solar panels are looked for too, beside those from the three "
                         "main antennas.")});
    form::finish(this, rows);
}

void StIridiumDialog::setValues(const Values& values)
{
    form::setNumber(magEdit, values.magnitude);
    opsBox->setChecked(values.operational);
    solpBox->setChecked(values.solarPanels);
}

StIridiumDialog::Values StIridiumDialog::values() const
{
    return {form::number(magEdit), opsBox->isChecked(), solpBox->isChecked()};
}

void StIridiumDialog::setParams(double mag, bool ops, bool irsol)
{
    setValues({mag, ops, irsol});
}

void StIridiumDialog::getParams(double& mag, bool& ops, bool& irsol)
{
    const Values v = values();
    std::tie(mag, ops, irsol) = std::tuple(v.magnitude, v.operational, v.solarPanels);
}
