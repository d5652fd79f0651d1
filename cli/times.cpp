#include "cli/times.h"

#include "astro/angles.h"
#include "astro/calendar.h"
#include "astro/frames.h"
#include "astro/sun_moon.h"
#include "astro/time_scales.h"

#include <QDateTime>
#include <QString>
#include <QTimeZone>
#include <cmath>

namespace {

constexpr double mjdOf1970 = 40587.0;
constexpr double millisecondsPerDay = 86400000.0;
constexpr int firstYear = 1900, lastYear = 2199;
constexpr double greatestZoneHours = 15.0;
constexpr double sunsetDeg = -0.833;  // refraction and the Sun's radius
constexpr double searchStepDays = 5.0 / 1440.0;
constexpr double oneSecondDays = 1.0 / 86400.0;
constexpr double earthRadiiPerAu = 23454.78;

QDateTime utcOf(double mjd)
{
    return QDateTime::fromMSecsSinceEpoch(std::llround((mjd - mjdOf1970) * millisecondsPerDay), Qt::UTC);
}

/// "+01:00", "-0330", "+2".
std::optional<double> offsetHours(const QString& text)
{
    bool good = false;
    const qsizetype colon = text.indexOf(QLatin1Char(':'));
    if (colon < 0) {
        const double hours = text.toDouble(&good);
        return good && std::abs(hours) <= greatestZoneHours ? std::optional(hours) : std::nullopt;
    }
    const int hours = text.left(colon).toInt(&good);
    const int minutes = good ? text.mid(colon + 1).toInt(&good) : 0;
    if (!good || std::abs(hours) > greatestZoneHours || minutes < 0 || minutes > 59)
        return std::nullopt;
    return hours + (text.startsWith(QLatin1Char('-')) ? -minutes : minutes) / 60.0;
}

/// As the start date of the window counts it.
double mjdOf(const QDateTime& utc)
{
    const QDate date = utc.date();
    const QTime time = utc.time();
    return mjd(date.day(), date.month(), date.year(),
               time.hour() + time.minute() / 60.0 + (time.second() + time.msec() / 1000.0) / 3600.0);
}

bool down(double t, const ListSite& site)
{
    return sunElevation(t, site) < sunsetDeg;
}

/// Where the Sun changes sides between two instants.
double crossing(double from, double to, const ListSite& site)
{
    const bool before = down(from, site);
    while (std::abs(to - from) > oneSecondDays) {
        const double middle = 0.5 * (from + to);
        (down(middle, site) == before ? from : to) = middle;
    }
    return 0.5 * (from + to);
}

/// The first change within a day of `t`, forward or backward.
std::optional<double> nextChange(double t, double step, const ListSite& site)
{
    const bool before = down(t, site);
    const int steps = static_cast<int>(1.0 / std::abs(step)) + 1;
    for (int i = 0; i < steps; ++i)
        if (down(t + (i + 1) * step, site) != before)
            return crossing(t + i * step, t + (i + 1) * step, site);
    return std::nullopt;
}

}  // namespace

std::optional<double> zoneHoursOf(const std::string& text, double mjd)
{
    const QString zone = QString::fromStdString(text).trimmed();
    const QString lower = zone.toLower();
    if (lower.isEmpty() || lower == QLatin1String("z") || lower == QLatin1String("utc"))
        return 0.0;
    if (lower == QLatin1String("local"))
        return utcOf(mjd).toLocalTime().offsetFromUtc() / 3600.0;
    if (const auto hours = offsetHours(zone))
        return hours;
    const QTimeZone named(zone.toUtf8());
    return named.isValid() ? std::optional(named.offsetFromUtc(utcOf(mjd)) / 3600.0) : std::nullopt;
}

std::optional<double> instantOf(const std::string& text, double zoneHours, double now)
{
    const QString written = QString::fromStdString(text).trimmed();
    if (written.compare(QLatin1String("now"), Qt::CaseInsensitive) == 0)
        return now;
    QDateTime time = QDateTime::fromString(written, Qt::ISODateWithMs);
    if (!time.isValid())
        return std::nullopt;
    if (time.timeSpec() == Qt::LocalTime)
        time =
            QDateTime(time.date(), time.time(), Qt::OffsetFromUTC, static_cast<int>(std::lround(3600 * zoneHours)));
    time = time.toUTC();
    const int year = time.date().year();
    return year >= firstYear && year <= lastYear ? std::optional(mjdOf(time)) : std::nullopt;
}

double systemMjd()
{
    return mjdOf(QDateTime::currentDateTimeUtc());
}

double sunElevation(double mjd, const ListSite& site)
{
    int day = 0, month = 0, year = 0;
    double hours = 0;
    caldat(mjd, day, month, year, hours);
    const double T = julcent(mjd + DefTdUt(year) / 86400.0);
    double eqeq = 0;
    const Mat3 nutation = nutmat(T, eqeq, false);
    Sun200 sun;
    const Vec3 place = mxvct(nutation, eclequ(T, sun.position(T))) * earthRadiiPerAu;
    double azimuth = 0, elevation = 0, distance = 0;
    AppPos(mjd, eqeq, site.latitude * radPerDeg, site.longitude * radPerDeg, site.height, 1, place, azimuth,
           elevation, distance);
    return elevation * degPerRad;
}

std::optional<Night> nightAt(double t, const ListSite& site)
{
    if (!down(t, site)) {
        const std::optional<double> sunset = nextChange(t, searchStepDays, site);
        if (!sunset)
            return std::nullopt;
        const double after = *sunset + 2.0 * oneSecondDays;
        return Night{*sunset, nextChange(after, searchStepDays, site).value_or(*sunset + 1.0)};
    }
    const std::optional<double> sunset = nextChange(t, -searchStepDays, site);
    const std::optional<double> sunrise = nextChange(t, searchStepDays, site);
    return Night{sunset.value_or(t), sunrise.value_or(t + 1.0)};
}
