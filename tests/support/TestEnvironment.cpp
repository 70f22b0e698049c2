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

#ifdef __SANITIZE_THREAD__
/// Read by the thread sanitizer at start; TSAN_OPTIONS still overrides it. Qt and the libraries below it are not
/// built with the sanitizer, which therefore cannot see the locks inside them: what they allocate, copy and free on
/// their own is left out. Everything that our code does itself is watched, QMutex included.
extern "C" char const* __tsan_default_options()
{
    return "ignore_noninstrumented_modules=1";
}
#endif
