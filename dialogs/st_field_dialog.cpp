#include "dialogs/st_field_dialog.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <algorithm>
#include <cmath>

#include "astro/angles.h"
#include "dialogs/form.h"

namespace {

constexpr double degreesPerHour = 15.0;
constexpr double longestSeconds = 86400.0;

}  // namespace

StFieldDialog::StFieldDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Passes through Field"));
    auto* rows = new QFormLayout;
    azEdit =
        form::addEdit(rows, "azEdit", tr("&Azimuth (deg):"),
                      {tr("The centre of the field: its azimuth from North through East, or its right ascension of "
                          "2000 in hours, minutes and seconds, HH.MMSS.")});
    elEdit =
        form::addEdit(rows, "elEdit", tr("&Elevation (deg):"),
                      {tr("The centre of the field: its elevation above the horizon, or its declination of 2000 in "
                          "degrees, minutes and seconds, DD.MMSS.")});
    raBox = form::addBox(rows, "raBox", tr("&Position as R.A./Dec."), nullptr,
                         {tr("If marked, the field follows the stars and its centre is given as right ascension and "
                             "declination; otherwise it stands still above the ground.")});
    frameBox = form::addBox(rows, "frameBox", tr("&Rectangular Frame"), nullptr,
                            {tr("If marked, the field is a frame with width and height, otherwise a circle.")});
    radiusEdit = form::addEdit(rows, "radiusEdit", tr("Ra&dius (deg):"), {tr("The radius of the circle.")});
    widthEdit = form::addEdit(rows, "widthEdit", tr("&Width (deg):"), {tr("The width of the frame.")});
    heightEdit = form::addEdit(rows, "heightEdit", tr("&Height (deg):"), {tr("The height of the frame.")});
    angleEdit =
        form::addEdit(rows, "angleEdit", tr("Position An&gle (deg):"),
                      {tr("Where the upper side of the frame lies: 0 towards North, 90 towards East; above the "
                          "ground 0 towards the zenith.")});
    exposureEdit = form::addEdit(rows, "exposureEdit", tr("E&xposure (s):"),
                                 {tr("How long the field is looked at from the date on, a day at most.")});
    sunlitBox = form::addBox(rows, "sunlitBox", tr("&Sunlit Satellites Only"), nullptr,
                             {tr("If marked, satellites in the shadow of the Earth are left out.")});
    form::finish(this, rows);
    connect(raBox, &QCheckBox::toggled, this, &StFieldDialog::nameAngles);
    connect(frameBox, &QCheckBox::toggled, this, &StFieldDialog::showShape);
    showShape();
}

void StFieldDialog::nameAngles()
{
    const bool packed = raBox->isChecked();
    form::labelOf(azEdit)->setText(packed ? tr("R.&A. (HH.MMSS):") : tr("&Azimuth (deg):"));
    form::labelOf(elEdit)->setText(packed ? tr("D&ec. (DD.MMSS):") : tr("&Elevation (deg):"));
}

void StFieldDialog::showShape()
{
    const bool frame = frameBox->isChecked();
    form::setEditEnabled(radiusEdit, !frame);
    for (Field* edit : {widthEdit, heightEdit, angleEdit})
        form::setEditEnabled(edit, frame);
}

void StFieldDialog::setValues(const Values& values)
{
    const SkyField& field = values.field;
    const bool equatorial = field.angles == SkyAngles::equatorial;
    raBox->setChecked(equatorial);
    form::setNumber(azEdit, equatorial ? DegFDms(field.first / degreesPerHour) : field.first);
    form::setNumber(elEdit, equatorial ? DegFDms(field.second) : field.second);
    frameBox->setChecked(field.width > 0.0 && field.height > 0.0);
    form::setNumber(radiusEdit, field.radius);
    form::setNumber(widthEdit, field.width);
    form::setNumber(heightEdit, field.height);
    form::setNumber(angleEdit, field.angle);
    form::setNumber(exposureEdit, values.exposure);
    sunlitBox->setChecked(values.sunlitOnly);
    nameAngles();
    showShape();
}

StFieldDialog::Values StFieldDialog::values() const
{
    constexpr double leastDeg = 0.001, mostDeg = 120.0;
    const auto size = [=](const Field* edit) { return std::clamp(form::number(edit), leastDeg, mostDeg); };
    Values values;
    SkyField& field = values.field;
    const bool equatorial = raBox->isChecked();
    field.angles = equatorial ? SkyAngles::equatorial : SkyAngles::horizontal;
    const double first = form::number(azEdit), second = form::number(elEdit);
    field.first = std::fmod(equatorial ? DmsDegF(first) * degreesPerHour : first, 360.0);
    field.second = std::clamp(equatorial ? DmsDegF(second) : second, -90.0, 90.0);
    field.radius = size(radiusEdit);
    if (frameBox->isChecked()) {
        field.width = size(widthEdit);
        field.height = size(heightEdit);
    }
    field.angle = form::number(angleEdit);
    values.exposure = std::clamp(form::number(exposureEdit), 0.001, longestSeconds);
    values.sunlitOnly = sunlitBox->isChecked();
    return values;
}
