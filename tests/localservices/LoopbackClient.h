#pragma once

#include "EventLoop.h"

#include <QHostAddress>
#include <QTcpSocket>

/// A client that says what it is told to, and keeps what it hears.
class LoopbackClient
{
public:
    explicit LoopbackClient(quint16 port)
    {
        QObject::connect(&_socket, &QTcpSocket::readyRead, &_socket, [this] { _heard += _socket.readAll(); });
        _socket.connectToHost(QHostAddress::LocalHost, port);
    }

    void say(QByteArray const& bytes) { _socket.write(bytes); }
    QByteArray const& heard() const { return _heard; }
    void forget() { _heard.clear(); }

    bool waitFor(QByteArray const& text)
    {
        return processEventsUntil([&] { return _heard.contains(text); });
    }
    bool waitForEnd()
    {
        return processEventsUntil([&] { return _socket.state() == QAbstractSocket::UnconnectedState; });
    }

private:
    QTcpSocket _socket;
    QByteArray _heard;
};
