#include "HttpMmsClientFactory.h"

#include "HttpMmsClient.h"

HttpMmsClientFactory::HttpMmsClientFactory(QString const& guid, HttpClientFactory* httpClientFactory,
                                           TimerFactory* timerFactory, DateTimeBuilder* dateTimeBuilder,
                                           MemoQueue* memoQueue)
    : _guid(guid), _httpClientFactory(httpClientFactory), _timerFactory(timerFactory),
      _dateTimeBuilder(dateTimeBuilder), _memoQueue(memoQueue)
{
}

MmsClient* HttpMmsClientFactory::createMmsClient(QObject* parent)
{
    auto* const client =
        new HttpMmsClient(_guid, _httpClientFactory, _timerFactory, _dateTimeBuilder, _memoQueue, parent);
    client->setFarewells(_farewells);
    return client;
}

void HttpMmsClientFactory::disposeMmsClient(MmsClient* client)
{
    if (!client)
        return;
    client->blockSignals(true);
    client->deleteLater();
}
