// vorlix.ini: what the program keeps between two runs and vorlix.cfg has no line for.
#pragma once

#include <QSettings>
#include <QString>

/// Names the folder of the file; the working directory until then. For the start of the program and for tests.
void setFurtherSettingsFolder(const QString& folder);

/// Opens the file, which need not exist. A damaged one reads as empty.
///
/// Keys stand in groups by subject: "selection/numbers". What is set is written when the object goes.
QSettings openFurtherSettings();
