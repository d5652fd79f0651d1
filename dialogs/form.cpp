#include "dialogs/form.h"

#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QKeySequence>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTextCursor>
#include <QTextEdit>

#include "record/field_numbers.h"

namespace form {

namespace {

QString text(const char* english)
{
    return QCoreApplication::translate("form", english);
}

void describe(QWidget* widget, const QString& name, const Help& help)
{
    widget->setObjectName(name);
    widget->setWhatsThis(help.whatsThis);
    widget->setToolTip(help.tip);
}

/// "latLabel" for "latEdit".
QString labelName(const char* field)
{
    QString name = QString::fromLatin1(field);
    for (const char* kind : {"Edit", "Box"})
        if (name.endsWith(QLatin1String(kind)))
            name.chop(static_cast<int>(qstrlen(kind)));
    return name + "Label";
}

QLabel* plainLabel(const QString& line)
{
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    label->setText(line);
    return label;
}

void addRow(QFormLayout* rows, QWidget* field, const char* name, const QString& label, const Help& help)
{
    describe(field, QString::fromLatin1(name), help);
    QLabel* caption = plainLabel(label);
    describe(caption, labelName(name), help);
    rows->addRow(caption, field);
    caption->setBuddy(field);
}

Field* addField(QFormLayout* rows, Field::Kind kind, const char* name, const QString& label, const Help& help)
{
    auto* field = new Field(kind);
    addRow(rows, field, name, label, help);
    // room for the longest number that is shown without an exponent, so that no layout squeezes the field
    field->setMinimumWidth(field->fontMetrics().horizontalAdvance("-000.000000000000"));
    return field;
}

void append(QLayout* to, QWidget* widget)
{
    if (auto* rows = qobject_cast<QFormLayout*>(to))
        rows->addRow(widget);
    else
        to->addWidget(widget);
}

template <class Button>
Button* add(QLayout* to, const char* name, const QString& caption, const char* shortcut, const Help& help)
{
    auto* button = new Button;
    describe(button, QString::fromLatin1(name), help);
    button->setText(caption);
    if (shortcut)
        button->setShortcut(QKeySequence(QString::fromLatin1(shortcut)));
    append(to, button);
    return button;
}

}  // namespace

Field* addEdit(QFormLayout* rows, const char* name, const QString& label, const Help& help)
{
    return addField(rows, Field::Kind::number, name, label, help);
}

Field* addWholeEdit(QFormLayout* rows, const char* name, const QString& label, const Help& help)
{
    return addField(rows, Field::Kind::wholeNumber, name, label, help);
}

Field* addTextEdit(QFormLayout* rows, const char* name, const QString& label, const Help& help)
{
    return addField(rows, Field::Kind::text, name, label, help);
}

QComboBox* addChoice(QFormLayout* rows, const char* name, const QString& label, const Help& help)
{
    auto* choice = new QComboBox;
    addRow(rows, choice, name, label, help);
    return choice;
}

QLabel* labelOf(const QWidget* field)
{
    const auto labels = field->parentWidget()->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
    for (QLabel* label : labels)
        if (label->buddy() == field)
            return label;
    return nullptr;
}

QCheckBox* addBox(QLayout* to, const char* name, const QString& caption, const char* shortcut, const Help& help)
{
    return add<QCheckBox>(to, name, caption, shortcut, help);
}

QRadioButton* addRadio(QLayout* to, const char* name, const QString& caption, const char* shortcut, const Help& help)
{
    return add<QRadioButton>(to, name, caption, shortcut, help);
}

QPushButton* addButton(QLayout* to, const char* name, const QString& caption, const char* shortcut, const Help& help)
{
    return add<QPushButton>(to, name, caption, shortcut, help);
}

QBoxLayout* columns(QLayout* left, QLayout* right)
{
    constexpr int gapPixels = 18;
    auto* both = new QHBoxLayout;
    both->addLayout(left);
    both->addSpacing(gapPixels);
    both->addLayout(right);
    return both;
}

QGroupBox* addGroup(QLayout* to, const char* name, const QString& title, QLayout* inside, const Help& help)
{
    auto* group = new QGroupBox(title);
    describe(group, QString::fromLatin1(name), help);
    group->setLayout(inside);
    append(to, group);
    return group;
}

QLabel* addText(QLayout* to, const char* name, const QString& line)
{
    QLabel* label = plainLabel(line);
    label->setObjectName(QString::fromLatin1(name));
    append(to, label);
    return label;
}

QTextEdit* addTextView(QLayout* to, const char* name, const QString& title, const Help& help)
{
    auto* view = new QTextEdit;
    describe(view, QString::fromLatin1(name), help);
    view->setAccessibleName(title);
    view->setReadOnly(true);
    append(to, view);
    return view;
}

void describeTable(QTableWidget* table, const char* name, const QString& title, const Help& help)
{
    describe(table, QString::fromLatin1(name), help);
    table->setAccessibleName(title);
    table->setTabKeyNavigation(false);
    if (auto* corner = table->findChild<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly)) {
        describe(corner, table->objectName() + "Corner", help);
        corner->setAccessibleName(text("Select all"));
    }
}

void fillTextView(QTextEdit* view, const QString& text, int points)
{
    QFont font = view->font();
    if (points > 0)
        font.setPointSize(points);
    view->setFont(font);
    view->insertPlainText(text);
    view->moveCursor(QTextCursor::Start);
}

QPushButton* addClose(QDialog* dialog, QBoxLayout* row, const Help& help)
{
    auto* close = addButton(row, "closeButton", text("&Close"), "Alt+C", help);
    close->setDefault(true);
    QObject::connect(close, &QPushButton::clicked, dialog, &QDialog::accept);
    return close;
}

void addOkCancel(QDialog* dialog, QBoxLayout* row)
{
    auto* ok =
        addButton(row, "okButton", text("&OK"), "Alt+O", {text("Accepts the values on show and closes the dialog.")});
    ok->setDefault(true);
    auto* cancel = addButton(row, "cancelButton", text("&Cancel"), "Alt+C",
                             {text("Closes the dialog. What was changed in its fields is forgotten.")});
    QObject::connect(ok, &QPushButton::clicked, dialog, &QDialog::accept);
    QObject::connect(cancel, &QPushButton::clicked, dialog, &QDialog::reject);
}

void finish(QDialog* dialog, QLayout* content)
{
    auto* buttons = new QHBoxLayout;
    addOkCancel(dialog, buttons);
    finish(dialog, content, buttons);
}

void finish(QDialog* dialog, QLayout* content, QBoxLayout* buttons)
{
    buttons->insertStretch(0);
    auto* column = new QVBoxLayout(dialog);
    column->addLayout(content, 1);
    column->addLayout(buttons);
}

void setTabOrder(std::initializer_list<QWidget*> widgets)
{
    QWidget* before = nullptr;
    for (QWidget* widget : widgets) {
        if (before)
            QWidget::setTabOrder(before, widget);
        before = widget;
    }
}

void setShown(QWidget* widget, bool shown)
{
    widget->setVisible(shown);
    widget->setEnabled(shown);
    if (const auto* field = qobject_cast<Field*>(widget))
        if (QLabel* label = labelOf(field))
            setShown(label, shown);
}

void setEditEnabled(Field* field, bool enabled)
{
    field->setEnabled(enabled);
    if (QLabel* label = labelOf(field))
        label->setEnabled(enabled);
}

void setName(Field* field, const QString& name)
{
    QString letters = name;
    while (letters.endsWith(' '))
        letters.chop(1);
    field->setText(name);
    field->setCursorPosition(static_cast<int>(letters.size()));
}

void setNumber(Field* field, double value)
{
    field->showValue(value, shownNumber(value));
}

void setNumber(Field* field, int value)
{
    field->showValue(value, QString::number(value));
}

void setPrinted(Field* field, const char* format, double value)
{
    field->showValue(value, printedNumber(format, value));
}

double number(const Field* field)
{
    return field->value();
}

int integer(const Field* field)
{
    return field->wholeValue();
}

void say(QWidget* parent, const QString& message)
{
    QMessageBox box(QMessageBox::Information, text("Vorlix"), message, QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

}  // namespace form
