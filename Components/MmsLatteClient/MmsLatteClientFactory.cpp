#include "MmsLatteClientFactory.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "MmsLatteClient.h"

Logger* MmsLatteClientFactory::log = LoggerManager::logger();

MmsLatteClientFactory::MmsLatteClientFactory(QString const& guid, TimerFactory* timerFactory,
                                             TcpSocketFactory* tcpSocketFactory, HttpClientFactory* httpClientFactory,
                                             DateTimeBuilder* dateTimeBuilder, MemoQueue* memoQueue)
    : _guid(guid), _timerFactory(timerFactory), _tcpSocketFactory(tcpSocketFactory),
      _httpClientFactory(httpClientFactory), _dateTimeBuilder(dateTimeBuilder), _memoQueue(memoQueue),
      _farewells(httpClientFactory)
{
}

LatteClient* MmsLatteClientFactory::createLatteClient(Uri const& uri)
{
    auto* const client = new MmsLatteClient(_guid, uri, _timerFactory, _tcpSocketFactory, _httpClientFactory,
                                            _dateTimeBuilder, _memoQueue, nullptr);
    client->setFarewells(&_farewells);
    return client;
}

void MmsLatteClientFactory::disposeLatteClient(LatteClient* client)
{
    if (!client)
        return;
    if (!qobject_cast<MmsLatteClient*>(client)) {
        LOG_WARNING("Asked to dispose of a client of another class, %s", client->metaObject()->className());
        return;
    }
    client->blockSignals(true);
    client->deleteLater();
}
