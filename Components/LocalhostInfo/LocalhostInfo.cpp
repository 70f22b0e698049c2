#include "LocalhostInfo.h"

#include "Logger.h"
#include "LoggerManager.h"

#include <sys/utsname.h>

Logger* LocalhostInfo::log = LoggerManager::logger();

namespace
{

utsname systemNames()
{
    utsname names = {};
    uname(&names); // A failure leaves all names empty.
    return names;
}

} // namespace

LocalhostInfo::LocalhostInfo(QObject* parent) : QObject(parent)
{
    LOG_DEBUG("Constructed");
}

LocalhostInfo::~LocalhostInfo()
{
    LOG_DEBUG("Destroyed");
}

QString LocalhostInfo::name() const
{
    return QString::fromLocal8Bit(systemNames().nodename);
}

QString LocalhostInfo::architecture() const
{
    return QString::fromLocal8Bit(systemNames().machine);
}

QString LocalhostInfo::operatingSystem() const
{
    utsname const names = systemNames();
    return QString::fromLocal8Bit(names.sysname) + ' ' + QString::fromLocal8Bit(names.release);
}

bool LocalhostInfo::isWindowsThemed() const
{
    return false;
}
