#include "app/follow_control.h"

#include "mounts/follower.h"

#include <QCoreApplication>
#include <QKeyEvent>

FollowControl::FollowControl(QObject* parent) : QObject(parent) {}

FollowControl::~FollowControl() = default;

void FollowControl::start(const FollowTask& task)
{
    following = std::make_unique<Following>(task);
    connect(following.get(), &Following::told, this, &FollowControl::told);
    connect(following.get(), &Following::ended, this, [this](const QString& why) {
        QCoreApplication::instance()->removeEventFilter(this);
        Q_EMIT ended(following->name(), why);
    });
    QCoreApplication::instance()->installEventFilter(this);
}

void FollowControl::stop()
{
    if (following)
        following->stop();
}

bool FollowControl::isRunning() const
{
    return following && following->isRunning();
}

QString FollowControl::name() const
{
    return following ? following->name() : QString();
}

/// Escape goes on to whom it was meant for as well.
bool FollowControl::eventFilter(QObject* watched, QEvent* event)
{
    const bool pressed = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (pressed && static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Escape)
        stop();
    return QObject::eventFilter(watched, event);
}
