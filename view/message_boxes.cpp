#include "view/message_boxes.h"

#include <QApplication>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

namespace {

/// A box of plain text, whatever stands in it: names and answers come from outside.
class PlainBox : public QMessageBox
{
public:
    PlainBox(Icon icon, const QString& title, const QString& text, StandardButtons buttons, QWidget* parent)
        : QMessageBox(icon, title, QString(), buttons, parent)
    {
        setTextFormat(Qt::PlainText);
        setText(text);
    }
};

}  // namespace

void inform(QWidget* parent, const QString& title, const QString& text)
{
    PlainBox(QMessageBox::Information, title, text, QMessageBox::Ok, parent).exec();
}

void warn(QWidget* parent, const QString& title, const QString& text)
{
    PlainBox(QMessageBox::Warning, title, text, QMessageBox::Ok, parent).exec();
}

bool agrees(QWidget* parent, const QString& title, const QString& text)
{
    PlainBox box(QMessageBox::Question, title, text, QMessageBox::Yes | QMessageBox::No, parent);
    box.setDefaultButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

bool warnOrEnd(QWidget* parent, const QString& title, const QString& text, const QString& end)
{
    PlainBox box(QMessageBox::Warning, title, text, QMessageBox::Ok, parent);
    const QPushButton* ends = box.addButton(end, QMessageBox::DestructiveRole);
    box.exec();
    return box.clickedButton() == ends;
}

QString nothingWritten(const QString& file, const QString& why)
{
    return QMessageBox::tr("Nothing was written to %1\n%2").arg(file, why);
}

void warnWithCancel(QWidget* parent, const QString& text)
{
    PlainBox box(QMessageBox::Warning, QMessageBox::tr("Vorlix"), text, QMessageBox::NoButton, parent);
    box.setDefaultButton(box.addButton(QMessageBox::Ok));
    box.setEscapeButton(box.addButton(QMessageBox::tr("Cancel"), QMessageBox::RejectRole));
    box.exec();
}

void warnOnlyCancel(QWidget* parent, const QString& text)
{
    PlainBox box(QMessageBox::Warning, QMessageBox::tr("Vorlix"), text, QMessageBox::NoButton, parent);
    QPushButton* cancel = box.addButton(QMessageBox::tr("Cancel"), QMessageBox::RejectRole);
    box.setDefaultButton(cancel);
    box.setEscapeButton(cancel);
    box.exec();
}

void sayNoSatellite(QWidget* parent)
{
    inform(parent, QMessageBox::tr("Vorlix"), QMessageBox::tr("*** No Satellite Selected ***"));
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
