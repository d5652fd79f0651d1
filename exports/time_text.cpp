#include "exports/time_text.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace {

constexpr int mjdOf1970 = 40587;
constexpr double firstMjd = -678575.0, lastMjd = 2973482.0;  // of the years 1 and 9999
constexpr long long secondsPerDay = 86400;

/// A date and the parts of its day.
struct Moment
{
    int year;
    unsigned month, day;
    long long seconds;   // of the day
    long long fraction;  // in the unit asked for
};

/// Rounded to `parts` of a second.
Moment momentOf(double mjd, long long parts)
{
    const double held = std::isnan(mjd) ? 0.0 : std::clamp(mjd, firstMjd, lastMjd);
    const double start = std::floor(held);
    const long long perDay = secondsPerDay * parts;
    const long long rounded = std::llround((held - start) * static_cast<double>(perDay));
    const auto days = static_cast<int>(start) + static_cast<int>(rounded / perDay) - mjdOf1970;
    const std::chrono::year_month_day date{std::chrono::sys_days(std::chrono::days(days))};
    const long long rest = rounded % perDay;
    return {static_cast<int>(date.year()), static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
            rest / parts, rest % parts};
}

template <class... Parts>
std::string composed(const char* format, Parts... parts)
{
    char text[64];
    const int length = std::snprintf(text, sizeof text, format, parts...);
    return {text, static_cast<std::size_t>(length)};
}

std::string dateAndTime(const Moment& m)
{
    return composed("%04d-%02u-%02uT%02lld:%02lld:%02lld", m.year, m.month, m.day, m.seconds / 3600,
                    m.seconds / 60 % 60, m.seconds % 60);
}

std::string zoneText(long minutes)
{
    if (minutes == 0)
        return "Z";
    const long size = std::labs(minutes);
    return composed("%c%02ld:%02ld", minutes < 0 ? '-' : '+', size / 60, size % 60);
}

}  // namespace

std::string isoTime(double mjd)
{
    const Moment m = momentOf(mjd, 1000);
    return dateAndTime(m) + composed(".%03lldZ", m.fraction);
}

std::string isoMicroseconds(double mjd)
{
    const Moment m = momentOf(mjd, 1'000'000);
    return dateAndTime(m) + composed(".%06lld", m.fraction);
}

std::string isoCivil(double mjd, double zoneHours)
{
    const long minutes = std::lround(60.0 * zoneHours);
    return dateAndTime(momentOf(mjd + static_cast<double>(minutes) / 1440.0, 1)) + zoneText(minutes);
}

std::string isoBasic(double mjd)
{
    const Moment m = momentOf(mjd, 1);
    return composed("%04d%02u%02uT%02lld%02lld%02lldZ", m.year, m.month, m.day, m.seconds / 3600, m.seconds / 60 % 60,
                    m.seconds % 60);
}
