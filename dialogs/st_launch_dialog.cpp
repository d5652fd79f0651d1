#include "dialogs/st_launch_dialog.h"

#include <tuple>

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "design/launch_sites_data.h"
#include "dialogs/form.h"

int csx = 0;

StLaunchDialog::StLaunchDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Launch Data"));
    auto* column = new QVBoxLayout;
    auto* rows = new QFormLayout;
    siteBox = form::addChoice(
        rows, "siteBox", tr("Launch &Site:"),
        {tr("A site of the list brings its coordinates. Choose \"User\" to type your own."), tr("Launch site")});
    for (const LaunchSite& site : launchSites)
        siteBox->addItem(tr(site.name));
    latEdit = form::addEdit(rows, "latEdit", tr("L&atitude (deg.):"),
                            {tr("Geographic latitude of the launch site in decimal degrees, negative in the South."),
                             tr("Latitude of the launch site")});
    lngEdit = form::addEdit(rows, "lngEdit", tr("L&ongitude (deg.):"),
                            {tr("Geographic longitude of the launch site in decimal degrees, negative in the West."),
                             tr("Longitude of the launch site")});
    column->addLayout(rows);
    form::addText(column, "signLabel", tr("Western longitudes and Southern latitudes negative"));
    addDirection(column);
    auto* more = new QFormLayout;
    mecoEdit = form::addEdit(more, "mecoEdit", tr("&t cutoff (min):"),
                             {tr("This is typically the time to initially reach orbit. Do not include the time for "
                                 "extended upper stage burns!"),
                              tr("Main engine cutoff time.")});
    column->addLayout(more);

    auto* buttons = new QHBoxLayout;
    auto* okButton = form::addButton(buttons, "okButton", tr("&OK"), nullptr,
                                     {tr("Computes the orbit of a launch with these values.")});
    okButton->setDefault(true);
    auto* cancelButton = form::addButton(buttons, "cancelButton", tr("&Cancel"), nullptr,
                                         {tr("Closes the dialog. No launch orbit is computed.")});
    form::finish(this, column, buttons);
    connect(okButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancelButton, &QPushButton::pressed, this, &QDialog::reject);
    connect(siteBox, &QComboBox::activated, this, &StLaunchDialog::siteSlot);
}

void StLaunchDialog::addDirection(QVBoxLayout* column)
{
    auto* inside = new QHBoxLayout;
    northButton = form::addRadio(inside, "northButton", tr("&North"), nullptr,
                                 {tr("The launch proceeds in a northerly direction.")});
    southButton = form::addRadio(inside, "southButton", tr("&South"), nullptr,
                                 {tr("The launch proceeds in a southerly direction.")});
    form::addGroup(
        column, "buttonGroup1", tr("Launch &Azimuth"), inside,
        {tr("To reach a given inclination a launch can proceed in a northerly or southerly direction. Often "
            "this direction will be fixed for a particular launch site due to safety restrictions."),
         tr("Specify Launch Azimuth")});
}

void StLaunchDialog::setValues(const Values& values)
{
    const bool listed = values.site >= 0 && values.site < static_cast<int>(launchSites.size());
    const int site = listed ? values.site : 0;
    form::setNumber(latEdit, values.lat);
    form::setNumber(lngEdit, values.lng);
    siteBox->setCurrentIndex(site);
    siteSlot(site);
    (values.southward ? southButton : northButton)->setChecked(true);
    form::setNumber(mecoEdit, values.minutesToOrbit);
}

StLaunchDialog::Values StLaunchDialog::values() const
{
    return {csx, form::number(latEdit), form::number(lngEdit), southButton->isChecked(), form::number(mecoEdit)};
}

void StLaunchDialog::setParams(int lsx, double lat, double lng, int lsouth, double tmeco)
{
    setValues({lsx, lat, lng, lsouth != 0, tmeco});
}

void StLaunchDialog::getParams(int& lsx, double& lat, double& lng, int& lsouth, double& tmeco)
{
    const Values v = values();
    std::tie(lsx, lat, lng, lsouth, tmeco) = std::tuple(v.site, v.lat, v.lng, v.southward ? 1 : 0, v.minutesToOrbit);
}

void StLaunchDialog::siteSlot(int index)
{
    csx = index;
    form::setEditEnabled(latEdit, index == 0);
    form::setEditEnabled(lngEdit, index == 0);
    if (index == 0)
        return;
    const LaunchSite& site = launchSites.at(static_cast<std::size_t>(index));
    form::setNumber(latEdit, site.latitude);
    form::setNumber(lngEdit, site.longitude);
}
