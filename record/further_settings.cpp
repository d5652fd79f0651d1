#include "record/further_settings.h"

#include <QDir>

namespace {

QString& folderOfSettings()
{
    static QString folder;
    return folder;
}

}  // namespace

void setFurtherSettingsFolder(const QString& folder)
{
    folderOfSettings() = folder;
}

QSettings openFurtherSettings()
{
    const QString folder = folderOfSettings().isEmpty() ? QDir::currentPath() : folderOfSettings();
    return QSettings(QDir(folder).absoluteFilePath(QStringLiteral("vorlix.ini")), QSettings::IniFormat);
}
