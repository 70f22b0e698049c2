#include "MachineIdGenerator.h"

#include "Logger.h"
#include "LoggerManager.h"

#include <QSettings>
#include <QUuid>

Logger* MachineIdGenerator::log = LoggerManager::logger();

QString MachineIdGenerator::machineId()
{
    QSettings settings(QSettings::IniFormat, QSettings::UserScope, "Ombravision", "MachineId");
    QString const key = QStringLiteral("machineId");
    QUuid id(settings.value(key).toString());
    if (id.isNull()) {
        id = QUuid::createUuid();
        settings.setValue(key, id.toString(QUuid::WithoutBraces));
        settings.sync();
        if (settings.status() != QSettings::NoError)
            LOG_WARNING("Could not write the machine id to %s", qPrintable(settings.fileName()));
    }
    return id.toString(QUuid::WithoutBraces);
}
