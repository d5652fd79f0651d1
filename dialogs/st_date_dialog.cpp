#include "dialogs/st_date_dialog.h"

#include <cmath>

#include <QCheckBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QVBoxLayout>

#include "dialogs/form.h"

StDateDialog::StDateDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Date, Time and Timezone"));
    auto* date = new QFormLayout;
    yearEdit = form::addEdit(date, "yearEdit", tr("&Year:"), {tr("The year, with all of its digits.")});
    monthEdit = form::addEdit(date, "monthEdit", tr("&Month:"), {tr("The month as a number from 1 to 12.")});
    dayEdit = form::addEdit(date, "dayEdit", tr("&Day:"), {tr("The day of the month in the time zone given below.")});
    auto* time = new QFormLayout;
    hourEdit =
        form::addEdit(time, "hourEdit", tr("&Hours:"), {tr("The hour in the time zone given below, 0 to 23.")});
    minEdit = form::addEdit(time, "minEdit", tr("&Minutes:"), {tr("The minute, 0 to 59.")});
    secEdit = form::addEdit(time, "secEdit", tr("&Seconds:"), {tr("The second, 0 to 59. Fractions are not taken.")});

    auto* column = new QVBoxLayout;
    column->addLayout(form::columns(date, time));
    systemBox = form::addBox(column, "systemBox", tr("Use S&ystem Timezone"), "Alt+Y",
                             {tr("If marked, the time zone of this computer is used, daylight saving time included. "
                                 "Unmark it to set a time zone of your own.")});
    auto* span = new QFormLayout;
    tzoneEdit = form::addEdit(span, "tzoneEdit", tr("&Timezone (positive East, negative West):"),
                              {tr("Difference of civil time from UTC in hours, for example 1 for Central European "
                                  "Time and -5 for Eastern Standard Time.")});
    durEdit = form::addEdit(span, "durEdit", tr("D&uration (in days):"),
                            {tr("How long predictions and delta time plots run from the date given above."),
                             tr("Intervall used for calculations")});
    rtEdit = form::addEdit(span, "rtEdit", tr("&R/T Offset (in hours)"),
                           {tr("A real time plot shows the time of the system clock plus this offset."),
                            tr("RealTime clock offset in hours.")});
    column->addLayout(span);
    form::finish(this, column);
    connect(systemBox, &QCheckBox::toggled, this, &StDateDialog::systemSlot);
}

void StDateDialog::setParams(int year, int month, int day, int hour, int minute, int second, double tzone, int tzauto,
                             double dur, double rtoff)
{
    form::setNumber(yearEdit, year);
    form::setNumber(monthEdit, month);
    form::setNumber(dayEdit, day);
    form::setNumber(hourEdit, hour);
    form::setNumber(minEdit, minute);
    form::setNumber(secEdit, second);
    form::setNumber(tzoneEdit, tzone);
    form::setNumber(durEdit, std::abs(dur));
    form::setNumber(rtEdit, rtoff);
    form::setEditEnabled(durEdit, dur >= 0.0);
    form::setEditEnabled(rtEdit, dur >= 0.0);
    systemBox->setChecked(tzauto != 0);
    systemSlot();
}

void StDateDialog::systemSlot()
{
    form::setEditEnabled(tzoneEdit, !systemBox->isChecked());
}

void StDateDialog::getParams(int& year, int& month, int& day, int& hour, int& minute, int& second, double& tzone,
                             int& tzauto, double& dur, double& rtoff)
{
    year = form::integer(yearEdit);
    month = form::integer(monthEdit);
    day = form::integer(dayEdit);
    hour = form::integer(hourEdit);
    minute = form::integer(minEdit);
    second = form::integer(secEdit);
    tzone = form::number(tzoneEdit);
    tzauto = systemBox->isChecked() ? 1 : 0;
    dur = form::number(durEdit);
    rtoff = form::number(rtEdit);
}
