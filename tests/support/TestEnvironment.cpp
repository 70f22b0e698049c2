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

#ifdef __SANITIZE_THREAD__
// Libraries that are not instrumented hide the locks that they take.
extern "C" char const* __tsan_default_suppressions()
{
    return "race:tzset_internal\n"
           "race:libproxy.so\n";
}
#endif
