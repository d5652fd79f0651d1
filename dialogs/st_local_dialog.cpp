#include "dialogs/st_local_dialog.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTextCursor>
#include <QTextEdit>
#include <QVBoxLayout>

#include "dialogs/form.h"

StLocalDialog::StLocalDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Local Details"));
    auto* column = new QVBoxLayout;
    textEdit =
        form::addTextView(column, "textEdit",
                          {tr("What the Sun, the Moon and the selected satellites look like from this place at "
                              "this time.")});
    auto* buttons = new QHBoxLayout;
    closeButton = form::addButton(buttons, "closeButton", tr("&Close"), "Alt+C", {tr("Closes the window.")});
    closeButton->setDefault(true);
    form::finish(this, column, buttons);
    connect(closeButton, &QPushButton::clicked, this, &QDialog::accept);
    resize(443, 460);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the signature is fixed
void StLocalDialog::setParams(QString s, int fsz)
{
    QFont font = textEdit->font();
    if (fsz > 0)
        font.setPointSize(fsz);
    textEdit->setFont(font);
    textEdit->setTabStopDistance(textEdit->fontMetrics().horizontalAdvance("0000"));  // three columns to a line
    textEdit->insertPlainText(s);
    textEdit->moveCursor(QTextCursor::Start);
    closeButton->setFocus();
}
