#include "dialogs/st_fit_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QFormLayout>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "dialogs/fit_table.h"
#include "dialogs/form.h"
#include "dialogs/residual_plot.h"
#include "observing/fit_words.h"
#include "observing/report_forms.h"

namespace {

constexpr qint64 mostBytes = 200'000'000;
constexpr int startWidth = 1180, startHeight = 720;

/// What the file says, or nothing after a message.
std::optional<ReportContent> reportsOf(QWidget* parent, const QString& name)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly) || file.size() > mostBytes) {
        form::say(parent, StFitDialog::tr("The file %1 cannot be read.").arg(name));
        return std::nullopt;
    }
    return readReports(file.readAll().toStdString());
}

/// The complaints that fit into a box.
QString firstOf(const std::vector<std::string>& complaints)
{
    constexpr std::size_t most = 8;
    QStringList lines;
    for (std::size_t i = 0; i < std::min(complaints.size(), most); ++i)
        lines += QString::fromStdString(complaints[i]);
    if (complaints.size() > most)
        lines += StFitDialog::tr("and %1 more").arg(complaints.size() - most);
    return lines.join('\n');
}

std::vector<ResidualPlot::Point> pointsOf(const std::vector<SitedObservation>& observations, const FitResult& fit)
{
    constexpr double arcsecPerDeg = 3600.0;
    std::vector<ResidualPlot::Point> points;
    for (std::size_t i = 0; i < fit.residuals.size(); ++i)
        points.push_back({observations[i].observation.mjd, fit.residuals[i].along * arcsecPerDeg,
                          fit.residuals[i].across * arcsecPerDeg, observations[i].used});
    return points;
}

QStringList elementNames()
{
    return {StFitDialog::tr("&Inclination (deg)"),  StFitDialog::tr("Nod&e (deg)"),
            StFitDialog::tr("E&ccentricity"),       StFitDialog::tr("Arg. of &Perigee (deg)"),
            StFitDialog::tr("Mean Ano&maly (deg)"), StFitDialog::tr("Mean Moti&on (rev/day)"),
            StFitDialog::tr("&Drag Term (1/R)")};
}

QStringList shortNames()
{
    return {StFitDialog::tr("Incl."), StFitDialog::tr("Node"),   StFitDialog::tr("Ecc."), StFitDialog::tr("Perigee"),
            StFitDialog::tr("Anom."), StFitDialog::tr("Motion"), StFitDialog::tr("Drag")};
}

constexpr std::array boxNames{"inclinationBox", "nodeBox",   "eccentricityBox", "perigeeBox",
                              "anomalyBox",     "motionBox", "dragBox"};

QLabel* plain(const QString& text)
{
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    return label;
}

}  // namespace

StFitDialog::StFitDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Fit Elements"));
    auto* column = new QVBoxLayout;
    addSources(column);
    table = new FitTable;
    column->addWidget(table, 1);
    auto* results = new QHBoxLayout;
    auto* grid = new QGridLayout;
    addElements(grid);
    results->addLayout(grid);
    addCorrelations();
    results->addWidget(correlations, 5);
    plot = new ResidualPlot;
    results->addWidget(plot, 4);
    column->addLayout(results);
    resultLabel = form::addText(column, "resultLabel", QString());
    resultLabel->setWordWrap(true);
    auto* buttons = new QHBoxLayout;
    auto* fitButton = form::addButton(buttons, "fitButton", tr("&Fit"), nullptr,
                                      {tr("Corrects the marked elements until they fit the marked observations best. "
                                          "Escape ends it.")});
    fitButton->setDefault(true);
    outlierButton =
        form::addButton(buttons, "outlierButton", tr("&Unmark Outliers"), nullptr,
                        {tr("Takes the mark from the observations in red, which are off by more than three "
                            "standard errors. Fit again afterwards.")});
    addButton = form::addButton(buttons, "addButton", tr("Add as &New Satellite"), nullptr,
                                {tr("Adds a satellite with the new elements behind the selected ones and closes the "
                                    "dialog. The satellite that the fit began with stays as it is.")});
    addButton->setAutoDefault(false);
    auto* cancelButton = form::addButton(buttons, "cancelButton", tr("C&lose"), nullptr,
                                         {tr("Closes the dialog. The new elements are forgotten.")});
    form::finish(this, column, buttons);
    resize(startWidth, startHeight);
    forget();
    connect(fitButton, &QPushButton::clicked, this, &StFitDialog::runFit);
    connect(outlierButton, &QPushButton::clicked, this, &StFitDialog::unmarkOutliers);
    connect(addButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancelButton, &QPushButton::clicked, this, &QDialog::reject);
}

void StFitDialog::addSources(QVBoxLayout* column)
{
    auto* row = new QHBoxLayout;
    auto* rows = new QFormLayout;
    startBox =
        form::addChoice(rows, "startBox", tr("&Start:"),
                        {tr("The elements which the fit corrects: those of a selected satellite, also of one from "
                            "Orbit Determination, or an orbit found from the observations themselves.")});
    row->addLayout(rows, 1);
    auto* fileButton =
        form::addButton(row, "fileButton", tr("Observations from File (&B)..."), nullptr,
                        {tr("Adds the observations of a file of IOD, UK or RDE reports to the table.")});
    auto* typeButton =
        form::addButton(row, "typeButton", tr("&Type an Observation..."), nullptr,
                        {tr("Adds an observation that you type, or one from the picture, from the last "
                            "sighting or from an orbit determination.")});
    column->addLayout(row);
    starsBox =
        form::addBox(column, "starsBox", tr("Positions Measured &Against Stars"), nullptr,
                     {tr("Marked: right ascensions of a named equinox were measured against catalogue stars, so "
                         "that annual aberration is taken off the computed positions. Not marked: they are free "
                         "of it already.")});
    starsBox->setChecked(true);
    connect(fileButton, &QPushButton::clicked, this, &StFitDialog::browse);
    connect(typeButton, &QPushButton::clicked, this, &StFitDialog::type);
}

void StFitDialog::addElements(QGridLayout* grid)
{
    const QStringList names = elementNames();
    int column = 1;
    for (const QString& title : {tr("Start"), tr("Fitted"), tr("+-")})
        grid->addWidget(plain(title), 0, column++, Qt::AlignRight);
    for (int k = 0; k < fitted::count; ++k) {
        ElementRow& row = elements[std::size_t(k)];
        auto* cell = new QVBoxLayout;
        row.box = form::addBox(cell, boxNames[std::size_t(k)], names[k], nullptr,
                               {tr("If marked, this element is corrected; otherwise it stays as it is.")});
        row.box->setChecked(true);
        grid->addLayout(cell, k + 1, 0);
        column = 1;
        for (QLabel** label : {&row.before, &row.after, &row.error}) {
            *label = plain({});
            (*label)->setMinimumWidth(fontMetrics().horizontalAdvance("-00000.00000"));
            (*label)->setAlignment(Qt::AlignRight);
            (*label)->setTextInteractionFlags(Qt::TextSelectableByMouse);
            grid->addWidget(*label, k + 1, column++, Qt::AlignRight);
        }
    }
}

void StFitDialog::addCorrelations()
{
    correlations = new QTableWidget(fitted::count, fitted::count);
    form::describeTable(correlations, "correlationTable", tr("Correlations"),
                        {tr("How the errors of two elements depend on each other, from -1 to 1. Near either end the "
                            "observations tell only a combination of the two; unmark one of them.")});
    correlations->setHorizontalHeaderLabels(shortNames());
    correlations->setVerticalHeaderLabels(shortNames());
    correlations->setEditTriggers(QAbstractItemView::NoEditTriggers);
    correlations->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
}

void StFitDialog::setValues(const Setup& setup)
{
    given = setup;
    startBox->clear();
    for (const Start& start : given.starts)
        startBox->addItem(start.name);
    forget();
    tell(given.room
             ? tr("Add observations from a file or by typing, then fit.")
             : tr("Ten satellites are selected, which leaves no room for a new one: elements can be fitted, but not "
                  "added."));
}

std::optional<Orbit> StFitDialog::fitted() const
{
    return found;
}

int StFitDialog::startIndex() const
{
    return startOfFound;
}

void StFitDialog::tell(const QString& text)
{
    resultLabel->setText(text);
}

void StFitDialog::browse()
{
    const QString name = QFileDialog::getOpenFileName(this, tr("File of Observations"), given.station.file,
                                                      tr("Reports (*.iod *.uk *.rde *.txt);;all files (*.*)"));
    if (!name.isEmpty())
        readFile(name);
}

void StFitDialog::readFile(const QString& name)
{
    const auto content = reportsOf(this, name);
    if (!content)
        return;
    const int before = table->rowCount();
    for (const Observation& o : content->observations)
        if (o.angles != SkyAngles::none)
            take(o);
    if (!content->complaints.empty())
        form::say(this, firstOf(content->complaints));
    const int count = table->rowCount() - before;
    tell(count > 0 ? tr("%1 observations with a position read.").arg(count)
                   : tr("The file holds no observation with a position."));
    if (!unknownStations.isEmpty())
        tell(resultLabel->text() + ' ' +
             tr("The observer's place stands for stations without a known one: %1.").arg(unknownStations));
}

void StFitDialog::take(const Observation& observation)
{
    const auto known = siteOfStation(observation.station);
    const QString number = QString::number(observation.station);
    if (!known && !unknownStations.split(' ').contains(number))
        unknownStations += (unknownStations.isEmpty() ? "" : " ") + number;
    table->add({observation, known.value_or(given.site)});
    forget();
}

void StFitDialog::type()
{
    StObservationDialog dialog(this);
    dialog.setValues(given.proposals, given.station);
    dialog.hideReport();
    if (dialog.exec() != QDialog::Accepted)
        return;
    const Observation o = dialog.observation();
    if (std::isfinite(o.mjd))
        take(o);
    else
        form::say(this, tr("The time cannot be read; expected as 2018-01-20 17:06:30.5"));
}

void StFitDialog::unmarkOutliers()
{
    tell(tr("%n observation(s) unmarked; fit again.", nullptr, table->unmarkOutliers()));
    outlierButton->setEnabled(false);
}

void StFitDialog::forget()
{
    found.reset();
    addButton->setEnabled(false);
    outlierButton->setEnabled(false);
    for (const ElementRow& row : elements)
        for (QLabel* label : {row.before, row.after, row.error})
            label->clear();
    correlations->clearContents();
    correlations->resizeColumnsToContents();
    table->showResiduals({});
    plot->setPoints({});
}

void StFitDialog::runFit()
{
    forget();
    const std::vector<SitedObservation> observations = table->observations();
    std::vector<SitedObservation> marked;
    std::ranges::copy_if(observations, std::back_inserter(marked), &SitedObservation::used);
    startOfFound = std::max(startBox->currentIndex(), 0);
    const StartOrbit start = given.starts[std::size_t(startOfFound)].make(marked);
    if (!start.complaint.empty()) {
        tell(tr("No fit: %1.").arg(QString::fromStdString(start.complaint)));
        return;
    }
    FitRequest request;
    request.start = start.orbit;
    request.earth = given.earth;
    request.againstStars = starsBox->isChecked();
    for (std::size_t k = 0; k < elements.size(); ++k)
        request.free[k] = elements[k].box->isChecked();
    const FitResult fit = given.fit(request, observations);
    if (!fit.complaint.empty())
        tell(tr("No fit: %1.").arg(QString::fromStdString(fit.complaint)));
    else
        show(request, fit, observations);
}

void StFitDialog::show(const FitRequest& request, const FitResult& fit,
                       const std::vector<SitedObservation>& observations)
{
    showElements(request, fit);
    showCorrelations(fit);
    table->showResiduals(fit.residuals);
    plot->setPoints(pointsOf(observations, fit));
    outlierButton->setEnabled(true);
    QStringList lines{tr("Rms %1 standard errors.").arg(fit.rms, 0, 'f', 2)};
    if (!fit.converged)
        lines += tr("The corrections come to no end: try another start, or fewer elements.");
    for (const std::string& warning : fit.warnings)
        lines += tr("Warning: %1.").arg(QString::fromStdString(warning));
    tell(lines.join(' '));
    if (fit.converged)
        found = fit.orbit;
    addButton->setEnabled(fit.converged && given.room);
}

void StFitDialog::showElements(const FitRequest& request, const FitResult& fit)
{
    const auto before = fittedValues(request.start.elements), after = fittedValues(fit.orbit.elements);
    for (std::size_t k = 0; k < elements.size(); ++k) {
        const int decimals = elementWords[k].decimals;
        elements[k].before->setText(QString::number(before[k], 'f', decimals));
        elements[k].after->setText(QString::number(after[k], 'f', decimals));
        elements[k].error->setText(request.free[k] ? QString::number(fit.sigma[k], 'f', decimals) : tr("held"));
    }
}

void StFitDialog::showCorrelations(const FitResult& fit)
{
    constexpr double high = 0.98;
    for (int row = 0; row < fitted::count; ++row)
        for (int column = 0; column < row; ++column) {
            const double value = fit.correlation[std::size_t(row)][std::size_t(column)];
            if (value == 0.0)
                continue;
            auto* cell = new QTableWidgetItem(QString::number(value, 'f', 2));
            cell->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
            if (std::abs(value) > high)
                cell->setForeground(QColor(200, 30, 30));
            correlations->setItem(row, column, cell);
        }
    correlations->resizeColumnsToContents();
}
