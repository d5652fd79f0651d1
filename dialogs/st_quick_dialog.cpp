#include "dialogs/st_quick_dialog.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QTextCursor>
#include <QTextEdit>
#include <QVBoxLayout>

#include "dialogs/form.h"

StQuickDialog::StQuickDialog(QWidget* parent) : QDialog(parent)
{
    setWindowTitle(tr("Quick Help"));
    auto* content = new QVBoxLayout;
    textEdit1 = form::addTextView(content, "textEdit1", tr("Quick Help"), {tr("The manual of Vorlix.")});
    textEdit1->setMinimumSize(520, 340);
    auto* buttons = new QHBoxLayout;
    QPushButton* ok = form::addButton(buttons, "okButton", tr("&OK"), "Alt+O", {tr("Closes the window.")});
    ok->setDefault(true);
    connect(ok, &QPushButton::clicked, this, &QDialog::accept);
    form::finish(this, content, buttons);
    resize(557, 403);
}

void StQuickDialog::setHelpLine(const QString& s)
{
    if (s == QLatin1String("$$$"))
        textEdit1->moveCursor(QTextCursor::Start);
    else
        textEdit1->insertPlainText(s);
}
