#include "dialogs/st_step_dialog.h"

#include <QFormLayout>
#include <QLineEdit>

#include "dialogs/form.h"

StStepDialog::StStepDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Time Step"));
    auto* rows = new QFormLayout;
    minEdit = form::addEdit(rows, "minEdit", tr("&Minutes:"),
                            {tr("Whole minutes of the step between two positions of a plot or a listing.")});
    secEdit = form::addEdit(rows, "secEdit", tr("&Seconds:"),
                            {tr("Seconds of the step, with a fraction if wanted. They add to the minutes.")});
    form::finish(this, rows);
}

void StStepDialog::setParams(int min, double sec)
{
    form::setNumber(minEdit, min);
    form::setNumber(secEdit, sec);
}

void StStepDialog::getParams(int& min, double& sec)
{
    min = form::integer(minEdit);
    sec = form::number(secEdit);
}
