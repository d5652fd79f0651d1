// Numbers and small texts: what is printed reads again, also where the C library writes decimal commas; parts of dates
// and angles lie in their range and add up.

#include "fuzz/fuzz_target.h"

#include "astro/angles.h"
#include "astro/calendar.h"
#include "elements/catalogue_number.h"
#include "elements/writer.h"
#include "record/field_numbers.h"
#include "record/numbers.h"
#include "record/text.h"
#include "record/wout_data.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <clocale>
#include <cstring>
#include <limits>

namespace {

using fuzz::require;

/// The number of a text as the standard library reads it; not a number for any other text.
double plainNumber(std::string_view text)
{
    constexpr std::string_view white = " \t\n\v\f\r";
    text.remove_prefix(std::min(text.find_first_not_of(white), text.size()));
    text = text.substr(0, text.find_last_not_of(white) + 1);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool whole = error == std::errc() && end == text.data() + text.size();
    return whole && std::isfinite(value) ? value : std::nan("");
}

void checkReading(const std::string& text)
{
    const double value = Atof(text);
    require(std::isfinite(value), "Atof gives numbers only");
    const double plain = plainNumber(text);
    require(std::isnan(plain) || value == plain, "Atof reads what the standard library reads");
    const bool isText = text.find('\0') == std::string::npos;
    require(!isText || Atof(text.c_str()) == value, "Atof of a C string is the same");
    const long long whole = std::clamp<long long>(std::strtoll(text.c_str(), nullptr, 10),
                                                  std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
    require(!isText || wholeNumber(text) == whole, "wholeNumber reads as strtol does");
    const QString shown = QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
    require(std::isfinite(typedNumber(shown)), "a typed number is one");
    typedInteger(shown);
}

void checkLines(const std::string& text)
{
    constexpr double unused = 12345.0;
    const std::string name = fuzz::scratchFile("numbers.txt");
    fuzz::writeFile(name, text);
    std::FILE* const file = std::fopen(name.c_str(), "r");
    std::size_t lines = 0;
    for (int n = 1; !std::feof(file); n = n % 6 + 1) {
        std::array<double, 7> values;
        values.fill(unused);
        const int complete = Fscanf(file, n, values.data());
        require(complete == 0 || complete == 1, "Fscanf says yes or no");
        for (int i = 0; i < n; ++i)
            require(std::isfinite(values[static_cast<std::size_t>(i)]), "Fscanf stores numbers only");
        require(values[static_cast<std::size_t>(n)] == unused, "and no more than were asked for");
        require(++lines <= text.size() + 2, "a file comes to its end");
    }
    std::fclose(file);
}

void checkTexts(const std::string& text)
{
    std::string line = text.substr(0, text.find('\0')), all = line;
    decdot(line.data());
    decdot0(all.data());
    require(line.size() == all.size() && all.find(',') == std::string::npos, "no comma is left");
    require(line.substr(0, line.find('(')).find(',') == std::string::npos, "no comma is left before a bracket");
    const int length = static_cast<int>(all.size());
    require(length == 0 || Strncmpi(all.c_str(), all.c_str(), length) == 0, "a text is like itself");
    char key[18];
    CpMMM(key, text.c_str());
    require(key[17] == '\0' && key[0] >= 'A' && key[0] <= 'X', "a sort key begins with a letter and ends");
    require(monthNumber(text) >= 0 && monthNumber(text) <= 12, "a month is one of twelve");
    const QString wide = textQString(text);
    std::array<char, 22> field;
    field.fill('x');
    QsToChar(wide, field.data(), 20);
    require(std::memchr(field.data(), '\0', 21) != nullptr && field[21] == 'x', "the text ends in its field");
    const QByteArray whole = wide.toUtf8(), kept(field.data());
    require(whole.startsWith(kept), "a cut text is the beginning of the whole one");
    require(kept.size() == whole.size() || (whole[kept.size()] & 0xc0) != 0x80, "and no character is halved");
    catalogueNumber(text.substr(0, 5));
}

/// Doubles of any bits.
double doubleAt(const std::string& bytes, std::size_t at)
{
    std::array<char, sizeof(double)> raw{};
    if (at < bytes.size())
        std::memcpy(raw.data(), bytes.data() + at, std::min(raw.size(), bytes.size() - at));
    return std::bit_cast<double>(raw);
}

void checkDate(double x)
{
    int day = 0, month = 0, year = 0;
    double hours = 0;
    caldat(x, day, month, year, hours);
    require(hours >= 0.0 && hours < 24.0, "hours are those of one day");
    if (std::isnan(x) || std::abs(x) > 7.7e11)
        return;
    require(month >= 1 && month <= 12 && day >= 1 && day <= 31, "the date is one of a calendar");
    require(std::abs(mjd(day, month, year, hours) - x) <= 1e-9 + std::abs(x) * 1e-15, "the date gives the day again");
}

void checkAngle(double x)
{
    int degrees = 0, minutes = 0;
    double seconds = 0;
    dms(x, degrees, minutes, seconds);
    require(std::abs(minutes) < 60, "minutes stay below 60");
    if (!std::isfinite(x))
        return;
    require(std::abs(seconds) < 60.0, "seconds stay below 60");
    const double size = std::abs(x);
    if (size < 2e9)
        require(std::abs(ddd(degrees, minutes, seconds) - x) <= 1e-12 + size * 1e-15, "the parts make the whole");
    if (size < 1e5)
        require(std::abs(DmsDegF(DegFDms(x)) - x) <= 0.5001 / 3600.0, "a packed angle opens again");
}

void checkPrinted(double x, int mode)
{
    char text[400];
    const double finite = std::isfinite(x) ? x : 0.0;
    require(Atof(formatted(text, "%.17g", finite)) == finite, "a printed number reads again");
    const QString shown = printedNumber("%10.4lf", x);
    require(!shown.contains(QLatin1Char(',')), "a shown number has a point");
    require(std::abs(typedNumber(shown) - finite) <= 0.00005001 + std::abs(finite) * 1e-15, "a shown number reads");
    require(std::abs(typedNumber(shownNumber(finite)) - finite) <= std::abs(finite) * 5.1e-6, "so does a short one");
    char angle[32];
    for (const int digits : {0, 1}) {
        prpang(angle, digits, mode, x);
        require(fuzz::isTerminated(angle) && !std::strchr(angle, ','),
                "an angle of the legend ends and has no comma");
    }
    char stamp[reportLineBytes];
    for (const int timeOnly : {0, 1}) {
        aosstr(x, finite, -finite, stamp, timeOnly);
        require(fuzz::isTerminated(stamp), "a time stamp ends");
    }
}

/// The mantissa is cut off behind its fifth digit.
void checkExponentField(double x)
{
    char field[9];
    cvtlef(field, x);
    require(fuzz::isTerminated(field) && std::strlen(field) == 8, "an exponent field has eight columns");
    const double size = std::abs(x);
    if (!(size >= 1e-9 && size < 1e8))
        return;
    const double value = wholeNumber({field, 6}) * 1e-5 * std::pow(10.0, wholeNumber({field + 6, 2}));
    require(std::abs(value - x) <= size * 1.1e-4, "an exponent field reads again");
}

void checkCatalogueNumber(int number)
{
    const std::string text = catalogueText(number);
    require(text.size() == 5, "a catalogue number has five columns");
    require(number < -9999 || number > greatestColumnNumber || catalogueNumber(text) == number,
            "a catalogue number reads again");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // where there is a locale with a decimal comma, all of this runs in it
    static const char* const locale = std::setlocale(LC_ALL, "de_DE.UTF-8");
    static_cast<void>(locale);
    const std::string text(reinterpret_cast<const char*>(data), size);
    checkReading(text);
    checkReading(text.substr(0, text.find('\n')));
    checkLines(text);
    checkTexts(text);
    const std::string number = text.substr(0, text.find_first_of(" \n"));
    for (const double x : {doubleAt(text, 0), doubleAt(text, 8), Atof(number), Atof(number) * 1e5}) {
        checkDate(x);
        checkAngle(x);
        checkPrinted(x, wholeNumber(number) % 3);
        checkExponentField(x);
        checkCatalogueNumber(truncToInt(x));
    }
    return 0;
}
