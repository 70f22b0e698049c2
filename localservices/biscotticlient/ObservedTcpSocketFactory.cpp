#include "ObservedTcpSocketFactory.h"

#include "TcpSocket.h"

TcpSocket* ObservedTcpSocketFactory::createTcpSocket(QObject* parent)
{
    TcpSocket* const socket = QtTcpSocketFactory::createTcpSocket(parent);
    QObject::connect(socket, &TcpSocket::error, socket,
                     [call = _onError](TcpSocket* failed) { call(failed->errorString()); });
    return socket;
}
