#include "mounts/follower.h"

#include <QDateTime>

namespace {

constexpr double unixEpochMjd = 40587.0;
constexpr double millisecondsPerDay = 86400000.0;

QString clockTime(double mjd)
{
    const auto ms = static_cast<qint64>((mjd - unixEpochMjd) * millisecondsPerDay);
    return QDateTime::fromMSecsSinceEpoch(ms, Qt::UTC).toString("yyyy-MM-dd HH:mm:ss");
}

}  // namespace

double clockOfComputer()
{
    return unixEpochMjd + static_cast<double>(QDateTime::currentMSecsSinceEpoch()) / millisecondsPerDay;
}

Follower::Follower(const FollowTask& what, const FollowClock& time)
    : task(what), clock(time), plan(what.orbit, what.site, what.models, what.limits), timer(this)
{
    timer.setInterval(task.tick);
    timer.setTimerType(Qt::PreciseTimer);
    connect(&timer, &QTimer::timeout, this, &Follower::step);
}

void Follower::start()
{
    mount = makeMount(task.mount);
    connect(mount.get(), &Mount::opened, this, [this] {
        timer.start();
        step();
    });
    connect(mount.get(), &Mount::failed, this, [this](const QString& why) {
        timer.stop();
        Q_EMIT ended(pending.isEmpty() ? why : pending);
    });
    connect(mount.get(), &Mount::halted, this, [this] { Q_EMIT ended(pending); });
    Q_EMIT told(tr("Reaching the mount at %1...").arg(task.mount.host));
    mount->open();
}

void Follower::stop()
{
    timer.stop();
    mount->halt();
}

void Follower::step()
{
    const FollowStep next = plan.at(clock());
    if (next.kind == FollowStep::Kind::sunNear)
        return finish(tr("%1 is too near to the Sun").arg(task.name));
    if (next.kind == FollowStep::Kind::noPass)
        return finish(tr("%1 does not come up within two days").arg(task.name));
    if (followed && next.kind != FollowStep::Kind::follow)
        return finish(tr("%1 has set").arg(task.name));
    Q_EMIT told(line(next));
    if (mount->isBusy())
        return;
    if (next.kind == FollowStep::Kind::follow) {
        followed = true;
        mount->follow(next.aim);
    } else if (next.kind == FollowStep::Kind::slew && slewedFor != next.start) {
        slewedFor = next.start;
        mount->goTo(next.aim);
    }
}

void Follower::finish(const QString& why)
{
    pending = why;
    stop();
}

QString Follower::line(const FollowStep& next) const
{
    switch (next.kind) {
    case FollowStep::Kind::follow:
        return tr("Following %1: azimuth %2, elevation %3   (Escape ends it)")
            .arg(task.name)
            .arg(next.aim.azimuth, 0, 'f', 1)
            .arg(next.aim.elevation, 0, 'f', 1);
    case FollowStep::Kind::slew:
        return tr("Waiting for %1 at azimuth %2, elevation %3 from %4 UTC on   (Escape ends it)")
            .arg(task.name)
            .arg(next.aim.azimuth, 0, 'f', 1)
            .arg(next.aim.elevation, 0, 'f', 1)
            .arg(clockTime(next.start));
    case FollowStep::Kind::wait:
        return tr("%1 comes up at %2 UTC   (Escape ends it)").arg(task.name, clockTime(next.start));
    case FollowStep::Kind::sunNear:
    case FollowStep::Kind::noPass:
        break;
    }
    return {};
}

Following::Following(const FollowTask& task, const FollowClock& clock)
    : follower(new Follower(task, clock)), satellite(task.name)
{
    follower->moveToThread(&thread);
    connect(&thread, &QThread::started, follower, &Follower::start);
    connect(&thread, &QThread::finished, follower, &QObject::deleteLater);
    connect(follower, &Follower::ended, &thread, &QThread::quit, Qt::DirectConnection);
    connect(follower, &Follower::told, this, &Following::told);
    connect(follower, &Follower::ended, this, [this](const QString& why) {
        running = false;
        Q_EMIT ended(why);
    });
    thread.start();
}

Following::~Following()
{
    stop();
    thread.wait();
}

void Following::stop()
{
    if (running)
        QMetaObject::invokeMethod(follower, &Follower::stop);
}
