#include "record/clock.h"

#include "astro/calendar.h"
#include "astro/time_scales.h"
#include "record/leap_table.h"

#include <cmath>

double GBL_timezone = 0;

namespace {
constexpr double mjdOf1970 = 40587.0;
constexpr double secondsPerDay = 86400.0;

std::time_t timeOfSystem()
{
    return std::time(nullptr);
}
}  // namespace

std::time_t (*systemSeconds)() = timeOfSystem;

double nowMjd()
{
    return static_cast<double>(systemSeconds()) / secondsPerDay + mjdOf1970;
}

namespace {

/// MJD of what the clocks of the system's zone show.
double civilMjd(std::time_t t)
{
    std::tm civil{};
    ::tzset();
    ::localtime_r(&t, &civil);
    const double hours = civil.tm_hour + civil.tm_min / 60.0 + civil.tm_sec / 3600.0;
    return mjd(civil.tm_mday, civil.tm_mon + 1, civil.tm_year + 1900, hours);
}

/// A date and time of day, UTC.
struct DateAndTime
{
    int day, month, year;
    int hour, minute, second;  // up to 60
};

/// The system clock in whole seconds. Renews `GBL_timezone`.
DateAndTime readClock()
{
    const std::time_t t = systemSeconds();
    const double utc = static_cast<double>(t) / secondsPerDay + mjdOf1970;
    DateAndTime now{};
    double hours = 0, seconds = 0;
    caldat(utc, now.day, now.month, now.year, hours);
    dms(hours, now.hour, now.minute, seconds);
    now.second = truncToInt(seconds + 0.5);
    // a whole number, but for the resolution of the two MJD
    GBL_timezone = std::round((utc - civilMjd(t)) * secondsPerDay);
    return now;
}
}  // namespace

void DefTime(WinpData* in)
{
    const DateAndTime now = readClock();
    in->day = now.day;
    in->month = now.month;
    in->year = now.year;
    in->hour = now.hour;
    in->minute = now.minute;
    in->second = now.second;
}

double systemZone()
{
    return (0.0 - GBL_timezone) / 3600.0;
}

double startMjd(const WinpData* in)
{
    return mjd(in->day, in->month, in->year, in->hour - in->tzone + in->minute / 60.0 + in->second / 3600.0);
}

void setNewMjd(WinpData* in)
{
    if (in->tzauto)
        in->tzone = systemZone();
    in->mjd = startMjd(in);
    in->pasjmp = 0;
    if (in->dtflg) {
        in->dtflg = 0;
        in->rtflg = 0;
    }
    in->ttut = SetTtUt(in, in->year);
}

double RT_MJD(WinpData* in)
{
    const DateAndTime now = readClock();
    return mjd(now.day, now.month, now.year, now.hour + now.minute / 60.0 + now.second / 3600.0 + in->rtoff);
}

double SetTtUt(const WinpData* in, int year)
{
    if (in->IERSflg)
        return ttTaiSeconds - in->UtcTai;
    const double instant = year == in->year ? in->mjd : mjd(1, 1, year, 0.0);
    if (in->models.publishedLeapSeconds && instant >= firstUtcMjd)
        return ttTaiSeconds + taiMinusUtc(std::floor(instant), leapSeconds());
    return DefTdUt(year);
}

int utcTaiOf(double ttut)
{
    return -truncToInt(ttut - ttTaiSeconds + 0.0001);
}
