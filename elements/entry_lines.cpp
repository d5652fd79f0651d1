#include "elements/entry_lines.h"

#include "elements/catalogue_number.h"
#include "elements/characters.h"
#include "record/numbers.h"
#include "record/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace {
constexpr std::size_t longestNameLine = 59;  // a longer line with a 1 or 2 in front is an element line
constexpr std::size_t shortestEntryLine = 63;
constexpr std::size_t shortestLineWithRevolution = 68;
constexpr const char* stateMarker = "+++++STATEVCT1+++++";
constexpr int stateMarkerLength = 19;
constexpr int firstYearOfLastCentury = 57;

double decimal(std::string_view line, std::size_t first, std::size_t last)
{
    return Atof(entryColumns(line, first, last));
}

int whole(std::string_view line, std::size_t first, std::size_t last)
{
    return wholeNumber(entryColumns(line, first, last));
}

/// Six columns of mantissa after an assumed point, two of a power of ten.
double exponentField(std::string_view line, std::size_t first)
{
    return whole(line, first, first + 5) * 1e-5 * std::pow(10.0, whole(line, first + 6, first + 7));
}

double eccentricity(std::string_view line)
{
    if (entryColumns(line, 28, 28) == ".")
        return decimal(line, 26, 33);
    char text[16];
    const std::string_view digits = entryColumns(line, 27, 33);
    formatted(text, "0.%.*s", static_cast<int>(digits.size()), digits.data());
    return Atof(text);
}

/// Moves to line 1 if `line` is the name line.
bool reachLineOne(std::FILE* file, char* line)
{
    if (line[0] == '1')
        return true;
    return nextEntryLine(file, line) && line[0] == '1';
}

bool isStateVector(std::string_view line)
{
    char mark[stateMarkerLength + 1];
    assignField(mark, entryColumns(line, 40, 58));
    return Strncmpi(mark, stateMarker, stateMarkerLength) == 0;
}

void readHeading(std::string_view line, Entry& entry)
{
    entry.number = catalogueNumber(entryColumns(line, 3, 7));
    entry.classification = line[7] >= 'A' && line[7] <= 'Z' ? line[7] : ' ';
    assignField(entry.designator, entryColumns(line, 10, 17));
    const int year = whole(line, 19, 20);
    entry.year = year < firstYearOfLastCentury ? 2000 + year : 1900 + year;
    entry.day = decimal(line, 21, 32);
    entry.readTo = EntryPart::heading;
}

void readEndOfLineOne(std::string_view line, Entry& entry)
{
    entry.ndot = decimal(line, 34, 43);
    entry.n6dot = exponentField(line, 45);
    entry.bstar = exponentField(line, 54);
    entry.ephemerisType = isDigit(line[62]) ? line[62] - '0' : 0;
    const std::string_view set = trimmed(entryColumns(line, 65, 68));
    if (!set.empty() && std::all_of(set.begin(), set.end(), isDigit))
        entry.elementSet = wholeNumber(set);
    entry.readTo = EntryPart::drag;
}

void readLineTwo(std::string_view line, Entry& entry)
{
    if (line.substr(0, 1) != "2" || line.size() < shortestEntryLine)
        return;
    entry.inc = decimal(line, 9, 16);
    entry.ra = decimal(line, 18, 25);
    entry.ecc = eccentricity(line);
    entry.aper = decimal(line, 35, 42);
    entry.m0 = decimal(line, 44, 51);
    entry.n0 = decimal(line, 53, 63);
    if (line.size() >= shortestLineWithRevolution)
        entry.revolution = whole(line, 64, 68);
    entry.readTo = EntryPart::whole;
}

void readStateVector(std::FILE* file, std::string_view line, Entry& entry)
{
    entry.stateVector = true;
    const int revolution = whole(line, 34, 38);
    entry.revolution = revolution == 0 ? -1 : revolution;
    std::array<double, 4> r{}, v{};  // and the mark of the line
    std::array<double, 6> force{};
    if (!Fscanf(file, 4, r.data()) || !Fscanf(file, 4, v.data()) || !Fscanf(file, 6, force.data()) || std::feof(file))
        return;
    std::copy_n(r.begin(), 3, entry.r);
    std::copy_n(v.begin(), 3, entry.v);
    entry.F107 = force[0];
    entry.FB107 = force[1];
    entry.Kp = force[2];
    entry.Cd = force[3];
    entry.Cr = force[4];
    entry.Am = force[5];
    entry.readTo = EntryPart::whole;
}
}  // namespace

bool nextEntryLine(std::FILE* file, char* line)
{
    return std::fgets(line, entryLineRoom, file) != nullptr;
}

std::string_view entryColumns(std::string_view line, std::size_t first, std::size_t last)
{
    return line.size() < first ? std::string_view() : line.substr(first - 1, last - first + 1);
}

bool isElementLine(std::string_view line)
{
    return line.size() > longestNameLine && (line[0] == '1' || line[0] == '2');
}

Entry readEntryLines(std::FILE* file, char* line)
{
    Entry entry;
    if (!reachLineOne(file, line) || std::string_view(line).size() < shortestEntryLine)
        return entry;
    readHeading(line, entry);
    if (isStateVector(line)) {
        readStateVector(file, line, entry);
        return entry;
    }
    readEndOfLineOne(line, entry);
    if (nextEntryLine(file, line))
        readLineTwo(line, entry);
    return entry;
}
