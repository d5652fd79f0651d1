#include "app/scan_watch.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>

#include "record/keep.h"

namespace {

/// A window that closes is input for Qt as well, so that excluding all of it would keep back that event too.
bool isInput(const QEvent& event)
{
    return event.isInputEvent() || event.type() == QEvent::Shortcut || event.type() == QEvent::InputMethod;
}

bool isEscape(const QEvent& event)
{
    return event.type() == QEvent::KeyPress && static_cast<const QKeyEvent&>(event).key() == Qt::Key_Escape;
}

}  // namespace

ScanWatch::ScanWatch(QWidget* mainWindow) : QObject(mainWindow), window(mainWindow) {}

bool ScanWatch::look()
{
    const Keep now(looking, true);
    closed = escaped = false;
    QCoreApplication::instance()->installEventFilter(this);
    QEventLoop events;
    QMetaObject::invokeMethod(&events, &QEventLoop::quit, Qt::QueuedConnection);  // after those that have come
    events.exec(QEventLoop::ExcludeSocketNotifiers | QEventLoop::X11ExcludeTimers);
    QCoreApplication::instance()->removeEventFilter(this);
    if (closed)
        QMetaObject::invokeMethod(window, &QWidget::close, Qt::QueuedConnection);
    return !closed && !escaped;
}

bool ScanWatch::eventFilter(QObject* watched, QEvent* event)
{
    const bool closesWindow = event->type() == QEvent::Close && watched->isWindowType();
    if (!closesWindow) {
        escaped = escaped || isEscape(*event);
        return isInput(*event);
    }
    event->ignore();
    closed = closed || watched == window->windowHandle();
    return true;
}
