// A hand that presses whatever there is: one random act at a time on the main window, a menu or a dialog. It keeps to
// its folder and to this machine.
#pragma once

#include "fuzz/mutations.h"

#include <iterator>

#include <QString>

class QDialog;
class QWidget;
class VorlixApp;

namespace monkey {

using fuzz::Dice;

/// What an act is called in the list of events. It is told before the act itself, which may be the last one.
using Tell = void (*)(const QString& event);

template <class All>
auto oneOf(const All& all, Dice& dice)
{
    return all[dice.below(static_cast<std::size_t>(std::size(all)))];
}

/// The files that the program finds in the working directory.
void layOutFiles();

void actOnWindow(VorlixApp& app, Dice& dice, Tell tell);
void actOnPopup(QWidget& popup, Dice& dice, Tell tell);

/// One act of many; from a certain number on the dialog is closed.
void actOnDialog(QDialog& dialog, Dice& dice, Tell tell);

}  // namespace monkey
