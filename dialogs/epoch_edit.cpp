#include "dialogs/epoch_edit.h"

#include <QCoreApplication>

#include "astro/calendar.h"
#include "design/editor_rules.h"
#include "dialogs/form.h"
#include "dialogs/st_date_dialog.h"

double epochOf(const EpochFields& fields)
{
    return editor::mjdOf(editor::YearDay{truncToInt(form::number(fields.year)), form::number(fields.day)});
}

void showEpoch(const EpochFields& fields, double mjd, const char* format)
{
    const editor::YearDay epoch = editor::yearDay(mjd);
    form::setNumber(fields.year, epoch.year);
    form::setPrinted(fields.day, format, epoch.day);
}

void doubtEpoch(const EpochFields& fields)
{
    constexpr double mostDays = 367.0;  // the end of the last day of a leap year
    fields.year->setDoubt(doubtfulYear);
    fields.day->setDoubt([](double day) {
        return day < 1.0 || day >= mostDays ? QCoreApplication::translate("EpochFields", "there is no such day")
                                            : QString();
    });
}

QString doubtfulYear(double year)
{
    return year < 1000.0 || year > 3000.0 ? QCoreApplication::translate("EpochFields", "a year far away") : QString();
}

void editEpoch(QWidget* parent, const EpochFields& fields)
{
    const editor::Moment m = editor::moment(epochOf(fields));
    constexpr double unusedDurationDays = 3.1;  // locked, as an epoch has none
    const StDateDialog::Values before{
        m.year, m.month, m.day, m.hour, m.minute, m.second, 0.0, false, unusedDurationDays, 0.0};
    StDateDialog dialog(parent);
    dialog.setValues(before, true);
    if (dialog.exec() != QDialog::Accepted)
        return;
    const StDateDialog::Values v = dialog.values();
    if (v != before)
        showEpoch(fields, editor::mjdOf({v.year, v.month, v.day, v.hour, v.minute, v.second}, v.tzone), dayFormat);
}
