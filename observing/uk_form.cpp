// The UK form: 80 columns, one line for each position, the piece of a launch as a number.

#include "observing/columns.h"
#include "observing/report_forms.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace {

constexpr std::string_view pieces = "ABCDEFGHJKLMNPQRSTUVWXYZ";
constexpr std::array unitDegrees{1.0 / 3600.0, 1.0 / 60.0, 1.0};
constexpr std::array secondPacking{Packing::seconds, Packing::minutes, Packing::decimals};

/// Of the first angle: right ascensions have no decimals of an hour.
Packing firstPacking(int code)
{
    constexpr std::array equatorial{Packing::seconds, Packing::minutes, Packing::minutes};
    const std::size_t i = std::size_t(code - 1) % 3;
    return code <= 3 ? equatorial[i] : secondPacking[i];
}

ReadLine wrong(std::string_view line, std::size_t from, std::size_t to, const char* expected)
{
    return {std::nullopt, "columns " + std::to_string(from) + " to " + std::to_string(to) + " hold \"" +
                              columns(line, from, to) + "\"; expected " + expected};
}

bool looksLikeUk(std::string_view line)
{
    return line.size() >= 43 && allDigits(columns(line, 1, 5)) && !blank(columns(line, 6, 7)) &&
           allDigits(columns(line, 8, 17)) && isDigit(columns(line, 34, 34)[0]);
}

ReadLine readAngles(std::string_view line, Observation& o)
{
    o.angleCode = columns(line, 34, 34)[0] - '0';
    if (o.angleCode == 0)
        return wrong(line, 34, 34, "a format code from 1 to 9");
    const std::size_t unit = std::size_t(o.angleCode - 1) % 3;
    const bool horizontal = o.angleCode > 3;
    const auto first = packedAngle(columns(line, 35, 42), horizontal ? 3 : 2, firstPacking(o.angleCode));
    if (!first || *first >= (horizontal ? 360.1 : 24.0))
        return wrong(line, 35, 42, horizontal ? "an azimuth" : "a right ascension");
    const char sign = columns(line, 43, 43)[0];
    const auto second = packedAngle(columns(line, 44, 50), 2, secondPacking[unit]);
    if ((sign != '+' && sign != '-') || !second || *second > 90.0)
        return wrong(line, 43, 50, horizontal ? "an elevation with its sign" : "a declination with its sign");
    const auto equinox = equinoxOfCode(columns(line, 55, 55)[0]);
    if (!equinox)
        return wrong(line, 55, 55, "an epoch code from 0 to 6 or a blank");
    o.angles = horizontal ? SkyAngles::horizontal : SkyAngles::equatorial;
    o.first = horizontal ? *first : *first * 15.0;
    o.second = sign == '-' ? -*second : *second;
    o.equinox = *equinox;
    o.refracted = o.angleCode > 6;
    constexpr std::array<std::size_t, 3> wholeDigits{3, 2, 1};
    o.angleError = impliedPoint(columns(line, 51, 54), wholeDigits[unit]).value_or(0.0) * unitDegrees[unit];
    return {};
}

/// Sign and two digits, or three digits for what is fainter than 9.9.
std::optional<double> magnitudeOf(const std::string& field)
{
    if (field[0] == '+' || field[0] == '-') {
        const auto size = impliedPoint(field.substr(1), 1);
        return size && field[0] == '-' ? std::optional(-*size) : size;
    }
    return impliedPoint(field, 2);
}

std::string magnitudeText(const std::optional<double>& magnitude)
{
    if (!magnitude)
        return "   ";
    const long tenths = std::lround(std::abs(*magnitude) * 10.0);
    if (*magnitude > 0.0 && tenths > 99)
        return digits(std::min(tenths, 999L), 3);
    return (*magnitude < 0.0 ? '-' : '+') + digits(std::min(tenths, 99L), 2);
}

/// A number with an implied point; blanks for 0, at least 1 in the last place otherwise.
std::string impliedText(double value, std::size_t whole, std::size_t width)
{
    if (!(value > 0.0))
        return std::string(width, ' ');
    const double most = std::pow(10.0, double(width)) - 1.0;
    const double units = std::round(value * std::pow(10.0, double(width - whole)));
    return digits(std::llround(std::min(std::max(units, 1.0), most)), width);
}

std::string pieceText(const std::string& letters)
{
    const int n = pieceNumber(letters);
    return n > 0 && n < 100 ? digits(n, 2) : std::string();
}

int codeFor(const Observation& o, int wish)
{
    const int unit = wish == 7 ? 2 : (wish >= 1 && wish <= 6 ? (wish - 1) % 3 : 1);
    return unit + 1 + (o.angles != SkyAngles::horizontal ? 0 : o.refracted ? 6 : 3);
}

std::string anglesText(const Observation& o, int code, char epoch)
{
    const std::size_t unit = std::size_t(code - 1) % 3;
    const bool horizontal = code > 3;
    constexpr std::array<std::size_t, 3> wholeDigits{3, 2, 1};
    return packedAngleText(horizontal ? o.first : o.first / 15.0, horizontal ? 3 : 2, firstPacking(code), 8,
                           horizontal ? 360.0 : 24.0) +
           (o.second < 0.0 ? '-' : '+') + packedAngleText(std::abs(o.second), 2, secondPacking[unit], 7, 0.0) +
           impliedText(o.angleError / unitDegrees[unit], wholeDigits[unit], 4) + epoch;
}

/// The letters of the form; those of IOD that it has not become a blank.
char behaviourLetter(char letter)
{
    return std::string_view("SIRFEX").find(letter) == std::string_view::npos ? ' ' : letter;
}

}  // namespace

std::string pieceLetters(int n)
{
    std::string letters;
    for (; n > 0; n = (n - 1) / int(pieces.size()))
        letters.insert(letters.begin(), pieces[std::size_t(n - 1) % pieces.size()]);
    return letters;
}

int pieceNumber(std::string_view letters)
{
    int n = 0;
    for (const char c : letters) {
        const std::size_t place = pieces.find(c);
        if (place == std::string_view::npos || n > 100000)
            return 0;
        n = n * int(pieces.size()) + int(place) + 1;
    }
    return n;
}

ReadLine readUkLine(std::string_view line)
{
    if (!looksLikeUk(line))
        return {};
    Observation o;
    const std::string piece = trimmedColumns(line, 6, 7);
    o.designator = std::to_string(fullYear(std::atoi(columns(line, 1, 2).c_str()))) + '-' + columns(line, 3, 5) +
                   (allDigits(piece) ? pieceLetters(std::atoi(piece.c_str())) : piece);
    o.station = std::atoi(columns(line, 8, 11).c_str());
    const int year = fullYear(std::atoi(columns(line, 12, 13).c_str()));
    const auto when = instantOf(std::to_string(year) + columns(line, 14, 17), columns(line, 18, 27));
    if (!when)
        return wrong(line, 12, 27, "a date and a time as YYMMDDHHMMSSssss");
    o.mjd = *when;
    o.timeError = impliedPoint(columns(line, 28, 32), 1).value_or(0.0);
    if (ReadLine bad = readAngles(line, o); !bad.complaint.empty())
        return bad;
    o.magnitude = magnitudeOf(columns(line, 69, 71));
    o.faintest = magnitudeOf(columns(line, 72, 74));
    o.fadedOut = columns(line, 72, 74) == "INV";
    o.period = impliedPoint(columns(line, 75, 79), 3).value_or(0.0);
    o.behaviour = columns(line, 80, 80)[0];
    return {o, {}};
}

WrittenReport ukLine(const Observation& o, int code)
{
    const std::string piece = o.designator.size() > 8 ? pieceText(o.designator.substr(8)) : std::string();
    if (piece.empty())
        return {{}, "the form needs a designator with one of the first 99 pieces of a launch"};
    if (!hasTwoDigitYear(o.mjd))
        return {{}, "the form needs a year from 1957 to 2056"};
    if (o.angles == SkyAngles::none)
        return {{}, "the form needs a position"};
    if (std::string why = iodLine(o, code).complaint; !why.empty() && o.number <= 99999)
        return {{}, why};  // the limits of station, time, angles and equinox are the same
    const DateDigits when = dateDigits(o.mjd, 4);
    const int ukCode = codeFor(o, code);
    std::string text = o.designator.substr(2, 2) + o.designator.substr(5, 3) + piece + digits(o.station, 4) +
                       when.date.substr(2) + when.time + impliedText(o.timeError, 1, 5) + '1' +
                       static_cast<char>('0' + ukCode) + anglesText(o, ukCode, epochCodeOf(o).value_or(' '));
    text = wide(text, 68) + magnitudeText(o.magnitude) + (o.fadedOut ? "INV" : magnitudeText(o.faintest));
    return {text + impliedText(o.period, 3, 5) + behaviourLetter(o.behaviour) + '\n', {}};
}
