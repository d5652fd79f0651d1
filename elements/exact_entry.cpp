#include "elements/exact_entry.h"

#include "astro/calendar.h"
#include "elements/catalogue_number.h"
#include "record/numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <initializer_list>

namespace {
constexpr std::string_view marker = "+++++MEANELEM1+++++";
constexpr std::size_t markerColumn = 40;
constexpr std::size_t numberColumn = 59;
constexpr std::size_t nameLineLength = 24;
constexpr std::size_t nameLength = 20;  // of the record
constexpr std::size_t longestRefusal = 70;
constexpr int lineRoom = 80;

// A search by name that goes through all lines finds no name that begins like this.
constexpr char figuresMark = '\x1f', refusalMark = '\x1e';

void addNumber(std::string& text, double value)
{
    char digits[32];
    const std::to_chars_result end = std::to_chars(digits, digits + sizeof digits, value);
    text.append(digits, end.ptr).push_back(' ');
}

void addFigures(std::string& text, std::initializer_list<double> values)
{
    text.push_back(figuresMark);
    for (const double value : values)
        addNumber(text, value);
    text.back() = '\n';
}

/// As wide as in the files of the services, so that the field of the record is filled alike; no half characters.
void addNameLine(std::string& text, std::string_view name)
{
    std::size_t length = std::min(name.size(), nameLength);
    while (length < name.size() && length > 0 && (name[length] & 0xC0) == 0x80)
        --length;
    text.append(name.substr(0, length));
    if (!name.empty())
        text.append(nameLineLength - length, ' ');
    text.push_back('\n');
}

std::size_t placeOf(std::size_t column)
{
    return column - 1;
}

void addLineOne(std::string& text, const ExactEntry& entry)
{
    char line[lineRoom];
    text.append(formatted(line, "1 %5.5s  %-8.8s%22s%19s%010i1\n", catalogueText(entry.norad).c_str(),
                          entry.designator.c_str(), "", marker.data(), entry.norad));
}

/// The next line behind its mark; empty if it is another.
std::string_view markedLine(std::FILE* fp, char mark, char (&line)[lineRoom])
{
    if (!std::fgets(line, lineRoom, fp) || line[0] != mark)
        return {};
    return std::string_view(line).substr(1);
}

template <std::size_t N>
bool readFigures(std::FILE* fp, std::array<double, N>& values)
{
    char line[lineRoom];
    const std::string_view figures = markedLine(fp, figuresMark, line);
    const char* from = figures.data();
    const char* const end = from + figures.size();
    for (double& value : values) {
        const std::from_chars_result read = std::from_chars(from, end, value);
        if (read.ec != std::errc() || read.ptr == end)
            return false;
        from = read.ptr + 1;  // behind the blank or the line feed
    }
    return true;
}
}  // namespace

void appendExact(std::string& text, const ExactEntry& entry)
{
    addNameLine(text, entry.name);
    addLineOne(text, entry);
    text.push_back(refusalMark);
    text.append(entry.refusal, 0, longestRefusal).push_back('\n');
    if (!entry.refusal.empty())
        return;
    addFigures(text, {static_cast<double>(entry.year), entry.day, static_cast<double>(entry.ephemerisType),
                      static_cast<double>(entry.revolution)});
    addFigures(text, {entry.ndot, entry.n6dot, entry.bstar});
    addFigures(text, {entry.inc, entry.ra, entry.ecc});
    addFigures(text, {entry.aper, entry.m0, entry.n0});
}

bool isExactLine(std::FILE* fp, std::string_view line)
{
    return line.size() >= placeOf(numberColumn) && line[0] == '1' &&
           line.substr(placeOf(markerColumn), marker.size()) == marker && ::fileno(fp) < 0;
}

int exactNumber(std::string_view line)
{
    return wholeNumber(line.substr(placeOf(numberColumn), 10));
}

bool readExact(std::FILE* fp, ExactEntry& entry)
{
    char line[lineRoom];
    const std::string_view refusal = markedLine(fp, refusalMark, line);
    if (refusal.empty())
        return false;
    entry.refusal = refusal.substr(0, refusal.find('\n'));
    if (!entry.refusal.empty())
        return true;
    std::array<double, 4> epoch{};
    std::array<double, 3> drag{}, plane{}, ellipse{};
    if (!readFigures(fp, epoch) || !readFigures(fp, drag) || !readFigures(fp, plane) || !readFigures(fp, ellipse))
        return false;
    entry.year = truncToInt(epoch[0]);
    entry.day = epoch[1];
    entry.ephemerisType = truncToInt(epoch[2]);
    entry.revolution = truncToInt(epoch[3]);
    entry.ndot = drag[0];
    entry.n6dot = drag[1];
    entry.bstar = drag[2];
    entry.inc = plane[0];
    entry.ra = plane[1];
    entry.ecc = plane[2];
    entry.aper = ellipse[0];
    entry.m0 = ellipse[1];
    entry.n0 = ellipse[2];
    return true;
}
