#include "dialogs/st_date_dialog.h"

#include <cmath>
#include <tuple>

#include <QCheckBox>
#include <QFormLayout>
#include <QVBoxLayout>

#include "design/editor_rules.h"
#include "dialogs/epoch_edit.h"
#include "dialogs/form.h"

StDateDialog::StDateDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Date, Time and Timezone"));
    auto* date = new QFormLayout;
    yearEdit = form::addWholeEdit(date, "yearEdit", tr("&Year:"), {tr("The year, with all of its digits.")});
    monthEdit = form::addWholeEdit(date, "monthEdit", tr("&Month:"), {tr("The month as a number from 1 to 12.")});
    dayEdit =
        form::addWholeEdit(date, "dayEdit", tr("&Day:"), {tr("The day of the month in the time zone given below.")});
    auto* time = new QFormLayout;
    hourEdit =
        form::addWholeEdit(time, "hourEdit", tr("&Hours:"), {tr("The hour in the time zone given below, 0 to 23.")});
    minEdit = form::addWholeEdit(time, "minEdit", tr("&Minutes:"), {tr("The minute, 0 to 59.")});
    secEdit =
        form::addWholeEdit(time, "secEdit", tr("&Seconds:"), {tr("The second, 0 to 59. Fractions are not taken.")});

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
    doubtImpossibleDates();
    connect(systemBox, &QCheckBox::toggled, this, &StDateDialog::systemSlot);
}

void StDateDialog::doubtImpossibleDates()
{
    yearEdit->setDoubt(doubtfulYear);
    monthEdit->setDoubt(
        [](double month) { return month < 1 || month > 12 ? tr("there is no such month") : QString(); });
    dayEdit->setDoubt([this](double) {
        const Values v = values();
        return editor::isDate(v.year, v.month, v.day) ? QString() : tr("there is no such day");
    });
    for (const Field* field : {yearEdit, monthEdit})
        connect(field, &Field::textChanged, dayEdit, &Field::judge);
}

void StDateDialog::setValues(const Values& values, bool event)
{
    form::setNumber(yearEdit, values.year);
    form::setNumber(monthEdit, values.month);
    form::setNumber(dayEdit, values.day);
    form::setNumber(hourEdit, values.hour);
    form::setNumber(minEdit, values.minute);
    form::setNumber(secEdit, values.second);
    form::setNumber(tzoneEdit, values.tzone);
    form::setNumber(durEdit, values.dur);
    form::setNumber(rtEdit, values.rtoff);
    form::setEditEnabled(durEdit, !event);
    form::setEditEnabled(rtEdit, !event);
    systemBox->setChecked(values.systemZone);
    systemSlot();
}

StDateDialog::Values StDateDialog::values() const
{
    return {form::integer(yearEdit), form::integer(monthEdit), form::integer(dayEdit),  form::integer(hourEdit),
            form::integer(minEdit),  form::integer(secEdit),   form::number(tzoneEdit), systemBox->isChecked(),
            form::number(durEdit),   form::number(rtEdit)};
}

void StDateDialog::setPurpose(const QString& purpose)
{
    setWindowTitle(tr("Date, Time and Timezone: %1").arg(purpose));
}

void StDateDialog::systemSlot()
{
    form::setEditEnabled(tzoneEdit, !systemBox->isChecked());
}

void StDateDialog::setParams(int year, int month, int day, int hour, int minute, int second, double tzone, int tzauto,
                             double dur, double rtoff)
{
    setValues({year, month, day, hour, minute, second, tzone, tzauto != 0, std::abs(dur), rtoff}, dur < 0.0);
}

void StDateDialog::getParams(int& year, int& month, int& day, int& hour, int& minute, int& second, double& tzone,
                             int& tzauto, double& dur, double& rtoff)
{
    const Values v = values();
    std::tie(year, month, day, hour, minute, second) = std::tuple(v.year, v.month, v.day, v.hour, v.minute, v.second);
    std::tie(tzone, tzauto, dur, rtoff) = std::tuple(v.tzone, v.systemZone ? 1 : 0, v.dur, v.rtoff);
}
