#include "EventLoop.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QTimer>

bool processEventsUntil(std::function<bool()> const& condition)
{
    QTimer limit;
    limit.setSingleShot(true);
    limit.start(10000);
    while (!condition()) {
        if (!limit.isActive())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

void processPendingEvents()
{
    QAbstractEventDispatcher* const dispatcher = QAbstractEventDispatcher::instance();
    while (dispatcher->processEvents(QEventLoop::AllEvents))
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}
