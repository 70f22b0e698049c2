#pragma once

#include "FakeHttpClient.h"
#include "FakeObjects.h"
#include "HttpClientFactory.h"

/// Makes FakeHttpClients and keeps track of them.
class FakeHttpClientFactory : public HttpClientFactory
{
public:
    HttpClient* createHttpClient(QObject* parent) override { return _clients.add(new FakeHttpClient(parent)); }
    void disposeHttpClient(HttpClient* client) override { _clients.dispose(client); }
    QList<FakeHttpClient*> clients() const { return _clients.living(); }

private:
    FakeObjects<FakeHttpClient> _clients;
};
