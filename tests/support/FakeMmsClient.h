#pragma once

#include "MmsClient.h"
#include "MmsClientFactory.h"

#include <QList>
#include <QPointer>
#include <QUrl>

#include <gtest/gtest.h>

/// A transport whose server is the test. Only signals what it is told to.
class FakeMmsClient : public MmsClient
{
public:
    struct Connection {
        QString url;
        int timeout = 0;
    };

    FakeMmsClient(MmsClient::StreamingProtocol protocol, QObject* parent) : MmsClient(parent), _protocol(protocol) {}

    /// The calls of connectToServer() so far.
    QList<Connection> connections;
    qint64 bitrate = 1;
    int packetBytes = -1;
    bool isReading = true;

    /// A session with this header begins.
    void begin(QByteArray const& header, qint64 bitsPerSecond, int packetSize)
    {
        _state = Streaming;
        bitrate = bitsPerSecond;
        packetBytes = packetSize;
        emit connected();
        emit onHeader(header);
    }
    void deliver(QByteArray const& data) { emit onData(data); }
    void end(MmsClient::MmsClientError error)
    {
        _state = Unconnected;
        emit done(error);
    }

    bool getHeader(QUrl const&, int, QByteArray&) override { return false; }
    void connectToServer(QUrl const& url, QString const&, int timeout) override
    {
        connections.append({url.toString(), timeout});
        isReading = true;
        _state = Connecting;
    }
    void disconnectFromServer() override {}
    QString remoteUrl() const override { return connections.isEmpty() ? QString() : connections.last().url; }
    MmsClient::MmsClientState state() const override { return _state; }
    MmsClient::MmsClientError error() const override { return NoError; }
    bool isSeekable() const override { return true; }
    bool isBroadcast() const override { return false; }
    qint64 streamBitrate() const override { return bitrate; }
    qint64 totalBytesReceived() const override { return 0; }
    qint64 downstreamBandwidth() const override { return 0; }
    int packetSize() const override { return packetBytes; }
    MmsClient::StreamingProtocol protocol() override { return _protocol; }
    void setClientId(QString const&) override {}
    QString clientId() const override { return {}; }
    void setReading(bool reading) override { isReading = reading; }

private:
    MmsClient::StreamingProtocol const _protocol;
    MmsClient::MmsClientState _state = Unconnected;
};

/// Makes FakeMmsClients, and adds them to a list that may be shared with another factory.
class FakeMmsClientFactory : public MmsClientFactory
{
public:
    using Clients = QList<QPointer<MmsClient>>;

    FakeMmsClientFactory(MmsClient::StreamingProtocol protocol, Clients& clients)
        : _protocol(protocol), _clients(clients)
    {
    }

    MmsClient* createMmsClient(QObject* parent) override
    {
        auto* const client = new FakeMmsClient(_protocol, parent);
        _clients.append(client);
        return client;
    }

    void disposeMmsClient(MmsClient* client) override
    {
        EXPECT_TRUE(_clients.removeOne(client)) << "not a client of this factory";
        client->blockSignals(true);
        client->deleteLater();
    }

private:
    MmsClient::StreamingProtocol const _protocol;
    Clients& _clients;
};
