#include "observing/station.h"

#include "record/further_settings.h"

#include <QStringList>
#include <algorithm>

namespace {

QString keyOf(int number)
{
    return QStringLiteral("stations/%1").arg(number, 4, 10, QLatin1Char('0'));
}

}  // namespace

Station ownStation()
{
    const QSettings settings = openFurtherSettings();
    Station s;
    s.number = std::clamp(settings.value("station/number", s.number).toInt(), 0, 9999);
    s.timeError = settings.value("station/time_error_s", s.timeError).toDouble();
    s.angleError = settings.value("station/angle_error_arcmin", s.angleError).toDouble();
    s.code = std::clamp(settings.value("station/angle_code", s.code).toInt(), 1, 7);
    const QString condition = settings.value("station/condition", QStringLiteral("G")).toString();
    s.condition = condition.isEmpty() ? ' ' : condition[0].toLatin1();
    s.file = settings.value("station/file").toString();
    return s;
}

void keepOwnStation(const Station& s)
{
    QSettings settings = openFurtherSettings();
    settings.setValue("station/number", s.number);
    settings.setValue("station/time_error_s", s.timeError);
    settings.setValue("station/angle_error_arcmin", s.angleError);
    settings.setValue("station/angle_code", s.code);
    settings.setValue("station/condition", QString(QLatin1Char(s.condition)));
    settings.setValue("station/file", s.file);
}

std::optional<Site> siteOfStation(int number)
{
    const QSettings settings = openFurtherSettings();
    const QStringList parts =
        settings.value(keyOf(number)).toStringList().join(QLatin1Char(',')).split(QLatin1Char(','));
    bool good[3] = {parts.size() >= 2, true, true};
    if (!good[0])
        return std::nullopt;
    const Site site{parts[0].toDouble(&good[0]), parts[1].toDouble(&good[1]),
                    parts.size() > 2 ? parts[2].toDouble(&good[2]) : 0.0};
    return good[0] && good[1] && good[2] ? std::optional(site) : std::nullopt;
}

void keepSiteOfStation(int number, const Site& site)
{
    QSettings settings = openFurtherSettings();
    const QStringList parts{QString::number(site.lat, 'g', 12), QString::number(site.lng, 'g', 12),
                            QString::number(site.height, 'g', 8)};
    settings.setValue(keyOf(number), parts);
}
