#include "dialogs/st_sel_sat_dialog.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>

#include "dialogs/form.h"
#include "elements/selection.h"

namespace {

/// The search text for its field. A record that has not searched yet holds blanks; the field is then empty, so that
/// what is typed after a click does not begin with them.
QString searchText(const QString& recorded)
{
    return recorded.trimmed().isEmpty() ? QString() : recorded;
}

}  // namespace

StSelSatDialog::StSelSatDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Select Satellite"));
    auto* column = new QVBoxLayout;
    satinfEdit = form::addTextView(column, "satinfEdit", tr("Satellites"),
                                   {tr("The selected satellites or, after a search, the elements of the satellite "
                                       "found.")});
    // with this distance the colons of a report stand below each other
    satinfEdit->setTabStopDistance(satinfEdit->fontMetrics().horizontalAdvance("NORAD#") + 2);
    addSearch(column);
    auto* buttons = new QHBoxLayout;
    addButtons(buttons);
    form::finish(this, column, buttons);
    nameLabel = form::labelOf(satnameEdit);
    nameLabel->setObjectName("nameLabel");
    findButton->setDefault(true);  // the return key must not empty the list
    form::setTabOrder({satnameEdit, idsnBox, noradBox, noradEdit, lowBox, recentBox, newButton, findButton,
                       moreButton, selectButton, closeButton, satinfEdit});
    connectSlots();
    resize(480, 620);
}

void StSelSatDialog::addSearch(QVBoxLayout* column)
{
    auto* rows = new QFormLayout;
    satnameEdit =
        form::addTextEdit(rows, "satnameEdit", tr("Satellite &Name:"),
                          {tr("The beginning of the name is enough, and small letters match capitals. A launch "
                              "designator is given in full or from its beginning, for example 1998-067A."),
                           tr("Name to search for. '*' for all satellites.")});
    idsnBox = form::addBox(rows, "idsnBox", tr("Select Int.&Launch #"), "Alt+L",
                           {tr("If marked, the text above is an international launch designator instead of a name."),
                            tr("Select via International Launch Designator")});
    noradEdit =
        form::addWholeEdit(rows, "noradEdit", tr("NORA&D#:"),
                           {tr("The number of the satellite in the catalogue. After a search it is that of the "
                               "satellite found."),
                            tr("NORAD catalogue number.")});
    noradBox =
        form::addBox(rows, "noradBox", tr("Select NO&RAD#"), "Alt+R",
                     {tr("If marked, the satellite is searched by its catalogue number and not by its name.")});
    column->addLayout(rows);
    auto* filters = new QHBoxLayout;
    lowBox = form::addBox(filters, "lowBox", tr("L&ow Orbits Only"), "Alt+O",
                          {tr("Only orbits < 250 km are considered."), tr("Low orbits only")});
    recentBox = form::addBox(filters, "recentBox", tr("R&ecent Launches"), "Alt+E",
                             {tr("Only Satellites with < 100 revolutions are considered."), tr("Recent launches")});
    filters->addStretch();
    column->addLayout(filters);
}

void StSelSatDialog::addButtons(QBoxLayout* row)
{
    newButton = form::addButton(row, "newButton", tr("Ne&w Set"), "Alt+W",
                                {tr("Empties the list of selected satellites, so that a new selection begins."),
                                 tr("Start a new satellite list.")});
    findButton = form::addButton(
        row, "findButton", tr("&Find"), "Alt+F",
        {tr("Searches the element file from its start. What is found is shown above."), tr("Start the search.")});
    moreButton = form::addButton(
        row, "moreButton", tr("&More"), "Alt+M",
        {tr("Several satellites match the search. Press this to see the next one."), tr("More matches found.")});
    selectButton =
        form::addButton(row, "selectButton", tr("&Select"), "Alt+S",
                        {tr("Adds the satellite on show to the selection. Once ten satellites are selected, "
                            "it takes the place of the tenth."),
                         tr("Add satellite to list.")});
    closeButton = form::addButton(row, "closeButton", tr("&Close"), "Alt+C",
                                  {tr("Closes the dialog. The satellites selected so far stay selected.")});
    closeButton->setAutoDefault(false);
}

void StSelSatDialog::connectSlots()
{
    connect(closeButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(newButton, &QPushButton::clicked, this, &StSelSatDialog::newsSlot);
    connect(findButton, &QPushButton::clicked, this, &StSelSatDialog::findSlot);
    connect(moreButton, &QPushButton::clicked, this, &StSelSatDialog::moreSlot);
    connect(selectButton, &QPushButton::clicked, this, &StSelSatDialog::selectSlot);
    connect(noradBox, &QCheckBox::toggled, this, &StSelSatDialog::noradSlot);
    connect(idsnBox, &QCheckBox::toggled, this, &StSelSatDialog::idsnSlot);
    connect(lowBox, &QCheckBox::toggled, this, &StSelSatDialog::lowSlot);
    connect(recentBox, &QCheckBox::toggled, this, &StSelSatDialog::lowSlot);
}

StSelSatDialog::LastSearch StSelSatDialog::showLastSearch()
{
    QString name;
    int norad = 0;
    LastSearch last;
    vsLastSat(name, last.mode, norad, last.selected, last.low, last.recent);
    satnameEdit->setText(searchText(name));
    form::setNumber(noradEdit, norad);
    return last;
}

void StSelSatDialog::setParams()
{
    const LastSearch last = showLastSearch();
    satnameEdit->setFocus();
    noradBox->setChecked(last.mode == 1);
    idsnBox->setChecked(last.mode == 2);
    if (last.selected == 0)
        form::setShown(newButton, false);
    form::setShown(moreButton, false);
    form::setShown(selectButton, false);
    if (last.mode == 2)
        idsnSlot();
    noradSlot();
    lowBox->setChecked(last.low == 1);
    recentBox->setChecked(last.recent == 1);
    dSatList();
}

void StSelSatDialog::dSatList()
{
    satinfEdit->setPlainText(vsSatList());
}

void StSelSatDialog::selectSlot()
{
    form::setShown(newButton, false);
    form::setShown(selectButton, false);
    vsSatSel();
    dSatList();
}

void StSelSatDialog::moreSlot()
{
    search(true);
}

void StSelSatDialog::newsSlot()
{
    form::setShown(newButton, false);
    vsResetSatList();
    dSatList();
}

void StSelSatDialog::findSlot()
{
    search(false);
}

void StSelSatDialog::search(bool more)
{
    QString s = satnameEdit->text();
    int n = form::integer(noradEdit);
    const int mode = idsnBox->isChecked() ? 2 : noradBox->isChecked() ? 1 : 0;
    const int low = lowBox->isChecked() ? 1 : 0;
    const int recent = recentBox->isChecked() ? 1 : 0;
    if (more)
        vsReComp(s, n, mode, 1, low, recent);
    else
        vsFindSat(s, n, mode, low, recent);
    form::setShown(moreButton, n == 2);
    form::setShown(selectButton, n != 0);
    dSatInfo(s);
}

void StSelSatDialog::idsnSlot()
{
    if (!idsnBox->isChecked()) {
        nameLabel->setText(tr("Satellite &Name:"));
        return;
    }
    form::setEditEnabled(noradEdit, false);
    form::setEditEnabled(satnameEdit, true);
    noradBox->setChecked(false);
    nameLabel->setText(tr("Inter&national Launch#:"));
}

void StSelSatDialog::noradSlot()
{
    const bool byNumber = noradBox->isChecked();
    form::setEditEnabled(noradEdit, byNumber);
    form::setEditEnabled(satnameEdit, !byNumber);
    if (byNumber)
        idsnBox->setChecked(false);
}

void StSelSatDialog::lowSlot()
{
    vsLowRecent(lowBox->isChecked() ? 1 : 0, recentBox->isChecked() ? 1 : 0);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): a slot takes its text by value
void StSelSatDialog::dSatInfo(QString s1)
{
    showLastSearch();
    satinfEdit->setPlainText(s1);
}
