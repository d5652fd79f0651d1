#include "exports/element_forms.h"

#include <charconv>
#include <cmath>
#include <cstdlib>

#include "elements/catalogue_number.h"
#include "elements/characters.h"
#include "elements/writer.h"
#include "record/numbers.h"
#include "record/text.h"

namespace {

constexpr int firstYear = 1957, lastYear = 2056;  // that two digits tell
constexpr double fullCircle = 360.0;
constexpr int greatestExponent = 9;
constexpr int mantissaDigits = 5;

/// Columns of a number with so many decimals, blanks in front.
std::string fixed(double value, int width, int decimals)
{
    char text[64];
    return std::string(formatted(text, "%*.*f", width, decimals, value));
}

std::string zeros(int value, std::size_t width)
{
    std::string digits = std::to_string(value);
    digits.insert(0, width - std::min(width, digits.size()), '0');
    return digits;
}

std::string numberColumns(int number)
{
    constexpr int fiveDigits = 99999;
    return number <= fiveDigits ? zeros(number, mantissaDigits) : catalogueText(number);
}

/// An angle from 0 on, below a full circle also with four decimals.
std::string angle(double degrees)
{
    constexpr double halfUnit = 5e-5;
    const double rest = degrees - fullCircle * std::floor(degrees / fullCircle);
    return fixed(rest < fullCircle - halfUnit ? rest : 0.0, 8, 4);
}

/// A sign, and eight decimals behind a point.
std::string rate(double value)
{
    return (value < 0 ? '-' : ' ') + fixed(std::abs(value), 10, 8).substr(1);
}

bool fitsRate(double value)
{
    return std::abs(value) < 0.999999995;
}

/// A sign, five digits behind an assumed point, and a power of ten.
std::string exponential(double value)
{
    char text[32];
    const auto printed = formatted(text, "%.*e", mantissaDigits - 1, std::abs(value));
    int exponent = value == 0 ? 0 : wholeNumber(printed.substr(printed.find('e') + 1)) + 1;
    std::string digits{printed[0]};
    digits += printed.substr(2, mantissaDigits - 1);
    while (exponent < -greatestExponent) {  // what is too small loses digits
        digits = '0' + digits.substr(0, mantissaDigits - 1);
        ++exponent;
    }
    const bool minus = exponent < 0 || value == 0;
    return (value < 0 ? "-" : " ") + digits + (minus ? '-' : '+') + std::to_string(std::abs(exponent));
}

bool fitsExponential(double value)
{
    return std::abs(value) < 9.99995e8;
}

std::string withChecksum(std::string line)
{
    line += tcksum(line.c_str());
    return line + '\n';
}

std::string complaintAbout(const Entry& e)
{
    if (e.number > greatestColumnNumber)
        return "its number has no place in two lines";
    if (e.year < firstYear || e.year > lastYear || e.day >= 1000.0)
        return "the year of its epoch has no place in two lines";
    if (!(e.ecc >= 0 && e.ecc < 0.99999995))
        return "its eccentricity has no place in two lines";
    if (!(e.n0 >= 0 && e.n0 < 99.999999995) || !(e.inc >= 0 && e.inc < 999.0))
        return "its mean motion or inclination has no place in two lines";
    if (!fitsRate(e.ndot) || !fitsExponential(e.n6dot) || !fitsExponential(e.bstar))
        return "its drag has no place in two lines";
    if (!std::isfinite(e.ra + e.aper + e.m0))
        return "its elements are no numbers";
    return {};
}

std::string lineOne(const Entry& e)
{
    std::string designator(fieldText(e.designator));
    designator.resize(8, ' ');
    std::string day = fixed(e.day, 12, 8);
    for (char& c : day)
        c = c == ' ' ? '0' : c;
    const std::string set = e.elementSet < 0 ? std::string(4, ' ') : fixed(e.elementSet % 10000, 4, 0);
    return "1 " + numberColumns(e.number) + (e.classification == ' ' ? 'U' : e.classification) + ' ' + designator +
           ' ' + zeros(e.year % 100, 2) + day + ' ' + rate(e.ndot) + ' ' + exponential(e.n6dot) + ' ' +
           exponential(e.bstar) + ' ' + std::to_string(e.ephemerisType % 10) + ' ' + set;
}

std::string lineTwo(const Entry& e)
{
    const std::string revolution = e.revolution < 0 ? std::string(5, ' ') : fixed(e.revolution % 100000, 5, 0);
    return "2 " + numberColumns(e.number) + ' ' + fixed(e.inc, 8, 4) + ' ' + angle(e.ra) + ' ' +
           fixed(e.ecc, 9, 7).substr(2) + ' ' + angle(e.aper) + ' ' + angle(e.m0) + ' ' + fixed(e.n0, 11, 8) +
           revolution;
}

}  // namespace

TwoLines twoLinesOf(const Entry& entry)
{
    if (const std::string complaint = complaintAbout(entry); !complaint.empty())
        return {{}, complaint};
    std::string name(trimmed(fieldText(entry.name)));
    name.resize(24, ' ');
    return {name + '\n' + withChecksum(lineOne(entry)) + withChecksum(lineTwo(entry)), {}};
}
