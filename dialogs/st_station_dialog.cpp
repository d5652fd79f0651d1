#include "dialogs/st_station_dialog.h"

#include "dialogs/form.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

StStationDialog::StStationDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Observing Station"));
    auto* column = new QVBoxLayout;
    auto* rows = new QFormLayout;
    numberEdit = form::addWholeEdit(rows, "numberEdit", tr("Station &Number:"),
                                    {tr("The number of four digits that stands for your observing site in reports. "
                                        "With OK the place set under Location belongs to it.")});
    timeEdit =
        form::addEdit(rows, "timeEdit", tr("&Time Accuracy (sec):"),
                      {tr("How sure the times of your observations are, in seconds. Reports keep one digit.")});
    angleEdit = form::addEdit(rows, "angleEdit", tr("&Position Accuracy (arcmin):"),
                              {tr("How sure your positions are, in minutes of arc. Reports keep one digit.")});
    addChoices(rows);
    column->addLayout(rows);
    placeLabel = form::addText(column, "placeLabel", QString());
    form::finish(this, column);
}

void StStationDialog::addChoices(QFormLayout* rows)
{
    codeBox =
        form::addChoice(rows, "codeBox", tr("&Form of the Angles:"),
                        {tr("How positions are written. A position of the other kind, azimuth or right ascension, "
                            "is written in the form with the same unit.")});
    codeBox->addItems({tr("1: R.A. h m s, Dec. deg min sec"), tr("2: R.A. h m, Dec. deg min"),
                       tr("3: R.A. h m, Dec. deg"), tr("4: Azimuth, Elev. deg min sec"),
                       tr("5: Azimuth, Elev. deg min"), tr("6: Azimuth, Elev. deg"), tr("7: R.A. h m s, Dec. deg")});
    conditionBox = form::addChoice(rows, "conditionBox", tr("&Sky:"),
                                   {tr("The conditions under which you observe, as reports tell them.")});
    const std::initializer_list<std::pair<QString, char>> conditions{{tr("Excellent"), 'E'}, {tr("Good"), 'G'},
                                                                     {tr("Fair"), 'F'},      {tr("Poor"), 'P'},
                                                                     {tr("Bad"), 'B'},       {tr("Terrible"), 'T'}};
    for (const auto& [text, letter] : conditions)
        conditionBox->addItem(text, QString(QLatin1Char(letter)));
}

void StStationDialog::setValues(const Station& station, const QString& place)
{
    shown = station;
    form::setNumber(numberEdit, station.number);
    form::setNumber(timeEdit, station.timeError);
    form::setNumber(angleEdit, station.angleError);
    codeBox->setCurrentIndex(station.code - 1);
    conditionBox->setCurrentIndex(std::max(0, conditionBox->findData(QString(QLatin1Char(station.condition)))));
    placeLabel->setText(tr("Place: %1").arg(place));
}

Station StStationDialog::values() const
{
    Station s = shown;
    s.number = std::clamp(form::integer(numberEdit), 0, 9999);
    s.timeError = form::number(timeEdit);
    s.angleError = form::number(angleEdit);
    s.code = codeBox->currentIndex() + 1;
    s.condition = conditionBox->currentData().toString()[0].toLatin1();
    return s;
}
