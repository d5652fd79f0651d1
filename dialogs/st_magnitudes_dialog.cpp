#include "dialogs/st_magnitudes_dialog.h"

#include "dialogs/form.h"

#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

StMagnitudesDialog::StMagnitudesDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Magnitudes"));
    auto* column = new QVBoxLayout;
    auto* rows = new QFormLayout;
    fileEdit = form::addTextEdit(rows, "fileEdit", tr("&List:"),
                                 {tr("A text file with a catalogue number and its standard magnitude at 1000 km in "
                                     "each line, perhaps with the "
                                     "standard deviation behind it; or with a name between them and the magnitude in "
                                     "columns 34 to 37. Leave it "
                                     "empty for none."),
                                  tr("A file of standard magnitudes; may be empty")});
    QPushButton* browseButton =
        form::addButton(rows, "browseButton", tr("Bro&wse..."), nullptr, {tr("Chooses the list.")});
    phaseBox = form::addChoice(rows, "phaseBox", tr("&Magnitudes for:"),
                               {tr("The phase that the magnitudes of the list belong to.")});
    phaseBox->addItems({tr("full phase, 0 degrees"), tr("half phase, 90 degrees")});
    lengthEdit = form::addEdit(rows, "lengthEdit", tr("L&ength of Others (m):"),
                               {tr("The size of all satellites of which neither the list nor a family nor the radar "
                                   "class tells the brightness. With 0 they have no magnitude.")});
    column->addLayout(rows);
    contentLabel = form::addText(column, "contentLabel", QString());
    contentLabel->setWordWrap(true);
    form::finish(this, column);
    connect(browseButton, &QPushButton::clicked, this, &StMagnitudesDialog::browse);
    connect(fileEdit, &QLineEdit::editingFinished, this, &StMagnitudesDialog::tellContent);
    tellContent();
}

void StMagnitudesDialog::setValues(const BrightnessSettings& settings)
{
    fileEdit->setText(settings.file);
    phaseBox->setCurrentIndex(settings.halfPhase ? 1 : 0);
    form::setNumber(lengthEdit, settings.lengthM);
    tellContent();
}

BrightnessSettings StMagnitudesDialog::values() const
{
    return {fileEdit->text().trimmed(), phaseBox->currentIndex() == 1,
            std::clamp(form::number(lengthEdit), 0.0, 10000.0)};
}

void StMagnitudesDialog::browse()
{
    const QString name = QFileDialog::getOpenFileName(this, tr("List of Magnitudes"), fileEdit->text());
    if (name.isEmpty())
        return;
    fileEdit->setText(name);
    tellContent();
}

void StMagnitudesDialog::tellContent()
{
    const QString name = values().file;
    if (name.isEmpty()) {
        contentLabel->setText(tr("Without a list the magnitudes of known families of satellites are used, then the "
                                 "radar class of the element file, then the length."));
        return;
    }
    const MagnitudeList list = readMagnitudes(QFile::encodeName(name).toStdString(), 0.0);
    if (!list.why.empty())
        contentLabel->setText(tr("The list cannot be read: %1").arg(QString::fromStdString(list.why)));
    else
        contentLabel->setText(
            tr("%1 magnitudes; %2 lines are not understood.").arg(list.rows.size()).arg(list.refused));
}

void StMagnitudesDialog::accept()
{
    const QString name = values().file;
    if (name.isEmpty() || readMagnitudes(QFile::encodeName(name).toStdString(), 0.0).why.empty())
        QDialog::accept();
    else
        form::say(this, contentLabel->text());
}
