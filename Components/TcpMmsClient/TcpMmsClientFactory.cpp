#include "TcpMmsClientFactory.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "TcpMmsClient.h"

Logger* TcpMmsClientFactory::log = LoggerManager::logger();

TcpMmsClientFactory::TcpMmsClientFactory(QString const& guid, TcpSocketFactory* tcpSocketFactory,
                                         TimerFactory* timerFactory, DateTimeBuilder* dateTimeBuilder,
                                         MemoQueue* memoQueue)
    : _guid(guid), _tcpSocketFactory(tcpSocketFactory), _timerFactory(timerFactory),
      _dateTimeBuilder(dateTimeBuilder), _memoQueue(memoQueue)
{
}

MmsClient* TcpMmsClientFactory::createMmsClient(QObject* parent)
{
    auto* const client =
        new TcpMmsClient(_guid, _timerFactory, _tcpSocketFactory, _dateTimeBuilder, _memoQueue, parent);
    client->setFarewells(_farewells);
    return client;
}

void TcpMmsClientFactory::disposeMmsClient(MmsClient* client)
{
    if (!client)
        return;
    if (!qobject_cast<TcpMmsClient*>(client)) {
        LOG_WARNING("Asked to dispose of a client of another class, %s", client->metaObject()->className());
        return;
    }
    client->blockSignals(true);
    client->disconnectFromServer();
    client->deleteLater();
}
