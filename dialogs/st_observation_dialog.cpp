#include "dialogs/st_observation_dialog.h"

#include "astro/angles.h"
#include "dialogs/form.h"
#include "observing/columns.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QFontDatabase>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

constexpr std::array equinoxes{2000.0, 1950.0, 0.0};
constexpr double degreesPerHour = 15.0;

/// The digits of a typed time give the instant, whatever stands between them.
double instantOfText(const QString& text)
{
    std::string all;
    for (const char c : text.toStdString())
        if (isDigit(c))
            all += c;
    const auto instant = all.size() > 8 ? instantOf(all.substr(0, 8), all.substr(8)) : std::nullopt;
    return instant.value_or(std::numeric_limits<double>::quiet_NaN());
}

QString textOfInstant(double mjd)
{
    const DateDigits when = dateDigits(mjd, 3);
    const auto part = [](const std::string& digits, std::size_t from, std::size_t count) {
        return QString::fromStdString(digits.substr(from, count));
    };
    return QStringLiteral("%1-%2-%3 %4:%5:%6.%7")
        .arg(part(when.date, 0, 4), part(when.date, 4, 2), part(when.date, 6, 2), part(when.time, 0, 2),
             part(when.time, 2, 2), part(when.time, 4, 2), part(when.time, 6, 3));
}

}  // namespace

StObservationDialog::StObservationDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Save Observation"));
    auto* column = new QVBoxLayout;
    auto* rows = new QFormLayout;
    sourceBox =
        form::addChoice(rows, "sourceBox", tr("F&rom:"),
                        {tr("Where the position comes from: a trail on the picture, the last search for matching "
                            "satellites, the last orbit determination, or your own typing.")});
    numberEdit = form::addWholeEdit(rows, "numberEdit", tr("NORAD &Number:"),
                                    {tr("The catalogue number of the satellite, of at most five digits in reports. 0 "
                                        "leaves it out.")});
    designatorEdit = form::addTextEdit(rows, "designatorEdit", tr("&International Designator:"),
                                       {tr("The designator of the satellite in its full form, such as 1998-067A.")});
    timeEdit =
        form::addTextEdit(rows, "timeEdit", tr("&Time (UTC):"),
                          {tr("Date and time of the position in Universal Time: year, month, day, hours, minutes "
                              "and seconds with decimals, each but the year with two digits.")});
    addPlace(rows);
    addTarget(rows);
    column->addLayout(rows);
    lineLabel = form::addText(column, "lineLabel", QString());
    lineLabel->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    lineLabel->setMinimumWidth(lineLabel->fontMetrics().horizontalAdvance(QString(82, QLatin1Char('0'))));
    form::finish(this, column);
    connect(sourceBox, &QComboBox::activated, this, &StObservationDialog::showProposal);
    connect(raBox, &QCheckBox::toggled, this, &StObservationDialog::nameAngles);
    for (const Field* edit : {numberEdit, designatorEdit, timeEdit, azEdit, elEdit, magnitudeEdit})
        connect(edit, &QLineEdit::textChanged, this, &StObservationDialog::preview);
    for (const QComboBox* box : {equinoxBox, behaviourBox, formBox})
        connect(box, &QComboBox::currentIndexChanged, this, &StObservationDialog::preview);
}

void StObservationDialog::addPlace(QFormLayout* rows)
{
    azEdit = form::addEdit(rows, "azEdit", tr("&Azimuth (deg):"),
                           {tr("The azimuth from North through East, or the right ascension in hours, minutes and "
                               "seconds, HH.MMSS with decimals of seconds behind it.")});
    elEdit = form::addEdit(rows, "elEdit", tr("&Elevation (deg):"),
                           {tr("The elevation above the horizon without refraction, or the declination in degrees, "
                               "minutes and seconds, DD.MMSS.")});
    raBox = form::addBox(rows, "raBox", tr("&Position as R.A./Dec."), nullptr,
                         {tr("If marked, the position is right ascension and declination, otherwise azimuth and "
                             "elevation.")});
    equinoxBox = form::addChoice(rows, "equinoxBox", tr("E&quinox:"),
                                 {tr("The equator and equinox that right ascension and declination refer to.")});
    equinoxBox->addItems({tr("2000"), tr("1950"), tr("of date")});
    magnitudeEdit = form::addTextEdit(rows, "magnitudeEdit", tr("&Magnitude:"),
                                      {tr("The brightness of the satellite in magnitudes; leave it empty if you have "
                                          "not estimated it.")});
    behaviourBox = form::addChoice(rows, "behaviourBox", tr("&Behaviour:"),
                                   {tr("What the brightness did while you were watching.")});
    const std::initializer_list<std::pair<QString, char>> letters{
        {tr("not told"), ' '}, {tr("Steady"), 'S'},        {tr("Irregular"), 'I'},
        {tr("Regular"), 'R'},  {tr("Flashing"), 'F'},      {tr("Irregular flashes"), 'X'},
        {tr("Eclipse"), 'E'},  {tr("Averted vision"), 'V'}};
    for (const auto& [text, letter] : letters)
        behaviourBox->addItem(text, QString(QLatin1Char(letter)));
}

void StObservationDialog::addTarget(QFormLayout* rows)
{
    formBox =
        form::addChoice(rows, "formBox", tr("&Form:"),
                        {tr("The form of the report: IOD lines, UK lines without a catalogue number, or RDE blocks "
                            "with whole seconds.")});
    formBox->addItems({QStringLiteral("IOD"), QStringLiteral("UK"), QStringLiteral("RDE")});
    fileEdit = form::addTextEdit(rows, "fileEdit", tr("Fi&le:"),
                                 {tr("The file to whose end the report is added. It is made if there is none.")});
    browseButton =
        form::addButton(rows, "browseButton", tr("Bro&wse..."), nullptr, {tr("Chooses the file of the reports.")});
    connect(browseButton, &QPushButton::clicked, this, &StObservationDialog::browse);
}

void StObservationDialog::setValues(const std::vector<Proposal>& proposals, const Station& station)
{
    known = proposals;
    own = station;
    sourceBox->clear();
    for (const Proposal& proposal : known)
        sourceBox->addItem(proposal.source);
    fileEdit->setText(station.file.isEmpty() ? QStringLiteral("observations.iod") : station.file);
    showProposal(0);
}

void StObservationDialog::hideReport()
{
    setWindowTitle(tr("Observation"));
    for (QWidget* widget : {static_cast<QWidget*>(formBox), static_cast<QWidget*>(fileEdit)}) {
        form::setShown(widget, false);
        form::setShown(form::labelOf(widget), false);
    }
    form::setShown(browseButton, false);
    form::setShown(lineLabel, false);
}

void StObservationDialog::showProposal(int index)
{
    const Observation& o = known[std::size_t(index)].observation;
    const bool equatorial = o.angles == SkyAngles::equatorial;
    form::setNumber(numberEdit, o.number);
    designatorEdit->setText(QString::fromStdString(o.designator));
    timeEdit->setText(textOfInstant(o.mjd));
    raBox->setChecked(equatorial);
    form::setPrinted(azEdit, "%.7f", equatorial ? DegFDms(o.first / degreesPerHour) : o.first);
    form::setPrinted(elEdit, "%.6f", equatorial ? DegFDms(o.second) : o.second);
    const auto place = std::find(equinoxes.begin(), equinoxes.end(), o.equinox) - equinoxes.begin();
    equinoxBox->setCurrentIndex(int(std::min<std::ptrdiff_t>(place, equinoxes.size() - 1)));
    nameAngles();
}

void StObservationDialog::nameAngles()
{
    const bool packed = raBox->isChecked();
    form::labelOf(azEdit)->setText(packed ? tr("R.&A. (HH.MMSS):") : tr("&Azimuth (deg):"));
    form::labelOf(elEdit)->setText(packed ? tr("D&ec. (DD.MMSS):") : tr("&Elevation (deg):"));
    preview();
}

Observation StObservationDialog::observation() const
{
    Observation o;
    o.number = std::max(form::integer(numberEdit), 0);
    o.designator = designatorEdit->text().trimmed().toStdString();
    o.station = own.number;
    o.condition = own.condition;
    o.mjd = instantOfText(timeEdit->text());
    o.timeError = own.timeError;
    const bool equatorial = raBox->isChecked();
    o.angles = equatorial ? SkyAngles::equatorial : SkyAngles::horizontal;
    o.first = equatorial ? DmsDegF(form::number(azEdit)) * degreesPerHour : form::number(azEdit);
    o.second = equatorial ? DmsDegF(form::number(elEdit)) : form::number(elEdit);
    o.equinox = equinoxes[std::size_t(std::max(equinoxBox->currentIndex(), 0))];
    o.angleError = own.angleError / 60.0;
    o.behaviour = behaviourBox->currentData().toString()[0].toLatin1();
    bool isNumber = false;
    const double magnitude = magnitudeEdit->text().toDouble(&isNumber);
    if (isNumber)
        o.magnitude = magnitude;
    return o;
}

WrittenReport StObservationDialog::report() const
{
    const Observation o = observation();
    if (!std::isfinite(o.mjd))
        return {{}, tr("The time cannot be read; expected as 2018-01-20 17:06:30.5").toStdString()};
    return writeReports(std::span(&o, 1), static_cast<ReportForm>(formBox->currentIndex()), own.code);
}

QString StObservationDialog::fileName() const
{
    return fileEdit->text().trimmed();
}

void StObservationDialog::preview()
{
    if (known.empty())
        return;
    const WrittenReport written = report();
    const std::string& text = written.complaint.empty() ? written.text : written.complaint;
    lineLabel->setText(QString::fromStdString(text).trimmed());
}

void StObservationDialog::browse()
{
    const QString name = QFileDialog::getSaveFileName(this, tr("File of Observations"), fileName(),
                                                      tr("Reports (*.iod *.uk *.rde *.txt);;all files (*.*)"),
                                                      nullptr, QFileDialog::DontConfirmOverwrite);
    if (!name.isEmpty())
        fileEdit->setText(name);
}
