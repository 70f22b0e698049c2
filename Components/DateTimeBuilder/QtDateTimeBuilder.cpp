#include "QtDateTimeBuilder.h"

#include <QDateTime>

QDateTime QtDateTimeBuilder::currentDateTime()
{
    return QDateTime::currentDateTime();
}
