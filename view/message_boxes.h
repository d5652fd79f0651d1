// The message boxes and questions of the commands, and the wait cursor of those that calculate long.
#pragma once

#include <QString>

class QWidget;

// All boxes show plain text: what they say may hold names of satellites and files, or the words of a server.

/// A message with the button OK.
void inform(QWidget* parent, const QString& title, const QString& text);

/// A warning with the button OK.
void warn(QWidget* parent, const QString& title, const QString& text);

/// A question with Yes and No; Return and Escape say no.
bool agrees(QWidget* parent, const QString& title, const QString& text);

/// A warning with OK and a second button, `end`. @return  whether that was pressed
bool warnOrEnd(QWidget* parent, const QString& title, const QString& text, const QString& end);

/// That a file is as it was, and why; a line each.
QString nothingWritten(const QString& file, const QString& why);

/// A warning titled "Vorlix" with a second button "Cancel", which Escape presses; the answer is not used.
void warnWithCancel(QWidget* parent, const QString& text);

/// A warning titled "Vorlix" with the one button "Cancel".
void warnOnlyCancel(QWidget* parent, const QString& text);

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
