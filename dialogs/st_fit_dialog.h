// Elements fitted to observations: observations with their standard errors, a start, the elements to correct, and what
// comes of it.
#pragma once

#include "dialogs/st_observation_dialog.h"
#include "observing/fit.h"

#include <QDialog>
#include <array>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <vector>

class FitTable;
class QCheckBox;
class QComboBox;
class QGridLayout;
class QLabel;
class QPushButton;
class QTableWidget;
class ResidualPlot;

class StFitDialog : public QDialog
{
    Q_OBJECT

public:
    /// Empty; `setValues` comes before the dialog is shown.
    explicit StFitDialog(QWidget* parent = nullptr);

    /// An orbit to begin with, or why there is none.
    struct StartOrbit
    {
        Orbit orbit;
        std::string complaint;
    };

    /// A way to an orbit to begin with; only marked observations are handed on.
    struct Start
    {
        QString name;
        std::function<StartOrbit(std::span<const SitedObservation>)> make;
    };

    struct Setup
    {
        std::vector<Start> starts;  // at least one
        std::vector<StObservationDialog::Proposal> proposals;
        Station station;
        Site site;  // of observations whose station has no known place
        EarthOrientation earth;
        bool room = true;  // for a further satellite
        std::function<FitResult(const FitRequest&, std::span<const SitedObservation>)> fit;  // may be long
    };
    void setValues(const Setup& setup);

    /// The new orbit, once there is one, and which of the starts it comes from.
    std::optional<Orbit> fitted() const;
    int startIndex() const;

public Q_SLOTS:
    /// Reads observations from a file into the table.
    void browse();
    /// Types an observation.
    void type();
    void unmarkOutliers();
    void runFit();

private:
    void addSources(class QVBoxLayout* column);
    void addElements(QGridLayout* grid);
    void addCorrelations();
    void readFile(const QString& name);
    void take(const Observation& observation);
    void tell(const QString& text);
    void forget();
    void show(const FitRequest& request, const FitResult& fit, const std::vector<SitedObservation>& observations);
    void showElements(const FitRequest& request, const FitResult& fit);
    void showCorrelations(const FitResult& fit);

    struct ElementRow
    {
        QCheckBox* box = nullptr;
        QLabel* before = nullptr;
        QLabel* after = nullptr;
        QLabel* error = nullptr;
    };

    Setup given;
    QString unknownStations;
    std::optional<Orbit> found;
    int startOfFound = 0;
    QComboBox* startBox = nullptr;
    QCheckBox* starsBox = nullptr;
    FitTable* table = nullptr;
    std::array<ElementRow, fitted::count> elements;
    QTableWidget* correlations = nullptr;
    ResidualPlot* plot = nullptr;
    QLabel* resultLabel = nullptr;
    QPushButton* outlierButton = nullptr;
    QPushButton* addButton = nullptr;
};
