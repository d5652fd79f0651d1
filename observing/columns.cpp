#include "observing/columns.h"

#include "astro/calendar.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

constexpr double pow10(std::size_t n)
{
    double p = 1.0;
    while (n-- > 0)
        p *= 10.0;
    return p;
}

/// The digits as a whole number; 15 of them at most, which all callers keep.
long long wholeNumber(std::string_view text)
{
    long long n = 0;
    for (const char c : text.substr(0, 15))
        n = n * 10 + (c - '0');
    return n;
}

std::string_view withoutBlanksBehind(std::string_view text)
{
    while (!text.empty() && text.back() == ' ')
        text.remove_suffix(1);
    return text;
}

/// Two digits below 60 in front of a text, which it loses; what is missing counts as 0.
std::optional<double> sixtieths(std::string_view& text)
{
    const std::string_view two = text.substr(0, 2);
    text.remove_prefix(two.size());
    const double value = two.empty() ? 0.0 : static_cast<double>(wholeNumber(two)) * (two.size() == 1 ? 10.0 : 1.0);
    return value < 60.0 ? std::optional(value) : std::nullopt;
}

double fractionOf(std::string_view text)
{
    return text.empty() ? 0.0
                        : static_cast<double>(wholeNumber(text)) / pow10(std::min<std::size_t>(text.size(), 15));
}

/// Units of the last digit in one of the whole part.
double unitsPerWhole(Packing packing, std::size_t behind)
{
    if (packing == Packing::decimals)
        return pow10(behind);
    if (packing == Packing::minutes)
        return 60.0 * pow10(behind - 2);
    return 3600.0 * pow10(behind - 4);
}

}  // namespace

std::string columns(std::string_view line, std::size_t from, std::size_t to)
{
    std::string text;
    for (std::size_t c = from; c <= to; ++c)
        text += c <= line.size() ? line[c - 1] : ' ';
    return text;
}

std::string trimmedColumns(std::string_view line, std::size_t from, std::size_t to)
{
    std::string text = columns(line, from, to);
    text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
    return std::string(withoutBlanksBehind(text));
}

bool allDigits(std::string_view text)
{
    return !text.empty() && std::all_of(text.begin(), text.end(), isDigit);
}

bool blank(std::string_view text)
{
    return text.find_first_not_of(' ') == std::string_view::npos;
}

std::optional<double> impliedPoint(std::string_view field, std::size_t whole)
{
    std::string text(withoutBlanksBehind(field));
    std::replace(text.begin(), text.begin() + std::ptrdiff_t(std::min(text.find_first_not_of(' '), text.size())), ' ',
                 '0');
    if (!allDigits(text))
        return std::nullopt;
    text.resize(std::max(text.size(), whole), '0');
    return static_cast<double>(wholeNumber(text)) / pow10(std::min<std::size_t>(text.size(), 15) - whole);
}

std::optional<double> mantissaExponent(std::string_view field)
{
    if (field.size() != 2 || !allDigits(field))
        return std::nullopt;
    const int exponent = field[1] - '0' - 8;
    const double mantissa = field[0] - '0';
    return exponent < 0 ? mantissa / pow10(std::size_t(-exponent)) : mantissa * pow10(std::size_t(exponent));
}

std::string mantissaExponentText(double value)
{
    if (!(value > 0.0))
        return "  ";
    int exponent = static_cast<int>(std::floor(std::log10(value) + 1e-12));
    double mantissa = std::round(value / std::pow(10.0, exponent));
    if (mantissa > 9.0) {
        mantissa = 1.0;
        ++exponent;
    }
    if (exponent < -8)
        return "10";
    if (exponent > 1)
        return "99";
    return {static_cast<char>('0' + static_cast<int>(std::max(mantissa, 1.0))),
            static_cast<char>('0' + exponent + 8)};
}

std::optional<double> packedAngle(std::string_view field, std::size_t whole, Packing packing)
{
    std::string text(withoutBlanksBehind(field));
    const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
    if (first > whole - 1)
        return std::nullopt;
    std::replace(text.begin(), text.begin() + std::ptrdiff_t(first), ' ', '0');
    if (!allDigits(text) || text.size() < whole)
        return std::nullopt;
    std::string_view rest(text);
    const double units = static_cast<double>(wholeNumber(rest.substr(0, whole)));
    rest.remove_prefix(whole);
    if (packing == Packing::decimals)
        return units + fractionOf(rest);
    const auto minutes = sixtieths(rest);
    if (!minutes)
        return std::nullopt;
    if (packing == Packing::minutes)
        return units + (*minutes + fractionOf(rest)) / 60.0;
    const auto seconds = sixtieths(rest);
    if (!seconds)
        return std::nullopt;
    return units + *minutes / 60.0 + (*seconds + fractionOf(rest)) / 3600.0;
}

std::string packedAngleText(double angle, std::size_t whole, Packing packing, std::size_t width, double turn)
{
    const std::size_t behind = width - whole;
    const double perWhole = unitsPerWhole(packing, behind);
    auto units = std::llround(angle * perWhole);
    if (turn > 0.0)
        units =
            ((units % std::llround(turn * perWhole)) + std::llround(turn * perWhole)) % std::llround(turn * perWhole);
    const long long per = std::llround(perWhole);
    const std::string head = digits(units / per, whole);
    long long rest = units % per;
    if (packing == Packing::decimals)
        return head + digits(rest, behind);
    const long long perMinute = per / 60;
    const std::string minutes = digits(rest / perMinute, 2);
    rest %= perMinute;
    if (packing == Packing::minutes)
        return head + minutes + (behind > 2 ? digits(rest, behind - 2) : std::string());
    const long long perSecond = perMinute / 60;
    return head + minutes + digits(rest / perSecond, 2) + (behind > 4 ? digits(rest % perSecond, behind - 4) : "");
}

std::optional<double> instantOf(std::string_view date, std::string_view time)
{
    const std::string_view clock = withoutBlanksBehind(time);
    if (date.size() != 8 || !allDigits(date) || clock.size() < 2 || !allDigits(clock))
        return std::nullopt;
    const int year = static_cast<int>(wholeNumber(date.substr(0, 4)));
    const int month = static_cast<int>(wholeNumber(date.substr(4, 2)));
    const int day = static_cast<int>(wholeNumber(date.substr(6, 2)));
    const auto hours = packedAngle(clock, 2, Packing::seconds);
    if (!hours || *hours >= 24.0 || year < 1900 || month < 1 || month > 12 || day < 1)
        return std::nullopt;
    const double start = mjd(day, month, year, 0.0);
    int d = 0, m = 0, y = 0;
    double h = 0;
    caldat(start, d, m, y, h);
    return d == day && m == month ? std::optional(start + *hours / 24.0) : std::nullopt;
}

DateDigits dateDigits(double mjd, int decimals)
{
    const double perSecond = pow10(std::size_t(decimals));
    double day = std::floor(mjd);
    auto units = std::llround((mjd - day) * 86400.0 * perSecond);
    const auto perDay = std::llround(86400.0 * perSecond);
    if (units >= perDay) {
        units -= perDay;
        day += 1.0;
    }
    int d = 0, m = 0, y = 0;
    double h = 0;
    caldat(day, d, m, y, h);
    const auto per = std::llround(perSecond);
    const long long seconds = units / per;
    return {digits(y, 4) + digits(m, 2) + digits(d, 2),
            digits(seconds / 3600, 2) + digits(seconds / 60 % 60, 2) + digits(seconds % 60, 2) +
                (decimals > 0 ? digits(units % per, std::size_t(decimals)) : std::string())};
}

int fullYear(int twoDigits)
{
    return twoDigits < 57 ? 2000 + twoDigits : 1900 + twoDigits;
}

bool hasTwoDigitYear(double mjd)
{
    constexpr double start1957 = 35839.0, start2057 = 72364.0, halfSecondDays = 0.5 / 86400.0;
    return mjd >= start1957 && mjd < start2057 - halfSecondDays;
}

std::string wide(std::string text, std::size_t width)
{
    text.resize(width, ' ');
    return text;
}

std::string digits(long long number, std::size_t count)
{
    std::string text(count, '0');
    long long rest = std::llabs(number);
    for (std::size_t i = count; i-- > 0; rest /= 10)
        text[i] = static_cast<char>('0' + rest % 10);
    return text;
}
