#include "TestEnvironment.h"

#include <QCoreApplication>
#include <QNetworkProxyFactory>
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
    QNetworkProxyFactory::setUseSystemConfiguration(false); // This machine's proxies are none of the tests' affair.
}
