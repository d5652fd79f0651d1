// Following a satellite with a mount, as the main window has it.
#pragma once

#include <memory>

#include <QObject>

class Following;
struct FollowTask;

/// At most one satellite is followed. Escape ends it, wherever in the program it is pressed, and so does the end of the
/// program.
class FollowControl : public QObject
{
    Q_OBJECT

public:
    explicit FollowControl(QObject* parent);
    ~FollowControl() override;

    void start(const FollowTask& task);
    void stop();
    bool isRunning() const;
    /// The satellite that is followed.
    QString name() const;

Q_SIGNALS:
    /// What goes on, as a line for the status bar.
    void told(const QString& line);
    /// It is over; with a reason unless it was ended by hand.
    void ended(const QString& name, const QString& why);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    std::unique_ptr<Following> following;
};
