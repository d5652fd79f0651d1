#include "dialogs/field.h"

#include <cmath>

#include <QApplication>
#include <QFocusEvent>
#include <QPalette>

#include "record/field_numbers.h"

namespace {

/// The background of a marked field: that of the palette with a share of red in it, on light and on dark desktops.
QColor warningColour(const QPalette& palette)
{
    constexpr int redPercent = 30;
    const QColor base = palette.color(QPalette::Base);
    const auto mixed = [](int own, int red) { return (own * (100 - redPercent) + red * redPercent) / 100; };
    return {mixed(base.red(), 255), mixed(base.green(), 0), mixed(base.blue(), 0)};
}

}  // namespace

Field::Field(Kind k, QWidget* parent) : QLineEdit(parent), kind(k)
{
    connect(this, &QLineEdit::textChanged, this, &Field::judge);
}

void Field::showValue(double number, const QString& shown)
{
    shownValue = std::isfinite(number) ? number : 0.0;
    shownText = shown;
    setText(shown);
}

double Field::value() const
{
    return isAsShown() ? shownValue : typedNumber(text());
}

int Field::wholeValue() const
{
    return isAsShown() ? static_cast<int>(shownValue) : typedInteger(text());
}

void Field::setDoubt(const Doubt& reason)
{
    doubt = reason;
}

void Field::judge()
{
    const QString reason = complaint();
    if (!marked && reason.isEmpty())
        return;
    if (!marked)
        ownTip = toolTip();
    marked = !reason.isEmpty();
    QPalette colours;
    if (marked)
        colours.setColor(QPalette::Base, warningColour(QApplication::palette(this)));
    setPalette(colours);
    setToolTip(marked ? reason : ownTip);
    setAccessibleDescription(reason);
}

void Field::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    const Qt::FocusReason reason = event->reason();
    // a click sets the cursor; a field already typed into goes on when its window comes back
    const bool goesOn = reason == Qt::ActiveWindowFocusReason && isModified();
    if (reason != Qt::MouseFocusReason && reason != Qt::PopupFocusReason && !goesOn)
        selectAll();
}

bool Field::isAsShown() const
{
    return !shownText.isNull() && text() == shownText;
}

bool Field::isReadable() const
{
    bool reads = true;
    if (kind == Kind::wholeNumber)
        text().toInt(&reads);
    else if (kind == Kind::number)
        reads = std::isfinite(text().toDouble(&reads)) && reads;
    return reads;
}

QString Field::complaint() const
{
    if (!isReadable())
        return tr("not a number: counts as 0");
    return doubt ? doubt(value()) : QString();
}
