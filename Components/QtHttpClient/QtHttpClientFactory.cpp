#include "QtHttpClientFactory.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "QtHttpClient.h"

Logger* QtHttpClientFactory::log = LoggerManager::logger();

HttpClient* QtHttpClientFactory::createHttpClient(QObject* parent)
{
    return new QtHttpClient(parent);
}

void QtHttpClientFactory::disposeHttpClient(HttpClient* client)
{
    if (!client)
        return;
    if (!qobject_cast<QtHttpClient*>(client)) {
        LOG_WARNING("disposeHttpClient(): not a QtHttpClient but a %s.", client->metaObject()->className());
        return;
    }
    client->blockSignals(true);
    client->deleteLater();
}
