#include "dialogs/st_step_dialog.h"

#include <tuple>

#include <QFormLayout>

#include "dialogs/form.h"

StStepDialog::StStepDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Time Step"));
    auto* rows = new QFormLayout;
    minEdit = form::addWholeEdit(rows, "minEdit", tr("&Minutes:"),
                                 {tr("Whole minutes of the step between two positions of a plot or a listing.")});
    secEdit = form::addEdit(rows, "secEdit", tr("&Seconds:"),
                            {tr("Seconds of the step, with a fraction if wanted. They add to the minutes.")});
    form::finish(this, rows);
}

void StStepDialog::setValues(const Values& values)
{
    form::setNumber(minEdit, values.minutes);
    form::setNumber(secEdit, values.seconds);
}

StStepDialog::Values StStepDialog::values() const
{
    return {form::integer(minEdit), form::number(secEdit)};
}

void StStepDialog::setParams(int min, double sec)
{
    setValues({min, sec});
}

void StStepDialog::getParams(int& min, double& sec)
{
    std::tie(min, sec) = std::tuple(values().minutes, values().seconds);
}
