#include "record/text.h"

#include "record/numbers.h"
#include "record/wout_data.h"

#include "astro/angles.h"
#include "astro/calendar.h"

#include <QByteArray>
#include <QUtf8StringView>
#include <array>
#include <cctype>
#include <cmath>

namespace {
constexpr double hoursOfDay = 24.0;
constexpr double degreesOfCircle = 360.0;
constexpr std::array<std::string_view, 12> monthNames{"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                                      "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};

constexpr std::size_t angleRoom = 32;  // of the text of prpang
constexpr char degreeSign = '\xb0';

bool sameLetters(const char* a, const char* b, std::size_t n)
{
    return std::equal(a, a + n, b,
                      [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

/// Hours, minutes and rounded seconds of a day; the seconds never read 60.
struct ClockTime
{
    explicit ClockTime(double hours)
    {
        double seconds = 0;
        dms(hours, h, m, seconds);
        s = truncToInt(seconds + 0.4999);
        if (s < 60)
            return;
        s = 0;
        if (m < 59) {
            ++m;
        } else {
            m = 0;
            ++h;
        }
    }

    int h = 0, m = 0, s = 0;
};
}  // namespace

QString textQString(std::string_view text)
{
    const auto size = static_cast<qsizetype>(text.size());
    if (QUtf8StringView(text.data(), size).isValidUtf8())
        return QString::fromUtf8(text.data(), size);
    return QString::fromLatin1(text.data(), size);
}

std::string_view beforeLineEnd(std::string_view text)
{
    return text.substr(0, text.find_first_of("\r\n"));
}

void QsToChar(const QString& s, char* out, int n)
{
    const QByteArray bytes = s.toUtf8();
    auto length = std::min<qsizetype>(bytes.size(), std::max(n, 0));
    // a continuation byte at the cut belongs to a character that would be halved
    while (length > 0 && length < bytes.size() && (static_cast<unsigned char>(bytes[length]) & 0xc0) == 0x80)
        --length;
    const std::string_view kept(bytes.constData(), static_cast<std::size_t>(length));
    const std::size_t used = std::min(kept.find('\r'), kept.size());
    std::memcpy(out, bytes.constData(), used);
    std::memset(out + used, 0, static_cast<std::size_t>(std::max(n, 0)) + 1 - used);
}

int Strncmpi(const char* a, const char* b, int n)
{
    if (n == 0)
        return 1;
    if (n < 0)
        return 0;
    const std::size_t wanted = static_cast<std::size_t>(n);
    const std::size_t lengthA = ::strnlen(a, wanted), lengthB = ::strnlen(b, wanted);
    if (lengthA != lengthB || lengthA == 0)
        return 1;
    return sameLetters(a, b, lengthA) ? 0 : 1;
}

void GetMonth(int month, char* out)
{
    const std::string_view name =
        month < 1 || month > 12 ? std::string_view("ERR") : monthNames[static_cast<std::size_t>(month - 1)];
    std::memcpy(out, name.data(), 3);
    out[3] = '\0';
}

int monthNumber(std::string_view text)
{
    const auto* const found = std::find(monthNames.begin(), monthNames.end(), text.substr(0, 3));
    return found == monthNames.end() ? 0 : static_cast<int>(found - monthNames.begin()) + 1;
}

void aosstr(double mjd, double a, double b, char* out, int timeonly)
{
    int day = 0, month = 0, year = 0;
    double hours = 0;
    caldat(mjd, day, month, year, hours);
    const ClockTime t(hours);
    char date[reportLineBytes] = " ";
    if (timeonly == 0) {
        char name[4];
        GetMonth(month, name);
        formatted(date, "%s %2i ", name, day);
    }
    TextWriter(out, reportLineBytes).add(date).addFormatted(" %2i:%02i:%02i (%3.0lf,%3.0lf)", t.h, t.m, t.s, a, b);
}

double carriedMinutes(double packed, double circle)
{
    char text[400];
    if (!std::isfinite(packed) || !formatted(text, "%.2lf", packed).ends_with(".60"))
        return packed;
    const double whole = std::floor(std::abs(packed)) + 1.0;
    return std::copysign(whole < circle ? whole : whole - circle, packed);
}

void prpang(char* dst, int ra4d, int mode, double value)
{
    TextWriter text(dst, angleRoom);
    if (mode == 0) {
        text.addFormatted(ra4d ? "%9.3lf" : "%7.2lf", value);
        return;
    }
    double packed = mode > 0 ? DegFDms(value) : value;
    if (ra4d == 0 && packed > 0)
        packed += 0.002;
    else if (ra4d == 0 && packed < 0)
        packed -= 0.002;
    if (ra4d == 0)
        packed = carriedMinutes(packed, mode < -1 ? hoursOfDay : degreesOfCircle);
    text.addFormatted(ra4d ? "%9.4lf" : "%7.2lf", packed);
    char* const end = dst + std::min<std::size_t>(text.text().size(), 7);
    char* const point = std::find(dst, end, '.');
    if (point != end)
        *point = mode < -1 ? 'h' : degreeSign;
}

void CpMMM(char* key, const char* line)
{
    const int month = monthNumber(std::string_view(line, ::strnlen(line, 3)));
    if (month == 0)
        key[0] = 'X';
    else
        key[0] = month == 12 ? 'M' : static_cast<char>('A' + month - 1);
    std::memset(key + 1, 0, 17);
    std::memcpy(key + 1, line, ::strnlen(line, 16));
}
