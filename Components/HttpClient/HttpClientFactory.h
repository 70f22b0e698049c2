#pragma once

class HttpClient;
class QObject;

/// Makes HTTP clients and takes them back.
class HttpClientFactory
{
public:
    virtual ~HttpClientFactory() = default;

    /// A new client on the calling thread.
    virtual HttpClient* createHttpClient(QObject* parent) = 0;

    /// Takes back a client that this factory created: it is silent from now on and deleted later. Null is ignored.
    virtual void disposeHttpClient(HttpClient* client) = 0;
};
