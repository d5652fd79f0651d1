#include "view/message_boxes.h"

#include <QApplication>
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

WaitCursor::WaitCursor()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

WaitCursor::~WaitCursor()
{
    QApplication::restoreOverrideCursor();
}
