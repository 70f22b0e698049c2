#include "TestEnvironment.h"

#include <QCoreApplication>
#include <QSettings>

TestEnvironment::TestEnvironment()
{
    QByteArray const home = _home.path().toUtf8();
    qputenv("HOME", home);
    qputenv("XDG_CONFIG_HOME", home + "/.config");
    qputenv("XDG_CACHE_HOME", home + "/.cache");
    QCoreApplication::setOrganizationName("OmbravisionTests");
    QCoreApplication::setApplicationName("OmbravisionTests");
    QSettings::setDefaultFormat(QSettings::IniFormat);
}
