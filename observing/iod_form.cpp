// The IOD form: 80 columns, one line for each position.

#include "observing/columns.h"
#include "observing/report_forms.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

namespace {

/// How the two angles of a code are written.
struct AngleCode
{
    bool horizontal;
    Packing first, second;
    double unitDegrees;  // of the accuracy
};

constexpr std::array angleCodes{
    AngleCode{false, Packing::seconds, Packing::seconds, 1.0 / 3600.0},
    AngleCode{false, Packing::minutes, Packing::minutes, 1.0 / 60.0},
    AngleCode{false, Packing::minutes, Packing::decimals, 1.0},
    AngleCode{true, Packing::seconds, Packing::seconds, 1.0 / 3600.0},
    AngleCode{true, Packing::minutes, Packing::minutes, 1.0 / 60.0},
    AngleCode{true, Packing::decimals, Packing::decimals, 1.0},
    AngleCode{false, Packing::seconds, Packing::decimals, 1.0},
};

constexpr std::array equinoxes{0.0, 1855.0, 1875.0, 1900.0, 1950.0, 2000.0, 2050.0};

ReadLine wrong(std::string_view line, std::size_t from, std::size_t to, const char* expected)
{
    return {std::nullopt, "columns " + std::to_string(from) + " to " + std::to_string(to) + " hold \"" +
                              columns(line, from, to) + "\"; expected " + expected};
}

/// Whether a line means to be a report: its date, or its head up to the launch year, stands where it belongs.
bool looksLikeIod(std::string_view line)
{
    const std::string number = columns(line, 1, 5), year = columns(line, 7, 8);
    const bool head = allDigits(number) && columns(line, 6, 6) == " " && allDigits(year) &&
                      columns(line, 9, 9) == " " && allDigits(columns(line, 10, 12)) && line.size() > 30;
    const bool date = allDigits(columns(line, 24, 31)) && allDigits(columns(line, 17, 20)) &&
                      columns(line, 16, 16) == " " && columns(line, 21, 21) == " " && columns(line, 23, 23) == " ";
    return head || date;
}

std::string designatorOf(std::string_view line)
{
    const std::string year = columns(line, 7, 8), launch = columns(line, 10, 12);
    if (!allDigits(year) || !allDigits(launch))
        return {};
    return std::to_string(fullYear(std::atoi(year.c_str()))) + '-' + launch + trimmedColumns(line, 13, 15);
}

/// The angles; a text of columns and what was expected if they cannot be read.
ReadLine readAngles(std::string_view line, Observation& o)
{
    if (blank(columns(line, 48, 61)) || o.condition == 'C' || o.condition == 'O')
        return {};
    const char code = columns(line, 45, 45)[0];
    if (code < '1' || code > '7')
        return wrong(line, 45, 45, "a format code from 1 to 7");
    const auto equinox = equinoxOfCode(columns(line, 46, 46)[0]);
    if (!equinox)
        return wrong(line, 46, 46, "an epoch code from 0 to 6 or a blank");
    const AngleCode& form = angleCodes[std::size_t(code - '1')];
    const auto first = packedAngle(columns(line, 48, 54), form.horizontal ? 3 : 2, form.first);
    if (!first || *first >= (form.horizontal ? 360.1 : 24.0))
        return wrong(line, 48, 54, form.horizontal ? "an azimuth" : "a right ascension");
    const char sign = columns(line, 55, 55)[0];
    const auto second = packedAngle(columns(line, 56, 61), 2, form.second);
    if ((sign != '+' && sign != '-') || !second || *second > 90.0)
        return wrong(line, 55, 61, form.horizontal ? "an elevation with its sign" : "a declination with its sign");
    o.angles = form.horizontal ? SkyAngles::horizontal : SkyAngles::equatorial;
    o.first = form.horizontal ? *first : *first * 15.0;
    o.second = sign == '-' ? -*second : *second;
    o.equinox = *equinox;
    o.angleCode = code - '0';
    o.angleError = mantissaExponent(columns(line, 63, 64)).value_or(0.0) * form.unitDegrees;
    return {};
}

void readBrightness(std::string_view line, Observation& o)
{
    o.behaviour = columns(line, 66, 66)[0];
    const char sign = columns(line, 67, 67)[0];
    if (const auto size = impliedPoint(columns(line, 68, 70), 2))
        o.magnitude = sign == '-' ? -*size : *size;
    o.magnitudeError = impliedPoint(columns(line, 72, 73), 1).value_or(0.0);
    o.period = impliedPoint(columns(line, 75, 80), 3).value_or(0.0);
}

/// The code for the angles of an observation that comes nearest to one that is wished. What is less sure than can be told
/// in seconds goes into minutes.
int codeFor(const Observation& o, int wish)
{
    constexpr double mostUnits = 95.0;
    constexpr std::array equatorialOf{2, 1, 2, 3, 1, 2, 3, 7};
    constexpr std::array horizontalOf{5, 4, 5, 6, 4, 5, 6, 6};
    const std::size_t i = wish >= 1 && wish <= 7 ? std::size_t(wish) : 0;
    const int code = o.angles == SkyAngles::horizontal ? horizontalOf[i] : equatorialOf[i];
    const bool inSeconds = code == 1 || code == 4;
    return inSeconds && o.angleError * 3600.0 > mostUnits ? code + 1 : code;
}

std::string anglesText(const Observation& o, int code, char epoch)
{
    const AngleCode& form = angleCodes[std::size_t(code - 1)];
    const double first = form.horizontal ? o.first : o.first / 15.0;
    const double turn = form.horizontal ? 360.0 : 24.0;
    return std::string(1, static_cast<char>('0' + code)) + epoch + ' ' +
           packedAngleText(first, form.horizontal ? 3 : 2, form.first, 7, turn) + (o.second < 0.0 ? '-' : '+') +
           packedAngleText(std::abs(o.second), 2, form.second, 6, 0.0) + ' ' +
           mantissaExponentText(o.angleError / form.unitDegrees);
}

std::string brightnessText(const Observation& o)
{
    std::string text(1, o.behaviour);
    if (o.magnitude)
        text += (*o.magnitude < 0.0 ? '-' : '+') + digits(std::lround(std::abs(*o.magnitude) * 10.0), 3);
    text = wide(text, 6);
    if (o.magnitudeError > 0.0)
        text += digits(std::min(99L, std::lround(o.magnitudeError * 10.0)), 2);
    text = wide(text, 9);
    if (o.period > 0.0)
        text += digits(std::lround(o.period * 1000.0), 6);
    return text;
}

std::string headText(const Observation& o)
{
    std::string text = o.number > 0 ? digits(o.number, 5) : std::string(5, ' ');
    text += ' ';
    if (o.designator.size() >= 8)
        text += o.designator.substr(2, 2) + ' ' + o.designator.substr(5);
    text = wide(text, 16) + digits(o.station, 4) + ' ' + o.condition + ' ';
    const DateDigits when = dateDigits(o.mjd, 3);
    return text + when.date + when.time + ' ' + mantissaExponentText(o.timeError) + ' ';
}

/// Why an observation has no place in the columns; empty if it has.
std::string misfit(const Observation& o)
{
    if (o.number > 99999)
        return "the catalogue number " + std::to_string(o.number) + " has more than the five digits of the form";
    if (o.designator.size() > 11)
        return "the designator " + o.designator + " is too long for the form";
    if (o.station < 0 || o.station > 9999)
        return "the station " + std::to_string(o.station) + " has more than four digits";
    if (!std::isfinite(o.mjd) || o.mjd < 15020.0 || o.mjd > 2973483.0)
        return "the time is outside the years 1900 to 9999";
    if (o.angles != SkyAngles::none && !(std::abs(o.second) <= 90.0 && std::abs(o.first) <= 1e6))
        return "the angles are outside the sky";
    if (o.magnitude && !(std::abs(*o.magnitude) < 99.9))
        return "the magnitude is outside the form";
    if (o.period >= 1000.0)
        return "the flash period is longer than the form takes";
    return {};
}

}  // namespace

std::optional<double> equinoxOfCode(char code)
{
    if (code == ' ')
        return 0.0;
    return code >= '0' && code <= '6' ? std::optional(equinoxes[std::size_t(code - '0')]) : std::nullopt;
}

std::optional<char> epochCodeOf(const Observation& o)
{
    if (o.angles != SkyAngles::equatorial)
        return ' ';
    const auto found = std::find(equinoxes.begin(), equinoxes.end(), o.equinox);
    return found == equinoxes.end() ? std::nullopt
                                    : std::optional(static_cast<char>('0' + (found - equinoxes.begin())));
}

ReadLine readIodLine(std::string_view line)
{
    if (!looksLikeIod(line))
        return {};
    Observation o;
    const std::string number = trimmedColumns(line, 1, 5);
    if (!number.empty() && !allDigits(number))
        return wrong(line, 1, 5, "a catalogue number");
    o.number = std::atoi(number.c_str());
    o.designator = designatorOf(line);
    const std::string station = columns(line, 17, 20);
    if (!allDigits(station))
        return wrong(line, 17, 20, "a station of four digits");
    o.station = std::atoi(station.c_str());
    o.condition = columns(line, 22, 22)[0];
    if (std::string_view(" EGFPBTCOS").find(o.condition) == std::string_view::npos)
        return wrong(line, 22, 22, "one of the letters E, G, F, P, B, T, C, O");
    const auto when = instantOf(columns(line, 24, 31), columns(line, 32, 40));
    if (!when)
        return wrong(line, 24, 40, "a date and a time as YYYYMMDDHHMMSSsss");
    o.mjd = *when;
    o.timeError = mantissaExponent(columns(line, 42, 43)).value_or(0.0);
    if (ReadLine bad = readAngles(line, o); !bad.complaint.empty())
        return bad;
    readBrightness(line, o);
    return {o, {}};
}

WrittenReport iodLine(const Observation& o, int code)
{
    if (std::string why = misfit(o); !why.empty())
        return {{}, why};
    std::string text = headText(o);
    if (o.angles != SkyAngles::none) {
        const auto epoch = epochCodeOf(o);
        if (!epoch)
            return {{}, "the form has no code for the equinox of this position"};
        text += anglesText(o, codeFor(o, code), *epoch);
    }
    return {wide(wide(text, 65) + brightnessText(o), 80) + '\n', {}};
}
