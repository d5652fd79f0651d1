// Keys, clicks, wheel, commands and what else happens to the main window.

#include "monkey/hand.h"

#include <array>
#include <fstream>
#include <iterator>

#include <QAction>
#include <QApplication>
#include <QMenuBar>
#include <QScrollArea>
#include <QTest>
#include <QTimer>
#include <QToolBar>
#include <QWhatsThis>
#include <QWheelEvent>

#include "app/vorlix_app.h"
#include "view/vorlix_view.h"
#include "view/window_helper.h"

namespace monkey {

namespace {

constexpr std::array buttons{Qt::LeftButton, Qt::LeftButton, Qt::RightButton, Qt::MiddleButton};
constexpr std::array modifiers{Qt::NoModifier,      Qt::NoModifier,    Qt::NoModifier,
                               Qt::ControlModifier, Qt::ShiftModifier, Qt::AltModifier};
constexpr std::array keys{Qt::Key_Space,    Qt::Key_Delete, Qt::Key_Home,  Qt::Key_End, Qt::Key_PageUp,
                          Qt::Key_PageDown, Qt::Key_Left,   Qt::Key_Right, Qt::Key_Up,  Qt::Key_Down,
                          Qt::Key_Escape,   Qt::Key_Return, Qt::Key_Tab,   Qt::Key_F1,  Qt::Key_F10};

QPoint anyPoint(const QWidget& widget, Dice& dice)
{
    return {static_cast<int>(dice.below(static_cast<std::size_t>(std::max(widget.width(), 1)))),
            static_cast<int>(dice.below(static_cast<std::size_t>(std::max(widget.height(), 1))))};
}

QString nameOf(const QPoint& p)
{
    return QStringLiteral("%1,%2").arg(p.x()).arg(p.y());
}

/// Most of the time the canvas, else a part of the frame.
QWidget& anyPart(VorlixApp& app, Dice& dice)
{
    if (!dice.oneIn(4))
        return *app.canvas()->viewport();
    const QList<QWidget*> parts = app.findChildren<QWidget*>();
    QWidget* const part = oneOf(parts, dice);
    return part->isVisible() && part->isEnabled() ? *part : *app.menuBar();
}

void giveCommand(VorlixApp& app, Dice& dice, Tell tell)
{
    QList<QAction*> actions = app.findChildren<QAction*>();
    actions.removeIf(
        [](const QAction* a) { return !a->isEnabled() || a->isSeparator() || a->objectName().isEmpty(); });
    QAction* const action = oneOf(actions, dice);
    // the way out is tried less often than all that would be gone with it
    if (action->objectName() == QLatin1String("fileQuit") && !dice.oneIn(3))
        return;
    tell(QStringLiteral("command ") + action->objectName());
    action->trigger();
}

void pressKey(VorlixApp& app, Dice& dice, Tell tell)
{
    const bool hotKey = !dice.oneIn(3);
    const int letter = static_cast<int>(dice.below(36));
    const Qt::Key key =
        hotKey ? static_cast<Qt::Key>(letter < 26 ? Qt::Key_A + letter : Qt::Key_0 + letter - 26) : oneOf(keys, dice);
    const Qt::KeyboardModifier modifier = oneOf(modifiers, dice);
    tell(QStringLiteral("key %1 with %2").arg(QKeySequence(key).toString()).arg(modifier, 0, 16));
    QTest::keyClick(&app, key, modifier);
}

void click(VorlixApp& app, Dice& dice, Tell tell)
{
    QWidget& part = anyPart(app, dice);
    const QPoint p = anyPoint(part, dice);
    const Qt::MouseButton button = oneOf(buttons, dice);
    const Qt::KeyboardModifier modifier = oneOf(modifiers, dice);
    tell(QStringLiteral("click %1 on %2 at %3").arg(button).arg(part.metaObject()->className(), nameOf(p)));
    if (dice.oneIn(8))
        QTest::mouseDClick(&part, button, modifier, p);
    else
        QTest::mouseClick(&part, button, modifier, p);
}

void drag(VorlixApp& app, Dice& dice, Tell tell)
{
    QWidget& part = anyPart(app, dice);
    const QPoint from = anyPoint(part, dice), to = anyPoint(part, dice);
    tell(QStringLiteral("drag on %1 from %2 to %3").arg(part.metaObject()->className(), nameOf(from), nameOf(to)));
    QTest::mousePress(&part, Qt::LeftButton, {}, from);
    QTest::mouseMove(&part, (from + to) / 2);
    QTest::mouseMove(&part, to);
    QTest::mouseRelease(&part, Qt::LeftButton, {}, to);
}

void turnWheel(VorlixApp& app, Dice& dice, Tell tell)
{
    QWidget& part = anyPart(app, dice);
    const QPoint p = anyPoint(part, dice);
    const int notches = static_cast<int>(dice.below(9)) - 4;
    tell(QStringLiteral("wheel %1 on %2").arg(notches).arg(part.metaObject()->className()));
    QWheelEvent event(p, part.mapToGlobal(p), {}, {0, 120 * notches}, Qt::NoButton, oneOf(modifiers, dice),
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&part, &event);
}

/// The clock of the machine goes on, most of the time by seconds.
void passTime(VorlixApp&, Dice& dice, Tell tell)
{
    constexpr std::array<std::time_t, 5> steps{1, 1, 60, 600, 3600};
    const std::time_t step = oneOf(steps, dice);
    tell(QStringLiteral("clock +%1 s").arg(step));
    windows::clockSeconds += step;
}

/// The plots run by this and not by the machine's time, so that a case can be repeated.
void tickOfPlot(VorlixApp& app, Dice&, Tell tell)
{
    auto* const timer = app.findChild<QTimer*>(QString(), Qt::FindDirectChildrenOnly);
    if (!timer || !timer->isActive())
        return;
    tell(QStringLiteral("tick"));
    app.slotTmCheck();
}

void changeWindow(VorlixApp& app, Dice& dice, Tell tell)
{
    const QSize size(static_cast<int>(50 + dice.below(1400)), static_cast<int>(50 + dice.below(1000)));
    tell(QStringLiteral("resize to %1 x %2").arg(size.width()).arg(size.height()));
    app.resize(size);
    if (dice.oneIn(4)) {
        app.hide();
        app.show();
    }
    if (dice.oneIn(20)) {
        tell(QStringLiteral("close the window"));
        app.close();
    }
}

/// Somebody else writes the element file meanwhile.
void changeFile(VorlixApp&, Dice& dice, Tell tell)
{
    constexpr std::array names{"visual.txt",   "numeric.txt",  "iridium.txt",
                               "messages.csv", "messages.xml", "vorlix.cfg"};
    const char* const name = oneOf(names, dice);
    std::ifstream before(name, std::ios::binary);
    const std::string bytes{std::istreambuf_iterator<char>(before), {}};
    const bool again = bytes.empty() || dice.oneIn(2);
    tell(QStringLiteral("%1 %2").arg(QLatin1String(again ? "lay out again, not" : "damage"), QLatin1String(name)));
    if (again)
        layOutFiles();
    else
        std::ofstream(name, std::ios::binary) << fuzz::mutated({bytes}, dice, 16384);
}

using Act = void (*)(VorlixApp& app, Dice& dice, Tell tell);
constexpr std::array<Act, 20> acts{giveCommand, giveCommand, giveCommand, giveCommand, giveCommand,
                                   giveCommand, giveCommand, pressKey,    pressKey,    pressKey,
                                   pressKey,    click,       click,       click,       drag,
                                   turnWheel,   passTime,    tickOfPlot,  tickOfPlot,  changeWindow};

}  // namespace

void actOnWindow(VorlixApp& app, Dice& dice, Tell tell)
{
    if (QWhatsThis::inWhatsThisMode() && dice.oneIn(2))
        QWhatsThis::leaveWhatsThisMode();
    if (dice.oneIn(40))
        changeFile(app, dice, tell);
    else
        oneOf(acts, dice)(app, dice, tell);
}

void actOnPopup(QWidget& popup, Dice& dice, Tell tell)
{
    constexpr std::array menuKeys{Qt::Key_Down,   Qt::Key_Down,   Qt::Key_Up,    Qt::Key_Right,
                                  Qt::Key_Return, Qt::Key_Return, Qt::Key_Escape};
    if (dice.oneIn(5)) {
        tell(QStringLiteral("close the menu"));
        popup.close();
        return;
    }
    const Qt::Key key = oneOf(menuKeys, dice);
    tell(QStringLiteral("key %1 in the menu").arg(QKeySequence(key).toString()));
    QTest::keyClick(&popup, key);
}

}  // namespace monkey
