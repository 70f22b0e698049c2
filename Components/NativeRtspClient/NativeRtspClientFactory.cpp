#include "NativeRtspClientFactory.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "NativeRtspClient.h"
#include "RtspWorkers.h"

Logger* NativeRtspClientFactory::log = LoggerManager::logger();

NativeRtspClientFactory::NativeRtspClientFactory() : _workers(std::make_shared<RtspWorkers>()) {}

NativeRtspClientFactory::~NativeRtspClientFactory()
{
    if (!_workers->wait(farewell))
        LOG_WARNING("%d RTSP sessions are left behind", _workers->count());
}

RtspClient* NativeRtspClientFactory::createRtspClient(QObject* parent)
{
    return new NativeRtspClient(_workers, RtspPatience(), parent);
}

void NativeRtspClientFactory::disposeRtspClient(RtspClient* client)
{
    if (!client)
        return;
    if (!qobject_cast<NativeRtspClient*>(client)) {
        LOG_WARNING("Asked to dispose of a client of another class, %s", client->metaObject()->className());
        return;
    }
    client->disconnectFromServer();
    client->blockSignals(true);
    client->deleteLater();
}
