#include "dialogs/st_sys_conf_dialog.h"

#include <tuple>

#include <QCheckBox>
#include <QFormLayout>
#include <QVBoxLayout>

#include "dialogs/form.h"

StSysConfDialog::StSysConfDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Configure System Parameters"));
    auto* column = new QVBoxLayout;
    addIntegration(column);
    addDefaults(column);
    addCorrections(column);
    column->addStretch();
    form::finish(this, column);
}

void StSysConfDialog::addIntegration(QVBoxLayout* column)
{
    auto* rows = new QFormLayout;
    tolEdit =
        form::addEdit(rows, "tolEdit", tr("Relative &Tolerance for Numeric Integration: "),
                      {tr("The relative error allowed in each step of the numeric integration. A smaller number "
                          "gives a more precise and slower propagation. A typical value is 1e-10."),
                       tr("Integration Tolerance.")});
    mxiEdit =
        form::addWholeEdit(rows, "mxiEdit", tr("&Maximum Number of Iterations:"),
                           {tr("How often a single integration step is tried with a smaller width before it is taken "
                               "as it is. 0 means no limit."),
                            tr("Maximum number of iterations for one integration step.")});
    liftEdit = form::addEdit(rows, "liftEdit", tr("L&ift/Drag Ratio"),
                             {tr("The aerodynamic lift of a satellite as a fraction of its drag. 0 means no lift."),
                              tr("Lift to Drag Ratio")});
    column->addLayout(rows);
}

void StSysConfDialog::addDefaults(QVBoxLayout* column)
{
    auto* weather = new QFormLayout;
    fb107Edit =
        form::addEdit(weather, "fb107Edit", tr("Average Solar &Flux (F10.7):"),
                      {tr("90 day average of the F10.7 solar flux. Typical values are 70 for solar minimum and "
                          "240 for maximum."),
                       tr("90 day F10.7 Flux.")});
    f107Edit = form::addEdit(
        weather, "f107Edit", tr("Daily Solar Flux (F&10.7):"),
        {tr("Typical values are 70 for solar minimum and 330 for maximum."), tr("Daily F10.7 solar flux.")});
    kpEdit = form::addEdit(weather, "kpEdit", tr("Geomagnetic &Kp Index:"),
                           {tr("Typical values are 0 for minimum and 8 for maximum."), tr("Geomagnetic K-index.")});
    form::addGroup(column, "weatherGroup", tr("Default Space Weather Parameters:"), weather,
                   {tr("A state vector that is newly defined takes its space weather from here. Satellites selected "
                       "already keep theirs.")});

    auto* craft = new QFormLayout;
    dragEdit = form::addEdit(craft, "dragEdit", tr("&Drag Coefficient:"),
                             {tr("Typical values are 1.5 - 3.0."), tr("CD coefficient")});
    crEdit = form::addEdit(craft, "crEdit", tr("&Radiation Pressure:"),
                           {tr("Typical values are 1.2 - 1.9."), tr("Radiation Pressure Coefficient CR.")});
    amEdit = form::addEdit(craft, "amEdit", tr("&Area/Mass(m^2/kg):"),
                           {tr("Cross-sectional area of a satellite divided by its mass. 0.01 is typical for a "
                               "satellite, 0 switches drag and radiation pressure off."),
                            tr("Area to mass ratio.")});
    form::addGroup(column, "craftGroup", tr("Default S/C Parameters:"), craft,
                   {tr("A state vector that is newly defined takes the properties of its satellite from here. "
                       "Satellites selected already keep theirs.")});
}

void StSysConfDialog::addCorrections(QVBoxLayout* column)
{
    auto* left = new QVBoxLayout;
    sunBox = form::addBox(left, "sunBox", tr("&Solar perturbations"), "Alt+S",
                          {tr("If marked, the numeric integration includes the attraction of the Sun."),
                           tr("Include gravitational field of the Sun")});
    moonBox = form::addBox(left, "moonBox", tr("&Lunar perturbations"), "Alt+L",
                           {tr("If marked, the numeric integration includes the attraction of the Moon."),
                            tr("Include gravity field of the Moon.")});
    auto* right = new QVBoxLayout;
    refractBox =
        form::addBox(right, "refractBox", tr("Refractio&n "), "Alt+N",
                     {tr("If marked, elevations are raised by the refraction of the air, for all satellites."),
                      tr("Correct elevation for refraction.")});
    atxBox = form::addBox(right, "atxBox", tr("E&xtinction"), "Alt+X",
                          {tr("If marked, magnitudes take into account that the air weakens the light near the "
                              "horizon."),
                           tr("Correct for atmospheric extinction")});
    column->addLayout(form::columns(left, right));
}

void StSysConfDialog::setValues(const Values& values)
{
    form::setNumber(tolEdit, values.tolerance);
    form::setNumber(mxiEdit, values.maxIterations);
    form::setNumber(liftEdit, values.lift);
    form::setNumber(f107Edit, values.F107);
    form::setNumber(fb107Edit, values.FB107);
    form::setNumber(kpEdit, values.Kp);
    form::setNumber(dragEdit, values.Cd);
    form::setNumber(crEdit, values.Cr);
    form::setNumber(amEdit, values.Am);
    sunBox->setChecked(values.sun);
    moonBox->setChecked(values.moon);
    refractBox->setChecked(values.refraction);
    atxBox->setChecked(values.extinction);
}

StSysConfDialog::Values StSysConfDialog::values() const
{
    return {form::number(tolEdit),   form::integer(mxiEdit), form::number(liftEdit), form::number(f107Edit),
            form::number(fb107Edit), form::number(kpEdit),   form::number(dragEdit), form::number(crEdit),
            form::number(amEdit),    sunBox->isChecked(),    moonBox->isChecked(),   refractBox->isChecked(),
            atxBox->isChecked()};
}

void StSysConfDialog::setParams(double RKFtol, double dF107, double dFB107, double dKp, double dCd, double dCr,
                                double dAm, double lift, bool sunf, bool moonf, bool refrc, int mxit, bool atmx)
{
    setValues({RKFtol, mxit, lift, dF107, dFB107, dKp, dCd, dCr, dAm, sunf, moonf, refrc, atmx});
}

void StSysConfDialog::getParams(double& RKFtol, double& dF107, double& dFB107, double& dKp, double& dCd, double& dCr,
                                double& dAm, double& lift, bool& sunf, bool& moonf, bool& refrc, int& mxit,
                                bool& atmx)
{
    const Values v = values();
    std::tie(RKFtol, mxit, lift) = std::tuple(v.tolerance, v.maxIterations, v.lift);
    std::tie(dF107, dFB107, dKp, dCd, dCr, dAm) = std::tuple(v.F107, v.FB107, v.Kp, v.Cd, v.Cr, v.Am);
    std::tie(sunf, moonf, refrc, atmx) = std::tuple(v.sun, v.moon, v.refraction, v.extinction);
}
