// Numbers in the fields of dialogs: typed text to value, value to shown text. A point is the decimal sign whatever
// the locale.
#pragma once

#include <QString>

/// The number a user typed, 0 where the text is none. "nan" and "inf" and what overflows are no numbers.
double typedNumber(const QString& text);

/// The whole number a user typed, 0 where the text is none, has a fraction or leaves the range of an int.
int typedInteger(const QString& text);

/// Six significant digits.
QString shownNumber(double value);

/// Printed by a printf format for one double; what is not finite prints as 0.
QString printedNumber(const char* format, double value);

/// Six significant digits up to 100 degrees either way, four decimals above, so that a DD.MMSS longitude keeps its
/// seconds.
QString shownLongitude(double degrees);
