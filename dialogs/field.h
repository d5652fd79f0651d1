// The line edit of the dialogs: it keeps the number behind its text, marks a text that does not count as it reads, and
// offers its text for replacing when the keyboard comes to it.
#pragma once

#include <functional>

#include <QLineEdit>
#include <QString>

class Field final : public QLineEdit
{
    Q_OBJECT

public:
    /// How the text is read.
    enum class Kind
    {
        text,
        number,
        wholeNumber
    };

    /// Says what is odd about a number that can be read; empty where nothing is.
    using Doubt = std::function<QString(double)>;

    /// An empty field; only a field for numbers is ever marked.
    explicit Field(Kind kind, QWidget* parent = nullptr);

    /// Shows a number as `shown`. While that text stands, `value` gives the number back to its last bit.
    void showValue(double number, const QString& shown);

    /// Whether nobody has typed over what `showValue` has shown.
    bool isAsShown() const;

    /// The number on show, or the one typed over it: 0 where the text is none.
    double value() const;

    /// The same as a whole number; a typed fraction counts as 0.
    int wholeValue() const;

    /// A further reason to mark the field, beside a text that is no number.
    void setDoubt(const Doubt& reason);

    /// Marks or clears the field anew, after something that the doubt depends on has changed.
    void judge();

protected:
    /// Selects the text, unless a click has set the cursor.
    void focusInEvent(QFocusEvent* event) override;

private:
    /// Whether the text is of the kind of the field.
    bool isReadable() const;
    /// What is wrong with the text, empty where nothing is.
    QString complaint() const;

    Kind kind;
    Doubt doubt;
    double shownValue = 0;
    QString shownText;
    QString ownTip;
    bool marked = false;
};
