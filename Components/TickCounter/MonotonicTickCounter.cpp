#include "MonotonicTickCounter.h"

#include "Logger.h"
#include "LoggerManager.h"

#include <cerrno>
#include <ctime>

Logger* MonotonicTickCounter::log = LoggerManager::logger();

qint64 MonotonicTickCounter::msSinceEpoch()
{
    timespec now;
    if (clock_gettime(CLOCK_BOOTTIME, &now) != 0)
        LOG_FATAL("Could not clock_gettime(); error code %s.", qPrintable(qt_error_string(errno)));
    return qint64{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
}
