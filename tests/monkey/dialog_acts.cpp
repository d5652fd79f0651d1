// Answers to dialogs: something in any of the fields, and then any of the buttons.

#include "monkey/hand.h"

#include <algorithm>
#include <array>

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPointer>
#include <QTest>

namespace monkey {

namespace {

constexpr const char* longName =
    "\xc3\xa4\xe2\x98\x83\xf0\x9f\x9b\xb0 a long name that fits no field of the record at all";

// clang-format off
constexpr std::array texts{
    "", "0", "1", "-1", "5", "12", "24", "59.99999", "90", "-90.0001", "180", "360", "0.5", "1.0", "1.5", "1e-8", "2018",
    "1957", "25544", "339999", "340000", "7000", "-7000", "1e300", "-1e300", "1e-300", "2147483647", "-2147483648",
    "99999999999", "nan", "inf", "abc", "1,5", "12.3456", "ISS", "*", "I", "1998-067A", "98067A", longName};
// clang-format on

// a search through more days than these, or a list of them in steps of a tenth of a second, would keep the hand waiting
constexpr std::array durations{"0", "0.1", "0.3", "1", "-0.5", "abc", "nan"};

// Dates near those of the elements, and some that no date can be: numeric satellites are flown to all others, which
// takes minutes for a few years.
constexpr std::array years{"2018", "0", "-1", "1500", "abc", "1e300", "nan", "2147483647"};
constexpr std::array months{"1", "2", "0", "-1", "abc", "2147483647"};
constexpr std::array partsOfDate{"0", "1", "-1", "5", "12", "23", "31", "59", "60", "99", "abc", "1e300"};

// an integration to others is what the program is asked to do, and takes hours
constexpr std::array tolerances{"1e-8", "1e-6", "0.001", "1e-10", "0", "-1", "1e300", "abc"};

constexpr std::array fileNames{"visual.txt",  "numeric.txt", "iridium.txt", "messages.csv", "messages.xml",
                               "damaged.txt", "empty.txt",   "missing.txt", "folder",       "sky.png",
                               "list.txt",    "saved",       "saved.csv",   "vorlix.cfg",   "sp ace.txt"};

constexpr std::array addresses{"127.0.0.1:1/visual.txt",
                               "https://127.0.0.1:1/gp.php?GROUP=visual&FORMAT=csv",
                               "127.0.0.1:1/",
                               "127.0.0.1",
                               "a",
                               ""};

constexpr int actsPerDialog = 10;

template <class Array>
QString textOf(const Array& all, Dice& dice)
{
    return QString::fromUtf8(oneOf(all, dice));
}

QString textFor(const QLineEdit& edit, Dice& dice)
{
    const QString name = edit.objectName();
    if (name == QLatin1String("yearEdit"))
        return textOf(years, dice);
    if (name == QLatin1String("monthEdit"))
        return textOf(months, dice);
    if (QStringLiteral("tzoneEdit mecoEdit deltmEdit tmEdit dayEdit hourEdit minEdit secEdit rtEdit")
            .split(' ')
            .contains(name))
        return textOf(partsOfDate, dice);
    if (name == QLatin1String("durEdit"))
        return textOf(durations, dice);
    if (name == QLatin1String("tolEdit"))
        return textOf(tolerances, dice);
    return textOf(texts, dice);
}

void type(QLineEdit& edit, const QString& text, Tell tell)
{
    tell(QStringLiteral("  type \"%1\" into %2").arg(text, edit.objectName()));
    edit.selectAll();
    QTest::keyClick(&edit, Qt::Key_Delete);
    const bool onKeys = std::all_of(text.begin(), text.end(), [](QChar c) { return c.unicode() < 128; });
    if (onKeys)
        QTest::keyClicks(&edit, text);
    else
        edit.insert(text);
}

void press(QAbstractButton& button, Tell tell)
{
    tell(QStringLiteral("  press %1 (%2)").arg(button.text(), button.objectName()));
    button.click();
}

/// One of those that can be seen and used.
template <class Widget>
Widget* anyOf(const QDialog& dialog, Dice& dice)
{
    QList<Widget*> all = dialog.findChildren<Widget*>();
    all.removeIf([](const Widget* widget) { return !widget->isVisible() || !widget->isEnabled(); });
    return all.isEmpty() ? nullptr : oneOf(all, dice);
}

/// No other folders: a name of this one, or none.
void answerFileDialog(QFileDialog& dialog, Dice& dice, Tell tell)
{
    auto* const name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    if (!name || dice.oneIn(4)) {
        tell(QStringLiteral("  no file"));
        dialog.reject();
        return;
    }
    auto* const filter = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
    if (filter && filter->count() > 0 && dice.oneIn(3))
        dialog.selectNameFilter(oneOf(dialog.nameFilters(), dice));
    name->setText(textOf(fileNames, dice));
    tell(QStringLiteral("  file %1").arg(name->text()));
    QTest::keyClick(name, Qt::Key_Return);
}

/// No other machine than this one.
void answerOnlineUpdate(QDialog& dialog, Dice& dice, Tell tell)
{
    if (auto* edit = anyOf<QLineEdit>(dialog, dice))
        type(*edit, textOf(addresses, dice), tell);
    if (dice.oneIn(3))
        dialog.reject();
    else
        dialog.accept();
}

void useList(QComboBox& box, Dice& dice, Tell tell)
{
    const int row = static_cast<int>(dice.below(static_cast<std::size_t>(box.count())));
    tell(QStringLiteral("  choose %1 in %2").arg(row).arg(box.objectName()));
    box.setCurrentIndex(row);
    Q_EMIT box.activated(row);
}

void pressDialogKey(QDialog& dialog, Dice& dice, Tell tell)
{
    constexpr std::array keys{Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab,    Qt::Key_Up,
                              Qt::Key_Down,   Qt::Key_Space,  Qt::Key_PageUp, Qt::Key_F1};
    const Qt::Key key = oneOf(keys, dice);
    tell(QStringLiteral("  key %1").arg(QKeySequence(key).toString()));
    QWidget* const focused = dialog.focusWidget();
    QTest::keyClick(focused ? focused : &dialog, key);
}

void clickInDialog(QDialog& dialog, Dice& dice, Tell tell)
{
    auto* const widget = anyOf<QWidget>(dialog, dice);
    if (!widget)
        return;
    const QPoint p(static_cast<int>(dice.below(static_cast<std::size_t>(widget->width() + 1))),
                   static_cast<int>(dice.below(static_cast<std::size_t>(widget->height() + 1))));
    tell(QStringLiteral("  click %1 at %2,%3").arg(widget->objectName()).arg(p.x()).arg(p.y()));
    QTest::mouseClick(widget, dice.oneIn(6) ? Qt::RightButton : Qt::LeftButton, {}, p);
}

void answerFields(QDialog& dialog, Dice& dice, Tell tell)
{
    const std::size_t what = dice.below(10);
    auto* const edit = anyOf<QLineEdit>(dialog, dice);
    auto* const box = anyOf<QComboBox>(dialog, dice);
    if (what < 5 && edit)
        type(*edit, textFor(*edit, dice), tell);
    else if (what < 6 && box && box->count() > 0)
        useList(*box, dice, tell);
    else if (what < 7)
        pressDialogKey(dialog, dice, tell);
    else if (what < 8)
        clickInDialog(dialog, dice, tell);
    else if (auto* button = anyOf<QAbstractButton>(dialog, dice))
        press(*button, tell);
}

}  // namespace

void actOnDialog(QDialog& dialog, Dice& dice, Tell tell)
{
    const int acts = dialog.property("acts").toInt();
    dialog.setProperty("acts", acts + 1);
    if (acts == 0)
        tell(QStringLiteral("  dialog \"%1\"").arg(dialog.windowTitle()));
    if (acts > actsPerDialog) {
        tell(QStringLiteral("  enough"));
        dialog.reject();
    } else if (auto* files = qobject_cast<QFileDialog*>(&dialog)) {
        answerFileDialog(*files, dice, tell);
    } else if (dialog.windowTitle() == QLatin1String("Online Update") && !qobject_cast<QMessageBox*>(&dialog)) {
        answerOnlineUpdate(dialog, dice, tell);
    } else if (dice.oneIn(6)) {
        tell(QStringLiteral("  accept"));
        dialog.accept();
    } else {
        answerFields(dialog, dice, tell);
    }
}

}  // namespace monkey
