// What reaches the main window while a scan has the program to itself.
#pragma once

#include <QObject>

class QWidget;

/// Lets a scan look whether its window has been closed, and keeps the window painted.
///
/// What a person types or clicks meanwhile is dropped, for it was not meant for what the window shows afterwards.
/// Timers wait, and no command starts.
class ScanWatch : public QObject
{
    Q_OBJECT

public:
    explicit ScanWatch(QWidget* mainWindow);

    /// Handles the events that have come.
    ///
    /// @return  false if the window is to be closed; it closes when the command has returned
    bool look();

    bool isLooking() const { return looking; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* window;
    bool looking = false;
    bool closed = false;
};
