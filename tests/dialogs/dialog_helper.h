// What a person does with a dialog: finds a widget by its name, types, clicks.
#pragma once

#include <QAbstractButton>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <functional>

/// The widget of this name; a test without it cannot go on.
template <class Widget>
Widget* child(const QWidget& dialog, const char* name)
{
    auto* found = dialog.findChild<Widget*>(QString::fromLatin1(name));
    if (!found)
        qFatal("no widget %s in %s", name, qPrintable(dialog.windowTitle()));
    return found;
}

inline QLineEdit* edit(const QWidget& dialog, const char* name)
{
    return child<QLineEdit>(dialog, name);
}

inline QAbstractButton* button(const QWidget& dialog, const char* name)
{
    return child<QAbstractButton>(dialog, name);
}

inline QString text(const QWidget& dialog, const char* name)
{
    return edit(dialog, name)->text();
}

inline QString labelText(const QWidget& dialog, const char* name)
{
    return child<QLabel>(dialog, name)->text();
}

inline bool shown(const QWidget& dialog, const char* name)
{
    const auto* widget = child<QWidget>(dialog, name);
    return widget->isVisibleTo(&dialog) && widget->isEnabledTo(&dialog);
}

/// Neither to be seen nor to be used.
inline bool hidden(const QWidget& dialog, const char* name)
{
    const auto* widget = child<QWidget>(dialog, name);
    return widget->isHidden() && !widget->isEnabled();
}

/// Shows the dialog and waits until keys arrive.
bool opened(QDialog& dialog);

/// Replaces the text of an edit key by key.
void type(const QWidget& dialog, const char* name, const QString& typed);

/// Clicks where a button can be clicked.
void click(const QWidget& dialog, const char* name);

/// Does something with the modal dialog that opens next, and cancels it if it is still open after that.
void whenDialogOpens(const std::function<void(QDialog&)>& meanwhile);
