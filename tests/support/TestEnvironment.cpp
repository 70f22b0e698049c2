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
// Libraries that are not instrumented hide the locks that they take: what they touch is not reported.
extern "C" char const* __tsan_default_options()
{
    return "ignore_noninstrumented_modules=1";
}
#endif
