#include "elements/omm_csv.h"

#include "astro/calendar.h"
#include "elements/omm_message.h"
#include "record/numbers.h"
#include "record/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string>
#include <string_view>

namespace {
constexpr const char* header = "OBJECT_NAME,OBJECT_ID,EPOCH,MEAN_MOTION,ECCENTRICITY,INCLINATION,RA_OF_ASC_NODE,"
                               "ARG_OF_PERICENTER,MEAN_ANOMALY,EPHEMERIS_TYPE,CLASSIFICATION_TYPE,NORAD_CAT_ID,"
                               "ELEMENT_SET_NO,REV_AT_EPOCH,BSTAR,MEAN_MOTION_DOT,MEAN_MOTION_DDOT\r\n";
constexpr long long microsecondsPerDay = 86'400'000'000;

/// In quotes where it must be.
std::string textCell(std::string_view field)
{
    std::string text(field.substr(0, field.find_last_not_of(" \r\n") + 1));
    std::replace(text.begin(), text.end(), '\r', ' ');
    if (text.find_first_of(",\"\n") == std::string::npos)
        return text;
    std::string quoted = "\"";
    for (const char c : text)
        quoted.append(c == '"' ? 2 : 1, c);
    return quoted + '"';
}

/// One that is no number becomes 0.
std::string numberCell(double value)
{
    char digits[32];
    const double number = std::isfinite(value) ? value : 0.0;
    return {digits, std::to_chars(digits, digits + sizeof digits, number).ptr};
}

/// In five digits if the reader makes the same of them.
std::string exponentCell(double value)
{
    char text[32];
    const double fiveDigits = Atof(formatted(text, "%.4e", value));
    return numberCell(asExponentField(fiveDigits) == value ? fiveDigits : value);
}

/// 2018-01-20T12:00:00.000000, rounded to the microsecond and held to the years that four digits name.
std::string epochCell(double epoch)
{
    constexpr double firstDay = -678577.0, lastDay = 2973483.0;  // of the years 1 and 9999
    epoch = std::isnan(epoch) ? 0.0 : std::clamp(epoch, firstDay, lastDay);
    const double start = std::floor(epoch);
    const long long rounded = std::llround((epoch - start) * microsecondsPerDay);
    const long long daysCarried = rounded / microsecondsPerDay;
    const long long microseconds = rounded % microsecondsPerDay;
    int day = 0, month = 0, year = 0;
    double hours = 0;
    caldat(start + static_cast<double>(daysCarried), day, month, year, hours);
    char text[48];
    return std::string(formatted(text, "%04i-%02i-%02iT%02lld:%02lld:%02lld.%06lld", year, month, day,
                                 microseconds / 3'600'000'000, microseconds / 60'000'000 % 60,
                                 microseconds / 1'000'000 % 60, microseconds % 1'000'000));
}
}  // namespace

void writeOmmHeader(std::FILE* file)
{
    std::fputs(header, file);
}

void writeOmmLine(std::FILE* file, const WinpData& in, int slot)
{
    constexpr const char* unknown = "999,0";  // element set and revolution
    std::string line = textCell(fieldText(in.fsname[slot])) + ',' + textCell(fieldText(in.ldsn[slot])) + ',' +
                       epochCell(in.mjdep[slot]);
    for (const double value : {in.n0[slot], in.ecc[slot], in.inc[slot], in.ra[slot], in.aper[slot], in.m0[slot]})
        line += ',' + numberCell(value);
    line += in.aflg[slot] ? ",0,U," : ",9,U,";
    line += std::to_string(in.norad[slot]) + ',' + unknown;
    line += ',' + exponentCell(in.bstar[slot]) + ',' + numberCell(in.ndot[slot]) + ',' + exponentCell(in.n6dot[slot]);
    std::fprintf(file, "%s\r\n", line.c_str());
}
