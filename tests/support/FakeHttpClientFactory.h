#pragma once

#include "FakeHttpClient.h"
#include "HttpClientFactory.h"

#include <QList>
#include <QPointer>

#include <gtest/gtest.h>

/// Makes FakeHttpClients and keeps track of them.
class FakeHttpClientFactory : public HttpClientFactory
{
public:
    HttpClient* createHttpClient(QObject* parent) override
    {
        _clients.append(new FakeHttpClient(parent));
        return _clients.last();
    }

    void disposeHttpClient(HttpClient* client) override
    {
        EXPECT_TRUE(_clients.removeOne(qobject_cast<FakeHttpClient*>(client))) << "not a client of this factory";
        client->blockSignals(true);
        client->deleteLater();
    }

    /// Those that exist and have not been given back, the oldest first.
    QList<FakeHttpClient*> clients() const
    {
        QList<FakeHttpClient*> living;
        for (QPointer<FakeHttpClient> const& client : _clients)
            if (client)
                living.append(client);
        return living;
    }

private:
    QList<QPointer<FakeHttpClient>> _clients;
};
