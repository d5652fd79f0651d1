// Where the magnitudes of satellites come from.
#pragma once

#include "elements/brightness_files.h"

#include <QDialog>

class Field;
class QComboBox;

class StMagnitudesDialog : public QDialog
{
    Q_OBJECT

public:
    /// Empty fields; `setValues` comes before the dialog is shown.
    explicit StMagnitudesDialog(QWidget* parent = nullptr);

    void setValues(const BrightnessSettings& settings);
    BrightnessSettings values() const;

public Q_SLOTS:
    /// Waits until the list can be read, or until there is none.
    void accept() override;

private:
    void browse();
    void tellContent();

    Field* fileEdit = nullptr;
    QComboBox* phaseBox = nullptr;
    Field* lengthEdit = nullptr;
    class QLabel* contentLabel = nullptr;
};
