#include "WebListener.h"

#include "TickCounter.h"
#include "WebConnection.h"

#include <QNetworkProxy>
#include <QSslSocket>

#include <unistd.h>

WebListener::WebListener(TickCounter& tickCounter) : _tickCounter(tickCounter)
{
    setProxy(QNetworkProxy::NoProxy);
    setMaxPendingConnections(maximumConnections);
}

int WebListener::connectionCount() const
{
    int count = 0;
    for (auto const* const socket : findChildren<QSslSocket*>())
        count += socket->state() == QAbstractSocket::ConnectedState ? 1 : 0;
    return count;
}

void WebListener::check(qint64 msNow)
{
    for (QSslSocket* const socket : findChildren<QSslSocket*>()) {
        if (WebConnection* const connection = WebConnection::of(socket))
            connection->check(msNow);
    }
}

int WebListener::drop()
{
    int dropped = 0;
    for (QSslSocket* const socket : findChildren<QSslSocket*>()) {
        dropped += socket->state() == QAbstractSocket::ConnectedState ? 1 : 0;
        socket->abort();
    }
    return dropped;
}

void WebListener::incomingConnection(qintptr handle)
{
    auto* const socket = new QSslSocket(this);
    if (findChildren<QSslSocket*>().size() > maximumConnections || !socket->setSocketDescriptor(handle)) {
        ::close(static_cast<int>(handle));
        delete socket;
        return;
    }
    socket->setReadBufferSize(WebConnection::maximumRequest + 1);
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    if (!_tls) {
        new WebConnection(socket, _tickCounter.msSinceEpoch());
        return addPendingConnection(socket);
    }
    socket->setSslConfiguration(*_tls);
    // What arrives in one piece with the end of the handshake has to find the module there.
    connect(socket, &QSslSocket::encrypted, this, [this, socket] { addPendingConnection(socket); });
    socket->startServerEncryption();
    new WebConnection(socket, _tickCounter.msSinceEpoch());
}
