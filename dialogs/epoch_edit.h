// An epoch in two fields, year and day of the year, and the date dialog of their button.
#pragma once

#include <QString>

class Field;
class QWidget;

/// The fields of an epoch.
struct EpochFields
{
    Field* year = nullptr;
    Field* day = nullptr;
};

/// The MJD (UTC) of what stands in the fields.
double epochOf(const EpochFields& fields);

/// Shows an epoch; `format` prints the day.
void showEpoch(const EpochFields& fields, double mjd, const char* format);

/// Has the fields marked for a year or a day of the year that hardly anybody means.
void doubtEpoch(const EpochFields& fields);

/// What is odd about a year: before 1000 or after 3000. Empty where nothing is.
QString doubtfulYear(double year);

/// Runs the date dialog in UT on the fields. A date that was changed rewrites them, to the second.
void editEpoch(QWidget* parent, const EpochFields& fields);

/// How the day of the year is printed where nothing else is said.
inline constexpr const char* dayFormat = "%14.10lf";
