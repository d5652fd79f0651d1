#include "dialogs/epoch_edit.h"

#include <QLineEdit>

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

void editEpoch(QWidget* parent, const EpochFields& fields)
{
    constexpr double lockedDurationDays = -3.1;  // negative: duration and offset cannot be typed
    editor::Moment m = editor::moment(epochOf(fields));
    double tzone = 0;
    double unusedDuration = 0;
    double unusedOffset = 0;
    int unusedFlag = 0;
    StDateDialog dialog(parent);
    dialog.setParams(m.year, m.month, m.day, m.hour, m.minute, m.second, tzone, 0, lockedDurationDays, 0.0);
    if (dialog.exec() != QDialog::Accepted)
        return;
    dialog.getParams(m.year, m.month, m.day, m.hour, m.minute, m.second, tzone, unusedFlag, unusedDuration,
                     unusedOffset);
    showEpoch(fields, editor::mjdOf(m, tzone), dayFormat);
}
