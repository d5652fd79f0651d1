#include "dialogs/st_obs_dialog.h"

#include <tuple>

#include <QFormLayout>
#include <QHBoxLayout>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "astro/angles.h"
#include "dialogs/form.h"
#include "record/field_numbers.h"
#include "record/text.h"

StObsDialog::StObsDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Observer's Location"));
    auto* column = new QVBoxLayout;
    auto* rows = new QFormLayout;
    latEdit = form::addEdit(rows, "latEdit", tr("L&atitude in deg.:"),
                            {tr("Geographic latitude of the observing site, negative in the South. The form of the "
                                "number is chosen below.")});
    lngEdit = form::addEdit(rows, "lngEdit", tr("L&ongitude in deg.:"),
                            {tr("Geographic longitude of the observing site, negative in the West. The form of the "
                                "number is chosen below.")});
    heightEdit = form::addEdit(rows, "heightEdit", tr("&Height (in m):"),
                               {tr("Height of the observing site above sea level in metres.")});
    locEdit =
        form::addTextEdit(rows, "locEdit", tr("&Name of Location:"),
                          {tr("A name for the observing site. It appears in reports; 30 characters are kept.")});
    column->addLayout(rows);
    form::addText(column, "signLabel", tr("Western longitudes and Southern latitudes are negative"));

    auto* forms = new QHBoxLayout;
    decButton = form::addRadio(forms, "decButton", tr("Decimal Degrees"), nullptr,
                               {tr("Latitude and longitude are degrees with a decimal fraction.")});
    ddmmButton = form::addRadio(forms, "ddmmButton", tr("Degrees in DD.MMSS"), nullptr,
                                {tr("Latitude and longitude are degrees, two digits of minutes and two of seconds: "
                                    "48.2845 is 48 degrees, 28 minutes, 45 seconds.")});
    form::addGroup(column, "ddmmGroup", tr("Latitude/Longitude"), forms,
                   {tr("This setting will also be used for the display of geographic coordinates on the world map."),
                    tr("Switch between decimal degrees and Degrees/Minutes/Seconds")});
    form::finish(this, column);

    // toggled, as a click on the button that is checked already must not convert again
    connect(decButton, &QRadioButton::toggled, this, [this](bool on) { on ? setDec() : setDdmm(); });
}

void StObsDialog::setValues(const Values& values)
{
    const QSignalBlocker quiet(decButton);  // the place is shown once, in its form
    decButton->setChecked(!values.packed);
    ddmmButton->setChecked(values.packed);
    showPlace(values.lat, values.lng, values.packed);
    form::setNumber(heightEdit, values.height);
    form::setName(locEdit, values.name);
}

StObsDialog::Values StObsDialog::values() const
{
    const bool packed = ddmmButton->isChecked();
    return {degreesIn(latEdit, packed), degreesIn(lngEdit, packed), form::number(heightEdit), packed,
            locEdit->text()};
}

void StObsDialog::setParams(double lat, double lng, double height, char* geoname, bool ddmm)
{
    setValues({lat, lng, height, ddmm, textQString(geoname)});
}

void StObsDialog::getParams(double& lat, double& lng, double& height, bool& ddmm)
{
    const Values v = values();
    std::tie(lat, lng, height, ddmm) = std::tuple(v.lat, v.lng, v.height, v.packed);
}

QString StObsDialog::getGeoname()
{
    return values().name;
}

void StObsDialog::setDec()
{
    showPlace(degreesIn(latEdit, true), degreesIn(lngEdit, true), false);
}

void StObsDialog::setDdmm()
{
    showPlace(degreesIn(latEdit, false), degreesIn(lngEdit, false), true);
}

/// The decimal degrees that a field stands for: those behind the text shown, or the text typed in the form chosen.
double StObsDialog::degreesIn(const Field* field, bool packed) const
{
    if (field->isAsShown() || !packed)
        return field->value();
    return DmsDegF(field->value());
}

void StObsDialog::showPlace(double lat, double lng, bool packed)
{
    latEdit->showValue(lat, shownNumber(packed ? DegFDms(lat) : lat));
    lngEdit->showValue(lng, shownLongitude(packed ? DegFDms(lng) : lng));
}
