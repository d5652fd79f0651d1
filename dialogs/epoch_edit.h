// An epoch in two fields, year and day of the year, and the date dialog behind their button.
#pragma once

class QLineEdit;
class QWidget;

/// The fields of an epoch.
struct EpochFields
{
    QLineEdit* year = nullptr;
    QLineEdit* day = nullptr;
};

/// The MJD of what stands in the fields.
double epochOf(const EpochFields& fields);

/// Shows an epoch; `format` prints the day.
void showEpoch(const EpochFields& fields, double mjd, const char* format);

/// Runs the date dialog in UT on the fields. OK rewrites them, to the second.
void editEpoch(QWidget* parent, const EpochFields& fields);

/// How the day of the year is printed where nothing else is said.
inline constexpr const char* dayFormat = "%14.10lf";
