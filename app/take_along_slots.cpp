// The slots of the commands that take along what is on show.

#include "app/vorlix_app.h"

#include <QFileDialog>
#include <QPrintDialog>
#include <QPrinter>

#include "view/vorlix_view.h"

/// Asks for a name with this ending; empty, with a message, if there is none.
QString VorlixApp::askForPictureName(const QString& caption, const QString& name, const QString& ending)
{
    const QString drawing = QStringLiteral(".svg");
    const bool picture = ending == QLatin1String(".png");
    const QString filter = QStringLiteral("%1 (*%2)").arg(ending.mid(1).toUpper(), ending) +
                           (picture ? QStringLiteral(";;SVG (*.svg)") : QString());
    QString form;
    const QString chosen = QFileDialog::getSaveFileName(this, caption, name + ending, filter, &form);
    const bool drawn =
        picture && (chosen.endsWith(drawing, Qt::CaseInsensitive) || form.startsWith(QLatin1String("SVG")));
    const QString whole = chosen.isEmpty() ? QString() : withEnding(chosen, drawn ? drawing : ending, caption);
    if (whole.isEmpty())
        showStatus(tr("*** File not selected ***"));
    return whole;
}

void VorlixApp::slotFileSavePicture()
{
    showStatus(tr("Saving the picture..."));
    const QString name = askForPictureName(tr("Save Picture"), QStringLiteral("vorlix"), QStringLiteral(".png"));
    if (name.isEmpty())
        return;
    view->vSavePicture(name);
    showStatus(tr("Ready."));
}

void VorlixApp::slotFilePdf()
{
    showStatus(tr("Printing to a file..."));
    const QString name = askForPictureName(tr("Print to PDF"), QStringLiteral("vorlix"), QStringLiteral(".pdf"));
    if (name.isEmpty())
        return;
    view->vPrintToPdf(name);
    showStatus(tr("Ready."));
}

void VorlixApp::slotFilePrint()
{
    showStatus(tr("Printing..."));
    QPrinter printer(QPrinter::ScreenResolution);
    printer.setResolution(VorlixView::paperDotsPerInch);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() == QDialog::Accepted)
        view->vPrint(printer);
    showStatus(tr("Ready."));
}

void VorlixApp::slotEditCopyPicture()
{
    showStatus(tr("Copying the picture..."));
    view->vCopyPicture();
    showStatus(tr("Ready."));
}
