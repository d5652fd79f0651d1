// The table of observations of a fit: which count, how sure they are, and what the fit leaves of them.
#pragma once

#include "observing/fit.h"

#include <QTableWidget>
#include <vector>

class FitTable : public QTableWidget
{
    Q_OBJECT

public:
    explicit FitTable(QWidget* parent = nullptr);

    /// Adds a row behind the last one.
    void add(const SitedObservation& observation);

    /// The observations with the marks and standard errors on show.
    std::vector<SitedObservation> observations() const;

    /// Shows residuals, one for each row; none with an empty list. Rows off by more than three standard errors are
    /// coloured.
    void showResiduals(const std::vector<FitResidual>& residuals);

    /// Unmarks the coloured rows. @return  how many there were
    int unmarkOutliers();

private:
    void setCell(int row, int column, const QString& text, bool editable = false);

    std::vector<SitedObservation> rows;
    std::vector<bool> outliers;
};
