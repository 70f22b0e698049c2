#pragma once

#include "HttpClientFactory.h"

class Logger;

/// Makes QtHttpClients. Holds no state: any thread may use it for clients of its own.
class QtHttpClientFactory : public HttpClientFactory
{
public:
    HttpClient* createHttpClient(QObject* parent) override;
    void disposeHttpClient(HttpClient* client) override;

private:
    static Logger* log;
};
