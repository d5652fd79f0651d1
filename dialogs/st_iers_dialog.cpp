#include "dialogs/st_iers_dialog.h"

#include <tuple>

#include <QCheckBox>
#include <QFormLayout>
#include <QVBoxLayout>

#include "dialogs/form.h"

StIersDialog::StIersDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("IERS Parameters"));
    auto* column = new QVBoxLayout;
    ckDefault = form::addBox(column, "ckDefault", tr("Use &Defaults."), "Alt+D",
                             {tr("If marked, the difference of the time scales comes from a built-in table, and UT1 "
                                 "is taken as UTC. Unmark it to enter published values.")});
    auto* times = new QFormLayout;
    taiEdit =
        form::addWholeEdit(times, "taiEdit", tr("UTC - T&AI (sec):"),
                           {tr("UTC minus International Atomic Time in whole seconds. It is negative, and each leap "
                               "second lowers it by one."),
                            tr("Difference UTC - TAI")});
    ut1Edit = form::addEdit(times, "ut1Edit", tr("UT&1 - UTC (sec):"),
                            {tr("UT1 minus UTC in seconds, as published by the IERS. It stays within 0.9 seconds."),
                             tr("Difference UT1 and UTC.")});
    column->addLayout(times);

    auto* pole = new QFormLayout;
    xEdit = form::addEdit(
        pole, "xEdit", tr("&x (arcsec):"),
        {tr("Coordinate of the pole towards Greenwich in seconds of arc."), tr("x coordinate of pole.")});
    yEdit = form::addEdit(
        pole, "yEdit", tr("&y (arcsec):"),
        {tr("Coordinate of the pole towards 90 degrees West in seconds of arc."), tr("y coordinate of pole.")});
    form::addGroup(column, "poleGroup", tr("IERS Reference Pole Coordinates:"), pole,
                   {tr("Where the axis of rotation meets the Earth's crust, as published by the IERS."),
                    tr("Coordinates of the Reference Pole.")});
    form::finish(this, column);
    connect(ckDefault, &QCheckBox::toggled, this, &StIersDialog::refreshSlot);
}

void StIersDialog::setValues(const Values& values)
{
    form::setNumber(xEdit, values.xp);
    form::setNumber(yEdit, values.yp);
    form::setNumber(taiEdit, values.utcTai);
    form::setNumber(ut1Edit, values.ut1Utc);
    ckDefault->setChecked(!values.inForce);
    refreshSlot();
}

StIersDialog::Values StIersDialog::values() const
{
    return {!ckDefault->isChecked(), form::number(xEdit), form::number(yEdit), form::integer(taiEdit),
            form::number(ut1Edit)};
}

void StIersDialog::setParams(bool IERSflg, double IERSxp, double IERSyp, int UtcTai, double Ut1Utc)
{
    setValues({IERSflg, IERSxp, IERSyp, UtcTai, Ut1Utc});
}

void StIersDialog::getParams(bool& IERSflg, double& IERSxp, double& IERSyp, int& UtcTai, double& Ut1Utc)
{
    const Values v = values();
    std::tie(IERSflg, IERSxp, IERSyp, UtcTai, Ut1Utc) = std::tuple(v.inForce, v.xp, v.yp, v.utcTai, v.ut1Utc);
}

void StIersDialog::refreshSlot()
{
    for (Field* edit : {taiEdit, ut1Edit, xEdit, yEdit})
        form::setEditEnabled(edit, !ckDefault->isChecked());
}
