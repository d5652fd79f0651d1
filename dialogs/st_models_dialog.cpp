#include "dialogs/st_models_dialog.h"

#include <QCheckBox>
#include <QVBoxLayout>

#include "dialogs/form.h"

namespace {

struct Row
{
    const char *name, *text, *help;
};

// In the order of `correctionNames`.
constexpr std::array<Row, correctionNames.size()> rows{{
    {"nutationBox", QT_TRANSLATE_NOOP("StModelsDialog", "&Nutation Applied Once"),
     QT_TRANSLATE_NOOP(
         "StModelsDialog",
         "States of SGP4 get the nutation once. Without the mark they get it a second time, which moves them among "
         "the stars by up to 18.7 seconds of arc: 615 m at a low satellite, 3.8 km at a geostationary one, and up to "
         "139 seconds of arc for an observer below a low one. With it azimuth and elevation of low satellites are "
         "within 0.01 seconds of arc of those of another program.")},
    {"deepSpaceBox", QT_TRANSLATE_NOOP("StModelsDialog", "Deep &Space as Published"),
     QT_TRANSLATE_NOOP(
         "StModelsDialog",
         "SGP4 and its deep-space part as in the publication of 2006. Without the mark the plane of an orbit that "
         "Sun and Moon tilt through the equator is turned: up to 37 km after 10 days for a geostationary satellite, "
         "up to 1300 km after a year; and eccentricities below 0.000001 put a satellite up to 83 m off.")},
    {"leapSecondsBox", QT_TRANSLATE_NOOP("StModelsDialog", "&Published Leap Seconds"),
     QT_TRANSLATE_NOOP(
         "StModelsDialog",
         "TT follows the leap seconds, by the file leap-seconds.list beside vorlix.ini if there is one. Without the "
         "mark a fit puts it 1 second too far in 2018 and 6 seconds in 2026, which moves the Moon by 1.1 km and 6.6 "
         "km, the Sun by 29 km and 176 km. IERS values in force go first.")},
}};

}  // namespace

StModelsDialog::StModelsDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Models"));
    auto* column = new QVBoxLayout;
    for (std::size_t i = 0; i < boxes.size(); ++i)
        boxes[i] = form::addBox(column, rows[i].name, tr(rows[i].text), nullptr, {tr(rows[i].help)});
    form::finish(this, column);
}

void StModelsDialog::setValues(const Corrections& values)
{
    for (std::size_t i = 0; i < boxes.size(); ++i)
        boxes[i]->setChecked(values.*correctionNames[i].flag);
}

Corrections StModelsDialog::values() const
{
    Corrections values;
    for (std::size_t i = 0; i < boxes.size(); ++i)
        values.*correctionNames[i].flag = boxes[i]->isChecked();
    return values;
}
