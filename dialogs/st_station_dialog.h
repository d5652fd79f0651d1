// The user's observing station: its number, and what its reports say about their accuracy.
#pragma once

#include "observing/station.h"

#include <QDialog>

class Field;
class QComboBox;

class StStationDialog : public QDialog
{
    Q_OBJECT

public:
    /// Empty fields; `setValues` comes before the dialog is shown.
    explicit StStationDialog(QWidget* parent = nullptr);

    /// @param place  of the station, as a text
    void setValues(const Station& station, const QString& place);
    Station values() const;

private:
    void addChoices(class QFormLayout* rows);

    Station shown;
    Field* numberEdit = nullptr;
    Field* timeEdit = nullptr;
    Field* angleEdit = nullptr;
    QComboBox* codeBox = nullptr;
    QComboBox* conditionBox = nullptr;
    class QLabel* placeLabel = nullptr;
};
