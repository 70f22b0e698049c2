#include "HttpTestServer.h"

#include "EventLoop.h"

#include <QHostAddress>

#include <algorithm>
#include <gtest/gtest.h>

HttpTestServer::HttpTestServer(std::unique_ptr<QTcpServer> server) : _server(std::move(server))
{
    EXPECT_TRUE(_server->listen(QHostAddress::LocalHost, 0));
    connect(_server.get(), &QTcpServer::pendingConnectionAvailable, this, [this] {
        while (QTcpSocket* const socket = _server->nextPendingConnection()) {
            socket->setParent(this);
            _connections.append({socket});
        }
    });
}

HttpTestServer::~HttpTestServer() = default;

bool HttpTestServer::allClosed() const
{
    return std::all_of(_connections.cbegin(), _connections.cend(), [](Connection const& connection) {
        return connection.socket->state() == QAbstractSocket::UnconnectedState;
    });
}

HttpTestServer::Request HttpTestServer::takeRequest()
{
    Request request;
    bool const isTaken = processEventsUntil([&] {
        for (Connection& connection : _connections) {
            connection.received += connection.socket->readAll();
            if (takeRequest(connection.received, request)) {
                _current = connection.socket;
                return true;
            }
        }
        return false;
    });
    EXPECT_TRUE(isTaken) << "no request came";
    return request;
}

bool HttpTestServer::takeRequest(QByteArray& received, Request& request)
{
    qsizetype const end = received.indexOf("\r\n\r\n");
    if (end < 0)
        return false;
    QByteArray const head = received.first(end);
    qsizetype length = 0;
    QList<QByteArray> lines;
    for (QByteArray const& line : head.split('\n')) {
        lines.append(line.endsWith('\r') ? line.chopped(1) : line);
        if (line.toLower().startsWith("content-length:"))
            length = line.mid(15).trimmed().toLongLong();
    }
    if (received.size() < end + 4 + length)
        return false;
    request = {lines, received.mid(end + 4, length)};
    received.remove(0, end + 4 + length);
    return true;
}

void HttpTestServer::answer(QByteArray const& response)
{
    takeRequest();
    send(response);
}

void HttpTestServer::send(QByteArray const& bytes)
{
    ASSERT_TRUE(_current);
    _current->write(bytes);
    _current->flush();
}

qint64 HttpTestServer::bytesToWrite() const
{
    return _current->bytesToWrite();
}

void HttpTestServer::close()
{
    ASSERT_TRUE(_current);
    _current->disconnectFromHost();
}
