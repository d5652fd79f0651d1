#include "dialogs/st_ast_dialog.h"

#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
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
                                        {tr("Gives the measurement up: the stars marked so far are forgotten.")});
    form::finish(this, column, buttons);
    connect(abortButton, &QPushButton::clicked, this, &StAstDialog::abortSlot);
}

void StAstDialog::setParams(double ra, double dec)
{
    aborted = false;
    if (ra == 0.0 && dec == 0.0)
        return;
    form::setNumber(raEdit, ra);
    form::setNumber(decEdit, dec);
    raEdit->selectAll();
}

void StAstDialog::getParams(double& ra, double& dec, bool& abort)
{
    ra = form::number(raEdit);
    dec = form::number(decEdit);
    abort = aborted;
}

void StAstDialog::abortSlot()
{
    aborted = true;
    accept();
}
