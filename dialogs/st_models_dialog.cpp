#include "dialogs/st_models_dialog.h"

#include <QCheckBox>
#include <QVBoxLayout>

#include "dialogs/form.h"

StModelsDialog::StModelsDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Models"));
    auto* column = new QVBoxLayout;
    struct Row
    {
        const char* name;
        QString text;
        QString help;
    };
    // in the order of `correctionNames`
    const Row rows[] = {
        {"deepSpaceBox", tr("Deep &Space as Published"),
         tr("SGP4 and its deep-space part as in the publication of 2006. Without the mark the plane of an orbit that "
            "Sun and Moon tilt through the "
            "equator is turned: up to 37 km after 10 days for a geostationary satellite, up to 1300 km after a year; "
            "and "
            "eccentricities below 0.000001 put a satellite up to 83 m off.")},
    };
    static_assert(std::size(rows) == correctionNames.size());
    for (std::size_t i = 0; i < boxes.size(); ++i)
        boxes[i] = form::addBox(column, rows[i].name, rows[i].text, nullptr, {rows[i].help});
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
