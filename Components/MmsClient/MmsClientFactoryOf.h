#pragma once

#include "MmsClient.h"
#include "MmsClientFactory.h"

#include <QString>

#include <tuple>

class MmsFarewells;

/// Makes the clients of one class.
template<typename Client, typename... Parts>
class MmsClientFactoryOf : public MmsClientFactory
{
public:
    /// The GUID is what servers know this viewer by. The rest is borrowed, and what the clients' constructor takes.
    explicit MmsClientFactoryOf(QString const& guid, Parts... parts) : _guid(guid), _parts(parts...) {}

    /// Gives this to the clients; borrowed, null for none.
    void setFarewells(MmsFarewells* farewells) { _farewells = farewells; }

    MmsClient* createMmsClient(QObject* parent) override
    {
        auto* const client = std::apply([&](auto... parts) { return new Client(_guid, parts..., parent); }, _parts);
        client->setFarewells(_farewells);
        return client;
    }

    void disposeMmsClient(MmsClient* client) override
    {
        if (!client)
            return;
        client->blockSignals(true);
        if (client->state() != MmsClient::Unconnected && client->state() != MmsClient::Closed)
            client->disconnectFromServer();
        client->deleteLater();
    }

private:
    QString const _guid;
    std::tuple<Parts...> const _parts;
    MmsFarewells* _farewells = nullptr;
};
