// Fields of lines with fixed columns: their texts, numbers, angles and times.
#pragma once

#include "elements/characters.h"
#include "observing/observation.h"

#include <optional>
#include <string>
#include <string_view>

/// The columns `from` to `to`, counted from 1; what the line does not have is blank.
std::string columns(std::string_view line, std::size_t from, std::size_t to);

/// The same without blanks at both ends.
std::string trimmedColumns(std::string_view line, std::size_t from, std::size_t to);

bool allDigits(std::string_view text);  // and at least one
bool blank(std::string_view text);

/// Digits with an implied point behind so many of them. Blanks in front count as 0, blanks behind as digits that are
/// not known.
///
/// @return  nothing for an empty field or one with anything else in it
std::optional<double> impliedPoint(std::string_view field, std::size_t whole);

/// M * 10^(X - 8); nothing for an empty or a wrong field.
std::optional<double> mantissaExponent(std::string_view field);

/// The nearest value of that form, "00" to "99"; blanks for 0 and below.
std::string mantissaExponentText(double value);

/// How an angle is packed behind its whole degrees or hours.
enum class Packing
{
    seconds,  // MMSS and decimals of seconds
    minutes,  // MM and decimals of minutes
    decimals  // decimals of degrees
};

/// An angle in units of its whole part (hours or degrees); its digits may end early.
///
/// @param whole  digits of the whole part
std::optional<double> packedAngle(std::string_view field, std::size_t whole, Packing packing);

/// The reverse, rounded to the digits that fit.
///
/// @param turn  what the angle is reduced to, 0 for none
std::string packedAngleText(double angle, std::size_t whole, Packing packing, std::size_t width, double turn);

/// An instant of YYYYMMDD and HHMMSS with decimals, of which seconds and minutes may be missing; MJD.
std::optional<double> instantOf(std::string_view date, std::string_view time);

/// Date and time of the day, rounded to so many decimals of a second.
struct DateDigits
{
    std::string date, time;  // YYYYMMDD, HHMMSS and decimals without a point
};
DateDigits dateDigits(double mjd, int decimals);

/// The year of two digits: 57 to 99 are of the 20th century.
int fullYear(int twoDigits);

/// Whether the year of an instant can be told by two digits.
bool hasTwoDigitYear(double mjd);

/// `text` as wide as the field, blanks behind.
std::string wide(std::string text, std::size_t width);

/// A whole number of so many digits, zeros in front; its last digits if it has more.
std::string digits(long long number, std::size_t count);
