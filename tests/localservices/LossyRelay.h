#pragma once

#include <QHostAddress>
#include <QTcpServer>
#include <QTcpSocket>

#include <memory>
#include <vector>

/// A network between clients and a server on this machine, which can lose what the server says, and break.
class LossyRelay
{
public:
    explicit LossyRelay(quint16 serverPort)
    {
        QObject::connect(&_server, &QTcpServer::newConnection, &_server, [this, serverPort] {
            while (QTcpSocket* const client = _server.nextPendingConnection())
                join(client, serverPort);
        });
        _server.listen(QHostAddress::LocalHost, 0);
    }

    quint16 port() const { return _server.serverPort(); }

    /// From now on nothing of what the server says arrives.
    void loseAnswers() { _isLossy = true; }

    /// Breaks all links; new ones are good.
    void breakLinks()
    {
        _links.clear();
        _isLossy = false;
    }

private:
    struct Link {
        std::unique_ptr<QTcpSocket> client;
        std::unique_ptr<QTcpSocket> server;
    };

    void join(QTcpSocket* client, quint16 serverPort)
    {
        client->setParent(nullptr);
        auto* const server = new QTcpSocket;
        _links.push_back({std::unique_ptr<QTcpSocket>(client), std::unique_ptr<QTcpSocket>(server)});
        QObject::connect(client, &QTcpSocket::readyRead, server, [=] { server->write(client->readAll()); });
        QObject::connect(server, &QTcpSocket::readyRead, client, [=, this] {
            QByteArray const bytes = server->readAll();
            if (!_isLossy)
                client->write(bytes);
        });
        QObject::connect(server, &QTcpSocket::disconnected, client, [=, this] {
            if (!_isLossy)
                client->disconnectFromHost();
        });
        server->connectToHost(QHostAddress::LocalHost, serverPort);
    }

    QTcpServer _server;
    std::vector<Link> _links;
    bool _isLossy = false;
};
