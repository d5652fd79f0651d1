#include "dialogs/dialog_helper.h"

#include <QApplication>
#include <QCheckBox>
#include <QPointer>
#include <QRadioButton>
#include <QTimer>

bool opened(QDialog& dialog)
{
    dialog.show();
    return QTest::qWaitForWindowActive(&dialog);
}

void type(const QWidget& dialog, const char* name, const QString& typed)
{
    QLineEdit* field = edit(dialog, name);
    QTest::keyClick(field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, typed);
}

void click(const QWidget& dialog, const char* name)
{
    QAbstractButton* which = button(dialog, name);
    // a box reacts on its mark and its text only, not on the room beside them
    const bool marked = qobject_cast<QCheckBox*>(which) || qobject_cast<QRadioButton*>(which);
    QTest::mouseClick(which, Qt::LeftButton, {}, marked ? QPoint(8, which->height() / 2) : QPoint());
}

void whenDialogOpens(const std::function<void(QDialog&)>& meanwhile)
{
    QTimer::singleShot(50, qApp, [meanwhile] {
        const QPointer<QDialog> dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        if (!dialog)
            qFatal("no dialog has opened");
        meanwhile(*dialog);
        // cppcheck-suppress knownConditionTrueFalse  ; a QPointer: `meanwhile` may have deleted the dialog
        if (dialog && dialog->isVisible())
            dialog->reject();  // a check in it has failed
    });
}
