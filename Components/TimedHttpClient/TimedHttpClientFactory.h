#pragma once

#include "HttpClientFactory.h"

class Logger;
class TimerFactory;

/// Makes TimedHttpClients around the clients of another factory. Both factories are borrowed.
class TimedHttpClientFactory : public HttpClientFactory
{
public:
    TimedHttpClientFactory(HttpClientFactory* httpClientFactory, TimerFactory* timerFactory);

    /// Always a TimedHttpClient.
    HttpClient* createHttpClient(QObject* parent) override;
    void disposeHttpClient(HttpClient* client) override;

private:
    static Logger* log;

    HttpClientFactory* _httpClientFactory;
    TimerFactory* _timerFactory;
};
