#include "LoggerManager.h"

#include "Logger.h"

Logger* LoggerManager::logger()
{
    static Logger* const theLogger = new Logger(nullptr);
    return theLogger;
}
