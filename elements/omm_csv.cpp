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

std::string epochCell(double epoch)
{
    const double day = std::floor(epoch);
    return ommEpoch(day, epoch - day);
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
        line += ',' + ommNumber(value);
    line += in.aflg[slot] ? ",0,U," : ",9,U,";
    line += std::to_string(in.norad[slot]) + ',' + unknown;
    line += ',' + ommExponent(in.bstar[slot]) + ',' + ommNumber(in.ndot[slot]) + ',' + ommExponent(in.n6dot[slot]);
    std::fprintf(file, "%s\r\n", line.c_str());
}

std::string ommHeader()
{
    return header;
}

std::string ommLine(const OmmMessage& message)
{
    std::string line;
    std::string_view names(header);
    names.remove_suffix(2);  // its line end
    while (!names.empty()) {
        const std::size_t length = std::min(names.find(','), names.size());
        line += textCell(message[fieldOf(names.substr(0, length))]);
        line += length < names.size() ? "," : "\r\n";
        names.remove_prefix(std::min(length + 1, names.size()));
    }
    return line;
}
