#include "view/message_boxes.h"

#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

void warnWithQuit(QWidget* parent, const QString& text)
{
    QMessageBox box(QMessageBox::Warning, QMessageBox::tr("Vorlix"), text, QMessageBox::NoButton, parent);
    box.setDefaultButton(box.addButton(QMessageBox::Ok));
    box.setEscapeButton(box.addButton(QMessageBox::tr("Quit"), QMessageBox::RejectRole));
    box.exec();
}

void warnOnlyQuit(QWidget* parent, const QString& text)
{
    QMessageBox box(QMessageBox::Warning, QMessageBox::tr("Vorlix"), text, QMessageBox::NoButton, parent);
    QPushButton* quit = box.addButton(QMessageBox::tr("Quit"), QMessageBox::RejectRole);
    box.setDefaultButton(quit);
    box.setEscapeButton(quit);
    box.exec();
}

void sayNoSatellite(QWidget* parent)
{
    QMessageBox::information(parent, QMessageBox::tr("Vorlix"), QMessageBox::tr("*** No Satellite Selected ***"));
}

bool askNumber(QWidget* parent, const QString& title, const QString& label, double& value, double most, int decimals)
{
    bool accepted = false;
    const double entered = QInputDialog::getDouble(parent, title, label, value, 0.0, most, decimals, &accepted);
    const bool untouched = entered == QString::number(value, 'f', decimals).toDouble();
    if (accepted && !untouched)
        value = entered;
    return accepted;
}

WaitCursor::WaitCursor()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

WaitCursor::~WaitCursor()
{
    QApplication::restoreOverrideCursor();
}
