#include "record/field_numbers.h"

#include <cmath>
#include <string_view>

#include "record/numbers.h"

double typedNumber(const QString& text)
{
    bool isNumber = false;
    const double value = text.toDouble(&isNumber);
    return isNumber && std::isfinite(value) ? value : 0.0;
}

int typedInteger(const QString& text)
{
    return text.toInt();  // 0 where it cannot be read
}

QString shownNumber(double value)
{
    return QString::number(value, 'g', 6);
}

QString printedNumber(const char* format, double value)
{
    char printed[400];  // the largest double has 309 digits before its point
    const std::string_view number = formatted(printed, format, std::isfinite(value) ? value : 0.0);
    return QString::fromLatin1(number.data(), static_cast<int>(number.size()));
}

QString shownLongitude(double degrees)
{
    return std::abs(degrees) <= 100.0 ? shownNumber(degrees) : printedNumber("%10.4lf", degrees);
}
