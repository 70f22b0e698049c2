#include "QtTimerFactory.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "QtTimer.h"

Logger* QtTimerFactory::log = LoggerManager::logger();

Timer* QtTimerFactory::createTimer()
{
    return new QtTimer;
}

void QtTimerFactory::disposeTimer(Timer* timer)
{
    if (!timer)
        return;
    if (!qobject_cast<QtTimer*>(timer)) {
        LOG_WARNING("Cannot dispose of a %s; ignoring.", timer->metaObject()->className());
        return;
    }
    timer->blockSignals(true);
    timer->deleteLater();
}
