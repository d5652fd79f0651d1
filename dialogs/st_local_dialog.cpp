#include "dialogs/st_local_dialog.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTextEdit>
#include <QVBoxLayout>

#include "dialogs/form.h"

StLocalDialog::StLocalDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Local Details"));
    auto* column = new QVBoxLayout;
    textEdit =
        form::addTextView(column, "textEdit", tr("Local Details"),
                          {tr("What the Sun, the Moon and the selected satellites look like from this place at "
                              "this time.")});
    auto* buttons = new QHBoxLayout;
    closeButton = form::addClose(this, buttons, {tr("Closes the window.")});
    form::finish(this, column, buttons);
    resize(443, 460);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): a slot takes its text by value
void StLocalDialog::setParams(QString s, int fsz)
{
    form::fillTextView(textEdit, s, fsz);
    textEdit->setTabStopDistance(textEdit->fontMetrics().horizontalAdvance("0000"));  // three columns to a line
    closeButton->setFocus();
}
