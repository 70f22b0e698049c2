#include "BiscottiClientId.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "RandomGenerator.h"
#include "TickCounter.h"

#include <QCryptographicHash>

Logger* BiscottiClientId::log = LoggerManager::logger();

namespace
{

constexpr int largestRandomNumber = 2000000000;

} // namespace

QString BiscottiClientId::create(QString const& machineId, RandomGenerator& randomGenerator, TickCounter& tickCounter)
{
    if (machineId.isEmpty())
        LOG_ERROR("Could not retrieve Machine Id address for unique Biscotti hash.");
    qint32 const random = randomGenerator.qint32rand(largestRandomNumber);
    qint64 const ticks = tickCounter.msSinceEpoch();
    QString const macTick = machineId + u'_' + QString::number(ticks) + u'_' + QString::number(random);
    LOG_DEBUG("macTick: %s", qUtf8Printable(macTick));
    QByteArray const hash = QCryptographicHash::hash(macTick.toUtf8(), QCryptographicHash::Md5);
    QString const clientId = QString::fromLatin1(hash.toBase64());
    LOG_DEBUG("Created Biscotti client ID: %s", qUtf8Printable(clientId));
    return clientId;
}
