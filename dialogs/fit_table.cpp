#include "dialogs/fit_table.h"

#include <QHeaderView>
#include <algorithm>
#include <cmath>

#include "dialogs/form.h"
#include "exports/time_text.h"

namespace {

enum Column
{
    timeColumn,
    stationColumn,
    firstColumn,
    secondColumn,
    frameColumn,
    timeErrorColumn,
    angleErrorColumn,
    alongColumn,
    acrossColumn,
    secondsColumn,
    columnsInAll
};

constexpr double arcsecPerDeg = 3600.0;

QString frameOf(const Observation& o)
{
    if (o.angles == SkyAngles::horizontal)
        return o.refracted ? FitTable::tr("az/el as seen") : FitTable::tr("az/el");
    return o.equinox == 0.0 ? FitTable::tr("of date") : QString::number(o.equinox, 'f', 0);
}

double typedError(const QTableWidgetItem* item, double otherwise)
{
    bool good = false;
    const double value = item->text().toDouble(&good);
    return good && value >= 0.0 && std::isfinite(value) ? value : otherwise;
}

bool isOutlier(const FitResidual& r)
{
    constexpr double most = 3.0;
    return std::abs(r.along) > most * r.sigmaAlong || std::abs(r.across) > most * r.sigmaAcross;
}

}  // namespace

FitTable::FitTable(QWidget* parent) : QTableWidget(0, columnsInAll, parent)
{
    form::describeTable(
        this, "observationTable", tr("Observations"),
        {tr("The observations: only the marked ones count in the fit. Their standard errors, in seconds of "
            "time and of arc, can be changed by a double click. Behind them stands what the fit has left: "
            "along the track, across it, and along as seconds of time, positive where the satellite was "
            "ahead.")});
    setHorizontalHeaderLabels({tr("Time (UTC)"), tr("Site"), tr("R.A. / Az."), tr("Dec. / El."), tr("Frame"),
                               tr("+- s"), tr("+- \""), tr("Along \""), tr("Across \""), tr("Along s")});
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    setSelectionBehavior(QAbstractItemView::SelectRows);
}

void FitTable::setCell(int row, int column, const QString& text, bool editable)
{
    auto* cell = new QTableWidgetItem(text);
    if (!editable)
        cell->setFlags(cell->flags() & ~Qt::ItemIsEditable);
    if (column != timeColumn)
        cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setItem(row, column, cell);
}

void FitTable::add(const SitedObservation& sited)
{
    const Observation& o = sited.observation;
    const int row = rowCount();
    insertRow(row);
    rows.push_back(sited);
    setCell(row, timeColumn, QString::fromStdString(isoTime(o.mjd)).replace('T', ' ').chopped(1));
    item(row, timeColumn)->setCheckState(sited.used ? Qt::Checked : Qt::Unchecked);
    setCell(row, stationColumn, QString::number(o.station));
    setCell(row, firstColumn, QString::number(o.first, 'f', 5));
    setCell(row, secondColumn, QString::number(o.second, 'f', 5));
    setCell(row, frameColumn, frameOf(o));
    setCell(row, timeErrorColumn, QString::number(o.timeError), true);
    setCell(row, angleErrorColumn, QString::number(o.angleError * arcsecPerDeg), true);
    for (int column = alongColumn; column < columnsInAll; ++column)
        setCell(row, column, QString());
    resizeColumnsToContents();
}

std::vector<SitedObservation> FitTable::observations() const
{
    std::vector<SitedObservation> all = rows;
    for (std::size_t i = 0; i < all.size(); ++i) {
        const int row = static_cast<int>(i);
        Observation& o = all[i].observation;
        all[i].used = item(row, timeColumn)->checkState() == Qt::Checked;
        o.timeError = typedError(item(row, timeErrorColumn), o.timeError);
        o.angleError = typedError(item(row, angleErrorColumn), o.angleError * arcsecPerDeg) / arcsecPerDeg;
    }
    return all;
}

void FitTable::showResiduals(const std::vector<FitResidual>& residuals)
{
    outliers.assign(rows.size(), false);
    for (int row = 0; row < rowCount(); ++row) {
        const bool known = std::size_t(row) < residuals.size();
        const FitResidual r = known ? residuals[std::size_t(row)] : FitResidual();
        const auto text = [known](double value, int decimals) {
            return known ? QString::number(value, 'f', decimals) : QString();
        };
        item(row, alongColumn)->setText(text(r.along * arcsecPerDeg, 1));
        item(row, acrossColumn)->setText(text(r.across * arcsecPerDeg, 1));
        item(row, secondsColumn)->setText(text(r.seconds, 3));
        outliers[std::size_t(row)] = known && isOutlier(r);
        for (int column = alongColumn; column < columnsInAll; ++column)
            item(row, column)->setForeground(outliers[std::size_t(row)] ? QBrush(QColor(200, 30, 30)) : QBrush());
    }
    resizeColumnsToContents();
}

int FitTable::unmarkOutliers()
{
    int count = 0;
    for (std::size_t i = 0; i < outliers.size(); ++i) {
        QTableWidgetItem* mark = item(static_cast<int>(i), timeColumn);
        if (!outliers[i] || mark->checkState() != Qt::Checked)
            continue;
        mark->setCheckState(Qt::Unchecked);
        ++count;
    }
    return count;
}
