#include "TimedHttpClientFactory.h"

#include "Logger.h"
#include "LoggerManager.h"
#include "TimedHttpClient.h"

Logger* TimedHttpClientFactory::log = LoggerManager::logger();

TimedHttpClientFactory::TimedHttpClientFactory(HttpClientFactory* httpClientFactory, TimerFactory* timerFactory)
    : _httpClientFactory(httpClientFactory), _timerFactory(timerFactory)
{
}

HttpClient* TimedHttpClientFactory::createHttpClient(QObject* parent)
{
    return new TimedHttpClient(_httpClientFactory->createHttpClient(nullptr), _timerFactory, parent);
}

void TimedHttpClientFactory::disposeHttpClient(HttpClient* client)
{
    if (!client)
        return;
    TimedHttpClient* const timedClient = qobject_cast<TimedHttpClient*>(client);
    if (!timedClient) {
        LOG_WARNING("disposeHttpClient(): not a TimedHttpClient but a %s.", client->metaObject()->className());
        return;
    }
    _httpClientFactory->disposeHttpClient(timedClient->retire());
    timedClient->deleteLater();
}
