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
    {"betaBox", QT_TRANSLATE_NOOP("StModelsDialog", "&Beta of Eccentric Orbits"),
     QT_TRANSLATE_NOOP("StModelsDialog",
                       "The angle between orbit and Sun from the true normal of the orbit. Without the mark it is "
                       "too small on eccentric orbits, by up to 43 degrees for a Molniya and 0.002 degrees for a low "
                       "satellite. No place changes, not by a metre.")},
    {"rendezvousBox", QT_TRANSLATE_NOOP("StModelsDialog", "&Rendezvous by the Drift of the Planes"),
     QT_TRANSLATE_NOOP("StModelsDialog",
                       "The planes meet after the time until close approach, to 10 m. Without the mark the launch is "
                       "moved the wrong way: 26 km are left between the planes after 1.3 days, 135 km after 2.5 and "
                       "812 km after 10 days, from Baikonur to a target at 400 km.")},
    {"hourAngleBox", QT_TRANSLATE_NOOP("StModelsDialog", "&Hour Angle of Air Density Reduced"),
     QT_TRANSLATE_NOOP("StModelsDialog", "The bulge of the air stands on the side of the Sun wherever that is. "
                                         "Without the mark it is a hollow at some places: up to 15 km in a day of "
                                         "numerical flight at 400 km, 3 km in the mean; 72 km and 14 km at 300 km.")},
    {"semiAnnualBox", QT_TRANSLATE_NOOP("StModelsDialog", "Semi-annual &Term of Air Density Once"),
     QT_TRANSLATE_NOOP("StModelsDialog",
                       "The half-yearly change of the density as Jacchia gave it, at all heights. Without the mark "
                       "it is twice as large at 300 km and ends at 400 km: up to 11 km in a day of numerical flight "
                       "at 400 km, 5 km in the mean; 63 km and 26 km at 300 km.")},
    {"inversionBox", QT_TRANSLATE_NOOP("StModelsDialog", "&Inversion Returns the State"),
     QT_TRANSLATE_NOOP(
         "StModelsDialog",
         "Elements of SGP4 made of a state, by a maneuver, a launch or a state vector, give that state again, to a "
         "millimetre; one of 60 deep orbits within 0.1 degrees of the equator comes nearer only. Without the mark "
         "the "
         "satellite is moved: by up to 250 km on deep or eccentric orbits, 26 km on low ones.")},
    {"integratorBox", QT_TRANSLATE_NOOP("StModelsDialog", "Integrator &Limit Restored"),
     QT_TRANSLATE_NOOP("StModelsDialog",
                       "After a difficult step the error test of numerical flight comes back. Without the mark the "
                       "rest goes untested: 42 m off after 0.15 days with 0.001 m/s^2 of thrust that rests in the "
                       "shadow, at a tolerance of 1e-10; 0.5 m with it.")},
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
