#pragma once

#include "FakeTcpSocket.h"
#include "TcpSocketFactory.h"

#include <QList>
#include <QPointer>

#include <gtest/gtest.h>

/// Makes FakeTcpSockets and keeps track of them.
class FakeTcpSocketFactory : public TcpSocketFactory
{
public:
    TcpSocket* createTcpSocket(QObject* parent) override
    {
        _sockets.append(new FakeTcpSocket(parent));
        return _sockets.last();
    }

    void disposeTcpSocket(TcpSocket* socket) override
    {
        if (!socket)
            return;
        EXPECT_TRUE(_sockets.removeOne(qobject_cast<FakeTcpSocket*>(socket))) << "not a socket of this factory";
        socket->blockSignals(true);
        socket->deleteLater();
    }

    /// Those that exist and have not been given back, the oldest first.
    QList<FakeTcpSocket*> sockets() const
    {
        QList<FakeTcpSocket*> living;
        for (QPointer<FakeTcpSocket> const& socket : _sockets)
            if (socket)
                living.append(socket);
        return living;
    }

private:
    QList<QPointer<FakeTcpSocket>> _sockets;
};
