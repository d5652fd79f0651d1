#include "cli/times.h"

#include "astro/calendar.h"

#include <QDateTime>
#include <QString>
#include <QTimeZone>
#include <cmath>

namespace {

constexpr double mjdOf1970 = 40587.0;
constexpr double millisecondsPerDay = 86400000.0;
constexpr int firstYear = 1900, lastYear = 2199;
constexpr double greatestZoneHours = 15.0;

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
