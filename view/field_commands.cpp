// The commands about fields of the sky.

#include "view/vorlix_view.h"

#include "dialogs/st_field_dialog.h"
#include "elements/brightness_files.h"
#include "record/further_settings.h"
#include "record/wout_data.h"
#include "reports/field_report.h"
#include "view/calculation.h"
#include "view/message_boxes.h"

namespace {

using Values = StFieldDialog::Values;

/// The group [field] of vorlix.ini: what was asked for last.
Values keptField()
{
    const QSettings settings = openFurtherSettings();
    const auto number = [&](const char* key, double otherwise) {
        return settings.value(QLatin1String("field/") + QLatin1String(key), otherwise).toDouble();
    };
    Values values;
    SkyField& field = values.field;
    field.angles = number("equatorial", 1) != 0.0 ? SkyAngles::equatorial : SkyAngles::horizontal;
    field.first = number("first", 0);
    field.second = number("second", 0);
    field.radius = number("radius", field.radius);
    field.width = number("width", 0);
    field.height = number("height", 0);
    field.angle = number("angle", 0);
    values.exposure = number("exposure_s", values.exposure);
    values.sunlitOnly = number("sunlit", 1) != 0.0;
    return values;
}

void keepField(const Values& values)
{
    QSettings settings = openFurtherSettings();
    const SkyField& field = values.field;
    const std::initializer_list<std::pair<const char*, double>> rows{
        {"equatorial", field.angles == SkyAngles::equatorial},
        {"first", field.first},
        {"second", field.second},
        {"radius", field.radius},
        {"width", field.width},
        {"height", field.height},
        {"angle", field.angle},
        {"exposure_s", values.exposure},
        {"sunlit", values.sunlitOnly}};
    for (const auto& [key, value] : rows)
        settings.setValue(QLatin1String("field/") + QLatin1String(key), value);
}

FieldQuery queryOf(const WinpData& in, const Values& values)
{
    constexpr double secondsPerDay = 86400.0;
    FieldQuery query;
    query.field = values.field;
    query.from = in.mjd;
    query.to = in.mjd + values.exposure / secondsPerDay;
    query.site = siteOf(in);
    query.earth = earthOrientationOf(in);
    query.sunlitOnly = values.sunlitOnly;
    return query;
}

}  // namespace

void VorlixView::vFieldPasses()
{
    if (!askEventDate(tr("Begin of the Exposure")))
        return;
    StFieldDialog dialog(this);
    dialog.setValues(keptField());
    if (dialog.exec() != QDialog::Accepted)
        return;
    const Values values = dialog.values();
    keepField(values);
    const FieldQuery query = queryOf(*indata, values);
    std::optional<std::vector<FieldCrossing>> crossings;
    const auto search = [&] {
        crossings =
            fieldCrossings(indata, query, brightnessBook(keptBrightnessSettings(indata->chlen), indata->tlename));
    };
    if (!calculated(search))
        return;
    if (!crossings) {
        inform(this, tr("Passes through Field"), tr("*** Unable to open TLE file ***"));
        return;
    }
    fieldReport(outdata, *indata, query, *crossings);
    indata->txtrdy = 1;
    showtxt(true);
}
