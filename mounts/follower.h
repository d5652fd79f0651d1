// Following a satellite with a mount: in a thread of its own, so that neither a long calculation nor an open dialog
// makes the mount wait.
#pragma once

#include <functional>
#include <memory>

#include <QObject>
#include <QThread>
#include <QTimer>

#include "mounts/follow_plan.h"
#include "mounts/mount.h"

/// What is followed, from where, and with what.
struct FollowTask
{
    QString name;  // of the satellite
    Orbit orbit;
    Site site;
    Models models;
    FollowLimits limits;
    MountAddress mount;
    int tick = 1000;  // milliseconds between two words to the mount
};

/// Gives the time, MJD UTC.
using FollowClock = std::function<double()>;

/// The clock of the computer.
double clockOfComputer();

/// Sends a mount to the start of the next pass shortly before it, tells it at each tick where to point while the pass
/// lasts, and stops it afterwards. One in progress is followed at once. Of one thread.
class Follower : public QObject
{
    Q_OBJECT

public:
    Follower(const FollowTask& task, const FollowClock& clock);

    /// Opens the mount and goes on until the end of the pass, until `stop`, or until the mount fails.
    void start();
    /// Ends all movement; `ended` follows.
    void stop();

Q_SIGNALS:
    /// What it does now, as a line for a person.
    void told(const QString& line);
    /// It is over, and the mount has been stopped if it could be reached; with a reason unless `stop` was called.
    void ended(const QString& why);

private:
    void step();
    void finish(const QString& why);
    QString line(const FollowStep& next) const;

    FollowTask task;
    FollowClock clock;
    FollowPlan plan;
    std::unique_ptr<Mount> mount;
    QTimer timer;
    bool followed = false;  // the pass has begun
    double slewedFor = 0;   // start of the pass to which the mount was sent
    QString pending;        // reason to end, while the mount is being stopped
};

/// A follower with its thread. When the object goes, the mount has been stopped.
class Following : public QObject
{
    Q_OBJECT

public:
    explicit Following(const FollowTask& task, const FollowClock& clock = clockOfComputer);
    ~Following() override;

    /// Ends all movement at once; `ended` follows.
    void stop();
    bool isRunning() const { return running; }
    const QString& name() const { return satellite; }

Q_SIGNALS:
    void told(const QString& line);
    void ended(const QString& why);

private:
    QThread thread;
    Follower* follower;  // lives in the thread
    QString satellite;
    bool running = true;
};
