#include "dialogs/st_adj_dialog.h"

#include <tuple>

#include <QCheckBox>
#include <QFormLayout>

#include "dialogs/form.h"

StAdjDialog::StAdjDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Adjust Orbit Elements"));
    auto* rows = new QFormLayout;
    adjBox =
        form::addBox(rows, "adjBox", tr("&Activate Adjustment"), nullptr,
                     {tr("If marked new orbit elements which are read from a TLE file will be adjusted according "
                         "to the values set here. Already selected satellites will not be affected.")});
    n0Edit =
        form::addEdit(rows, "n0Edit", tr("Set &Mean Motion (n0):"),
                      {tr("The value of the Mean Motion (n0) of newly read TLE's will be set to this fixed value. "
                          "If set 0 the n0 value will be left unchanged. Setting all n0 values of a satellite "
                          "constellation to a fixed value will ensure that the relative positions stay the "
                          "same.")});
    timEdit = form::addEdit(rows, "timEdit", tr("Adjust &Epoch (sec):"),
                            {tr("The value of the epoch of newly read TLE's will be adjusted by this amount in "
                                "seconds. This can help to get the timing right for a satellite.")});
    raEdit =
        form::addEdit(rows, "raEdit", tr("Adjust &R.A.(deg):"),
                      {tr("The value of the Ascending Node of newly read TLE's will be adjusted by this amount in "
                          "degrees. This can be used to get the orbit plane right.")});
    sdp4Box =
        form::addBox(rows, "sdp4Box", tr("Use SDP&4  model for long period orbits."), nullptr,
                     {tr("If marked orbits with periods > 225 minutes will be propagated with the SDP4 model if "
                         "the SGP4 model was selected. Otherwise the SGP4 model will be used even for those "
                         "orbits. This may be needed for TLEs which were generated using the SGP4 instead of the "
                         "SDP4 model.")});
    wgsBox = form::addBox(rows, "wgsBox", tr("Use &WGS84 constants for SGP4 model."), nullptr,
                          {tr("This is only used for the SGP4/SDP4 model. The differences between the constants are "
                              "very small.")});
    form::finish(this, rows);
}

void StAdjDialog::setValues(const Values& values)
{
    sdp4Box->setChecked(values.sdp4);
    adjBox->setChecked(values.adjflg);
    form::setNumber(timEdit, values.adjtim);
    form::setPrinted(n0Edit, "%12.8lf", values.adjn0);
    form::setPrinted(raEdit, "%9.4lf", values.adjra);
    wgsBox->setChecked(values.wgs84);
}

StAdjDialog::Values StAdjDialog::values() const
{
    return {sdp4Box->isChecked(), adjBox->isChecked(),  form::number(timEdit),
            form::number(n0Edit), form::number(raEdit), wgsBox->isChecked()};
}

void StAdjDialog::setParams(bool sdp4, bool adjflg, double adjtim, double adjn0, double adjra, int wgs)
{
    setValues({sdp4, adjflg, adjtim, adjn0, adjra, wgs == 1});
}

void StAdjDialog::getParams(bool& sdp4, bool& adjflg, double& adjtim, double& adjn0, double& adjra, int& wgs)
{
    const Values v = values();
    std::tie(sdp4, adjflg, adjtim, adjn0, adjra) = std::tuple(v.sdp4, v.adjflg, v.adjtim, v.adjn0, v.adjra);
    wgs = v.wgs84 ? 1 : 0;
}
