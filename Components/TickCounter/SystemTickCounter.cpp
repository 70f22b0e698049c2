#include "SystemTickCounter.h"

#include "Logger.h"
#include "LoggerManager.h"

#include <cerrno>
#include <sys/time.h>

Logger* SystemTickCounter::log = LoggerManager::logger();

qint64 SystemTickCounter::msSinceEpoch()
{
    timeval now;
    if (gettimeofday(&now, nullptr) != 0)
        LOG_FATAL("Could not gettimeofday(); error code %s.", qPrintable(qt_error_string(errno)));
    return qint64{now.tv_sec} * 1000 + now.tv_usec / 1000;
}
