#include "dialogs/st_ast_dialog.h"

#include <tuple>

#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "dialogs/form.h"

StAstDialog::StAstDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Astrometry"));
    auto* column = new QVBoxLayout;
    form::addText(column, "starLabel", tr("Enter Star Coordinates:"));
    auto* rows = new QFormLayout;
    raEdit = form::addEdit(rows, "raEdit", tr("&R.A. (HH.MMSS)"),
                           {tr("Right ascension of the star: hours, two digits of minutes, two of seconds and, if "
                               "wanted, a fraction of the second."),
                            tr("Right ascension")});
    decEdit = form::addEdit(rows, "decEdit", tr("&Dec. (DDD.MMSS)"),
                            {tr("Declination of the star: degrees, two digits of minutes, two of seconds and, if "
                                "wanted, a fraction of the second. It is negative in the South."),
                             tr("Declination")});
    column->addLayout(rows);
    auto* buttons = new QHBoxLayout;
    form::addOkCancel(this, buttons);
    auto* abortButton = form::addButton(buttons, "abortButton", tr("&Abort"), nullptr,
                                        {tr("Gives up the measurement: the stars marked so far are forgotten.")});
    form::finish(this, column, buttons);
    connect(abortButton, &QPushButton::clicked, this, &StAstDialog::abortSlot);
}

void StAstDialog::setValues(const Values& values)
{
    aborted = false;
    if (values.ra == 0.0 && values.dec == 0.0)
        return;
    form::setNumber(raEdit, values.ra);
    form::setNumber(decEdit, values.dec);
    raEdit->selectAll();
}

StAstDialog::Values StAstDialog::values() const
{
    return {form::number(raEdit), form::number(decEdit)};
}

void StAstDialog::setStar(int number, int count)
{
    setWindowTitle(tr("Astrometry: Star %1 of %2").arg(number).arg(count));
}

void StAstDialog::setParams(double ra, double dec)
{
    setValues({ra, dec});
}

void StAstDialog::getParams(double& ra, double& dec, bool& abort)
{
    std::tie(ra, dec, abort) = std::tuple(values().ra, values().dec, aborted);
}

void StAstDialog::abortSlot()
{
    aborted = true;
    accept();
}
