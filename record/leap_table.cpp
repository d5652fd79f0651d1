#include "record/leap_table.h"

#include "record/further_settings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

/// No rows if the file cannot be read or has another form.
LeapSeconds tableIn(const QString& name)
{
    constexpr qint64 mostBytes = 1 << 20;
    QFile file(name);
    return file.open(QIODevice::ReadOnly) ? readLeapSeconds(file.read(mostBytes).toStdString()) : LeapSeconds{};
}

}  // namespace

/// The table lies in this library; a program that links it does not know of it until this is called. In no namespace.
static void registerDeliveredTable()
{
    Q_INIT_RESOURCE(leap_seconds);
}

LeapSeconds leapSecondsWith(const QString& file)
{
    registerDeliveredTable();
    const LeapSeconds delivered = tableIn(QStringLiteral(":/leap-seconds.list"));
    const LeapSeconds own = tableIn(file);
    const bool older =
        own.rows.empty() || (!delivered.rows.empty() && own.rows.back().mjd < delivered.rows.back().mjd);
    return older ? delivered : own;
}

const LeapSeconds& leapSeconds()
{
    static const LeapSeconds table = leapSecondsWith(
        QFileInfo(openFurtherSettings().fileName()).dir().filePath(QStringLiteral("leap-seconds.list")));
    return table;
}
