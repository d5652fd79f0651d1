// What reaches the main window while a long calculation has the program to itself.
#pragma once

#include <QObject>

class QWidget;

/// Lets a calculation look whether Escape was pressed or the main window closed, and keeps the window painted.
///
/// What else a person types or clicks meanwhile is dropped, for it was not meant for what the window shows afterwards.
/// Timers wait, and no command starts.
class ScanWatch : public QObject
{
    Q_OBJECT

public:
    explicit ScanWatch(QWidget* mainWindow);

    /// Handles the events that have come.
    ///
    /// @return  false if the calculation is to end; a closed window closes when the command has returned
    bool look();

    bool isLooking() const { return looking; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* window;
    bool looking = false;
    bool closed = false;
    bool escaped = false;
};
