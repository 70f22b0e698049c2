#include "RtspLatteClientFactory.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "RtspLatteClient.h"

Logger* RtspLatteClientFactory::log = LoggerManager::logger();

LatteClient* RtspLatteClientFactory::createLatteClient(Uri const& uri)
{
    return new RtspLatteClient(uri, _clientFactory, _timerFactory, nullptr);
}

void RtspLatteClientFactory::disposeLatteClient(LatteClient* client)
{
    if (!client)
        return;
    if (!qobject_cast<RtspLatteClient*>(client)) {
        LOG_WARNING("Asked to dispose of a client of another class, %s", client->metaObject()->className());
        return;
    }
    client->blockSignals(true);
    client->deleteLater();
}
