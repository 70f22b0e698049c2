#pragma once

class QObject;
class TcpSocket;

/// Makes sockets and takes them back.
class TcpSocketFactory
{
public:
    virtual ~TcpSocketFactory() = default;

    /// A new, unconnected socket on the calling thread.
    virtual TcpSocket* createTcpSocket(QObject* parent) = 0;

    /// Takes back a socket that this factory created: it is silent from now on and deleted later. Null is ignored.
    virtual void disposeTcpSocket(TcpSocket* socket) = 0;
};
