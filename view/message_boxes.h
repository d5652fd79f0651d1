// The message boxes and questions of the commands, and the wait cursor of those that calculate long.
#pragma once

#include <QString>

class QWidget;

/// A warning titled "Vorlix" with a second button "Quit", which Escape presses; the answer is not used.
void warnWithQuit(QWidget* parent, const QString& text);

/// A warning titled "Vorlix" with the one button "Quit".
void warnOnlyQuit(QWidget* parent, const QString& text);

/// A message titled "Vorlix": there is no satellite for the command.
void sayNoSatellite(QWidget* parent);

/// Asks for a number from 0 to `most`, which takes the place of the value. @return  false if the user cancelled
bool askNumber(QWidget* parent, const QString& title, const QString& label, double& value, double most, int decimals);

/// Shows the wait cursor for the length of a scope.
class WaitCursor
{
public:
    WaitCursor();
    ~WaitCursor();
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
};
