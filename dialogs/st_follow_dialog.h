// The mount that follows a satellite: how it is spoken to, where it is, and where it may point.
#pragma once

#include "mounts/mount_settings.h"

#include <QDialog>

class Field;
class QCheckBox;
class QComboBox;
class QFormLayout;

class StFollowDialog : public QDialog
{
    Q_OBJECT

public:
    /// Empty fields; `setValues` comes before the dialog is shown.
    explicit StFollowDialog(QWidget* parent = nullptr);

    /// @param target  the satellite and its place, as a text
    void setValues(const MountSettings& settings, const QString& target);
    /// A port out of range becomes the usual one.
    MountSettings values() const;

private:
    void addAddress(QFormLayout* rows);
    void addLimits(QFormLayout* rows);
    MountKind kind() const;
    void takeKind();
    void nameDevice();

    MountSettings shown;
    class QLabel* targetLabel = nullptr;
    QComboBox* kindBox = nullptr;
    Field* hostEdit = nullptr;
    Field* portEdit = nullptr;
    Field* deviceEdit = nullptr;
    Field* elevationEdit = nullptr;
    QCheckBox* sunBox = nullptr;
    Field* sunEdit = nullptr;
};
