// An observation before it becomes a line of a report: where it comes from, its fields, and the line they give.
#pragma once

#include "observing/observation.h"
#include "observing/report_forms.h"
#include "observing/station.h"

#include <QDialog>
#include <vector>

class Field;
class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QPushButton;

class StObservationDialog : public QDialog
{
    Q_OBJECT

public:
    /// Empty fields; `setValues` comes before the dialog is shown.
    explicit StObservationDialog(QWidget* parent = nullptr);

    /// An observation that the program knows of.
    struct Proposal
    {
        QString source;
        Observation observation;
    };

    /// Shows the first of at least one proposal.
    void setValues(const std::vector<Proposal>& proposals, const Station& station);

    /// Leaves out form and file, for an observation that is not to be saved.
    void hideReport();

    /// What the fields say; the time is not a number if it cannot be read.
    Observation observation() const;
    /// The lines of the report, or why there are none.
    WrittenReport report() const;
    QString fileName() const;

private:
    void addPlace(QFormLayout* rows);
    void addTarget(QFormLayout* rows);
    void showProposal(int index);
    void nameAngles();
    void preview();
    void browse();

    std::vector<Proposal> known;
    Station own;
    QComboBox* sourceBox = nullptr;
    Field* numberEdit = nullptr;
    Field* designatorEdit = nullptr;
    Field* timeEdit = nullptr;
    QCheckBox* raBox = nullptr;
    Field* azEdit = nullptr;
    Field* elEdit = nullptr;
    QComboBox* equinoxBox = nullptr;
    Field* magnitudeEdit = nullptr;
    QComboBox* behaviourBox = nullptr;
    QComboBox* formBox = nullptr;
    Field* fileEdit = nullptr;
    QPushButton* browseButton = nullptr;
    QLabel* lineLabel = nullptr;
};
