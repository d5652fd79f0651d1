#include "dialogs/st_rem_sat_dialog.h"

#include <algorithm>

#include <QCheckBox>
#include <QGridLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "dialogs/form.h"
#include "elements/selection.h"

int nboxes = 0;

StRemSatDialog::StRemSatDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Remove Satellites"));
    auto* column = new QVBoxLayout;
    form::addText(column, "markLabel", tr("Mark satellites for removal:"));
    for (int i = 0; i < static_cast<int>(boxes.size()); ++i)
        addRow(column, i);
    column->addStretch();

    auto* buttons = new QHBoxLayout;
    auto* all = form::addButton(buttons, "allButton", tr("Delete &All"), "Alt+A",
                                {tr("Marks all satellites. They are removed when OK is pressed.")});
    form::addOkCancel(this, buttons);
    form::finish(this, column, buttons);
    connect(all, &QPushButton::clicked, this, &StRemSatDialog::alldlt);
}

void StRemSatDialog::addRow(QVBoxLayout* column, int i)
{
    const form::Help help{tr("Mark the box to remove this satellite from the selection.")};
    const QString digit = i < 9 ? QString("&%1").arg(i + 1) : QString("1&0");
    const QByteArray shortcut = QString("Alt+%1").arg((i + 1) % 10).toLatin1();
    auto* row = new QHBoxLayout;
    auto* box = form::addBox(row, qPrintable(QString("satBox%1").arg(i + 1)), digit, shortcut.constData(), help);
    box->setMinimumWidth(box->fontMetrics().horizontalAdvance("00") + box->sizeHint().height() + 12);
    auto* name = new Field(Field::Kind::text);
    name->setObjectName(QString("satEdit%1").arg(i + 1));
    name->setWhatsThis(help.whatsThis);
    name->setAccessibleName(tr("Satellite %1").arg(i + 1));
    name->setReadOnly(true);
    row->addWidget(name);
    column->addLayout(row);
    boxes[static_cast<std::size_t>(i)] = box;
    names[static_cast<std::size_t>(i)] = name;
}

void StRemSatDialog::setParams(int satnr)
{
    const int rows = static_cast<int>(boxes.size());
    nboxes = std::clamp(satnr, 0, rows);
    for (int i = 0; i < rows; ++i) {
        const auto k = static_cast<std::size_t>(i);
        const QString name = i < nboxes ? vsSatName(i + 1) : QString();
        form::setShown(boxes[k], i < nboxes);
        form::setShown(names[k], i < nboxes);
        names[k]->setText(name);
        boxes[k]->setAccessibleName(name.trimmed());
    }
}

std::array<bool, 10> StRemSatDialog::values() const
{
    std::array<bool, 10> marked{};
    for (std::size_t k = 0; k < boxes.size(); ++k)
        marked[k] = static_cast<int>(k) < nboxes && boxes[k]->isChecked();
    return marked;
}

void StRemSatDialog::getParams(bool* sats)
{
    std::ranges::copy(values(), sats);
}

void StRemSatDialog::alldlt()
{
    for (int i = 0; i < nboxes; ++i)
        boxes[static_cast<std::size_t>(i)]->setChecked(true);
}
