#include "elements/writer.h"

#include "astro/calendar.h"
#include "elements/catalogue_number.h"
#include "elements/entry_record.h"
#include "elements/omm_csv.h"
#include "record/files.h"
#include "record/numbers.h"
#include "record/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <string>
#include <string_view>

namespace {
constexpr std::size_t lineLength = 69;
constexpr std::size_t checkedLength = 68;
constexpr std::size_t nameLineLength = 40;
constexpr std::size_t markColumn = 69;
constexpr double fewestKmWithTwoDecimals = 1e6;  // of a perigee distance
constexpr long greatestMantissa = 99999;
constexpr int greatestExponent = 9;

/// One line of an entry: blanks until something is put into its columns, which count from 1.
class Line
{
public:
    Line() { std::fill(text.begin(), text.end(), ' '); }

    void put(std::size_t column, std::string_view field)
    {
        std::copy_n(field.begin(), std::min(field.size(), lineLength + 1 - column), text.begin() + column - 1);
    }
    void put(std::size_t column, char c) { text[column - 1] = c; }
    void copy(const Line& from, std::size_t first, std::size_t last)
    {
        put(first, std::string_view(from.text.data() + first - 1, last - first + 1));
    }
    void addChecksum() { put(markColumn, tcksum(text.data())); }

    void write(std::FILE* file) const
    {
        std::fwrite(text.data(), 1, lineLength, file);
        std::fputc('\n', file);
    }

private:
    std::array<char, lineLength> text;
};

/// The number of most size that `width` columns hold with so many decimals.
std::string greatestText(std::size_t width, int decimals, bool negative)
{
    std::string text(width, '9');
    if (decimals > 0)
        text[width - 1 - static_cast<std::size_t>(decimals)] = '.';
    if (negative)
        text[0] = '-';
    return text;
}

/// A fixed-point number of exactly `width` characters; one too large becomes the largest that fits, one that is no
/// number 0.
std::string fixedText(double value, int width, int decimals)
{
    if (std::isnan(value))
        value = 0;
    char buffer[400];
    const std::string_view text = formatted(buffer, "%*.*lf", width, decimals, value);
    if (std::isfinite(value) && text.size() <= static_cast<std::size_t>(width))
        return std::string(text);
    return greatestText(static_cast<std::size_t>(width), decimals, value < 0);
}

/// An angle in degrees, in 0 to 360, which is all that eight columns hold of it.
std::string angleText(double degrees)
{
    if (!std::isfinite(degrees))
        return fixedText(degrees, 8, 4);
    if (degrees >= 0 && degrees <= 360)
        return fixedText(std::abs(degrees), 8, 4);  // -0 is zero
    const double rest = std::fmod(degrees, 360.0);
    const std::string text = fixedText(rest < 0 ? rest + 360 : rest, 8, 4);
    return text == "360.0000" ? "  0.0000" : text;
}

/// The sign takes the place of the zero before the point, since there is no column for both.
std::string ndotText(double ndot)
{
    if (!(ndot < 0))
        return fixedText(ndot == 0 ? 0.0 : ndot, 10, 8);  // -0.0 is zero
    std::string digits = fixedText(-ndot, 10, 8);
    if (digits[0] != '0')
        return greatestText(10, 8, true);
    digits[0] = '-';
    return digits;
}

/// Seven digits behind an assumed point.
std::string ellipseText(double ecc)
{
    const std::string digits = fixedText(std::max(ecc, 0.0), 9, 7);
    return digits[0] == '0' ? digits.substr(2) : "9999999";
}

std::string meanMotionText(double n0, double ecc)
{
    if (ecc < 1)
        return fixedText(n0, 11, 8);
    return fixedText(n0, 11, n0 < fewestKmWithTwoDecimals ? 4 : 2);
}

/// An exponential number; its columns hold any finite one.
std::string exponentialText(double value, int width, int decimals)
{
    char buffer[40];
    return std::string(formatted(buffer, "%*.*le", width, decimals, std::isfinite(value) ? value : 0.0));
}

std::string nameLine(std::string_view name)
{
    std::string line(name);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\r' || c == '\n'; }, ' ');
    line.resize(nameLineLength, ' ');
    return line;
}

/// Number, designator and epoch, the same for both kinds of entry.
Line startOfLineOne(WinpData* in, int i)
{
    Line line;
    line.put(1, '1');
    line.put(3, catalogueText(in->norad[i]));
    assignField(in->ldfull, fieldText(in->ldsn[i]));
    convldsn(in, false);
    line.put(10, fieldText(in->ldraw));
    int day = 0, month = 0, year = 0;
    double hours = 0;
    caldat(in->mjdep[i], day, month, year, hours);
    char twoDigits[16];
    line.put(19, formatted(twoDigits, "%02i", std::abs(year % 100)));
    line.put(21, fixedText(in->mjdep[i] - mjd(0, 1, year, 0.0), 12, 8));
    return line;
}

Line vectorLine(double x, double y, double z, char mark)
{
    Line line;
    line.put(1, exponentialText(x, 20, 12));
    line.put(22, exponentialText(y, 20, 12));
    line.put(43, exponentialText(z, 20, 12));
    line.put(markColumn, mark);
    return line;
}

void writeStateVector(std::FILE* file, const WinpData& in, int i, Line lineOne)
{
    lineOne.put(38, '0');
    lineOne.put(40, "+++++STATEVCT1+++++");
    lineOne.put(markColumn, '1');
    lineOne.write(file);
    vectorLine(in.epr0[i], in.epr1[i], in.epr2[i], '2').write(file);
    vectorLine(in.epv0[i], in.epv1[i], in.epv2[i], '3').write(file);
    Line forces;
    forces.put(1, fixedText(in.F107[i], 7, 1));
    forces.put(9, fixedText(in.FB107[i], 7, 1));
    forces.put(17, fixedText(in.Kp[i], 7, 1));
    forces.put(25, exponentialText(in.Cd[i], 13, 5));
    forces.put(39, exponentialText(in.Cr[i], 13, 5));
    forces.put(53, exponentialText(in.Am[i], 13, 5));
    forces.put(markColumn, '4');
    forces.write(file);
}

void finishLineOne(Line& line, const WinpData& in, int i)
{
    char exponent[9];
    line.put(34, ndotText(in.ndot[i]));
    cvtlef(exponent, in.n6dot[i]);
    line.put(45, exponent);
    cvtlef(exponent, in.bstar[i]);
    line.put(54, exponent);
    line.put(63, in.aflg[i] ? '0' : '9');
    line.addChecksum();
}

Line lineTwo(const WinpData& in, int i, const Line& lineOne)
{
    Line line;
    line.copy(lineOne, 2, 7);
    line.put(1, '2');
    line.put(9, fixedText(in.inc[i], 8, 4));
    line.put(18, angleText(in.ra[i]));
    if (in.ecc[i] >= 1)
        line.put(26, fixedText(in.ecc[i], 8, 5));
    else
        line.put(27, ellipseText(in.ecc[i]));
    line.put(35, angleText(in.aper[i]));
    line.put(44, angleText(in.m0[i]));
    line.put(53, meanMotionText(in.n0[i], in.ecc[i]));
    line.addChecksum();
    return line;
}

/// The mantissa of 0.ddddd, and the exponent held to one digit.
struct ExponentField
{
    explicit ExponentField(double size)  // above 0
    {
        const double w = 10.0 * size;
        const double order = std::log10(w);
        const int exponent = truncToInt(std::floor(order));
        double scaled = std::pow(10.0, -exponent) * w * 10000.0;
        if (exponent > greatestExponent)
            scaled = w * 1e-9 * 10000.0;
        else if (exponent < -greatestExponent)
            scaled = w * 1e9 * 10000.0;
        digit = std::min(std::abs(exponent), greatestExponent);
        mantissa = std::min<long>(truncToInt(static_cast<float>(std::min(scaled, 1e9))), greatestMantissa);
        small = order < 0;
    }

    long mantissa;
    int digit;
    bool small;
};

bool holdsNothing(const char* name)
{
    const std::optional<std::string> content = contentOfFile(name);
    return !content || content->empty();
}
}  // namespace

void writeTwoLines(std::FILE* file, WinpData* in, int i)
{
    std::fprintf(file, "%s\n", nameLine(fieldText(in->fsname[i])).c_str());
    Line lineOne = startOfLineOne(in, i);
    if (in->numflg[i]) {
        writeStateVector(file, *in, i, lineOne);
        return;
    }
    finishLineOne(lineOne, *in, i);
    lineOne.write(file);
    lineTwo(*in, i, lineOne).write(file);
}

void cvtlef(char* out, double value)
{
    TextWriter text(out, 9);
    if (value == 0 || std::isnan(value)) {
        text.add(" 00000-0");
        return;
    }
    const ExponentField field(std::min(std::abs(value), 1e300));
    text.addFormatted(" %5li %1i", field.mantissa, field.digit);
    if (value < 0)
        out[0] = '-';
    if (field.small)
        out[6] = '-';
}

char tcksum(const char* line)
{
    int sum = 0;
    for (std::size_t i = 0; i < checkedLength; ++i) {
        if (line[i] >= '0' && line[i] <= '9')
            sum += line[i] - '0';
        else if (line[i] == '-')
            ++sum;
    }
    return static_cast<char>('0' + sum % 10);
}

bool savesMessages(const WinpData& in)
{
    constexpr std::string_view ending = ".csv";
    const std::string_view name = fieldText(in.tlesave);
    return name.size() >= ending.size() && Strncmpi(name.substr(name.size() - ending.size()).data(), ending.data(),
                                                    static_cast<int>(ending.size())) == 0;
}

LeftOut leftOut(const WinpData& in)
{
    LeftOut out;
    const bool messages = savesMessages(in);
    for (int i = 0; i < in.satn; ++i) {
        if (messages && in.numflg[i])
            out.numeric.push_back(i);
        if (!messages && in.norad[i] > greatestColumnNumber)
            out.numbers.push_back(i);
    }
    return out;
}

int SaveTle(WinpData* in, bool shorten, std::string* why)
{
    const LeftOut out = leftOut(*in);
    const std::size_t missing = out.numeric.size() + (shorten ? 0 : out.numbers.size());
    if (in->satn < 1 || missing == static_cast<std::size_t>(in->satn))
        return 1;
    const bool anew = in->newtle != 0;
    in->newtle = 0;  // also if the write fails: the next attempt appends
    const MemoryFile memory;
    std::FILE* const file = memory.stream();
    const bool messages = savesMessages(*in);
    if (messages && (anew || holdsNothing(in->tlesave)))
        writeOmmHeader(file);
    for (int i = 0; i < in->satn; ++i) {
        if (messages && !in->numflg[i])
            writeOmmLine(file, *in, i);
        if (!messages && (shorten || in->norad[i] <= greatestColumnNumber))
            writeTwoLines(file, in, i);
    }
    const std::string reason = anew ? replaceFile(in->tlesave, memory.text()) : addToFile(in->tlesave, memory.text());
    if (why)
        *why = reason;
    return reason.empty() ? 0 : 2;
}
