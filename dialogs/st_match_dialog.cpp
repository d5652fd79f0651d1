#include "dialogs/st_match_dialog.h"

#include <tuple>

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>

#include "dialogs/form.h"

StMatchDialog::StMatchDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Find Matching Satellites"));
    auto* rows = new QFormLayout;
    azEdit = form::addEdit(rows, "azEdit", tr("&Azimuth (deg):"),
                           {tr("Where the satellite was seen: its azimuth from North through East, or its right "
                               "ascension of date in hours, minutes and seconds."),
                            tr("Center position")});
    elEdit = form::addEdit(rows, "elEdit", tr("&Elevation (deg):"),
                           {tr("Where the satellite was seen: its elevation above the horizon, or its declination of "
                               "date in degrees, minutes and seconds."),
                            tr("Center position")});
    mxaEdit = form::addEdit(
        rows, "mxaEdit", tr("&Max.Distance (deg):"),
        {tr("How far from this position a satellite may pass and still be listed."), tr("Angular distance")});
    draEdit = form::addEdit(rows, "draEdit", tr("&Direction (deg):"),
                            {tr("The direction is 90° for movement to the right, -90° to the left, 0° up etc."),
                             tr("Direction of satellite movement")});
    tmEdit = form::addEdit(rows, "tmEdit", tr("&Time Interval (min):"),
                           {tr("Maximum time interval +/- for search."), tr("Time interval for search")});
    raBox =
        form::addBox(rows, "raBox", tr("&Position as R.A./Dec."), "Alt+P",
                     {tr("If marked, the position is given as right ascension and declination, otherwise as azimuth "
                         "and elevation.")});
    drfBox = form::addBox(rows, "drfBox", tr("Direction &Search"), "Alt+S",
                          {tr("The satellite will be accepted, if movement is within 45° of specified direction."),
                           tr("Filter for satellite direction")});
    visBox =
        form::addBox(rows, "visBox", tr("&Brighter Objects Only"), nullptr,
                     {tr("Objects with an International Launch Designation ending with F or higher will mostly be "
                         "small fragment debris. Those will be ignored. "),
                      tr("Search for major objects only.")});
    form::finish(this, rows);
    raLabel = form::labelOf(azEdit);
    raLabel->setObjectName("raLabel");
    elLabel = form::labelOf(elEdit);
    connect(raBox, &QCheckBox::toggled, this, &StMatchDialog::raSlot);
    connect(drfBox, &QCheckBox::toggled, this, &StMatchDialog::dirSlot);
}

void StMatchDialog::setValues(const Values& values)
{
    form::setNumber(azEdit, values.az);
    form::setNumber(elEdit, values.el);
    form::setNumber(mxaEdit, values.mxa);
    form::setNumber(draEdit, values.dra);
    form::setNumber(tmEdit, values.tm);
    raBox->setChecked(values.celestial);
    drfBox->setChecked(values.directed);
    visBox->setChecked(values.majorOnly);
    raSlot();
    dirSlot();
}

StMatchDialog::Values StMatchDialog::values() const
{
    return {form::number(azEdit), form::number(elEdit), form::number(mxaEdit), form::number(draEdit),
            form::number(tmEdit), raBox->isChecked(),   drfBox->isChecked(),   visBox->isChecked()};
}

void StMatchDialog::setParams(double az, double el, double mxa, double dra, double tm, int rdf, int drf, bool vis)
{
    setValues({az, el, mxa, dra, tm, rdf != 0, drf != 0, vis});
}

void StMatchDialog::getParams(double& az, double& el, double& mxa, double& dra, double& tm, int& rdf, int& drf,
                              bool& vis)
{
    const Values v = values();
    std::tie(az, el, mxa, dra, tm) = std::tuple(v.az, v.el, v.mxa, v.dra, v.tm);
    std::tie(rdf, drf, vis) = std::tuple(v.celestial ? 1 : 0, v.directed ? 1 : 0, v.majorOnly);
}

void StMatchDialog::raSlot()
{
    const bool packed = raBox->isChecked();
    raLabel->setText(packed ? tr("R.&A. (HH.MMSS):") : tr("&Azimuth (deg):"));
    elLabel->setText(packed ? tr("D&ec. (DD.MMSS):") : tr("&Elevation (deg):"));
}

void StMatchDialog::dirSlot()
{
    form::setEditEnabled(draEdit, drfBox->isChecked());
}
