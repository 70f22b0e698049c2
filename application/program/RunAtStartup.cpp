#include "RunAtStartup.h"

bool RunAtStartup::runAtStartup(QString const&, QString const&, QStringList const&)
{
    return false;
}

bool RunAtStartup::setRunAtStartup(QString const&, QString const&, QStringList const&, bool)
{
    return true;
}
