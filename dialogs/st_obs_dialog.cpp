#include "dialogs/st_obs_dialog.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QRadioButton>
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
    locEdit = form::addEdit(rows, "locEdit", tr("&Name of Location:"),
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

void StObsDialog::setParams(double lat, double lng, double height, char* geoname, bool ddmm)
{
    decButton->setChecked(!ddmm);
    ddmmButton->setChecked(ddmm);
    showPlace(ddmm ? DegFDms(lat) : lat, ddmm ? DegFDms(lng) : lng);
    form::setNumber(heightEdit, height);
    form::setName(locEdit, textQString(geoname));
}

void StObsDialog::getParams(double& lat, double& lng, double& height, bool& ddmm)
{
    ddmm = ddmmButton->isChecked();
    lat = form::number(latEdit);
    lng = form::number(lngEdit);
    if (ddmm) {
        lat = DmsDegF(lat);
        lng = DmsDegF(lng);
    }
    height = form::number(heightEdit);
}

QString StObsDialog::getGeoname()
{
    return locEdit->text();
}

void StObsDialog::setDec()
{
    showPlace(DmsDegF(form::number(latEdit)), DmsDegF(form::number(lngEdit)));
}

void StObsDialog::setDdmm()
{
    showPlace(DegFDms(form::number(latEdit)), DegFDms(form::number(lngEdit)));
}

void StObsDialog::showPlace(double lat, double lng)
{
    form::setNumber(latEdit, lat);
    lngEdit->setText(shownLongitude(lng));
}
