// The RDE form: blocks of a station and a month, with a line for each day and each position.

#include "observing/columns.h"
#include "observing/rde_block.h"
#include "observing/report_forms.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

constexpr double degreePerArcsec = 1.0 / 3600.0;

/// A number as typed, with its point; nothing for anything else.
std::optional<double> typedNumber(const std::string& text)
{
    const std::size_t point = text.find('.');
    const std::string whole = text.substr(0, point);
    const std::string behind = point == std::string::npos ? std::string() : text.substr(point + 1);
    const bool negative = whole.starts_with('-');
    const std::string size = negative || whole.starts_with('+') ? whole.substr(1) : whole;
    const std::string all = size + behind;
    if (!allDigits(all) || all.size() > 9)
        return std::nullopt;
    const double value = std::atof(all.c_str()) / std::pow(10.0, double(behind.size()));
    return negative ? -value : value;
}

std::string tenths(const std::optional<double>& value, std::size_t width)
{
    if (!value)
        return std::string(width, ' ');
    const long n = std::lround(std::abs(*value) * 10.0);
    std::string text(*value < 0.0 && n > 0 ? "-" : "");
    text.append(std::to_string(n / 10)).append(1, '.').append(std::to_string(n % 10));
    return text.size() < width ? std::string(width - text.size(), ' ') + text : text.substr(0, width);
}

/// What the first line of a block tells.
std::string blockHead(const Observation& o)
{
    const DateDigits when = dateDigits(o.mjd, 2);
    const long accuracy = std::lround(o.angleError / degreePerArcsec);
    return digits(o.station, 4) + ' ' + when.date.substr(2, 4) + ' ' + tenths(std::min(o.timeError, 9.9), 3) + "11 " +
           digits(std::min(accuracy, 999L), 3) + epochCodeOf(o).value_or(' ') + '\n';
}

std::string dataLine(const Observation& o)
{
    const int piece = pieceNumber(o.designator.substr(8));
    const DateDigits when = dateDigits(o.mjd, 2);
    std::string text = o.designator.substr(2, 2) + o.designator.substr(5, 3) + digits(piece, 2) + ' ' +
                       when.time.substr(0, 6) + '.' + when.time.substr(6) + ' ' +
                       packedAngleText(o.first / 15.0, 2, Packing::seconds, 6, 24.0) + (o.second < 0.0 ? '-' : '+') +
                       packedAngleText(std::abs(o.second), 2, Packing::seconds, 6, 0.0) + tenths(o.magnitude, 4) +
                       tenths(o.faintest, 4);
    text += o.period > 0.0
                ? wide(std::string(1, ' ').append(std::to_string(std::lround(std::min(o.period, 99.0)))), 3)
                : "   ";
    return text + (std::string_view("SIRFXE").find(o.behaviour) == std::string_view::npos ? ' ' : o.behaviour) + '\n';
}

std::string misfit(const Observation& o)
{
    const int piece = o.designator.size() > 8 ? pieceNumber(o.designator.substr(8)) : 0;
    if (piece < 1 || piece > 99)
        return "the form needs a designator with one of the first 99 pieces of a launch";
    if (!hasTwoDigitYear(o.mjd))
        return "the form needs a year from 1957 to 2056";
    if (o.angles != SkyAngles::equatorial)
        return "the form needs right ascension and declination";
    return iodLine(o).complaint;
}

}  // namespace

RdeBlock::Kind RdeBlock::take(std::string_view line, ReadLine& read)
{
    if (startsBlock(line))
        return Kind::ofTheForm;
    if (!open)
        return Kind::foreign;
    const std::string text = trimmedColumns(line, 1, line.size());
    if (text == "999") {
        open = false;
    } else if (text.size() <= 2 && allDigits(text)) {
        day = std::atoi(text.c_str());
    } else if (line.size() >= 31 && allDigits(columns(line, 1, 5)) && columns(line, 8, 8) == " ") {
        read = dataOf(line);
    } else {
        return Kind::foreign;
    }
    return Kind::ofTheForm;
}

bool RdeBlock::startsBlock(std::string_view line)
{
    const bool head = allDigits(columns(line, 1, 4)) && allDigits(columns(line, 6, 9)) &&
                      columns(line, 5, 5) == " " && columns(line, 10, 10) == " " && columns(line, 16, 16) == " " &&
                      allDigits(columns(line, 14, 15)) && columns(line, 12, 12) == "." && line.size() <= 22;
    const auto equinox = equinoxOfCode(columns(line, 20, 20)[0]);
    if (!head || !equinox)
        return false;
    open = true;
    day = 0;
    common = {};
    common.station = std::atoi(columns(line, 1, 4).c_str());
    yearMonth = std::to_string(fullYear(std::atoi(columns(line, 6, 7).c_str()))) + columns(line, 8, 9);
    common.timeError = std::max(typedNumber(columns(line, 11, 13)).value_or(0.0), 0.0);
    common.angleError = impliedPoint(columns(line, 17, 19), 3).value_or(0.0) * degreePerArcsec;
    common.equinox = *equinox;
    return true;
}

ReadLine RdeBlock::dataOf(std::string_view line) const
{
    Observation o = common;
    const std::string piece = trimmedColumns(line, 6, 7);
    o.designator = std::to_string(fullYear(std::atoi(columns(line, 1, 2).c_str()))) + '-' + columns(line, 3, 5) +
                   (allDigits(piece) ? pieceLetters(std::atoi(piece.c_str())) : piece);
    std::string clock = columns(line, 9, 17);
    if (clock[6] == '.')
        clock.erase(6, 1);
    const auto when = instantOf(yearMonth + digits(day, 2), clock);
    if (!when)
        return {std::nullopt, "columns 9 to 17 hold \"" + columns(line, 9, 17) +
                                  "\"; expected a time as HHMMSS.ss behind a line with the day"};
    const auto ra = packedAngle(columns(line, 19, 24), 2, Packing::seconds);
    const auto dec = packedAngle(columns(line, 26, 31), 2, Packing::seconds);
    const char sign = columns(line, 25, 25)[0];
    if (!ra || *ra >= 24.0 || !dec || *dec > 90.0 || (sign != '+' && sign != '-'))
        return {std::nullopt, "columns 19 to 31 hold \"" + columns(line, 19, 31) +
                                  "\"; expected right ascension and declination as HHMMSS+DDMMSS"};
    o.mjd = *when;
    o.angles = SkyAngles::equatorial;
    o.angleCode = 1;
    o.first = *ra * 15.0;
    o.second = sign == '-' ? -*dec : *dec;
    o.magnitude = typedNumber(trimmedColumns(line, 32, 35));
    o.faintest = typedNumber(trimmedColumns(line, 36, 39));
    o.period = std::max(typedNumber(trimmedColumns(line, 40, 42)).value_or(0.0), 0.0);
    o.behaviour = columns(line, 43, 43)[0];
    return {o, {}};
}

WrittenReport rdeBlocks(std::span<const Observation> observations)
{
    std::string text, head, day;
    for (const Observation& o : observations) {
        if (std::string why = misfit(o); !why.empty())
            return {{}, why};
        if (const std::string own = blockHead(o); own != head) {
            text += (head.empty() ? "" : "999\n") + own;
            head = own;
            day.clear();
        }
        if (const std::string own = dateDigits(o.mjd, 2).date.substr(6); own != day) {
            text += own + '\n';
            day = own;
        }
        text += dataLine(o);
    }
    return {text + (head.empty() ? "" : "999\n"), {}};
}
