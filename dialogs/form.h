// What the dialogs are made of: rows, boxes, groups and the OK and Cancel row. Each widget gets its object name, its
// label buddy, its tip, its What's This text, its shortcut and its name for a screen reader in one place, so that all
// dialogs look and behave alike. Labels show plain text.
#pragma once

#include <initializer_list>

#include <QString>

#include "dialogs/field.h"

class QBoxLayout;
class QCheckBox;
class QComboBox;
class QDialog;
class QFormLayout;
class QGroupBox;
class QLabel;
class QLayout;
class QPushButton;
class QRadioButton;
class QTableWidget;
class QTextEdit;
class QWidget;

namespace form {

/// The help of a widget: `whatsThis` answers Shift+F1, `tip` shows under the pointer and may be empty.
struct Help
{
    QString whatsThis;
    QString tip = {};
};

/// A row of a form: a label in front of a field for a number. The label is the field's buddy, shares its help and is
/// named after it: "latLabel" for "latEdit".
Field* addEdit(QFormLayout* rows, const char* name, const QString& label, const Help& help);

/// The same for a whole number.
Field* addWholeEdit(QFormLayout* rows, const char* name, const QString& label, const Help& help);

/// The same for a text.
Field* addTextEdit(QFormLayout* rows, const char* name, const QString& label, const Help& help);

/// The same with a list to choose from: "siteLabel" for "siteBox".
QComboBox* addChoice(QFormLayout* rows, const char* name, const QString& label, const Help& help);

/// The label whose buddy is the field; null if it has none.
QLabel* labelOf(const QWidget* field);

/// The buttons below go to the end of the layout, each on a row of its own in a form. `shortcut` is set after the text
/// and may be null: then the mnemonic of the text stands alone.
QCheckBox* addBox(QLayout* to, const char* name, const QString& caption, const char* shortcut, const Help& help);
/// The radio buttons of one layout exclude each other.
QRadioButton* addRadio(QLayout* to, const char* name, const QString& caption, const char* shortcut, const Help& help);
/// The slot is up to the caller.
QPushButton* addButton(QLayout* to, const char* name, const QString& caption, const char* shortcut, const Help& help);

/// Two halves beside each other.
QBoxLayout* columns(QLayout* left, QLayout* right);

/// A frame with a title around the layout.
QGroupBox* addGroup(QLayout* to, const char* name, const QString& title, QLayout* inside, const Help& help);

/// A line of text that belongs to no field.
QLabel* addText(QLayout* to, const char* name, const QString& line);

/// A read-only text; it takes the room that is left. A screen reader calls it by its title.
QTextEdit* addTextView(QLayout* to, const char* name, const QString& title, const Help& help);

/// Names a table, and the button in its corner, for screen readers and Shift+F1.
void describeTable(QTableWidget* table, const char* name, const QString& title, const Help& help);

/// Writes a plain text into an empty view, in a size in points (the size stays if it is 0), and shows its start.
void fillTextView(QTextEdit* view, const QString& text, int points);

/// Puts closeButton (default, Alt+C, accepts) at the end of a row.
QPushButton* addClose(QDialog* dialog, QBoxLayout* row, const Help& help);

/// Puts okButton (default, Alt+O) and cancelButton (Alt+C) at the end of a row.
void addOkCancel(QDialog* dialog, QBoxLayout* row);

/// Ends a dialog: the content, and below it the row of the OK and Cancel buttons.
void finish(QDialog* dialog, QLayout* content);

/// The same with a row of the caller's own; its buttons stand to the right.
void finish(QDialog* dialog, QLayout* content, QBoxLayout* buttons);

/// The order in which Tab walks through the widgets.
void setTabOrder(std::initializer_list<QWidget*> widgets);

/// Shown means visible and enabled, not shown means hidden and disabled. The label of a field goes with it.
void setShown(QWidget* widget, bool shown);

/// Enables or disables a field together with its label.
void setEditEnabled(Field* field, bool enabled);

/// Shows a name of the record, which may end in blanks: the cursor stands after its last letter.
void setName(Field* field, const QString& name);

/// Shows a number with six significant digits.
void setNumber(Field* field, double value);
/// Shows a whole number.
void setNumber(Field* field, int value);

/// Shows a number by a printf format for one double.
void setPrinted(Field* field, const char* format, double value);

/// The number behind a field: what it shows, to the last bit, as long as nobody has typed over it; 0 where a typed text
/// is no number.
double number(const Field* field);
/// The same as a whole number; a typed fraction counts as 0.
int integer(const Field* field);

/// A message titled "Vorlix" in plain text, whatever stands in it.
void say(QWidget* parent, const QString& message);

}  // namespace form
