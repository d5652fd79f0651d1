// Which peculiarities of the models are put right.
#pragma once

#include <QDialog>

#include <array>

#include "record/corrections.h"

class QCheckBox;

class StModelsDialog : public QDialog
{
    Q_OBJECT

public:
    /// All boxes are off; `setValues` comes before the dialog is shown.
    explicit StModelsDialog(QWidget* parent = nullptr);

    /// Fills the boxes.
    void setValues(const Corrections& values);
    /// What the boxes say now.
    Corrections values() const;

private:
    std::array<QCheckBox*, correctionNames.size()> boxes{};
};
