#include "dialogs/st_sources_dialog.h"

#include "dialogs/form.h"
#include "elements/download.h"

#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

namespace {

constexpr int nameColumn = 0, addressColumn = 1;
constexpr int startWidth = 760, startHeight = 460;

}  // namespace

StSourcesDialog::StSourcesDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Element Sources"));
    auto* column = new QVBoxLayout;
    form::addText(column, "headLabel",
                  tr("\"Online TLE Update\" proposes the address of the marked line. Services renew their elements "
                     "every few hours."))
        ->setWordWrap(true);
    table = new QTableWidget(0, 2);
    form::describeTable(
        table, "sourceTable", tr("Sources"),
        {tr("Names and addresses of element files. A double click or F2 changes a field. The line that "
            "is marked when you press OK is the address of the next update.")});
    table->setHorizontalHeaderLabels({tr("Name"), tr("Address")});
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->verticalHeader()->hide();
    table->horizontalHeader()->setStretchLastSection(true);
    table->setTabKeyNavigation(false);
    column->addWidget(table, 1);
    auto* buttons = new QHBoxLayout;
    auto* addButton =
        form::addButton(buttons, "addButton", tr("&Add"), nullptr, {tr("Adds a line, for an address of your own.")});
    auto* removeButton =
        form::addButton(buttons, "removeButton", tr("&Remove"), nullptr, {tr("Removes the marked line.")});
    auto* restoreButton = form::addButton(buttons, "restoreButton", tr("&Delivered"), nullptr,
                                          {tr("Adds the delivered lines that are missing; your own stay.")});
    for (QPushButton* button : {addButton, removeButton, restoreButton})
        button->setAutoDefault(false);
    buttons->addStretch(1);
    form::addOkCancel(this, buttons);
    column->addLayout(buttons);
    setLayout(column);
    resize(startWidth, startHeight);
    connect(addButton, &QPushButton::clicked, this, &StSourcesDialog::addNew);
    connect(removeButton, &QPushButton::clicked, this, &StSourcesDialog::removeCurrent);
    connect(restoreButton, &QPushButton::clicked, this, &StSourcesDialog::restore);
}

void StSourcesDialog::add(const ElementSource& source)
{
    const int row = table->rowCount();
    table->insertRow(row);
    table->setItem(row, nameColumn, new QTableWidgetItem(source.name));
    table->setItem(row, addressColumn, new QTableWidgetItem(source.address));
}

void StSourcesDialog::setSources(const std::vector<ElementSource>& shown, const QString& inUse)
{
    table->setRowCount(0);
    for (const ElementSource& source : shown)
        add(source);
    table->resizeColumnToContents(nameColumn);
    for (int row = 0; row < table->rowCount(); ++row)
        if (table->item(row, addressColumn)->text() == inUse)
            table->selectRow(row);
}

std::vector<ElementSource> StSourcesDialog::sources() const
{
    std::vector<ElementSource> all;
    for (int row = 0; row < table->rowCount(); ++row)
        if (const QString address = table->item(row, addressColumn)->text().trimmed(); !address.isEmpty())
            all.push_back({table->item(row, nameColumn)->text().trimmed(), address});
    return all;
}

QString StSourcesDialog::chosen() const
{
    const QList<QTableWidgetItem*> marked = table->selectedItems();
    return marked.isEmpty() ? QString() : table->item(marked[0]->row(), addressColumn)->text().trimmed();
}

void StSourcesDialog::addNew()
{
    add({tr("My source"), QString()});
    const int row = table->rowCount() - 1;
    table->selectRow(row);
    table->setCurrentCell(row, addressColumn);
    table->editItem(table->item(row, addressColumn));
}

void StSourcesDialog::removeCurrent()
{
    if (const QList<QTableWidgetItem*> marked = table->selectedItems(); !marked.isEmpty())
        table->removeRow(marked[0]->row());
}

void StSourcesDialog::restore()
{
    const std::vector<ElementSource> present = sources();
    for (const ElementSource& source : deliveredSources())
        if (std::ranges::find(present, source.address, &ElementSource::address) == present.end())
            add(source);
}

void StSourcesDialog::accept()
{
    if (isAddressStorable(chosen()))
        QDialog::accept();
    else
        form::say(this, tr("The address is too long: %1 characters are the most.").arg(longestAddress));
}
