#pragma once

#include "FakeObjects.h"
#include "FakeTcpSocket.h"
#include "TcpSocketFactory.h"

/// Makes FakeTcpSockets and keeps track of them.
class FakeTcpSocketFactory : public TcpSocketFactory
{
public:
    TcpSocket* createTcpSocket(QObject* parent) override { return _sockets.add(new FakeTcpSocket(parent)); }
    void disposeTcpSocket(TcpSocket* socket) override { _sockets.dispose(socket); }
    QList<FakeTcpSocket*> sockets() const { return _sockets.living(); }

private:
    FakeObjects<FakeTcpSocket> _sockets;
};
